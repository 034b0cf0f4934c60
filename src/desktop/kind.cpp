#include "desktop/kind.h"

#include "controls/band.h"
#include "controls/datebox.h"
#include "controls/grid.h"
#include "controls/listbox.h"
#include "controls/menubar.h"
#include "controls/numericbox.h"
#include "controls/picker.h"
#include "controls/print_control.h"
#include "controls/selector.h"
#include "controls/tabs.h"
#include "controls/textbox.h"

namespace cu::desktop {
namespace {

class KindOf : public ControlVisitor {
 public:
  Kind kind = Kind::Wide;
  void visit(Frame&) override { kind = Kind::Frame; }
  void visit(Label&) override { kind = Kind::Label; }
  void visit(Link&) override { kind = Kind::Link; }
  void visit(Button&) override { kind = Kind::Button; }
  void visit(Option&) override { kind = Kind::Option; }
  void visit(Check&) override { kind = Kind::Check; }
  void visit(TextBox&) override { kind = Kind::Field; }
  void visit(ListBox&) override { kind = Kind::Field; }
  void visit(Selector&) override { kind = Kind::Field; }
  void visit(DateBox&) override { kind = Kind::Field; }
  void visit(AmountBox&) override { kind = Kind::Field; }
  void visit(NumberBox&) override { kind = Kind::Field; }
  void visit(Picker&) override { kind = Kind::Field; }
  void visit(Tabs&) override { kind = Kind::Wide; }
  void visit(Grid&) override { kind = Kind::Wide; }
  void visit(SideBand&) override { kind = Kind::Wide; }
  void visit(MenuBar&) override { kind = Kind::Wide; }
  void visit(PrintControl&) override { kind = Kind::Wide; }
};

}  // namespace

Kind kindOf(Control& control) {
  KindOf visitor;
  control.accept(visitor);
  return visitor.kind;
}

}  // namespace cu::desktop
