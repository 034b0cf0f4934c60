#pragma once

#include "automation/gestures.h"
#include "controls/form.h"
#include "controls/frontend.h"

namespace cu {

[[noreturn]] void refuse(const Control& control, const std::string& why);

// Raises Refused when the user cannot reach the control.
void requireReach(const Control& control);

// Base for a gesture supported by few kinds of controls: all others reject it with one sentence.
class RefusingVisitor : public ControlVisitor {
 public:
  explicit RefusingVisitor(std::string why) : why_(std::move(why)) {}
  void visit(Frame& control) override;
  void visit(Label& control) override;
  void visit(Link& control) override;
  void visit(Button& control) override;
  void visit(Option& control) override;
  void visit(Check& control) override;
  void visit(TextBox& control) override;
  void visit(ListBox& control) override;
  void visit(Selector& control) override;
  void visit(DateBox& control) override;
  void visit(AmountBox& control) override;
  void visit(NumberBox& control) override;
  void visit(Picker& control) override;
  void visit(Tabs& control) override;
  void visit(Grid& control) override;
  void visit(SideBand& control) override;
  void visit(MenuBar& control) override;
  void visit(PrintControl& control) override;

 private:
  std::string why_;
};

}  // namespace cu
