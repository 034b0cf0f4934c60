#include "gestione/frm_percipienti.h"

#include <algorithm>
#include <utility>

#include "base/codice_fiscale.h"
#include "base/collation.h"
#include "base/text.h"
#include "gestione/frm_percipiente.h"
#include "schede/percipienti.h"

namespace cu {
namespace {

using schede::SchedaPercipiente;

std::vector<GridColumn> colonnePercipienti() {
  constexpr int kNome = 3600;
  constexpr int kCodice = 1300;
  constexpr int kCodiceFiscale = 2400;
  return {colonnaChiave(),
          colonnaTesto("Codice", "Codice", kCodice),
          colonnaTesto("Nominativo", "Cognome e nome o denominazione", kNome),
          colonnaTesto("CodiceFiscale", "Codice fiscale", kCodiceFiscale),
          colonnaTesto("PartitaIva", "Partita IVA", kCodice + 400),
          colonnaTesto("Indirizzo", "Indirizzo", kCodiceFiscale)};
}

// Letters without case and accents, and the digits.
std::string perCercare(std::string_view testo) {
  std::string lettere;
  std::size_t inizio = 0;
  for (std::size_t i = 0; i <= testo.size(); ++i) {
    const bool cifra = i < testo.size() && testo[i] >= '0' && testo[i] <= '9';
    if (!cifra && i < testo.size()) continue;
    lettere += lettereDiCodice(testo.substr(inizio, i - inizio));
    if (cifra) lettere += testo[i];
    inizio = i + 1;
  }
  return lettere;
}

}  // namespace

FrmPercipienti::FrmPercipienti(const ContestoGestione& contesto, const schede::SchedaAzienda& azienda)
    : Form(contesto.frontEnd, "frmPercipienti", "Percipienti di " + nominativo(azienda.sede)),
      lblTrovati(*this, "lblTrovati", nullptr),
      txtCerca(*this, "txtCerca", nullptr, "Ce&rca"),
      grdPercipienti(*this, "grdPercipienti", nullptr),
      fraComandi(*this, "fraComandi", nullptr),
      cmdNuovo(*this, "cmdNuovo", &fraComandi, "&Nuovo percipiente..."),
      cmdModifica(*this, "cmdModifica", &fraComandi, "&Modifica..."),
      cmdElimina(*this, "cmdElimina", &fraComandi, "&Elimina"),
      cmdChiudi(*this, "cmdChiudi", nullptr, "&Chiudi"),
      contesto_(contesto),
      idAzienda_(azienda.id),
      righe_(grdPercipienti, colonnePercipienti()) {
  txtCerca.setHint("Una parte del codice, del nome o del codice fiscale.");
  txtCerca.onChange = [this] { mostra(); };
  cmdNuovo.onClick = [this] { nuovo(); };
  cmdModifica.onClick = [this] { modifica(); };
  cmdElimina.onClick = [this] { elimina(); };
  cmdChiudi.onClick = [this] { unload(); };
  grdPercipienti.onDoubleClick = [this] { modifica(); };
  grdPercipienti.onRowChange = [this] { abilita(); };
  defaultButton = &cmdModifica;
  cancelButton = &cmdChiudi;
}

void FrmPercipienti::formLoad() {
  ricarica(0);
  contesto_.utilita.prepareForm(*this);
}

void FrmPercipienti::ricarica(std::int32_t corrente) {
  std::vector<SchedaPercipiente> tutti = schede::Percipienti(contesto_.connessione(), idAzienda_).tutti();
  codiceProposto_ = codiceSeguente(tutti);
  percipienti_.clear();
  percipienti_.reserve(tutti.size());
  for (SchedaPercipiente& uno : tutti) {
    std::string nome = nominativo(uno.anagrafica);
    // A blank never occurs in what is looked for.
    std::string cercabile =
        perCercare(uno.codice) + " " + perCercare(nome) + " " + perCercare(uno.anagrafica.codiceFiscale);
    percipienti_.push_back({std::move(uno), std::move(nome), std::move(cercabile)});
  }
  std::stable_sort(percipienti_.begin(), percipienti_.end(), [](const Voce& a, const Voce& b) {
    return compareItalian(a.nominativo, b.nominativo) < 0;
  });
  mostra();
  if (corrente != 0) righe_.vai(corrente);
  abilita();
}

void FrmPercipienti::mostra() {
  const std::string cercato = perCercare(txtCerca.text());
  std::vector<RigheElenco::Riga> righe;
  for (const Voce& una : percipienti_) {
    if (una.cercabile.find(cercato) == std::string::npos) continue;
    const schede::SchedaAnagrafica& a = una.percipiente.anagrafica;
    righe.push_back({Value::ofInteger(a.id), Value::ofText(una.percipiente.codice),
                     Value::ofText(una.nominativo), Value::ofText(a.codiceFiscale),
                     Value::ofText(a.partitaIva), Value::ofText(a.indirizzo)});
  }
  righe_.mostra(righe);
  const auto quanti = static_cast<std::int64_t>(righe.size());
  const std::string di = fromInteger(static_cast<std::int64_t>(percipienti_.size()));
  lblTrovati.setCaption(!contesto_.scrivibile  ? std::string(kSoloLettura)
                        : percipienti_.empty() ? "Non c'è ancora nessun percipiente."
                        : cercato.empty()      ? di + (di == "1" ? " percipiente." : " percipienti.")
                                               : fromInteger(quanti) + " di " + di + " percipienti.");
  abilita();
}

void FrmPercipienti::abilita() {
  const bool scelto = grdPercipienti.row() > 0;
  cmdNuovo.setEnabled(contesto_.scrivibile);
  cmdModifica.setCaption(contesto_.scrivibile ? "&Modifica..." : "&Apri...");
  cmdModifica.setEnabled(scelto);
  cmdElimina.setEnabled(scelto && contesto_.scrivibile);
}

const SchedaPercipiente* FrmPercipienti::corrente() const {
  const std::int64_t id = righe_.chiave();
  for (const Voce& una : percipienti_) {
    if (una.percipiente.anagrafica.id == id) return &una.percipiente;
  }
  return nullptr;
}

void FrmPercipienti::nuovo() {
  FrmPercipiente editor(contesto_, idAzienda_, std::nullopt, codiceProposto_);
  editor.showModal();
  if (!editor.OK()) return;
  // The new row is shown whatever was searched for.
  txtCerca.setText("");
  ricarica(editor.idAnagrafica());
}

void FrmPercipienti::modifica() {
  const SchedaPercipiente* const percipiente = corrente();
  if (percipiente == nullptr) return;
  const auto attuale =
      schede::Percipienti(contesto_.connessione(), idAzienda_).cerca(percipiente->anagrafica.id);
  if (!attuale) {
    contesto_.avvisa("Il percipiente è stato eliminato da un'altra sessione.");
    return ricarica(0);
  }
  FrmPercipiente editor(contesto_, idAzienda_, attuale);
  editor.showModal();
  if (editor.OK()) ricarica(editor.idAnagrafica());
}

void FrmPercipienti::elimina() {
  const SchedaPercipiente* const percipiente = corrente();
  if (percipiente == nullptr) return;
  const std::string nome = percipiente->codice + ", " + nominativo(percipiente->anagrafica);
  if (!contesto_.conferma("Eliminare il percipiente " + nome + "?")) return;
  const Result<> esito = contesto_.registrazione().togliPercipiente(*percipiente);
  if (!esito) return contesto_.avvisa(esito.refusals.front().text);
  frontEnd().told("Percipiente eliminato: " + nome + ".");
  ricarica(0);
}

}  // namespace cu
