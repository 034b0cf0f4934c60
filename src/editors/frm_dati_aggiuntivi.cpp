#include "editors/frm_dati_aggiuntivi.h"

namespace cu {

std::int32_t idComune(const Picker& comune) { return static_cast<std::int32_t>(comune.storedRecord()); }

void associaComune(Picker& comune, const AmbienteEditor& ambiente) {
  SessioneHost& sessione = *ambiente.globali.gSessione;
  comune.bind(sessione.database().ownConnection(), ambiente.globali.gTitolo, sessione.helpContext());
}

FrmDatiAggiuntivi::FrmDatiAggiuntivi(const AmbienteEditor& ambiente)
    : Form(ambiente.frontEnd, "frmDatiAggiuntivi", "Certificazione compensi - Dati aggiuntivi"),
      fraTab0(*this, "fraTab0", nullptr, "Altri dati"),
      riferimenti(*this, &fraTab0),
      Frame1(*this, "Frame1", &fraTab0, "Dati del percipiente"),
      percipiente(*this, &Frame1, ""),
      fraMain(*this, "fraMain", nullptr, "Altri dati"),
      Frame2(*this, "Frame2", &fraMain, "Comune di residenza anno precedente"),
      TownComuneResidenzaAnnoPrec(*this, "TownComuneResidenzaAnnoPrec", &Frame2),
      lblFusioneComuniAnnoPrec(*this, "lblFusioneComuniAnnoPrec", &Frame2, "Fusione comuni"),
      txtFusioneComuniAnnoPrec(*this, "txtFusioneComuniAnnoPrec", &Frame2),
      Frame3(*this, "Frame3", &fraMain, "Comune di residenza anno corrente"),
      TownComuneResidenzaAnnoCorr(*this, "TownComuneResidenzaAnnoCorr", &Frame3),
      lblFusioneComuni(*this, "lblFusioneComuni", &Frame3, "Fusione comuni"),
      txtFusioneComuni(*this, "txtFusioneComuni", &Frame3),
      cmdOk(*this, "cmdOk", nullptr, "OK"),
      cmdAnnulla(*this, "cmdAnnulla", nullptr, "Annulla"),
      ambiente_(ambiente) {
  for (TextBox* casella : {&txtFusioneComuni, &txtFusioneComuniAnnoPrec}) casella->setMaxLength(kDescrizione);
  lblFusioneComuniAnnoPrec.buddy = &txtFusioneComuniAnnoPrec;
  lblFusioneComuni.buddy = &txtFusioneComuni;
  defaultButton = &cmdOk;
  cancelButton = &cmdAnnulla;
  cmdOk.onClick = [this] { conferma(); };
  cmdAnnulla.onClick = [this] {
    ok_ = false;
    unload();
  };
}

void FrmDatiAggiuntivi::formLoad() {
  ambiente_.utilita.prepareForm(*this);
  percipiente.associa(ambiente_);
  associaComune(TownComuneResidenzaAnnoPrec, ambiente_);
  associaComune(TownComuneResidenzaAnnoCorr, ambiente_);
}

void FrmDatiAggiuntivi::formUnload() { ambiente_.utilita.releaseForm(*this); }

// The close box cancels as the button does, also after a failed check.
bool FrmDatiAggiuntivi::refusesClose() {
  ok_ = false;
  return false;
}

void FrmDatiAggiuntivi::setTipoComunicazione(Comunicazione tipo) {
  tipo_ = tipo;
  riferimenti.disponi(tipo);
  fraMain.setVisible(tipo != Comunicazione::Annullamento);  // an annulment requires nothing else
  notify();
}

void FrmDatiAggiuntivi::sbFill() {
  load();
  percipiente.mostra(IDAnagrafica, Nome, IDCausalePagamento);
  riferimenti.txtProtocollo.setText(dati.Protocollo);
  riferimenti.txtProgressivo.setText(dati.Progressivo);
  TownComuneResidenzaAnnoPrec.setRecord(dati.IDComuneResidenzaAnnoPrec);
  TownComuneResidenzaAnnoCorr.setRecord(dati.IDComuneResidenzaAnnoCorr);
  txtFusioneComuni.setText(dati.FusioneComuni);
  txtFusioneComuniAnnoPrec.setText(dati.FusioneComuniAnnoPrec);
}

DatiAggiuntivi FrmDatiAggiuntivi::scritti() const {
  return {.Protocollo = riferimenti.txtProtocollo.stored(),
          .Progressivo = riferimenti.txtProgressivo.stored(),
          .IDComuneResidenzaAnnoPrec = idComune(TownComuneResidenzaAnnoPrec),
          .IDComuneResidenzaAnnoCorr = idComune(TownComuneResidenzaAnnoCorr),
          .ComuneResidenzaAnnoPrec = TownComuneResidenzaAnnoPrec.text(),
          .ComuneResidenzaAnnoCorr = TownComuneResidenzaAnnoCorr.text(),
          .FusioneComuni = txtFusioneComuni.stored(),
          .FusioneComuniAnnoPrec = txtFusioneComuniAnnoPrec.stored()};
}

// The description of a municipality is that of the list, which may differ from the row's.
std::optional<std::string> FrmDatiAggiuntivi::rowWork() const {
  DatiAggiuntivi adesso = scritti();
  adesso.ComuneResidenzaAnnoPrec = dati.ComuneResidenzaAnnoPrec;
  adesso.ComuneResidenzaAnnoCorr = dati.ComuneResidenzaAnnoCorr;
  return adesso == dati ? std::string()
                        : std::string("I dati aggiuntivi sono stati modificati e non confermati con OK.");
}

void FrmDatiAggiuntivi::conferma() {
  // The members receive the input even if a reference is then found missing.
  ok_ = true;
  dati = scritti();
  if (tipo_ != Comunicazione::Ordinaria &&
      !riferimenti.fnCompleti(ambiente_.utilita, ambiente_.globali.gTitolo))
    return;
  unload();
}

}  // namespace cu
