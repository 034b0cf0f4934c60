#pragma once

#include <memory>

#include "context/globali.h"
#include "wizard/ambiente.h"
#include "wizard/frm_wizard.h"

namespace cu {

// The entry of the process. All its input comes from the launcher's session.
class ModMain {
 public:
  explicit ModMain(const Ambiente& ambiente);
  ~ModMain();

  // Loads the wizard, binds the session, reads currency and title, checks the process list and shows the
  // wizard. Returns at once; the process lives as long as the form is open. A session that cannot start is
  // reported in a box; every other error is raised again with its number.
  void main();

  bool refused() const { return refused_; }      // the session could not start
  FrmWizard* wizard() { return wizard_.get(); }  // null before main()
  Globali& globali() { return globali_; }

 private:
  void entry();
  void controllaProcessi();

  Ambiente ambiente_;
  Globali globali_;
  std::unique_ptr<FrmWizard> wizard_;
  bool refused_ = false;
};

// The error number for an unknown process.
inline constexpr int kErrorProcessName = -2147221504 + 10002;

}  // namespace cu
