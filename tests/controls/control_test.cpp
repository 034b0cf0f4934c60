#include "controls/control.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "controls/band.h"
#include "controls/controls_support.h"
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

namespace cu {
namespace {

using test::CountingView;
using test::Stage;

TEST(Control, RegistersItselfWithItsFormInTheOrderOfTabbing) {
  Stage stage;
  Frame frame(stage.form, "fraStep(0)", nullptr);
  Button button(stage.form, element("cmdNav", 3), &frame, "&Avanti >");
  EXPECT_EQ(button.name(), "cmdNav(3)");
  EXPECT_EQ(button.caption(), "&Avanti >");
  EXPECT_EQ(button.frame(), &frame);
  EXPECT_EQ(&button.form(), &stage.form);
  EXPECT_EQ(stage.form.controls(), (std::vector<Control*>{&frame, &button}));
  EXPECT_EQ(stage.form.find("cmdNav(3)"), &button);
  EXPECT_EQ(stage.form.find("cmdNav"), nullptr);
  EXPECT_EQ(stage.form.find("CMDNAV(3)"), nullptr);
}

TEST(Control, HelpForAPersonReachesTheViewAndNothingElse) {
  Stage stage;
  Button button(stage.form, "cmdOk", nullptr, "OK");
  CountingView view;
  button.attach(&view);
  EXPECT_EQ(button.hint() + button.note(), "");
  button.setHint("Che cosa fa.");
  button.setNote("Che cosa c'è.");
  button.setHint("Che cosa fa.");
  button.setNote("Che cosa c'è.");
  EXPECT_EQ(view.changes, 2);
  EXPECT_EQ(button.hint(), "Che cosa fa.");
  EXPECT_EQ(button.note(), "Che cosa c'è.");
  EXPECT_EQ(button.caption(), "OK");
}

TEST(Control, TellsItsViewOfChangesOnly) {
  Stage stage;
  Button button(stage.form, "cmdOk", nullptr, "OK");
  CountingView view;
  button.attach(&view);
  button.setEnabled(true);
  button.setVisible(true);
  button.setCaption("OK");
  EXPECT_EQ(view.changes, 0);
  button.setEnabled(false);
  button.setVisible(false);
  button.setCaption("Va bene");
  EXPECT_EQ(view.changes, 3);
  EXPECT_FALSE(button.enabled());
  EXPECT_FALSE(button.visible());
  button.attach(nullptr);
  button.setEnabled(true);
  EXPECT_EQ(view.changes, 3);
}

TEST(Control, IsAvailableWhileItAndAllItsFramesAre) {
  Stage stage;
  Frame step(stage.form, "fraStep(0)", nullptr);
  Frame inner(stage.form, "fraFirma", &step);
  Button button(stage.form, "cmdOk", &inner);
  EXPECT_TRUE(button.available());

  button.setEnabled(false);
  EXPECT_FALSE(button.available());
  button.setEnabled(true);
  button.setVisible(false);
  EXPECT_FALSE(button.available());
  button.setVisible(true);

  for (Frame* frame : {&inner, &step}) {
    frame->setEnabled(false);
    EXPECT_FALSE(button.available()) << frame->name();
    EXPECT_TRUE(button.enabled());
    frame->setEnabled(true);
    frame->setVisible(false);
    EXPECT_FALSE(button.available()) << frame->name();
    EXPECT_TRUE(button.visible());
    frame->setVisible(true);
    frame->setLeft(Frame::kOffStage);
    EXPECT_FALSE(button.available()) << frame->name();
    frame->setLeft(SideBand::kWidth);
    EXPECT_TRUE(button.available()) << frame->name();
  }
}

TEST(Frame, FarToTheLeftItIsOffStage) {
  Stage stage;
  Frame frame(stage.form, "fraStep(1)", nullptr);
  CountingView view;
  frame.attach(&view);
  EXPECT_EQ(frame.left(), 0);
  EXPECT_TRUE(frame.onStage());
  frame.setLeft(-20000);
  EXPECT_EQ(frame.left(), -20000);
  EXPECT_FALSE(frame.onStage());
  EXPECT_EQ(view.changes, 1);
  frame.setLeft(-20000);
  EXPECT_EQ(view.changes, 1);
  frame.setLeft(-19999);
  EXPECT_TRUE(frame.onStage());
}

TEST(Control, WhoTakesTheFocus) {
  Stage stage;
  EXPECT_FALSE(Frame(stage.form, "a", nullptr).takesFocus());
  EXPECT_FALSE(Label(stage.form, "b", nullptr).takesFocus());
  EXPECT_FALSE(SideBand(stage.form, "c", nullptr).takesFocus());
  EXPECT_FALSE(MenuBar(stage.form, "d", nullptr).takesFocus());
  EXPECT_TRUE(Link(stage.form, "e", nullptr).takesFocus());
  EXPECT_TRUE(Button(stage.form, "f", nullptr).takesFocus());
  EXPECT_TRUE(Option(stage.form, "g", nullptr, "").takesFocus());
  EXPECT_TRUE(Check(stage.form, "h", nullptr, "").takesFocus());
  EXPECT_TRUE(TextBox(stage.form, "i", nullptr).takesFocus());
  EXPECT_TRUE(DateBox(stage.form, "j", nullptr).takesFocus());
  EXPECT_TRUE(ListBox(stage.form, "k", nullptr).takesFocus());
  EXPECT_TRUE(Selector(stage.form, "l", nullptr).takesFocus());
  EXPECT_TRUE(Grid(stage.form, "m", nullptr).takesFocus());
}

class Naming : public ControlVisitor {
 public:
  std::string kind;
  void visit(Frame&) override { kind = "frame"; }
  void visit(Label&) override { kind = "label"; }
  void visit(Link&) override { kind = "link"; }
  void visit(Button&) override { kind = "button"; }
  void visit(Option&) override { kind = "option"; }
  void visit(Check&) override { kind = "check"; }
  void visit(TextBox&) override { kind = "text"; }
  void visit(ListBox&) override { kind = "list"; }
  void visit(Selector&) override { kind = "selector"; }
  void visit(DateBox&) override { kind = "date"; }
  void visit(AmountBox&) override { kind = "amount"; }
  void visit(NumberBox&) override { kind = "number"; }
  void visit(Picker&) override { kind = "picker"; }
  void visit(Tabs&) override { kind = "tabs"; }
  void visit(Grid&) override { kind = "grid"; }
  void visit(SideBand&) override { kind = "band"; }
  void visit(MenuBar&) override { kind = "menubar"; }
  void visit(PrintControl&) override { kind = "print"; }
};

template <class Kind, class... More>
std::string kindOf(More... more) {
  Stage stage;
  Kind control(stage.form, "x", nullptr, more...);
  Naming visitor;
  static_cast<Control&>(control).accept(visitor);
  return visitor.kind;
}

TEST(Control, AVisitorMeetsEachAsItsKind) {
  EXPECT_EQ(kindOf<Frame>(), "frame");
  EXPECT_EQ(kindOf<Label>(), "label");
  EXPECT_EQ(kindOf<Link>(), "link");
  EXPECT_EQ(kindOf<Button>(), "button");
  EXPECT_EQ(kindOf<Option>("x"), "option");
  EXPECT_EQ(kindOf<Check>("x"), "check");
  EXPECT_EQ(kindOf<TextBox>(), "text");
  EXPECT_EQ(kindOf<ListBox>(), "list");
  EXPECT_EQ(kindOf<Selector>(), "selector");
  EXPECT_EQ(kindOf<DateBox>(), "date");
  EXPECT_EQ(kindOf<AmountBox>(), "amount");
  EXPECT_EQ(kindOf<NumberBox>(), "number");
  EXPECT_EQ(kindOf<Picker>(), "picker");
  EXPECT_EQ(kindOf<Tabs>(), "tabs");
  EXPECT_EQ(kindOf<Grid>(), "grid");
  EXPECT_EQ(kindOf<SideBand>(), "band");
  EXPECT_EQ(kindOf<MenuBar>(), "menubar");
  EXPECT_EQ(kindOf<PrintControl>(), "print");
}

TEST(Button, AndLinkRunTheirHandler) {
  Stage stage;
  Button button(stage.form, "cmdOk", nullptr);
  Link link(stage.form, "lblNote", nullptr);
  button.click();  // without a handler nothing happens
  link.click();
  std::string clicked;
  button.onClick = [&] { clicked += "b"; };
  link.onClick = [&] { clicked += "l"; };
  button.click();
  link.click();
  EXPECT_EQ(clicked, "bl");
}

struct Options {
  Stage stage;
  Frame first{stage.form, "fraTipo", nullptr};
  Frame second{stage.form, "fraAltro", nullptr};
  Option a{stage.form, "opt(0)", &first, "a", true};
  Option b{stage.form, "opt(1)", &first, "b"};
  Option c{stage.form, "opt(2)", &first, "c"};
  Option elsewhere{stage.form, "optAltro(0)", &second, "x", true};
  Option free{stage.form, "optLibera(0)", nullptr, "y", true};
  std::vector<std::string> clicks;
  Options() {
    for (Option* option : {&a, &b, &c, &elsewhere, &free}) {
      option->onClick = [this, option] { clicks.push_back(option->name()); };
    }
  }
  std::string values() const {
    std::string text;
    for (const Option* option : {&a, &b, &c, &elsewhere, &free}) text += option->value() ? '1' : '0';
    return text;
  }
};

TEST(Option, ThoseOfOneFrameBelongTogether) {
  Options options;
  EXPECT_EQ(options.values(), "10011");
  EXPECT_TRUE(options.clicks.empty());
  options.b.click();
  EXPECT_EQ(options.values(), "01011");
  options.c.setValue(true);
  EXPECT_EQ(options.values(), "00111");
  EXPECT_EQ(options.clicks, (std::vector<std::string>{"opt(1)", "opt(2)"}));
}

TEST(Option, ItsGroupIsThatOfItsFrameInTheOrderOfTabbing) {
  Options options;
  const std::vector<Option*> group = {&options.a, &options.b, &options.c};
  EXPECT_EQ(options.b.group(), group);
  EXPECT_EQ(options.free.group(), std::vector<Option*>{&options.free});
}

TEST(Option, TheOtherOneGoesOffSilentlyButItsViewIsTold) {
  Options options;
  CountingView view;
  options.a.attach(&view);
  options.b.click();
  EXPECT_EQ(view.changes, 1);
  EXPECT_EQ(options.clicks, (std::vector<std::string>{"opt(1)"}));
}

TEST(Option, TheOthersAreOffWhenItsEventRuns) {
  Options options;
  std::string seen;
  options.b.onClick = [&] { seen = options.values(); };
  options.b.setValue(true);
  EXPECT_EQ(seen, "01011");
}

TEST(Option, APersonsClickRaisesTheEventEachTimeAndCodeOnlyOnAChange) {
  Options options;
  options.a.click();
  options.a.click();
  EXPECT_EQ(options.clicks.size(), 2U);
  options.a.setValue(true);
  EXPECT_EQ(options.clicks.size(), 2U);
  EXPECT_EQ(options.values(), "10011");
}

TEST(Option, WithoutAHandlerAClickTurnsItOnAllTheSame) {
  Options options;
  options.b.onClick = nullptr;
  options.b.click();
  EXPECT_EQ(options.values(), "01011");
  options.c.onClick = nullptr;
  options.c.setValue(true);
  EXPECT_EQ(options.values(), "00111");
  EXPECT_TRUE(options.clicks.empty());
}

TEST(Option, CodeCanTurnItOffWithoutAnEvent) {
  Options options;
  options.a.setValue(false);
  EXPECT_EQ(options.values(), "00011");
  EXPECT_TRUE(options.clicks.empty());
}

TEST(Check, AClickInvertsItAndEveryChangeRaisesTheEvent) {
  Stage stage;
  Check check(stage.form, "chkIntermediari", nullptr, "Uso di intermediari");
  std::vector<bool> seen;
  check.onClick = [&] { seen.push_back(check.value()); };
  check.click();
  check.click();
  check.setValue(true);
  check.setValue(true);
  EXPECT_EQ(seen, (std::vector<bool>{true, false, true}));
}

TEST(Check, MayBeOnFromTheStart) {
  Stage stage;
  const Check check(stage.form, "chkSovrascrivi", nullptr, "Aggiorna", true);
  EXPECT_TRUE(check.value());
}

}  // namespace
}  // namespace cu
