#include "wizard/frm_option.h"

#include <exception>

#include "base/text.h"
#include "controls/utility.h"
#include "host/testi_programma.h"

namespace cu {

FrmOption::FrmOption(FrontEnd& schermo, UtilitaSuite& utilita, SessioneHost& sessione)
    : Form(schermo, "frmOption"),
      chkPrintInter(*this, "chkPrintInter", nullptr, {}),
      txtInter(*this, "txtInter", nullptr),
      ChkNewPage(*this, "ChkNewPage", nullptr, {}),
      cmdOk(*this, "cmdOk", nullptr, "OK"),
      cmdCancel(*this, "cmdCancel", nullptr, "Cancel"),
      utilita_(utilita),
      sessione_(sessione) {
  defaultButton = &cmdOk;
  cancelButton = &cmdCancel;
  txtInter.setMaxLength(1);
  chkPrintInter.onClick = [this] { sblocca(chkPrintInter.value()); };
  cmdOk.onClick = [this] { chiudi(false); };
  cmdCancel.onClick = [this] { chiudi(true); };
}

void FrmOption::formLoad() {
  txtInter.setText(InterlineaGiornale());
  sblocca(false);
  setCaption(testoProgramma(106));
  chkPrintInter.setCaption(testoProgramma(107));
  ChkNewPage.setCaption(testoProgramma(108));
  utilita_.prepareForm(*this);
}

void FrmOption::sblocca(bool interlinea) {
  txtInter.setLocked(!interlinea);
  txtInter.setBackground(interlinea ? Background::Window : Background::Face);
}

void FrmOption::chiudi(bool annulla) {
  cancel_ = annulla;
  printInt_ = chkPrintInter.value();
  printNewPage_ = ChkNewPage.value();
  interlinea_ = trim(txtInter.text());
  hide();
}

std::string FrmOption::InterlineaGiornale() {
  try {
    const auto ricerca = sessione_.database().CreateRowset();
    ricerca->addField("IDAzienda");
    ricerca->addField("InterlineaGiornale");
    ricerca->setTable("ConfigurazioneContabile");
    ricerca->setFilter("IDAzienda = " + fromInteger(sessione_.IDAzienda()));
    ricerca->open();
    return ricerca->eof() ? std::string() : utilita_.toText(ricerca->value("InterlineaGiornale").view());
  } catch (const std::exception&) {
    return {};
  }
}

}  // namespace cu
