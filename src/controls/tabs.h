#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "controls/control.h"

namespace cu {

// Pages of which one is shown: the selected tab's frame is visible, the others are not.
class Tabs : public Control {
 public:
  using Control::Control;
  void accept(ControlVisitor& visitor) override { visitor.visit(*this); }

  struct Tab {
    std::string caption;
    Frame* page = nullptr;
    bool visible = true;
  };
  void add(const std::string& caption, Frame& page);  // the first one is selected
  const std::vector<Tab>& tabs() const { return tabs_; }
  int selected() const { return selected_; }  // from 1, 0 without tabs
  // A tab that does not exist or is hidden is ignored.
  void select(int tab);
  // Hiding the selected tab selects the first visible one.
  void setTabVisible(int tab, bool visible);
  int indexOf(std::string_view caption) const;  // from 1, 0 when there is none

 private:
  bool selectable(int tab) const;
  std::vector<Tab> tabs_;
  int selected_ = 0;
};

}  // namespace cu
