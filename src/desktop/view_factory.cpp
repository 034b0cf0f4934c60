#include "desktop/view_factory.h"

#include "controls/numericbox.h"
#include "desktop/edit_view.h"
#include "desktop/grid_view.h"
#include "desktop/list_views.h"
#include "desktop/selector_view.h"
#include "desktop/shell_views.h"
#include "desktop/simple_views.h"

namespace cu::desktop {
namespace {

class Maker : public ControlVisitor {
 public:
  Maker(FormWindow& window, QWidget* parent) : window_(window), parent_(parent) {}
  std::unique_ptr<View> made;

  void visit(Frame& control) override { make<FrameView>(control); }
  void visit(Label& control) override { make<LabelView>(control); }
  void visit(Link& control) override { make<LinkView>(control); }
  void visit(Button& control) override { make<ButtonView>(control); }
  void visit(Option& control) override { make<OptionView>(control); }
  void visit(Check& control) override { make<CheckView>(control); }
  void visit(TextBox& control) override { make<EditView>(control); }
  void visit(ListBox& control) override { make<ListView>(control); }
  void visit(Selector& control) override { make<SelectorView>(control); }
  void visit(DateBox& control) override { make<DateView>(control); }
  void visit(AmountBox& control) override {
    made = std::make_unique<NumericView>(window_, control, parent_, control.DecimalPoint());
  }
  void visit(NumberBox& control) override {
    made = std::make_unique<NumericView>(window_, control, parent_, std::string());
  }
  void visit(Picker& control) override { make<PickerView>(control); }
  void visit(Tabs& control) override { make<TabsView>(control); }
  void visit(Grid& control) override { make<GridView>(control); }
  void visit(SideBand& control) override { make<BandView>(control); }
  void visit(MenuBar& control) override { make<MenuView>(control); }
  void visit(PrintControl& control) override { make<PrintView>(control); }

 private:
  template <class V, class C>
  void make(C& control) {
    made = std::make_unique<V>(window_, control, parent_);
  }
  FormWindow& window_;
  QWidget* parent_;
};

}  // namespace

std::unique_ptr<View> makeView(FormWindow& window, Control& control, QWidget* parent) {
  Maker maker(window, parent);
  control.accept(maker);
  return std::move(maker.made);
}

}  // namespace cu::desktop
