#include "lettura/celle_riga.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "base/ascii.h"
#include "base/codice_fiscale.h"
#include "base/text.h"
#include "lettura/testate.h"
#include "lettura/valori.h"

namespace cu::lettura {

using modello::kLarghezzaCella;
using modello::kLunghezzaCodice;

namespace {

constexpr std::size_t kValore = kLarghezzaCella - kLunghezzaCodice;

const char* atteso(Natura natura) {
  switch (natura) {
    case Natura::Numero:
      return "atteso un numero allineato a destra.";
    case Natura::Anno:
      return "atteso un anno di quattro cifre, allineato a destra.";
    case Natura::Flag:
      return "atteso 1 in fondo alla cella.";
    case Natura::Data:
      return "attesa una data GGMMAAAA che esista, allineata a destra.";
    case Natura::Importo:
      return "atteso un importo come 1234,50, senza segno e allineato a destra.";
    case Natura::ImportoConSegno:
      return "atteso un importo come 1234,50, allineato a destra.";
    case Natura::CodiceFiscale:
      return "atteso un codice fiscale di 16 caratteri o di 11 cifre.";
    case Natura::Provincia:
      return "attesa la sigla di una provincia.";
    case Natura::ProvinciaNascita:
      return "attesa la sigla di una provincia, o EE.";
    case Natura::Testo:
      break;
  }
  return "";
}

bool delGenere(Cella& cella) {
  const std::string_view testo = cella.testo;
  switch (cella.casella->natura) {
    case Natura::Numero:
      return std::all_of(testo.begin(), testo.end(), isDigit);
    case Natura::Anno:
      return testo.size() == 4 && numero(testo) >= 1900 && numero(testo) < 2100;
    case Natura::Flag:
      return testo == "1" || testo == "0";
    case Natura::Data:
      return giorno(testo).has_value();
    case Natura::Importo:
    case Natura::ImportoConSegno: {
      const auto cents = centesimi(testo, cella.casella->natura == Natura::ImportoConSegno);
      if (cents) cella.cents = *cents;
      return cents.has_value();
    }
    case Natura::CodiceFiscale:
      return formaCodice(testo) != FormaCodice::Nessuna;
    case Natura::Provincia:
      return provincia(testo);
    case Natura::ProvinciaNascita:
      return provincia(testo) || testo == "EE";
    case Natura::Testo:
      break;
  }
  return true;
}

constexpr Tratto trattoDi(int prima, int quante) {
  return {modello::kPrimaCella + prima * kLarghezzaCella, quante * kLarghezzaCella};
}

std::string laCella(std::string_view codice) { return "La cella " + citato(codice); }

}  // namespace

struct CelleRiga::Stato {
  const Caselle& caselle;
  modello::Record record;
  bool primoModulo;
  Segnalatore& segnala;
  std::string_view codice;  // of the last cell that was read
  bool conosciuta = false;  // whether the record has that code
  int ultimo = -1;          // part and number of the last code in order
  std::size_t usati = 0;    // bytes of the joined values
};

const Cella* CelleRiga::trova(modello::Quadro quadro, int numero) const {
  const Cella* const trovata = std::find_if(begin(), end(), [&](const Cella& cella) {
    return cella.casella->quadro == quadro && cella.casella->numero == numero;
  });
  return trovata == end() ? nullptr : trovata;
}

Tratto CelleRiga::posto(std::string_view codice) const {
  int posto = 0;
  for (const Cella& cella : *this) {
    if (cella.codice > codice) return trattoDi(cella.prima, 1);
    posto = cella.prima + cella.quante;
  }
  return trattoDi(std::min(posto, modello::kCelle - 1), 1);
}

void CelleRiga::controlla(Cella& cella, std::string_view primoValore, Segnalatore& segnala) {
  const Natura natura = cella.casella->natura;
  const Tratto dove = tratto(cella);
  cella.buona = segnala.leggibile(dove);
  const bool allineata =
      natura == Natura::Testo ||
      (cella.quante == 1 && (aDestra(natura) ? primoValore.back() != ' ' : primoValore.front() != ' '));
  if (!allineata || !delGenere(cella)) {
    cella.buona = false;
    cella.cents = 0;
    segnala.campo(Regola::K03, dove, cella.codice, [&] {
      return laCella(cella.codice) + " contiene " + citato(trimRight(primoValore)) + ": " + atteso(natura);
    });
  } else if (natura == Natura::CodiceFiscale && !controlloGiusto(cella.testo)) {
    segnala.campo(Regola::K04, dove, cella.codice, [&] {
      return laCella(cella.codice) + " contiene " + citato(cella.testo) +
             ": l'ultimo carattere non risulta dagli altri.";
    });
  }
}

void CelleRiga::inizia(Stato& stato, int indice, std::string_view codice, std::string_view valore) {
  const Casella* const casella = stato.caselle.trova(stato.record, codice);
  stato.codice = codice;
  stato.conosciuta = casella != nullptr;
  if (casella == nullptr) {
    stato.segnala.campo(Regola::K01, trattoDi(indice, 1), codice, [&] {
      return "Il codice " + citato(trimRight(codice)) + " non è del modello di quell'anno.";
    });
    return;
  }
  if (valore.front() == '+' && casella->natura == Natura::Testo) {
    stato.segnala.campo(Regola::K05, trattoDi(indice, 1), codice,
                        [&] { return laCella(codice) + " continua un testo che non è cominciato."; });
  } else {
    const int ordine = static_cast<int>(casella->quadro) * 1000 + casella->numero;
    if (ordine <= stato.ultimo) {
      stato.segnala.campo(Regola::K02, trattoDi(indice, 1), codice, [&] {
        return laCella(codice) +
               (ordine == stato.ultimo ? " è data due volte." : " è fuori dall'ordine dei codici.");
      });
    }
    stato.ultimo = ordine;
  }
  if (!stato.primoModulo && !casella->altriModuli) {
    stato.segnala.campo(Regola::K08, trattoDi(indice, 1), codice,
                        [&] { return laCella(codice) + " appartiene solo al primo modulo."; });
  }
  char* const inizio = testi_.data() + stato.usati;
  std::memcpy(inizio, valore.data(), valore.size());
  stato.usati += valore.size();
  celle_[quante_++] = {casella, codice, indice, 1, {inizio, valore.size()}, false, 0};
}

void CelleRiga::continua(Stato& stato, int indice, std::string_view valore) {
  if (!stato.conosciuta) return;
  Cella& cella = celle_[quante_ - 1];
  std::memcpy(testi_.data() + stato.usati, valore.data() + 1, valore.size() - 1);
  stato.usati += valore.size() - 1;
  cella.testo = {cella.testo.data(), cella.testo.size() + valore.size() - 1};
  cella.quante = indice - cella.prima + 1;
}

void CelleRiga::aggiungi(Stato& stato, int indice, std::string_view codice, std::string_view valore) {
  if (vuoto(valore)) {
    stato.segnala.campo(Regola::K06, trattoDi(indice, 1), codice,
                        [&] { return laCella(codice) + " non ha un valore."; });
    return;
  }
  if (valore.front() == '+' && codice == stato.codice) {
    continua(stato, indice, valore);
  } else {
    inizia(stato, indice, codice, valore);
  }
}

void CelleRiga::leggi(std::string_view riga, modello::Record record, const Caselle& caselle, bool primoModulo,
                      Segnalatore& segnala) {
  constexpr std::size_t kInizio = modello::kPrimaCella - 1;
  constexpr std::size_t kTutte = std::size_t{modello::kCelle} * kLarghezzaCella;
  quante_ = 0;
  Stato stato{caselle, record, primoModulo, segnala, {}, false, -1, 0};
  int buco = -1;
  for (int i = 0; i < modello::kCelle; ++i) {
    const std::size_t inizio = kInizio + static_cast<std::size_t>(i) * kLarghezzaCella;
    const std::string_view cella = riga.substr(inizio, kLarghezzaCella);
    if (vuoto(cella)) {
      if (buco < 0 && vuoto(riga.substr(inizio, kInizio + kTutte - inizio))) break;
      if (buco < 0) buco = i;
      continue;
    }
    if (buco >= 0) {
      segnala.campo(Regola::K06, trattoDi(buco, i - buco), {},
                    [] { return std::string("Una cella vuota sta fra due celle usate."); });
      buco = -1;
    }
    aggiungi(stato, i, cella.substr(0, kLunghezzaCodice), cella.substr(kLunghezzaCodice, kValore));
  }
  for (std::size_t n = 0; n < quante_; ++n) {
    Cella& cella = celle_[n];
    const std::string_view primo = cella.testo.substr(0, kValore);
    cella.testo = trimRight(cella.testo);
    if (aDestra(cella.casella->natura)) cella.testo = trim(cella.testo);
    controlla(cella, primo, segnala);
  }
}

}  // namespace cu::lettura
