#pragma once

#include <string>
#include <utility>
#include <vector>

#include "controls/control.h"
#include "controls/form.h"
#include "support/scripted_front_end.h"

namespace cu::test {

// A form without controls of its own that records its life cycle.
class PlainForm : public Form {
 public:
  explicit PlainForm(FrontEnd& frontEnd, std::string name = "frmProva")
      : Form(frontEnd, std::move(name), "Prova") {}

  std::vector<std::string> life;
  bool refuses = false;
  Event onLoad;
  Event onUnload;

 protected:
  void formLoad() override {
    life.push_back("load");
    if (onLoad) onLoad();
  }
  void formUnload() override {
    life.push_back("unload");
    if (onUnload) onUnload();
  }
  bool refusesClose() override { return refuses; }
};

// Counts the calls of a control's view.
class CountingView : public ControlView {
 public:
  int changes = 0;
  void changed(Control&) override { ++changes; }
};

// A front end and a form for controls.
struct Stage {
  ScriptedFrontEnd frontEnd;
  PlainForm form{frontEnd};
};

}  // namespace cu::test
