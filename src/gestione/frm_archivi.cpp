#include "gestione/frm_archivi.h"

#include <algorithm>

#include "base/collation.h"
#include "base/text.h"
#include "gestione/frm_azienda.h"
#include "gestione/frm_compensi.h"
#include "gestione/frm_percipienti.h"
#include "schede/aziende.h"
#include "schede/conteggio.h"

namespace cu {
namespace {

using schede::SchedaAzienda;

std::vector<GridColumn> colonneAziende() {
  constexpr int kNome = 6300;
  constexpr int kCodice = 2400;
  return {colonnaChiave(),
          colonnaTesto("Denominazione", "Azienda", kNome),
          colonnaTesto("CodiceFiscale", "Codice fiscale", kCodice),
          colonnaTesto("PartitaIva", "Partita IVA", kCodice - 600),
          colonnaNumero("Percipienti", "Percipienti"),
          colonnaNumero("Compensi", "Compensi")};
}

struct Interrotto {};

// Shows how far the work is, and ends it when the user asks for it.
class AvanzamentoConti : public ProgressSink {
 public:
  AvanzamentoConti(const ContestoGestione& contesto, Label& stato) : contesto_(contesto), stato_(stato) {}
  void setPointer(int) override {}
  void progress(const char* che, std::size_t fatti, std::size_t tutti) override {
    stato_.setCaption(
        "I conti vengono ricalcolati: anno " + fromInteger(static_cast<std::int64_t>(fatti + 1)) + " di " +
        fromInteger(static_cast<std::int64_t>(tutti)) + (contesto_.interrotto ? ". Esc interrompe." : "."));
    contesto_.frontEnd.progress(che, fatti, tutti);
    if (contesto_.interrotto && contesto_.interrotto()) throw Interrotto();
  }

 private:
  const ContestoGestione& contesto_;
  Label& stato_;
};

std::string contiDetti(std::size_t quanti) {
  return quanti == 1 ? "Un conto è stato corretto"
                     : fromInteger(static_cast<std::int64_t>(quanti)) + " conti sono stati corretti";
}

}  // namespace

FrmArchivi::FrmArchivi(const ContestoGestione& contesto)
    : Form(contesto.frontEnd, "frmArchivi", "Dati propri"),
      lblStato(*this, "lblStato", nullptr),
      grdAziende(*this, "grdAziende", nullptr),
      fraAziende(*this, "fraAziende", nullptr),
      cmdNuova(*this, "cmdNuova", &fraAziende, "&Nuova azienda..."),
      cmdModifica(*this, "cmdModifica", &fraAziende, "&Modifica..."),
      cmdElimina(*this, "cmdElimina", &fraAziende, "&Elimina"),
      fraDati(*this, "fraDati", nullptr),
      cmdPercipienti(*this, "cmdPercipienti", &fraDati, "&Percipienti..."),
      cmdCompensi(*this, "cmdCompensi", &fraDati, "C&ompensi..."),
      cmdRicalcola(*this, "cmdRicalcola", &fraDati, "&Ricalcola i conti"),
      cmdChiudi(*this, "cmdChiudi", nullptr, "&Chiudi"),
      contesto_(contesto),
      righe_(grdAziende, colonneAziende()) {
  cmdRicalcola.setHint("Somma di nuovo i compensi dell'azienda nei suoi conti individuali.");
  cmdNuova.onClick = [this] { nuova(); };
  cmdModifica.onClick = [this] { modifica(); };
  cmdElimina.onClick = [this] { elimina(); };
  cmdPercipienti.onClick = [this] { percipienti(); };
  cmdCompensi.onClick = [this] { compensi(); };
  cmdRicalcola.onClick = [this] { ricalcola(); };
  cmdChiudi.onClick = [this] { unload(); };
  grdAziende.onDoubleClick = [this] { modifica(); };
  grdAziende.onRowChange = [this] { abilita(); };
  cancelButton = &cmdChiudi;
}

void FrmArchivi::formLoad() {
  ricarica(0);
  contesto_.utilita.prepareForm(*this);
}

void FrmArchivi::ricarica(std::int32_t corrente) {
  Connection& connessione = contesto_.connessione();
  aziende_ = schede::Aziende(connessione).tutte();
  std::stable_sort(aziende_.begin(), aziende_.end(), [](const SchedaAzienda& a, const SchedaAzienda& b) {
    return compareItalian(nominativo(a.sede), nominativo(b.sede)) < 0;
  });
  std::vector<RigheElenco::Riga> righe;
  for (const SchedaAzienda& una : aziende_) {
    const std::string sue = " WHERE IDAzienda = " + fromInteger(una.id);
    righe.push_back({Value::ofInteger(una.id), Value::ofText(nominativo(una.sede)),
                     Value::ofText(una.sede.codiceFiscale), Value::ofText(una.sede.partitaIva),
                     Value::ofInteger(schede::quante(connessione, "Percipiente", sue)),
                     Value::ofInteger(schede::quante(connessione, "Compenso", sue))});
  }
  righe_.mostra(righe);
  if (corrente != 0) righe_.vai(corrente);
  abilita();
}

void FrmArchivi::abilita() {
  const bool scelta = grdAziende.row() > 0;
  const bool scrivibile = contesto_.scrivibile;
  cmdNuova.setEnabled(scrivibile);
  cmdModifica.setCaption(scrivibile ? "&Modifica..." : "&Apri...");
  cmdModifica.setEnabled(scelta);
  cmdElimina.setEnabled(scelta && scrivibile);
  cmdPercipienti.setEnabled(scelta);
  cmdCompensi.setEnabled(scelta);
  cmdRicalcola.setEnabled(scelta && scrivibile);
  // Without any company there is one thing to do.
  grdAziende.setEnabled(!aziende_.empty());
  defaultButton = aziende_.empty() && scrivibile ? &cmdNuova : nullptr;
  lblStato.setCaption(!scrivibile ? std::string(kSoloLettura)
                      : aziende_.empty()
                          ? "L'archivio è vuoto. Si comincia dall'azienda che paga i compensi: "
                            "«Nuova azienda»."
                          : "Le aziende di questo archivio.");
}

const SchedaAzienda* FrmArchivi::corrente() const {
  const std::int64_t id = righe_.chiave();
  for (const SchedaAzienda& una : aziende_) {
    if (una.id == id) return &una;
  }
  return nullptr;
}

void FrmArchivi::nuova() {
  FrmAzienda editor(contesto_, std::nullopt);
  editor.showModal();
  if (!editor.OK()) return;
  ricarica(editor.idAzienda());
  setFocus(&grdAziende);
}

void FrmArchivi::modifica() {
  const SchedaAzienda* const azienda = corrente();
  if (azienda == nullptr) return;
  const auto attuale = schede::Aziende(contesto_.connessione()).cerca(azienda->id);
  if (!attuale) {
    contesto_.avvisa("L'azienda è stata eliminata da un'altra sessione.");
    return ricarica(0);
  }
  FrmAzienda editor(contesto_, attuale);
  editor.showModal();
  if (editor.OK()) ricarica(editor.idAzienda());
}

void FrmArchivi::elimina() {
  const SchedaAzienda* const azienda = corrente();
  if (azienda == nullptr) return;
  const std::string nome = nominativo(azienda->sede);
  if (!contesto_.conferma("Eliminare l'azienda " + nome + "?")) return;
  const Result<> esito = contesto_.registrazione().togliAzienda(*azienda);
  if (!esito) return contesto_.avvisa(esito.refusals.front().text);
  frontEnd().told("Azienda eliminata: " + nome + ".");
  ricarica(0);
}

void FrmArchivi::percipienti() {
  const SchedaAzienda* const azienda = corrente();
  if (azienda == nullptr) return;
  FrmPercipienti elenco(contesto_, *azienda);
  elenco.showModal();
  ricarica(0);
}

void FrmArchivi::compensi() {
  const SchedaAzienda* const azienda = corrente();
  if (azienda == nullptr) return;
  FrmCompensi elenco(contesto_, *azienda);
  elenco.showModal();
  ricarica(0);
}

// Nothing where the user has interrupted it.
std::optional<std::size_t> FrmArchivi::ricalcolati(std::int32_t idAzienda,
                                                   const std::vector<schede::ContoToccato>& tranne) {
  const auto finito = [this] {
    frontEnd().setPointer(kPointerDefault);
    abilita();
  };
  frontEnd().setPointer(kPointerHourglass);
  AvanzamentoConti avanzamento(contesto_, lblStato);
  std::optional<std::size_t> cambiati;
  try {
    cambiati = contesto_.registrazione().ricalcola(idAzienda, tranne, &avanzamento);
  } catch (const Interrotto&) {
    cambiati.reset();
  } catch (...) {
    finito();
    throw;
  }
  finito();
  return cambiati;
}

void FrmArchivi::ricalcola() {
  const SchedaAzienda* const azienda = corrente();
  if (azienda == nullptr) return;
  const std::vector<schede::ContoToccato> corretti =
      schede::contiCorretti(contesto_.connessione(), azienda->id);
  bool anche = false;
  if (!corretti.empty()) {
    const Answer risposta = frontEnd().messageBox(
        {contiDetti(corretti.size()) +
             " a mano: gli importi non sono la somma dei compensi.\r\n\r\nRicalcolare anche questi? Con No "
             "restano come sono, e si ricalcolano gli altri.",
         contesto_.titolo, BoxIcon::Question, BoxButtons::YesNoCancel, Answer::No});
    if (risposta == Answer::Cancel) return;
    anche = risposta == Answer::Yes;
  }
  const auto cambiati = ricalcolati(azienda->id, anche ? std::vector<schede::ContoToccato>{} : corretti);
  if (!cambiati) return contesto_.avvisa("Il ricalcolo è stato interrotto: i conti sono rimasti com'erano.");
  contesto_.utilita.message(
      *cambiati == 0   ? "I conti sono già la somma dei compensi: non è cambiato nulla."
      : *cambiati == 1 ? "È cambiato un conto."
                       : "Sono cambiati " + fromInteger(static_cast<std::int64_t>(*cambiati)) + " conti.",
      contesto_.titolo, BoxIcon::Information);
}

}  // namespace cu
