#include "wizard/frm_protocollo.h"

#include "base/text.h"
#include "controls/frontend.h"
#include "controls/utility.h"
#include "worklist/riferimenti.h"

namespace cu {

FrmProtocollo::FrmProtocollo(FrontEnd& schermo, UtilitaSuite& utilita)
    : Form(schermo, "frmProtocollo", "Protocollo annullamento/sostituzione"),
      lblStep(*this, "lblStep", nullptr,
              "Aggiorna i riferimenti per l'annullamento o la sostituzione dei compensi selezionati."),
      fraRiferimenti(*this, "fraRiferimenti", nullptr, "Riferimenti per annullamento/sostituzione"),
      lblProtocollo(*this, "lblProtocollo", &fraRiferimenti, "Protocollo"),
      txtProtocollo(*this, "txtProtocollo", &fraRiferimenti),
      lblProgressivo(*this, "lblProgressivo", &fraRiferimenti, "Progressivo"),
      txtProgressivo(*this, "txtProgressivo", &fraRiferimenti),
      chkSovrascrivi(*this, "chkSovrascrivi", &fraRiferimenti, "Aggiorna dove già presente", true),
      cmdOk(*this, "cmdOk", nullptr, "OK"),
      cmdAnnulla(*this, "cmdAnnulla", nullptr, "Annulla"),
      utilita_(utilita) {
  txtProtocollo.setMaxLength(kMassimoProtocollo);
  txtProgressivo.setMaxLength(kMassimoProgressivo);
  for (TextBox* casella : {&txtProtocollo, &txtProgressivo}) {
    casella->keyFilter = [this](char32_t carattere) {
      if (tastoRiferimento(carattere)) return true;
      frontEnd().beep();
      return false;
    };
    casella->onChange = [this] { testiCambiati(); };
  }
  cmdOk.setEnabled(false);
  defaultButton = &cmdOk;
  cancelButton = &cmdAnnulla;
  cmdOk.onClick = [this] {
    ok_ = true;
    protocollo_ = txtProtocollo.text();
    progressivo_ = txtProgressivo.text();
    sovrascrivi_ = chkSovrascrivi.value();
    unload();
  };
  cmdAnnulla.onClick = [this] {
    ok_ = false;
    unload();
  };
}

void FrmProtocollo::formLoad() { utilita_.prepareForm(*this); }

void FrmProtocollo::testiCambiati() {
  cmdOk.setEnabled(!trim(txtProtocollo.text()).empty() || !trim(txtProgressivo.text()).empty());
}

}  // namespace cu
