#include "controls/form.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "base/error.h"
#include "controls/controls_support.h"
#include "controls/textbox.h"

namespace cu {
namespace {

using test::PlainForm;
using test::ScriptedFrontEnd;
using test::Stage;

using Names = std::vector<std::string>;

// A front end that records the form's calls among the form's own events.
class NotingFrontEnd : public ScriptedFrontEnd {
 public:
  Names* life = nullptr;
  void show(Form& form) override {
    if (life != nullptr) life->push_back("show");
    ScriptedFrontEnd::show(form);
  }
  void showModal(Form& form) override {
    if (life != nullptr) life->push_back("modal");
    ScriptedFrontEnd::showModal(form);
    if (life != nullptr) life->push_back("returned");
  }
  void closed(Form&) override {
    ++closings;
    if (life != nullptr) life->push_back("closed");
  }
  int closings = 0;
};

struct Noting {
  NotingFrontEnd frontEnd;
  PlainForm form{frontEnd};
  Noting() { frontEnd.life = &form.life; }
  ~Noting() { frontEnd.life = nullptr; }
};

TEST(Form, LoadsOnceAndBeforeItShows) {
  Noting on;
  EXPECT_FALSE(on.form.isOpen());
  on.form.load();
  on.form.load();
  EXPECT_EQ(on.form.life, (Names{"load"}));
  EXPECT_FALSE(on.form.isOpen());
  on.form.show();
  on.form.show();
  EXPECT_TRUE(on.form.isOpen());
  EXPECT_EQ(on.form.life, (Names{"load", "show"}));
}

TEST(Form, ShownUnloadedAndGone) {
  Noting on;
  on.form.show();
  on.form.unload();
  on.form.unload();
  EXPECT_FALSE(on.form.isOpen());
  EXPECT_EQ(on.form.life, (Names{"load", "show", "unload", "closed"}));
}

TEST(Form, AModalOneReturnsWhenItHasGone) {
  Noting on;
  on.frontEnd.modals.push_back([](Form& form) { form.unload(); });
  on.form.showModal();
  EXPECT_EQ(on.form.life, (Names{"load", "modal", "unload", "closed", "returned"}));
}

TEST(Form, LoadedAndNeverShownItUnloadsWithoutClosing) {
  Noting on;
  on.form.load();
  on.form.unload();
  EXPECT_EQ(on.form.life, (Names{"load", "unload"}));
}

TEST(Form, WhatWasNeverLoadedIsNotUnloaded) {
  Noting on;
  on.form.unload();
  EXPECT_TRUE(on.form.life.empty());
}

TEST(Form, HiddenItStaysLoadedAndShowsAgain) {
  Noting on;
  on.form.show();
  on.form.hide();
  on.form.hide();
  EXPECT_FALSE(on.form.isOpen());
  on.form.show();
  EXPECT_EQ(on.form.life, (Names{"load", "show", "closed", "show"}));
}

TEST(Form, OneThatUnloadsItselfInItsLoadIsNotShown) {
  Noting on;
  on.form.onLoad = [&] { on.form.unload(); };
  on.form.showModal();
  EXPECT_FALSE(on.form.isOpen());
  EXPECT_EQ(on.form.life, (Names{"load", "unload"}));
}

TEST(Form, UnloadedFromItsOwnUnloadItGoesOnce) {
  Noting on;
  on.form.onUnload = [&] { on.form.unload(); };
  on.form.show();
  on.form.unload();
  EXPECT_EQ(on.form.life, (Names{"load", "show", "unload", "closed"}));
}

TEST(Form, AnErrorInTheUnloadLeavesItOpenForAnotherTry) {
  Noting on;
  on.form.show();
  on.form.onUnload = [] { throw Error(5, "guasto"); };
  EXPECT_THROW(on.form.unload(), Error);
  EXPECT_TRUE(on.form.isOpen());
  on.form.onUnload = nullptr;
  on.form.unload();
  EXPECT_FALSE(on.form.isOpen());
  EXPECT_EQ(on.form.life, (Names{"load", "show", "unload", "unload", "closed"}));
}

TEST(Form, TheCloseBoxUnloadsUnlessTheFormRefuses) {
  Noting on;
  on.form.show();
  on.form.refuses = true;
  on.form.close();
  EXPECT_TRUE(on.form.isOpen());
  EXPECT_EQ(on.form.life, (Names{"load", "show"}));
  on.form.refuses = false;
  on.form.close();
  EXPECT_EQ(on.form.life, (Names{"load", "show", "unload", "closed"}));
}

TEST(Form, DestroyedWhileOpenItTellsTheFrontEnd) {
  NotingFrontEnd frontEnd;
  {
    PlainForm form(frontEnd);
    form.show();
  }
  EXPECT_EQ(frontEnd.closings, 1);
  {
    PlainForm form(frontEnd);
    form.load();
  }
  EXPECT_EQ(frontEnd.closings, 1);
}

TEST(Form, ACaptionThatChangesIsTold) {
  Stage stage;
  int told = 0;
  stage.form.attach([&] { ++told; });
  stage.form.setCaption("Prova");
  EXPECT_EQ(told, 0);
  stage.form.setCaption("Altro");
  EXPECT_EQ(stage.form.caption(), "Altro");
  EXPECT_EQ(told, 1);
}

// Three boxes and a button that record gains and losses of the focus.
struct Focused : Stage {
  Frame frame{form, "fra", nullptr};
  Label label{form, "lbl", &frame};
  TextBox a{form, "a", &frame};
  TextBox b{form, "b", &frame};
  Button c{form, "c", nullptr};
  Names events;
  Focused() {
    for (Control* control :
         {static_cast<Control*>(&a), static_cast<Control*>(&b), static_cast<Control*>(&c)}) {
      control->onGotFocus = [this, control] { events.push_back("+" + control->name()); };
      control->onLostFocus = [this, control] { events.push_back("-" + control->name()); };
    }
  }
};

TEST(Focus, AFormOpensWithItOnTheFirstControlThatCanTakeIt) {
  Focused on;
  on.a.setEnabled(false);
  EXPECT_EQ(on.form.firstFocus(), &on.b);
  on.form.show();
  EXPECT_EQ(on.form.focus(), &on.b);
  EXPECT_EQ(on.events, (Names{"+b"}));
}

TEST(Focus, NobodyHasItWhereNobodyCan) {
  Focused on;
  on.frame.setVisible(false);
  on.c.setVisible(false);
  on.form.show();
  EXPECT_EQ(on.form.focus(), nullptr);
}

TEST(Focus, TheControlThatHadItSeesItLostFirst) {
  Focused on;
  on.form.setFocus(&on.a);
  on.form.setFocus(&on.b);
  on.form.setFocus(&on.b);
  on.form.setFocus(nullptr);
  EXPECT_EQ(on.events, (Names{"+a", "-a", "+b", "-b"}));
  EXPECT_EQ(on.form.focus(), nullptr);
}

TEST(Focus, AHandlerMaySendItElsewhere) {
  Focused on;
  on.form.setFocus(&on.a);
  on.a.onLostFocus = [&] { on.form.setFocus(&on.c); };
  on.events.clear();
  on.form.setFocus(&on.b);
  EXPECT_EQ(on.form.focus(), &on.c);
  EXPECT_EQ(on.events, (Names{"-b", "+c"}));
}

TEST(Focus, TheViewKnowsWhereItIsBeforeTheHandlersRun) {
  Focused on;
  on.form.setFocus(&on.a);
  const Control* told = nullptr;
  on.form.attach([&] { told = on.form.focus(); });
  on.a.onLostFocus = [&] { throw Error(5, "guasto"); };
  EXPECT_THROW(on.form.setFocus(&on.b), Error);
  EXPECT_EQ(told, &on.b);
  EXPECT_EQ(on.form.focus(), &on.b);
}

TEST(Focus, ItGoesWithTheFormWithoutAnEvent) {
  Focused on;
  on.form.show();
  on.events.clear();
  on.form.hide();
  EXPECT_EQ(on.form.focus(), nullptr);
  EXPECT_TRUE(on.events.empty());
  on.form.show();
  EXPECT_EQ(on.events, (Names{"+a"}));
  on.form.unload();
  EXPECT_EQ(on.form.focus(), nullptr);
  EXPECT_EQ(on.events, (Names{"+a"}));
}

TEST(Focus, AControlThatGoesAwayYieldsItToTheNext) {
  Focused on;
  on.form.setFocus(&on.a);
  on.events.clear();
  on.form.settleFocus();
  EXPECT_TRUE(on.events.empty());
  on.a.setEnabled(false);
  on.form.settleFocus();
  EXPECT_EQ(on.events, (Names{"-a", "+b"}));
  on.frame.setLeft(Frame::kOffStage);
  on.form.settleFocus();
  EXPECT_EQ(on.form.focus(), &on.c);
}

TEST(Focus, ControlsThatTakeNoneAreSkippedWhenItMovesOn) {
  Focused on;
  Label between(on.form, "lblTra", nullptr);
  Button last(on.form, "d", nullptr);
  on.form.setFocus(&on.c);
  on.c.setEnabled(false);
  on.form.settleFocus();
  EXPECT_EQ(on.form.focus(), &last);
}

TEST(Form, WithoutALoadOfItsOwnItOpensAllTheSame) {
  Stage stage;
  Form form(stage.frontEnd, "frmVuoto", "Vuoto");
  form.show();
  EXPECT_TRUE(form.isOpen());
}

TEST(Focus, TheLastYieldsItToTheFirst) {
  Focused on;
  on.form.setFocus(&on.c);
  on.c.setVisible(false);
  on.form.settleFocus();
  EXPECT_EQ(on.form.focus(), &on.a);
  on.frame.setEnabled(false);
  on.form.settleFocus();
  EXPECT_EQ(on.form.focus(), nullptr);
  on.form.settleFocus();
  EXPECT_EQ(on.form.focus(), nullptr);
}

struct Keys : Stage {
  Button ok{form, "cmdOk", nullptr};
  Button cancel{form, "cmdAnnulla", nullptr};
  Names clicks;
  std::vector<std::pair<int, int>> seen;
  Keys() {
    ok.onClick = [this] { clicks.push_back("ok"); };
    cancel.onClick = [this] { clicks.push_back("cancel"); };
    form.show();
  }
};

TEST(FormKeys, PressTheDefaultAndTheCancelButton) {
  Keys on;
  EXPECT_FALSE(on.form.keyDown(13, 0));
  EXPECT_FALSE(on.form.keyDown(27, 0));
  EXPECT_TRUE(on.clicks.empty());
  on.form.defaultButton = &on.ok;
  on.form.cancelButton = &on.cancel;
  EXPECT_FALSE(on.form.keyDown(13, 0));
  EXPECT_FALSE(on.form.keyDown(27, 0));
  EXPECT_FALSE(on.form.keyDown(65, 0));
  EXPECT_EQ(on.clicks, (Names{"ok", "cancel"}));
}

TEST(FormKeys, AButtonThatCannotBeReachedIsNotPressed) {
  Keys on;
  on.form.defaultButton = &on.ok;
  on.form.cancelButton = &on.cancel;
  on.ok.setEnabled(false);
  on.cancel.setVisible(false);
  on.form.keyDown(13, 0);
  on.form.keyDown(27, 0);
  EXPECT_TRUE(on.clicks.empty());
}

TEST(FormKeys, AHandlerSeesCodeAndShiftAndConsumesByZero) {
  Keys on;
  on.form.defaultButton = &on.ok;
  on.form.onKeyDown = [&](std::int16_t& code, std::int16_t& shift) {
    on.seen.emplace_back(code, shift);
    if (code == 13) code = shift = 0;
  };
  EXPECT_TRUE(on.form.keyDown(13, 2));
  EXPECT_TRUE(on.clicks.empty());
  EXPECT_FALSE(on.form.keyDown(34, 1));
  EXPECT_EQ(on.seen, (std::vector<std::pair<int, int>>{{13, 2}, {34, 1}}));
  EXPECT_FALSE(on.form.keyDown(0, 0));
}

TEST(FormKeys, TheWheelReachesItsHandler) {
  Keys on;
  on.form.wheel(120);
  std::vector<int> deltas;
  on.form.onWheel = [&](int delta) { deltas.push_back(delta); };
  on.form.wheel(-120);
  EXPECT_EQ(deltas, (std::vector<int>{-120}));
}

TEST(Form, HasNoBarNoStagesAndItsFullSizeByItself) {
  const Stage stage;
  EXPECT_EQ(stage.form.scroll(), nullptr);
  EXPECT_FALSE(stage.form.shrunk());
  EXPECT_TRUE(stage.form.stages().empty());
}

}  // namespace
}  // namespace cu
