// The ministerial forms of the selected lines: in one file, or in a file each, one by one or several at a
// time.

#include <deque>
#include <exception>
#include <memory>
#include <utility>

#include "base/text.h"
#include "fornitura/stampa_preparata.h"
#include "printing/tabella_ricorsione.h"
#include "printing/uscita.h"

namespace cu::fornitura {
namespace {

Connection& connessione(const Intorno& intorno) { return intorno.ambito.database->internalConnection(); }

void eseguiRicorsione(const Intorno& intorno, const std::string& istruzione) {
  connessione(intorno).Execute(intorno.utilita.fnAnsi2jet(istruzione));
}

std::size_t scelte(const Recordset& righe) {
  const auto clone = righe.Clone();
  clone->SetFilter("Selezionato <> 0");
  return clone->RecordCount();
}

// The selected lines from the current one on.
std::vector<ModuloNonStampato> daQui(Recordset& righe, const Conversioni& utilita) {
  std::vector<ModuloNonStampato> rimaste;
  for (; !righe.Eof(); righe.MoveNext()) {
    if (!righe.Get("Selezionato").flag()) continue;
    rimaste.push_back({utilita.toText(righe.Get("AnagraficaPerc")), utilita.toText(righe.Get("Codice")),
                       utilita.toText(righe.Get("CodiceFiscale"))});
  }
  return rimaste;
}

// A print of one line that has been begun; it exists for the user only when it is finished.
struct ModuloIniziato {
  std::size_t posizione = 0;  // of the line
  StampaPreparata preparata;
  std::unique_ptr<BegunPrint> stampa;
  std::exception_ptr guasto;  // of the statements before it, which end the run
};

class StampaDeiModuli {
 public:
  StampaDeiModuli(const Intorno& intorno, Recordset& righe, const RichiestaModuli& richiesta)
      : intorno_(intorno),
        righe_(righe),
        richiesta_(richiesta),
        istruzioneElimina_(ricorsione::elimina(intorno.ambito.idUtente)),
        corsa_{.idUtente = intorno.ambito.idUtente,
               .sTipoCom = fromInteger(static_cast<std::int32_t>(richiesta.tipo)),
               .intermediari = richiesta.intermediari,
               .dataFirma = richiesta.dataFirma} {}

  Result<EsitoModuli> esegui() {
    const std::unique_ptr<PrintRun> stampe = intorno_.factory.createPrintRun();
    if (righe_.RecordCount() > 0) righe_.MoveFirst();
    elimina();
    quante_ = scelte(righe_);
    if (richiesta_.cumulativa) {
      tutteInsieme();
    } else if (stampe->ahead() > 0 && richiesta_.stampa.uscita == Uscita::File) {
      inAnticipo(stampe->ahead());
    } else {
      unaAllaVolta();
    }
    return std::move(esito_);
  }

 private:
  void elimina() { eseguiRicorsione(intorno_, istruzioneElimina_); }
  void inserisci() { eseguiRicorsione(intorno_, ricorsione::inserisci(righe_, corsa_, intorno_.utilita)); }
  // The table without any line between the two is of no use to another program.
  void sostituisci() {
    WriteScope insieme(connessione(intorno_));
    elimina();
    inserisci();
    insieme.end();
  }
  RichiestaStampa inFile(bool diRiga) const {
    const NomeModulo nome{.sCodFisc = richiesta_.sCodFisc,
                          .anno = richiesta_.stampa.dati.filtri.anno,
                          .oggi = intorno_.clock.today(),
                          .ora = intorno_.clock.now()};
    RichiestaStampa una = richiesta_.stampa;
    una.percorso = intorno_.files.join(richiesta_.cartella,
                                       diRiga ? nome.diRiga(righe_, intorno_.utilita) : nome.cumulativo());
    return una;
  }
  void annota(const Result<>& stampata) { esito_.refusals = stampata.refusals; }
  void rimangono() {
    esito_->nonStampati = daQui(righe_, intorno_.utilita);
    esito_->richiesti += esito_->nonStampati.size() - 1;
  }

  void tutteInsieme() {
    for (; !righe_.Eof(); righe_.MoveNext()) {
      intorno_.avanzamento.setPointer(kPointerHourglass);
      if (!righe_.Get("Selezionato").flag()) continue;
      // The print spends its time after the rows, which are collected quickly.
      intorno_.avanzamento.progress("Preparazione dei moduli", ++esito_->richiesti, quante_);
      if (intorno_.avanzamento.interrupted()) {
        esito_->interrotta = true;
        return;
      }
      inserisci();
    }
    intorno_.avanzamento.progress("Stampa dei moduli", 0, 0);
    esito_->interrotta = intorno_.avanzamento.interrupted();
    if (esito_->interrotta) return;
    RichiestaStampa una = inFile(false);
    una.interrotta = [this] { esito_->interrotta = true; };
    annota(stampa(intorno_, una));
  }

  void unaAllaVolta() {
    for (; !righe_.Eof(); righe_.MoveNext()) {
      intorno_.avanzamento.setPointer(kPointerHourglass);
      if (!righe_.Get("Selezionato").flag()) continue;
      if (!annuncia()) {
        rimangono();
        return;
      }
      sostituisci();
      annota(stampa(intorno_, inFile(true)));
    }
  }

  // Returns false where the user interrupts the run.
  bool annuncia() {
    intorno_.avanzamento.progress("Stampa dei moduli", ++esito_->richiesti, quante_);
    return !intorno_.avanzamento.interrupted();
  }

  // Statements and readings of later lines run while earlier ones are laid out. What the user sees of a line,
  // and its file, come when it is the oldest: in the same order as one by one.
  void inAnticipo(std::size_t quante) {
    std::deque<ModuloIniziato> iniziati;
    bool scelta = true;
    for (; !righe_.Eof(); righe_.MoveNext()) {
      scelta = righe_.Get("Selezionato").flag();
      if (!scelta) continue;
      if (iniziati.size() == quante && !concludi(iniziati)) return;
      iniziati.push_back(inizia());
      if (iniziati.back().guasto) break;
    }
    while (!iniziati.empty()) {
      if (!concludi(iniziati)) return;
    }
    if (!scelta) intorno_.avanzamento.setPointer(kPointerHourglass);
  }

  ModuloIniziato inizia() {
    ModuloIniziato iniziato;
    iniziato.posizione = righe_.AbsolutePosition();
    try {
      sostituisci();
      iniziato.preparata = preparaStampa(intorno_, inFile(true));
    } catch (...) {
      iniziato.guasto = std::current_exception();
      return iniziato;
    }
    iniziato.stampa = stampa::inizia(*iniziato.preparata.oReport);
    return iniziato;
  }

  // Finishes the oldest print; returns false where the user interrupts the run before it.
  bool concludi(std::deque<ModuloIniziato>& iniziati) {
    const ModuloIniziato modulo = std::move(iniziati.front());
    iniziati.pop_front();
    intorno_.avanzamento.setPointer(kPointerHourglass);
    if (!annuncia()) {
      righe_.MoveTo(modulo.posizione);
      rimangono();
      return false;
    }
    if (modulo.guasto) std::rethrow_exception(modulo.guasto);
    intorno_.avanzamento.setPointer(kPointerHourglass);
    stampa::concludi(lancio(intorno_, richiesta_.stampa, modulo.preparata), *modulo.stampa);
    return true;
  }

  const Intorno& intorno_;
  Recordset& righe_;
  const RichiestaModuli& richiesta_;
  std::string istruzioneElimina_;
  ricorsione::Corsa corsa_;
  std::size_t quante_ = 0;
  Result<EsitoModuli> esito_{EsitoModuli{}};
};

}  // namespace

Result<EsitoModuli> stampaModuli(const Intorno& intorno, Compensi& compensi,
                                 const RichiestaModuli& richiesta) {
  return StampaDeiModuli(intorno, compensi.rsCompensi(), richiesta).esegui();
}

void svuotaRicorsione(const Intorno& intorno) {
  eseguiRicorsione(intorno, ricorsione::elimina(intorno.ambito.idUtente));
}

}  // namespace cu::fornitura
