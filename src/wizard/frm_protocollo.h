#pragma once

#include <string>

#include "controls/form.h"
#include "controls/textbox.h"

namespace cu {

class UtilitaSuite;

// The references to the submission that is annulled or replaced, for all selected lines at once.
class FrmProtocollo : public Form {
 public:
  FrmProtocollo(FrontEnd& frontEnd, UtilitaSuite& utilita);

  // Valid after the form has been closed.
  const std::string& Protocollo() const { return protocollo_; }
  const std::string& Progressivo() const { return progressivo_; }
  bool Sovrascrivi() const { return sovrascrivi_; }
  bool OK() const { return ok_; }

  std::string guideChapter() const override { return "Annullare e sostituire"; }

  Label lblStep;
  Frame fraRiferimenti;
  Label lblProtocollo;
  TextBox txtProtocollo;
  Label lblProgressivo;
  TextBox txtProgressivo;
  Check chkSovrascrivi;
  Button cmdOk;
  Button cmdAnnulla;

 private:
  void formLoad() override;
  void testiCambiati();

  UtilitaSuite& utilita_;
  std::string protocollo_;
  std::string progressivo_;
  bool sovrascrivi_ = false;
  bool ok_ = false;
};

}  // namespace cu
