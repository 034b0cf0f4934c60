// A user event: the control first gets the focus, the one that had it commits and loses it, then the event
// runs.

#include <gtest/gtest.h>

#include "base/error.h"
#include "controls/controls_support.h"
#include "controls/numericbox.h"

namespace cu::test {
namespace {

using Names = std::vector<std::string>;

// A view that keeps what was typed until commit(), and may reject its control's events.
struct HoldingView : ControlView {
  explicit HoldingView(Names& told) : events(told) {}
  void changed(Control&) override {}
  void commit() override {
    events.push_back("commit");
    if (fails) throw Error(5, "guasto");
  }
  bool allows() override {
    if (failsToSay) throw Error(7, "guasto");
    return allowed;
  }
  Names& events;
  bool fails = false;
  bool allowed = true;
  bool failsToSay = false;
};

struct Ruled : Stage {
  NumberBox box{form, "num", nullptr};
  Button ok{form, "cmdOk", nullptr};
  Button cancel{form, "cmdAnnulla", nullptr};
  Names events;
  HoldingView view{events};
  Ruled() {
    box.attach(&view);
    box.setLimits(Decimal(), Decimal::fromInteger(999'999));
    box.onLostFocus = [this] { events.push_back("lost " + box.text()); };
    ok.onGotFocus = [this] { events.push_back("got"); };
    ok.onClick = [this] { events.push_back("click"); };
    cancel.onClick = [this] { events.push_back("cancel"); };
    form.defaultButton = &ok;
    form.cancelButton = &cancel;
    form.show();
    box.enter("007");
  }
  void press() {
    form.perform(ok, [this] { ok.click(); });
  }
};

TEST(FocusRule, TheFieldHandsOverTakesItsShapeAndIsLeftBeforeTheEventRuns) {
  Ruled on;
  on.press();
  EXPECT_EQ(on.events, (Names{"commit", "lost 7", "got", "click"}));
  EXPECT_EQ(on.form.focus(), &on.ok);
}

TEST(FocusRule, AnEventOfTheControlThatHasTheFocusLeavesNothing) {
  Ruled on;
  bool ran = false;
  on.form.perform(on.box, [&] { ran = true; });
  EXPECT_TRUE(ran);
  EXPECT_TRUE(on.events.empty());
}

TEST(FocusRule, WithoutAnEventOnlyTheFocusMoves) {
  Ruled on;
  on.form.perform(on.ok, {});
  EXPECT_EQ(on.events, (Names{"commit", "lost 7", "got"}));
}

TEST(FocusRule, WhatLeavingPutsOutOfReachIsNotPressed) {
  Ruled on;
  on.box.onLostFocus = [&] { on.ok.setEnabled(false); };
  on.press();
  EXPECT_EQ(on.events, (Names{"commit", "got"}));
  EXPECT_EQ(on.form.focus(), &on.cancel) << "and yields the focus";
}

TEST(FocusRule, NothingRunsOnAFormThatLeavingHasClosed) {
  Ruled on;
  on.box.onLostFocus = [&] { on.form.unload(); };
  on.press();
  EXPECT_EQ(on.events, (Names{"commit"}));
}

TEST(FocusRule, AnErrorOfLeavingIsShownAndTheEventRuns) {
  Ruled on;
  on.view.fails = true;
  on.press();
  EXPECT_EQ(on.events, (Names{"commit", "click"}));
  ASSERT_EQ(on.frontEnd.errors.size(), 1U);
  EXPECT_EQ(on.frontEnd.errors.front().number, 5);
}

TEST(FocusRule, AViewMayGiveTheEventUpOnceTheFocusIsThere) {
  Ruled on;
  HoldingView asked{on.events};
  on.ok.attach(&asked);
  asked.allowed = false;
  on.press();
  EXPECT_EQ(on.events, (Names{"commit", "lost 7", "got"}));
  on.form.keyDown(13, 0);
  EXPECT_EQ(on.events.size(), 3U);
  asked.allowed = true;
  on.form.keyDown(13, 0);
  EXPECT_EQ(on.events.back(), "click");
  on.ok.attach(nullptr);
}

TEST(FocusRule, AnErrorOfTheViewThatIsAskedIsShownAndTheEventGivenUp) {
  Ruled on;
  HoldingView asked{on.events};
  on.ok.attach(&asked);
  asked.failsToSay = true;
  EXPECT_NO_THROW(on.press());
  EXPECT_EQ(on.events, (Names{"commit", "lost 7", "got"}));
  ASSERT_EQ(on.frontEnd.errors.size(), 1U);
  EXPECT_EQ(on.frontEnd.errors.front().number, 7);
  on.ok.attach(nullptr);
}

TEST(FocusRule, AKeyThatPressesAButtonIsAnEventOfThatButton) {
  Ruled on;
  EXPECT_FALSE(on.form.keyDown(13, 0));
  EXPECT_EQ(on.events, (Names{"commit", "lost 7", "got", "click"}));
  EXPECT_EQ(on.form.focus(), &on.ok);
  on.events.clear();
  on.form.setFocus(&on.box);
  EXPECT_FALSE(on.form.keyDown(27, 0));
  EXPECT_EQ(on.events, (Names{"commit", "lost 7", "cancel"}));
  EXPECT_EQ(on.form.focus(), &on.cancel);
}

TEST(FocusRule, EnterPressesTheButtonThatTheCallerNames) {
  Ruled on;
  on.form.keyDown(13, 0, &on.cancel);
  on.form.keyDown(13, 0, nullptr);
  EXPECT_EQ(on.events, (Names{"commit", "lost 7", "cancel"}));
}

TEST(FocusRule, AnEventOfTheFormLeavesTheFieldAndSettlesTheFocus) {
  Ruled on;
  on.form.perform([&] { on.box.setEnabled(false); });
  EXPECT_EQ(on.form.focus(), &on.ok);
  EXPECT_EQ(on.events, (Names{"commit", "lost 7", "got"}));
}

}  // namespace
}  // namespace cu::test
