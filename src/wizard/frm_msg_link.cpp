#include "wizard/frm_msg_link.h"

#include "controls/frontend.h"
#include "controls/utility.h"

namespace cu {

FrmMsgLink::FrmMsgLink(FrontEnd& schermo, UtilitaSuite& utilita, TestiSuite& testi, const FileSystem& files)
    : Form(schermo, "frmMsgLink"),
      lblUser(
          *this, "lblUser", nullptr,
          "Il file generato, che si chiama NomeFile, è stato creato correttamente nel seguente percorso:"),
      lblLink(*this, "lblLink", nullptr, "percorso"),
      Label1(*this, "Label1", nullptr,
             "Il file così creato andrà trasmesso, tramite il servizio telematico Entratel o Internet "
             "(Fisconline), "
             "direttamente o tramite gli intermediari abilitati."),
      Image1(*this, "Image1", nullptr),
      Command1(*this, "Command1", nullptr, "OK"),
      utilita_(utilita),
      testi_(testi),
      files_(files) {
  defaultButton = &Command1;
  cancelButton = &Command1;
  lblLink.onClick = [this] { frontEnd().open(lblLink.caption(), lblLink.caption()); };
  Command1.onClick = [this] { unload(); };
}

void FrmMsgLink::setPath(const std::string& cartella) {
  load();
  lblLink.setCaption(cartella);
}

void FrmMsgLink::formLoad() {
  utilita_.prepareForm(*this);
  // The notice may be shown while the wizard's hourglass is on.
  puntatore_ = frontEnd().pointer();
  frontEnd().setPointer(kPointerDefault);
  lblLink.setCaption(files_.join(utilita_.documentsFolder(), testi_.text(1264)));
}

void FrmMsgLink::formUnload() {
  frontEnd().setPointer(puntatore_);
  connection_ = nullptr;
}

}  // namespace cu
