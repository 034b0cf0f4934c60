#include "worklist/compensi.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/text.h"
#include "host/conversioni.h"
#include "host/progress.h"
#include "modello/restituzioni.h"
#include "worklist/restituzioni.h"
#include "worklist/riscrittura.h"
#include "worklist/tabella_lavoro.h"

namespace cu {
namespace {

// The key of a row, its selection and whether it is corrected.
using RigaRiconosciuta = std::array<std::int64_t, 6>;

std::vector<RigaRiconosciuta> righeInOrdine(const Recordset& righe) {
  std::vector<RigaRiconosciuta> tutte(righe.RecordCount());
  if (tutte.empty()) return tutte;
  const std::array<std::size_t, 4> chiave{righe.Ordinal("IDAnagrafica"), righe.Ordinal("IDCausalePagamento"),
                                          righe.Ordinal("Anno"), righe.Ordinal("IDAzienda")};
  const std::size_t scelta = righe.Ordinal("Selezionato");
  const std::size_t corretta = righe.Ordinal("Modificato");
  std::vector<CellView> celle(righe.Fields().size());
  for (std::size_t i = 0; i < tutte.size(); ++i) {
    righe.Peek(i + 1, celle.data());
    for (std::size_t parte = 0; parte < chiave.size(); ++parte)
      tutte[i][parte] = celle[chiave[parte]].integer();
    tutte[i][4] = celle[scelta].flag() ? 1 : 0;
    tutte[i][5] = celle[corretta].flag() ? 1 : 0;
  }
  std::sort(tutte.begin(), tutte.end());
  return tutte;
}

}  // namespace

// Suspends the view for its lifetime, also when an error ends the work early.
class Compensi::Pausa {
 public:
  explicit Pausa(VistaCompensi* vista) : vista_(vista) {
    if (vista_ != nullptr) vista_->sospendi();
  }
  ~Pausa() {
    if (vista_ != nullptr) vista_->riprendi();
  }
  Pausa(const Pausa&) = delete;
  Pausa& operator=(const Pausa&) = delete;

 private:
  VistaCompensi* vista_;
};

template <class Azione>
auto Compensi::sullaTabella(const Azione& azione) {
  try {
    return azione();
  } catch (const DatabaseError& errore) {
    const auto testo = fnAltraSessione(errore, tabella_);
    if (!testo) throw;
    throw Error(kErrorRowGone, *testo);
  }
}

void Compensi::eseguiSullaRiga(const std::string& testo) {
  const std::int64_t righe = sullaTabella([&] { return interna().Execute(utilita_.fnAnsi2jet(testo)); });
  if (righe == 0) throw Error(kErrorRowGone, fnRigaMancante());
}

void Compensi::sbCreaTabellaLavoro(const Ambito& ambito, const Filtri& filtri,
                                   const modello::Modello& modello) {
  avanzamento_.setPointer(kPointerHourglass);
  avanzamento_.progress("Caricamento dei compensi", 0, 0);
  if (rsCompensi_.IsOpen()) rsCompensi_.Close();
  nonMemorizzate_.clear();
  ambito_ = ambito;
  tabella_ = fnNomeTabellaLavoro(ambito.idUtente);
  proprie_ = modello::haCaselleProprie(modello);
  const std::string select = fnSelectCompensi(filtri, ambito.idAzienda, utilita_,
                                              proprie_ ? CaselleProprie::Vuote : CaselleProprie::Nessuna);
  sullaTabella([&] {
    // These three are sent unchanged.
    interna().Execute(fnEliminaTabella(tabella_));
    interna().Execute(fnCreaTabella(tabella_, proprie_));
    interna().Execute("INSERT INTO " + tabella_ + " " + select);
    if (proprie_) riempiRestituzioni(ambito_, tabella_, filtri);
    rsCompensi_.Open(ambito_.database->connection(), utilita_.fnAnsi2jet(tabella_),
                     LockType::BatchOptimistic);
  });
  if (vista_ != nullptr) vista_->caricati(rsCompensi_);
  mostraConteggio(contaInMemoria("Selezionato <> 0"));
  avanzamento_.setPointer(kPointerDefault);
}

void Compensi::sbSelezionaRiga(AzioneSelezione azione) {
  bool valore = !rsCompensi_.Get("Selezionato").flag();
  if (azione == AzioneSelezione::Seleziona) valore = true;
  if (azione == AzioneSelezione::Deseleziona) valore = false;
  rsCompensi_.Attempt([&] {
    rsCompensi_.Set("Selezionato", Value::ofFlag(valore));
    rsCompensi_.Update();
    eseguiSullaRiga("UPDATE " + tabella_ + " SET Selezionato = " +
                    utilita_.absolute(rsCompensi_.Get("Selezionato")) + fnChiaveRiga(rsCompensi_));
  });
}

void Compensi::sbSelezionaTutto(AzioneSelezione azione) {
  if (!rsCompensi_.IsOpen() || rsCompensi_.RecordCount() == 0) return;
  avanzamento_.setPointer(kPointerHourglass);
  try {
    const Pausa pausa(vista_);
    const std::size_t righe = rsCompensi_.RecordCount();
    for (rsCompensi_.MoveFirst(); !rsCompensi_.Eof(); rsCompensi_.MoveNext()) {
      avanzamento_.progress("Selezione dei compensi", rsCompensi_.AbsolutePosition(), righe);
      sbSelezionaRiga(azione);
    }
  } catch (...) {
    mostraMemoria();  // the rows before the one that failed are stored
    throw;
  }
  sbContaSelezionati();
  rsCompensi_.MoveFirst();
  mostra();
  avanzamento_.setPointer(kPointerDefault);
}

void Compensi::sbInvertiRighe(const std::vector<std::size_t>& posizioni) {
  avanzamento_.setPointer(kPointerHourglass);
  try {
    invertiNascoste(posizioni);
  } catch (...) {
    avanzamento_.setPointer(kPointerDefault);
    mostraMemoria();
    throw;
  }
  avanzamento_.setPointer(kPointerDefault);
}

// The current row is restored before the view resumes, so that the view never sees another one.
void Compensi::invertiNascoste(const std::vector<std::size_t>& posizioni) {
  const Pausa pausa(vista_);
  const Recordset::RowMark corrente = rsCompensi_.Bookmark();
  try {
    std::size_t fatte = 0;
    for (const std::size_t posizione : posizioni) {
      avanzamento_.progress("Selezione dei compensi", ++fatte, posizioni.size());
      rsCompensi_.MoveTo(posizione);
      sbSelezionaRiga(AzioneSelezione::Inverti);
    }
  } catch (...) {
    rsCompensi_.SetBookmark(corrente);
    throw;
  }
  rsCompensi_.SetBookmark(corrente);
}

std::int64_t Compensi::conta(const std::string& testo) {
  Recordset conteggio;
  sullaTabella([&] { conteggio.Open(ambito_.database->connection(), utilita_.fnAnsi2jet(testo)); });
  return conteggio.Eof() ? 0 : conteggio.Get(0).integer();
}

std::int64_t Compensi::contaInMemoria(std::string_view filtro) const {
  const auto righe = rsCompensi_.Clone();
  righe->SetFilter(filtro);
  return static_cast<std::int64_t>(righe->RecordCount());
}

void Compensi::mostraMemoria() {
  if (!rsCompensi_.IsOpen()) return;
  mostraConteggio(contaInMemoria("Selezionato <> 0"));
  mostra();
}

void Compensi::mostra() {
  if (vista_ != nullptr) vista_->cambiati();
}

void Compensi::mostraConteggio(std::int64_t righe) {
  if (vista_ != nullptr) vista_->contati(righe);
}

void Compensi::sbContaSelezionati() {
  try {
    mostraConteggio(conta("SELECT COUNT(Selezionato) FROM " + tabella_ + " WHERE Selezionato = 1"));
  } catch (...) {
    mostraMemoria();
    throw;
  }
}

bool Compensi::fnNessunaSelezione() {
  return conta("SELECT COUNT(Selezionato) FROM " + tabella_ + " WHERE Selezionato = 1") == 0;
}

bool Compensi::fnProtocolliMancanti() {
  return conta("SELECT COUNT(Selezionato) FROM " + tabella_ +
               " WHERE Selezionato = 1 AND (ISNULL(ProtocolloAnnSost, '') = ''  OR "
               "ISNULL(ProgressivoAnnSost, '') = '')") > 0;
}

void Compensi::sbApriRiga() { rigaAperta_ = fnAggiornaRiga(tabella_, rsCompensi_, utilita_, proprie_); }

void Compensi::sbAggiornaRiga() {
  const std::string testo = fnAggiornaRiga(tabella_, rsCompensi_, utilita_, proprie_);
  eseguiSullaRiga(testo);
  // A row already written back stays so when an editor returns it unchanged.
  const bool cambiata = std::exchange(rigaAperta_, testo) != testo;
  if (cambiata && rsCompensi_.Get("Modificato").flag()) nonMemorizzate_.insert(rsCompensi_.Bookmark());
}

void Compensi::sbControllaTabella() {
  if (!rsCompensi_.IsOpen()) return;
  Recordset scritte;
  sullaTabella(
      [&] { scritte.Open(ambito_.database->ownConnection(), utilita_.fnAnsi2jet(fnRigheLavoro(tabella_))); });
  if (righeInOrdine(scritte) != righeInOrdine(*rsCompensi_.Clone()))
    throw Error(kErrorRowGone, fnTabellaAltrui());
}

std::size_t Compensi::sbMemorizzaModifiche() {
  avanzamento_.setPointer(kPointerHourglass);
  avanzamento_.progress("Memorizzazione delle modifiche nei conti", 0, 0);
  // Found out before the accounts change: without its table nothing is stored.
  const std::vector<Restituzione> restituzioni =
      proprie_ ? restituzioniCambiate(ambito_, rsCompensi_) : std::vector<Restituzione>();
  const std::int64_t conti = sullaTabella([&] { return interna().Execute(fnAggiornaConti(tabella_)); });
  const std::int64_t dati =
      sullaTabella([&] { return interna().Execute(fnAggiornaDatiAggiuntivi(tabella_)); });
  if (!restituzioni.empty()) scriviRestituzioni(ambito_, restituzioni);
  avanzamento_.setPointer(kPointerDefault);
  if (!rsCompensi_.IsOpen()) return 0;
  const std::int64_t attese = contaInMemoria("Modificato <> 0 AND Selezionato <> 0");
  for (const std::int64_t righe : {conti, dati}) {
    if (righe >= 0 && righe != attese) throw Error(kErrorRowGone, fnCorrezioniMancanti(righe, attese));
  }
  // Rows that are not selected are not written back.
  const auto righe = rsCompensi_.Clone();
  std::erase_if(nonMemorizzate_, [&](Recordset::RowMark riga) {
    righe->SetBookmark(riga);
    return righe->Get("Selezionato").flag();
  });
  return static_cast<std::size_t>(attese);
}

std::size_t Compensi::nonMemorizzateScelte() const {
  return contaNonMemorizzate([](const Recordset& riga) { return riga.Get("Selezionato").flag(); });
}

std::size_t Compensi::nonMemorizzateConSpese() const {
  return contaNonMemorizzate([](const Recordset& riga) {
    return riga.Get("Selezionato").flag() && riga.Get("SpeseRimborsate").decimal() != Decimal();
  });
}

std::size_t Compensi::contaNonMemorizzate(const std::function<bool(const Recordset& riga)>& conta) const {
  if (nonMemorizzate_.empty()) return 0;
  const auto righe = rsCompensi_.Clone();
  return static_cast<std::size_t>(
      std::count_if(nonMemorizzate_.begin(), nonMemorizzate_.end(), [&](Recordset::RowMark riga) {
        righe->SetBookmark(riga);
        return conta(*righe);
      }));
}

std::size_t Compensi::sbAggiornaProtocolli(const std::string& protocollo, const std::string& progressivo,
                                           bool sovrascrivi) {
  if (!rsCompensi_.IsOpen() || rsCompensi_.RecordCount() == 0) return 0;
  std::size_t riempite = 0;
  const bool suUnaRiga = !rsCompensi_.Bof() && !rsCompensi_.Eof();
  const Recordset::RowMark segnalibro = suUnaRiga ? rsCompensi_.Bookmark() : 0;
  const auto torna = [&] {
    if (suUnaRiga) rsCompensi_.SetBookmark(segnalibro);
    mostra();
  };
  try {
    const Pausa pausa(vista_);
    const std::size_t righe = rsCompensi_.RecordCount();
    for (rsCompensi_.MoveFirst(); !rsCompensi_.Eof(); rsCompensi_.MoveNext()) {
      avanzamento_.progress("Aggiornamento dei riferimenti", rsCompensi_.AbsolutePosition(), righe);
      if (!rsCompensi_.Get("Selezionato").flag()) continue;
      rsCompensi_.Attempt([&] {
        if (scriviProtocolli(protocollo, progressivo, sovrascrivi)) ++riempite;
      });
    }
  } catch (...) {
    torna();
    throw;
  }
  torna();
  return riempite;
}

bool Compensi::scriviProtocolli(const std::string& protocollo, const std::string& progressivo,
                                bool sovrascrivi) {
  bool riempito = false;
  bool ricevuto = false;
  const auto riempi = [&](const char* campo, const std::string& valore) {
    if (!sovrascrivi && !trim(utilita_.toText(rsCompensi_.Get(campo))).empty()) return;
    rsCompensi_.Set(campo, Value::ofText(valore));
    rsCompensi_.Set("Modificato", Value::ofFlag(true));
    riempito = true;
    ricevuto = ricevuto || !trim(valore).empty();
  };
  riempi("ProtocolloAnnSost", protocollo);
  riempi("ProgressivoAnnSost", progressivo);
  rsCompensi_.Update();
  const std::int64_t modificato = rsCompensi_.Get("Modificato").integer();
  eseguiSullaRiga("UPDATE " + tabella_ +
                  " SET ProtocolloAnnSost = " + utilita_.literal(rsCompensi_.Get("ProtocolloAnnSost")) +
                  ", ProgressivoAnnSost = " + utilita_.literal(rsCompensi_.Get("ProgressivoAnnSost")) +
                  ", Modificato = " + fromInteger(modificato < 0 ? -modificato : modificato) +
                  fnChiaveRiga(rsCompensi_));
  if (riempito) nonMemorizzate_.insert(rsCompensi_.Bookmark());
  return ricevuto;
}

}  // namespace cu
