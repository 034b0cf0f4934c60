#include <algorithm>
#include <map>
#include <string>
#include <unordered_map>
#include <vector>

#include "base/codice_fiscale.h"
#include "base/text.h"
#include "intake/campi_percipiente.h"
#include "intake/mancanti.h"
#include "intake/riga_in_corso.h"
#include "intake/soggetti.h"

namespace cu::intake {
namespace {

std::string differenzePercipiente(const schede::SchedaPercipiente& prima,
                                  const schede::SchedaPercipiente& dopo, const AccantoPercipiente& accanto) {
  const schede::SchedaAnagrafica& a = prima.anagrafica;
  const schede::SchedaAnagrafica& b = dopo.anagrafica;
  std::string testo;
  const auto se = [&](bool diverso, const char* cosa) {
    if (!diverso) return;
    if (!testo.empty()) testo += ", ";
    testo += cosa;
  };
  se(prima.codice != dopo.codice, "codice");
  se(a.anagrafica != b.anagrafica || a.nome != b.nome, "nome");
  se(a.codiceFiscale != b.codiceFiscale, "codice fiscale");
  se(a.partitaIva != b.partitaIva, "partita IVA");
  se(a.sesso != b.sesso || a.nascita != b.nascita || a.idComuneNascita != b.idComuneNascita ||
         a.idNazionalita != b.idNazionalita || a.personaFisica != b.personaFisica,
     "nascita");
  se(a.indirizzo != b.indirizzo || a.cap != b.cap || a.idComune != b.idComune || a.idNazione != b.idNazione ||
         !accanto.localitaEstera.empty(),
     "residenza");
  se(a.email != b.email || a.telefono != b.telefono || a.fax != b.fax, "recapiti");
  se(prima.idEnte != dopo.idEnte || prima.idCategoriaEnte != dopo.idCategoriaEnte ||
         !accanto.enteNome.empty() || !accanto.categoria.empty(),
     "ente previdenziale");
  if (testo.empty()) testo = "altri dati";
  return testo;
}

bool aggiunge(const AccantoPercipiente& accanto) {
  return !accanto.localitaEstera.empty() || !accanto.enteNome.empty() || !accanto.enteCodiceFiscale.empty() ||
         !accanto.categoria.empty() || !accanto.categoriaParticolare.empty() || !accanto.evento.empty();
}

class PianoPercipienti {
 public:
  PianoPercipienti(Piano& piano, const ArchivioLetto& archivio)
      : piano_(piano), archivio_(archivio), soggetti_(archivio.percipienti) {}

  void riga(RigaPiano& riga) {
    RigaInCorso corso(piano_, riga);
    if (!daPianificare(corso)) return;
    const Chiavi chiavi = chiaviDi(corso.letta());
    if (gia(corso, chiavi)) return;
    const schede::SchedaPercipiente* trovato = nullptr;
    if (!trova(corso, chiavi, trovato)) {
      riga.stato = corso.stato(StatoRiga::Errore);
      return;
    }
    Voce<schede::SchedaPercipiente> voce;
    if (trovato != nullptr) voce.prima = *trovato;
    voce.dopo = trovato == nullptr ? schede::SchedaPercipiente{} : *trovato;
    voce.dopo.idAzienda = piano_.richiesta.idAzienda;
    voce.riga = static_cast<std::size_t>(&riga - piano_.righe.data());
    AccantoPercipiente accanto;
    applicaCampi(corso, archivio_, voce.dopo, accanto, trovato == nullptr);
    mancanti(corso, voce.dopo);
    riga.voce = piano_.percipienti.size();
    if (trovato == nullptr) {
      riga.stato = corso.stato(StatoRiga::Nuovo);
      if (voce.dopo.codice.empty()) senzaCodice_.push_back(riga.voce);
    } else if (voce.dopo == *trovato && !aggiunge(accanto)) {
      corso.uguale();
    } else {
      corso.diverso(differenzePercipiente(*trovato, voce.dopo, accanto));
    }
    piano_.percipienti.push_back(std::move(voce));
    piano_.accantoPercipienti.push_back(std::move(accanto));
  }

  // Gives the codes that rows do not have.
  void codici() {
    NumeriPercipienti numeri;
    for (const schede::SchedaPercipiente& uno : archivio_.percipienti) numeri.osserva(uno.codice);
    for (const auto& voce : piano_.percipienti) numeri.osserva(voce.dopo.codice);
    for (const std::size_t quale : senzaCodice_) {
      piano_.percipienti[quale].dopo.codice = numeri.prossimo();
      piano_.righe[piano_.percipienti[quale].riga].derivati.push_back(
          static_cast<std::uint8_t>(ColonnaPercipiente::Codice));
    }
    for (MancantePiano& mancante : piano_.mancanti) {
      if (mancante.percipiente.empty()) continue;
      const std::size_t voce = static_cast<std::size_t>(leadingInteger(mancante.percipiente));
      mancante.percipiente = piano_.percipienti[voce].dopo.codice;
    }
  }

 private:
  // A second row of the same payee in the files: the same again, or a contradiction.
  bool gia(RigaInCorso& corso, const Chiavi& chiavi) {
    for (const std::string& chiave : chiaviNeiFile(corso, chiavi)) {
      const auto [prima, sola] = viste_.emplace(chiave, &corso.riga());
      if (sola || prima->second == &corso.riga()) continue;
      RigaPiano& altra = *prima->second;
      const std::string dove =
          "nella riga " + fromInteger(static_cast<std::int64_t>(piano_.letta(altra).numero));
      if (stessiCampi(piano_.letta(altra), corso.letta())) {
        corso.riga().voce = altra.voce;
        corso.uguale(dove);
      } else {
        corso.segnala(Codice::P10, "lo stesso percipiente, con altri dati, è " + dove);
        corso.riga().stato = StatoRiga::Errore;
      }
      return true;
    }
    return false;
  }

  // Payees of a VAT group have the number in common: it counts where the row has no other key. Without any
  // key only a row that is the same in everything is the same payee.
  static std::vector<std::string> chiaviNeiFile(const RigaInCorso& corso, const Chiavi& chiavi) {
    std::vector<std::string> trovate;
    if (!chiavi.codice.empty()) trovate.push_back("k" + lowerAscii(chiavi.codice));
    if (!chiavi.codiceFiscale.empty()) trovate.push_back("f" + lowerAscii(chiavi.codiceFiscale));
    if (trovate.empty() && !chiavi.partitaIva.empty()) trovate.push_back("v" + lowerAscii(chiavi.partitaIva));
    if (!trovate.empty()) return trovate;
    std::string tutto = "t";
    for (const Campo& campo : corso.letta().campi) {
      tutto += static_cast<char>(campo.colonna);
      tutto += campo.stato == StatoCampo::Dato ? '=' : '-';
      tutto += campo.valore.toText() + '\n';
    }
    return {tutto};
  }

  static bool stessiCampi(const RigaLetta& a, const RigaLetta& b) {
    return std::equal(a.campi.begin(), a.campi.end(), b.campi.begin(), b.campi.end(),
                      [](const Campo& uno, const Campo& altro) {
                        return uno.colonna == altro.colonna && uno.stato == altro.stato &&
                               Value::of(uno.valore) == Value::of(altro.valore);
                      });
  }

  // False where the row is not to go on: its keys contradict each other, or several payees are possible.
  bool trova(RigaInCorso& corso, const Chiavi& chiavi, const schede::SchedaPercipiente*& trovato) {
    if (corso.decisione().idAnagrafica != 0) {
      trovato = soggetti_.diId(corso.decisione().idAnagrafica);
      return true;
    }
    if (!soggetti_.trova(corso, chiavi, trovato)) return false;
    if (trovato != nullptr || corso.decisione().nuovoPercipiente) return true;
    const auto omonimi = soggetti_.omonimi(chiavi, corso.letta().valore(ColonnaPercipiente::Cognome).text(),
                                           corso.letta().valore(ColonnaPercipiente::Nome).text());
    if (omonimi.empty()) return true;
    soggetti_.candidati(corso, omonimi,
                        "il nome è già in archivio, e nessun codice dice se è lo stesso percipiente");
    return false;
  }

  void mancanti(RigaInCorso& corso, const schede::SchedaPercipiente& percipiente) {
    for (const Mancanza mancanza : mancanze(percipiente, archivio_.luoghi)) {
      // The code is not known before all rows are: its place among the records stands for it.
      piano_.mancanti.push_back({fromInteger(static_cast<std::int64_t>(piano_.percipienti.size())),
                                 mancanza->numero, std::string(mancanza->messaggio)});
      corso.segnala(Codice::P11, std::string(mancanza->messaggio));
    }
  }

  Piano& piano_;
  const ArchivioLetto& archivio_;
  Soggetti soggetti_;
  std::unordered_map<std::string, RigaPiano*> viste_;
  std::vector<std::size_t> senzaCodice_;
};

}  // namespace

void pianificaPercipienti(Piano& piano, const ArchivioLetto& archivio, ProgressSink* avanzamento) {
  PianoPercipienti percipienti(piano, archivio);
  std::size_t fatte = 0;
  for (RigaPiano& riga : piano.righe) {
    if (avanzamento != nullptr) avanzamento->progress("Percipienti", fatte++, piano.righe.size());
    percipienti.riga(riga);
  }
  percipienti.codici();
  if (archivio.aziende.empty()) return;
  for (const Mancanza mancanza : mancanze(archivio.aziende.front(), archivio.luoghi)) {
    piano.mancanti.push_back({"", mancanza->numero, std::string(mancanza->messaggio)});
  }
}

}  // namespace cu::intake
