#include "gestione/frm_compensi.h"

#include <algorithm>
#include <set>
#include <utility>

#include "base/collation.h"
#include "base/text.h"
#include "gestione/frm_pagamento.h"
#include "schede/compensi.h"
#include "schede/importi.h"
#include "schede/percipienti.h"

namespace cu {
namespace {

using schede::euro;
using schede::Importo;
using schede::SchedaCompenso;

std::vector<GridColumn> colonneCompensi() {
  constexpr int kNome = 3300;
  constexpr int kCorta = 900;
  return {colonnaChiave(),
          colonnaGiorno("DataPagamento", "Pagamento"),
          colonnaTesto("Percipiente", "Percipiente", kNome),
          colonnaTesto("Causale", "Causale", kCorta),
          colonnaTesto("Documento", "Documento", kCorta + 450),
          colonnaImporto("Onorario", "Compenso"),
          colonnaImporto("NonSoggette", "Non soggette"),
          colonnaImporto("Ritenute", "Ritenute"),
          colonnaImporto("Netto", "Netto")};
}

std::vector<GridColumn> colonneTotali() {
  constexpr int kNome = 3300;
  constexpr int kCorta = 900;
  return {colonnaChiave(),
          colonnaTesto("Percipiente", "Percipiente", kNome),
          colonnaTesto("Causale", "Causale", kCorta),
          colonnaNumero("Compensi", "Compensi"),
          colonnaImporto("Lordo", "Lordo"),
          colonnaImporto("Imponibile", "Imponibile"),
          colonnaImporto("Ritenute", "Ritenute"),
          colonnaImporto("Netto", "Netto")};
}

// What is summed of payments.
struct Somme {
  std::int64_t compensi = 0;
  Decimal lordo;
  Decimal imponibile;
  Decimal nonSoggette;
  Decimal ritenute;
  Decimal netto;
};

void aggiungi(Somme& somme, const schede::Importi& importi) {
  const auto di = [&](Importo quale) { return importi[posto(quale)]; };
  const Decimal lordo =
      di(Importo::Onorario) + di(Importo::SommeNonSoggette) + di(Importo::RegimeConvenzionale);
  const Decimal ritenute = di(Importo::RitenutaAcconto) + di(Importo::RitenutaImposta);
  ++somme.compensi;
  somme.lordo = somme.lordo + lordo;
  somme.imponibile = somme.imponibile + di(Importo::Onorario) - di(Importo::QuotaNonSoggetta);
  somme.nonSoggette = somme.nonSoggette + di(Importo::SommeNonSoggette) + di(Importo::RegimeConvenzionale);
  somme.ritenute = somme.ritenute + ritenute;
  somme.netto = somme.netto + lordo - ritenute - di(Importo::ContributoPercipiente);
}

}  // namespace

FrmCompensi::FrmCompensi(const ContestoGestione& contesto, const schede::SchedaAzienda& azienda)
    : Form(contesto.frontEnd, "frmCompensi", "Compensi pagati da " + nominativo(azienda.sede)),
      lblStato(*this, "lblStato", nullptr),
      cboAnno(*this, "cboAnno", nullptr, "&Anno di pagamento"),
      grdCompensi(*this, "grdCompensi", nullptr),
      fraComandi(*this, "fraComandi", nullptr),
      cmdNuovo(*this, "cmdNuovo", &fraComandi, "&Nuovo compenso..."),
      cmdModifica(*this, "cmdModifica", &fraComandi, "&Modifica..."),
      cmdElimina(*this, "cmdElimina", &fraComandi, "&Elimina"),
      lblTotale(*this, "lblTotale", nullptr),
      grdTotali(*this, "grdTotali", nullptr),
      cmdChiudi(*this, "cmdChiudi", nullptr, "&Chiudi"),
      contesto_(contesto),
      idAzienda_(azienda.id),
      righe_(grdCompensi, colonneCompensi()),
      totali_(grdTotali, colonneTotali()) {
  cboAnno.onChange = [this] { ricarica(0); };
  cmdNuovo.onClick = [this] { nuovo(); };
  cmdModifica.onClick = [this] { modifica(); };
  cmdElimina.onClick = [this] { elimina(); };
  cmdChiudi.onClick = [this] { unload(); };
  grdCompensi.onDoubleClick = [this] { modifica(); };
  grdCompensi.onRowChange = [this] { abilita(); };
  cancelButton = &cmdChiudi;
}

void FrmCompensi::formLoad() {
  leggiNomi();
  riempiAnni(0);
  contesto_.utilita.prepareForm(*this);
}

void FrmCompensi::leggiNomi() {
  Connection& connessione = contesto_.connessione();
  for (const schede::SchedaPercipiente& uno : schede::Percipienti(connessione, idAzienda_).tutti()) {
    percipienti_[uno.anagrafica.id] = nominativo(uno.anagrafica);
  }
  Recordset righe;
  righe.Open(connessione, "SELECT IDCausalePagamento, Codice FROM CausalePagamento");
  for (; !righe.Eof(); righe.MoveNext()) {
    causali_[static_cast<std::int32_t>(righe.Get(0).integer())] = righe.Get(1).toText();
  }
}

// The years with payments, and the present one and the one before; chosen is the last one with payments.
void FrmCompensi::riempiAnni(int scelto) {
  const int oggi = contesto_.clock.today().year();
  std::set<int> anni = {oggi - 1, oggi};
  const std::vector<int> loro = schede::Compensi(contesto_.connessione(), idAzienda_).anni();
  anni.insert(loro.begin(), loro.end());
  if (scelto == 0) scelto = loro.empty() ? oggi : loro.back();
  anni.insert(scelto);
  const Event cambia = std::exchange(cboAnno.onChange, {});
  cboAnno.clear();
  for (auto uno = anni.rbegin(); uno != anni.rend(); ++uno) cboAnno.add(fromInteger(*uno), *uno);
  cboAnno.setRecord(scelto);
  cboAnno.onChange = cambia;
  ricarica(0);
}

int FrmCompensi::anno() const { return static_cast<int>(cboAnno.record().value_or(0)); }

void FrmCompensi::ricarica(std::int32_t corrente) {
  compensi_ = schede::Compensi(contesto_.connessione(), idAzienda_).degliAnni({anno()});
  std::stable_sort(compensi_.begin(), compensi_.end(), [](const SchedaCompenso& a, const SchedaCompenso& b) {
    return a.pagamento < b.pagamento;
  });
  std::vector<RigheElenco::Riga> righe;
  righe.reserve(compensi_.size());
  for (const SchedaCompenso& uno : compensi_) {
    Somme sue;
    aggiungi(sue, uno.importi);
    righe.push_back({Value::ofInteger(uno.id), Value::ofDate(uno.pagamento),
                     Value::ofText(percipienti_[uno.idAnagrafica]), Value::ofText(causali_[uno.idCausale]),
                     Value::ofText(uno.numero), Value::ofDecimal(uno.importi[posto(Importo::Onorario)]),
                     Value::ofDecimal(sue.nonSoggette), Value::ofDecimal(sue.ritenute),
                     Value::ofDecimal(sue.netto)});
  }
  righe_.mostra(righe);
  if (corrente != 0) righe_.vai(corrente);
  mostraTotali();
  abilita();
}

void FrmCompensi::mostraTotali() {
  std::map<schede::ContoToccato, Somme> conti;
  Somme tutte;
  for (const SchedaCompenso& uno : compensi_) {
    aggiungi(conti[schede::contoDi(uno)], uno.importi);
    aggiungi(tutte, uno.importi);
  }
  std::vector<std::pair<schede::ContoToccato, Somme>> ordinati(conti.begin(), conti.end());
  std::stable_sort(ordinati.begin(), ordinati.end(), [this](const auto& a, const auto& b) {
    return compareItalian(percipienti_[a.first.idAnagrafica], percipienti_[b.first.idAnagrafica]) < 0;
  });
  std::vector<RigheElenco::Riga> righe;
  for (const auto& [conto, somme] : ordinati) {
    const auto numero = static_cast<std::int64_t>(righe.size()) + 1;
    righe.push_back({Value::ofInteger(numero), Value::ofText(percipienti_[conto.idAnagrafica]),
                     Value::ofText(causali_[conto.idCausale]), Value::ofInteger(somme.compensi),
                     Value::ofDecimal(somme.lordo), Value::ofDecimal(somme.imponibile),
                     Value::ofDecimal(somme.ritenute), Value::ofDecimal(somme.netto)});
  }
  totali_.mostra(righe);
  lblTotale.setCaption(compensi_.empty()
                           ? std::string()
                           : "Per percipiente e causale. In tutto " + fromInteger(tutte.compensi) +
                                 (tutte.compensi == 1 ? " compenso" : " compensi") + ": lordo " +
                                 euro(tutte.lordo) + ", imponibile " + euro(tutte.imponibile) +
                                 ", ritenute " + euro(tutte.ritenute) + ", netto " + euro(tutte.netto) + ".");
}

void FrmCompensi::abilita() {
  const bool scelto = grdCompensi.row() > 0;
  cmdNuovo.setEnabled(contesto_.scrivibile && !percipienti_.empty());
  cmdModifica.setCaption(contesto_.scrivibile ? "&Modifica..." : "&Apri...");
  cmdModifica.setEnabled(scelto);
  cmdElimina.setEnabled(scelto && contesto_.scrivibile);
  lblStato.setCaption(!contesto_.scrivibile  ? std::string(kSoloLettura)
                      : percipienti_.empty() ? "Prima dei compensi servono i percipienti."
                      : compensi_.empty()    ? "In quest'anno non c'è ancora nessun compenso."
                                             : "I compensi pagati nell'anno.");
}

const SchedaCompenso* FrmCompensi::corrente() const {
  const std::int64_t id = righe_.chiave();
  for (const SchedaCompenso& uno : compensi_) {
    if (uno.id == id) return &uno;
  }
  return nullptr;
}

std::string FrmCompensi::detto(const SchedaCompenso& compenso) const {
  const auto percipiente = percipienti_.find(compenso.idAnagrafica);
  return (percipiente == percipienti_.end() ? std::string() : percipiente->second + ", ") +
         compenso.pagamento.toItalian() + ", " + euro(compenso.importi[posto(Importo::Onorario)]);
}

// The payment may belong to another year than the one shown.
void FrmCompensi::dopo(const SchedaCompenso& scritto) {
  riempiAnni(scritto.pagamento.year());
  righe_.vai(scritto.id);
}

void FrmCompensi::nuovo() {
  FrmPagamento editor(contesto_, idAzienda_, std::nullopt, anno());
  editor.showModal();
  if (editor.ultimo()) dopo(*editor.ultimo());
}

void FrmCompensi::modifica() {
  const SchedaCompenso* const compenso = corrente();
  if (compenso == nullptr) return;
  const auto attuale = schede::Compensi(contesto_.connessione(), idAzienda_).cerca(compenso->id);
  if (!attuale) {
    contesto_.avvisa("Il compenso è stato eliminato da un'altra sessione.");
    return ricarica(0);
  }
  FrmPagamento editor(contesto_, idAzienda_, attuale, anno());
  editor.showModal();
  if (editor.ultimo()) dopo(*editor.ultimo());
}

void FrmCompensi::elimina() {
  const SchedaCompenso* const trovato = corrente();
  if (trovato == nullptr) return;
  const SchedaCompenso compenso = *trovato;
  std::string domanda = "Eliminare il compenso di " + detto(compenso) + "?";
  if (!schede::contiCorretti(contesto_.connessione(), idAzienda_, {schede::contoDi(compenso)}).empty()) {
    domanda += "\r\n\r\n" + std::string(kContoCorretto);
  }
  if (!contesto_.conferma(domanda)) return;
  const Result<> esito = contesto_.registrazione().togliCompenso(compenso);
  if (!esito) return contesto_.avvisa(esito.refusals.front().text);
  frontEnd().told("Compenso eliminato: " + detto(compenso) + ".");
  ricarica(0);
}

}  // namespace cu
