#pragma once

#include <string>

#include "controls/form.h"
#include "controls/textbox.h"
#include "host/session.h"

namespace cu {

class UtilitaSuite;

// "Modalità di stampa": two flags and a line spacing. No print uses them.
class FrmOption : public Form {
 public:
  FrmOption(FrontEnd& frontEnd, UtilitaSuite& utilita, SessioneHost& sessione);

  // Valid after a button has hidden the form.
  bool PrintInt() const { return printInt_; }
  bool PrintNewPage() const { return printNewPage_; }
  bool Cancel() const { return cancel_; }
  // Returns the same as PrintNewPage; the spacing itself is stored but not read.
  bool InterLine() const { return printNewPage_; }

  std::string guideChapter() const override { return "Opzioni di stampa"; }

  Check chkPrintInter;
  TextBox txtInter;
  Check ChkNewPage;
  Button cmdOk;
  Button cmdCancel;

 private:
  void formLoad() override;
  bool refusesClose() override { return true; }
  void sblocca(bool interlinea);
  void chiudi(bool annulla);
  // The company's stored spacing; "" without one and on any error.
  std::string InterlineaGiornale();

  UtilitaSuite& utilita_;
  SessioneHost& sessione_;
  bool printInt_ = false;
  bool printNewPage_ = false;
  bool cancel_ = true;
  std::string interlinea_;
};

}  // namespace cu
