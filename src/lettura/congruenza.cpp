#include "lettura/congruenza.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "base/codice_fiscale.h"
#include "lettura/valori.h"
#include "liste/codici_per_anno.h"
#include "modello/regole.h"

namespace cu::lettura {

using modello::Quadro;

namespace {

std::string casella(int numero) { return "casella " + std::to_string(numero); }

template <class Testo>
void della(Segnalatore& segnala, Regola regola, const Cella& cella, const Testo& testo) {
  segnala.campo(regola, CelleRiga::tratto(cella), cella.codice, testo);
}

void esige(const CelleRiga& celle, Quadro quadro, int numero, std::string_view codice, const char* dato,
           Segnalatore& segnala) {
  // An unreadable code may be the one that is missing.
  if (celle.trova(quadro, numero) != nullptr || !segnala.integra()) return;
  segnala.campo(Regola::K07, celle.posto(codice), codice,
                [&] { return "Manca " + std::string(dato) + " (" + std::string(codice) + ")."; });
}

struct DueCaselle {
  int ritenuta;
  int imponibile;
};

void nonOltre(const CelleRiga& celle, Regola regola, DueCaselle coppia, Segnalatore& segnala) {
  const Cella* const ritenuta = celle.somma(coppia.ritenuta);
  if (ritenuta == nullptr || !ritenuta->buona) return;
  const Cella* const imponibile = celle.somma(coppia.imponibile);
  if (imponibile != nullptr && !imponibile->buona) return;
  const std::int64_t limite = imponibile == nullptr ? 0 : imponibile->cents;
  if (ritenuta->cents <= limite) return;
  della(segnala, regola, *ritenuta, [&] {
    return "La ritenuta della " + casella(coppia.ritenuta) + " (" + euro(ritenuta->cents) +
           ") supera l'imponibile della " + casella(coppia.imponibile) + " (" + euro(limite) + ").";
  });
}

void nonInsieme(const CelleRiga& celle, Regola regola, int prima, int seconda, Segnalatore& segnala) {
  const Cella* const altra = celle.somma(seconda);
  if (celle.somma(prima) == nullptr || altra == nullptr) return;
  della(segnala, regola, *altra, [&] {
    return "La " + casella(seconda) + " è compilata accanto alla " + casella(prima) + ", che la esclude.";
  });
}

void codiceDelleSomme(const CelleRiga& celle, Segnalatore& segnala) {
  const Cella* const codice = celle.somma(6);
  const Cella* const somma = celle.somma(7);
  if (somma != nullptr && codice == nullptr) {
    della(segnala, Regola::C02, *somma, [] {
      return std::string("Ci sono somme non soggette (casella 7) senza il loro codice (casella 6).");
    });
  } else if (codice != nullptr && somma == nullptr) {
    della(segnala, Regola::C02, *codice, [] {
      return std::string("C'è il codice delle somme non soggette (casella 6) senza le somme (casella 7).");
    });
  }
}

void contributi(const CelleRiga& celle, Segnalatore& segnala) {
  const Cella* const dovuti = celle.somma(38);
  const Cella* const committente = celle.somma(34);
  const Cella* const percipiente = celle.somma(35);
  const Cella* const dove = dovuti != nullptr ? dovuti : committente != nullptr ? committente : percipiente;
  if (dove == nullptr) return;
  for (const Cella* const cella : {dovuti, committente, percipiente}) {
    if (cella != nullptr && !cella->buona) return;
  }
  const std::int64_t somma = celle.cents(34) + celle.cents(35);
  if (celle.cents(38) == somma) return;
  della(segnala, Regola::C07, *dove, [&] {
    return "I contributi dovuti (casella 38, " + euro(celle.cents(38)) +
           ") non sono la somma di quelli delle caselle 34 e 35 (" + euro(somma) + ").";
  });
}

// A certificate of garnishments alone has no reason.
bool soloPignoramenti(const CelleRiga& celle) {
  const auto pignoramento = [](const Cella& cella) {
    return cella.casella->numero >= 101 && cella.casella->numero <= 108;
  };
  return std::any_of(celle.begin(), celle.end(), pignoramento) &&
         std::all_of(celle.begin(), celle.end(),
                     [&](const Cella& cella) { return pignoramento(cella) || cella.casella->numero == 72; });
}

}  // namespace

void Congruenza::percipiente(const CelleRiga& celle, Segnalatore& segnala) {
  causale_.clear();
  somme_ = {};
  esige(celle, Quadro::Azienda, 1, "DA001001", "il codice fiscale del sostituto", segnala);
  esige(celle, Quadro::Percipiente, 1, "DA002001", "il codice fiscale del percipiente", segnala);
  esige(celle, Quadro::Percipiente, 2, "DA002002", "il cognome o la denominazione del percipiente", segnala);
  evento(celle, segnala);
  const Cella* const codice = celle.trova(Quadro::Percipiente, 1);
  if (codice == nullptr || !codice->buona) return;
  if (formaCodice(codice->testo) == FormaCodice::Persona) {
    nascita(celle, *codice, segnala);
    return;
  }
  for (const Cella& cella : celle) {
    if (cella.casella->quadro != Quadro::Percipiente || cella.casella->numero < 3 ||
        cella.casella->numero > 7)
      continue;
    della(segnala, Regola::K08, cella, [&] {
      return "La cella " + citato(cella.codice) +
             " dice nome, sesso o nascita di un percipiente che non è una persona.";
    });
  }
}

// Of the list only changes are known.
void Congruenza::evento(const CelleRiga& celle, Segnalatore& segnala) const {
  if (!daScegliere_ || !anno_) return;
  const Cella* const cella = celle.trova(Quadro::Percipiente, 9);
  if (cella == nullptr || !cella->buona || eventiEccezionaliPerAnno().ammesso(cella->testo, *anno_)) return;
  della(segnala, Regola::C10, *cella, [&] {
    return "L'evento eccezionale " + citato(cella->testo) +
           " (casella 9) non è più nel modello dei compensi del " + std::to_string(*anno_) + ".";
  });
}

void Congruenza::nascita(const CelleRiga& celle, const Cella& codice, Segnalatore& segnala) const {
  const auto dati = datiNelCodice(codice.testo);
  if (!dati) return;
  const Cella* const sesso = celle.trova(Quadro::Percipiente, 4);
  const char atteso = dati->femmina ? 'F' : 'M';
  if (sesso != nullptr && sesso->testo != std::string_view(&atteso, 1)) {
    della(segnala, Regola::C05, *sesso, [&] {
      return "Il sesso è " + citato(sesso->testo) + ", secondo il codice fiscale " + std::string(1, atteso) +
             ".";
    });
  }
  const Cella* const data = celle.trova(Quadro::Percipiente, 5);
  const auto nato = data != nullptr && data->buona ? giorno(data->testo) : std::nullopt;
  if (nato &&
      (nato->year() % 100 != dati->anno || nato->month() != dati->mese || nato->day() != dati->giorno)) {
    della(segnala, Regola::C05, *data, [&] {
      return "La data di nascita " + nato->toItalian() + " non è quella del codice fiscale " +
             citato(codice.testo) + ".";
    });
  }
  const Cella* const luogo = celle.trova(Quadro::Percipiente, 6);
  if (luogo == nullptr || luoghi_ == nullptr) return;
  const auto suo = luoghi_->haNome(dati->luogo, da1252(luogo->testo));
  if (suo && !*suo) {
    della(segnala, Regola::C05, *luogo, [&] {
      return "Il luogo di nascita " + citato(luogo->testo) + " non è quello del codice fiscale (" +
             dati->luogo + ").";
    });
  }
}

void Congruenza::causale(const CelleRiga& celle, Segnalatore& segnala) {
  const Cella* const causale = celle.somma(1);
  if (causale == nullptr) {
    if (!soloPignoramenti(celle)) {
      esige(celle, Quadro::Autonomo, 1, "AU001001", "la causale nel primo modulo", segnala);
    }
    return;
  }
  causale_ = causale->testo;
  const bool sua = !anno_ || (daScegliere_ ? causaliPerAnno().di(causale_, *anno_) == Validita::Nota
                                           : causaleDellAnno(causale_, *anno_));
  if (causale->buona && !sua) {
    della(segnala, Regola::C09, *causale, [&] {
      return "La causale " + citato(causale_) + " non è fra quelle dei compensi del " +
             std::to_string(*anno_) + ".";
    });
  }
}

void Congruenza::primoModulo(const CelleRiga& celle, Segnalatore& segnala) {
  causale(celle, segnala);
  nonOltre(celle, Regola::C03, {9, 8}, segnala);
  nonOltre(celle, Regola::C03, {10, 8}, segnala);
  if (celle.cents(9) > 0 && celle.cents(10) > 0) nonInsieme(celle, Regola::C04, 9, 10, segnala);
  if (modello::haAddizionali(causale_)) return;
  for (const Cella& cella : celle) {
    if (cella.casella->numero < 12 || cella.casella->numero > 17) continue;
    della(segnala, Regola::K08, cella,
          [&] { return "La " + casella(cella.casella->numero) + " spetta alla sola causale N."; });
  }
}

void Congruenza::annoDelReddito(const CelleRiga& celle, Segnalatore& segnala) const {
  const Cella* const anno = celle.somma(2);
  const Cella* const anticipazione = celle.somma(3);
  const bool anticipata = anticipazione != nullptr && anticipazione->testo == "1";
  if (anno == nullptr || anticipata || modello::chiedeAnno(causale_)) return;
  della(segnala, Regola::C08, *anno, [&] {
    return "La casella 2 (anno) è compilata con la causale " + citato(causale_) + " e senza anticipazione.";
  });
}

// The lists of the later forms. Of one that is known in part, what is missing may exist.
void Congruenza::codici(const CelleRiga& celle, Segnalatore& segnala) const {
  if (!daScegliere_ || !anno_) return;
  const auto confronta = [&](int numero, const CodiciPerAnno& elenco, const char* che) {
    const Cella* const cella = celle.somma(numero);
    if (cella == nullptr || !cella->buona || elenco.di(cella->testo, *anno_) == Validita::Nota) return;
    della(segnala, Regola::C10, *cella, [&] {
      return std::string(che) + " " + citato(cella->testo) + " (" + casella(numero) +
             ") non è fra i codici noti del " + std::to_string(*anno_) + ": " + elenco.elencoDi(*anno_) + ".";
    });
  };
  confronta(6, codiciNonSoggettiPerAnno(), "Il codice delle somme non soggette");
  confronta(33, categorieEntiPerAnno(), "La categoria previdenziale");
}

void Congruenza::somme(const CelleRiga& celle, bool primo, const Segnalatore& segnala) {
  for (const int numero : {8, 4, 5, 7, 20, 22}) {
    const Cella* const cella = celle.somma(numero);
    if (cella == nullptr || cella->casella->natura != Natura::Importo) continue;
    if (!cella->buona) somme_.certe = false;
    if (somme_.codice.empty()) {
      somme_.riga = segnala.numero();
      somme_.dove = CelleRiga::tratto(*cella);
      somme_.codice = cella->codice;
    }
  }
  somme_.nonSoggette += celle.cents(5) + celle.cents(7);
  if (!primo) return;
  somme_.lordo = celle.cents(4);
  somme_.imponibile = celle.cents(8);
  somme_.rimborsi = anno_ && *anno_ <= 2014 ? celle.cents(22) : celle.cents(20);
}

void Congruenza::modulo(const CelleRiga& celle, bool primo, Segnalatore& segnala) {
  if (primo) primoModulo(celle, segnala);
  somme(celle, primo, segnala);
  codiceDelleSomme(celle, segnala);
  codici(celle, segnala);
  constexpr auto kCoppie = std::to_array<DueCaselle>(
      {{54, 53}, {55, 53}, {103, 102}, {107, 106}, {132, 131}, {134, 133}, {136, 135}, {138, 137}});
  for (const DueCaselle& coppia : kCoppie) nonOltre(celle, Regola::C03, coppia, segnala);
  nonOltre(celle, Regola::C06, {19, 18}, segnala);
  contributi(celle, segnala);
  annoDelReddito(celle, segnala);
  nonInsieme(celle, Regola::K08, 103, 104, segnala);
  nonInsieme(celle, Regola::K08, 107, 108, segnala);
}

void Congruenza::fine(bool affidabile, Segnalatore& segnala) const {
  if (!affidabile || !somme_.certe || !anno_ || somme_.codice.empty()) return;
  const std::int64_t somma = somme_.imponibile + somme_.nonSoggette + somme_.rimborsi;
  if (somma == somme_.lordo) return;
  segnala.campoDi(somme_.riga, 'H', Regola::C01, somme_.dove, somme_.codice, [&] {
    return "Il lordo (casella 4, " + euro(somme_.lordo) +
           ") non è la somma di imponibile, somme non soggette e spese rimborsate (" + euro(somma) + ").";
  });
}

}  // namespace cu::lettura
