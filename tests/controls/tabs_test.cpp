#include "controls/tabs.h"

#include <gtest/gtest.h>

#include "controls/controls_support.h"

namespace cu {
namespace {

struct TabsTest : testing::Test {
  test::ScriptedFrontEnd screen;
  Form form{screen, "frm"};
  Tabs tabs{form, "stbMain", nullptr};
  Frame first{form, "fraTab(0)", nullptr};
  Frame second{form, "fraTab(1)", nullptr};
  Frame third{form, "fraTab(2)", nullptr};

  void three() {
    tabs.add("Uno", first);
    tabs.add("Due", second);
    tabs.add("Tre", third);
  }
  void expectShown(int tab) {
    EXPECT_EQ(tabs.selected(), tab);
    EXPECT_EQ(first.visible(), tab == 1);
    EXPECT_EQ(second.visible(), tab == 2);
    EXPECT_EQ(third.visible(), tab == 3);
  }
};

TEST_F(TabsTest, WithoutTabsSelectsNone) {
  EXPECT_EQ(tabs.selected(), 0);
  tabs.select(1);
  EXPECT_EQ(tabs.selected(), 0);
  EXPECT_EQ(tabs.indexOf("Uno"), 0);
}

TEST_F(TabsTest, ShowsTheFirst) {
  three();
  expectShown(1);
  EXPECT_EQ(tabs.tabs().size(), 3U);
}

TEST_F(TabsTest, ShowsOnlyTheSelectedPage) {
  three();
  tabs.select(3);
  expectShown(3);
  tabs.select(2);
  expectShown(2);
}

TEST_F(TabsTest, ATabThatDoesNotExistChangesNothing) {
  three();
  tabs.select(2);
  for (const int tab : {0, -1, 4}) {
    tabs.select(tab);
    expectShown(2);
    tabs.setTabVisible(tab, false);
    expectShown(2);
  }
}

TEST_F(TabsTest, AHiddenTabCannotBeSelected) {
  three();
  tabs.setTabVisible(2, false);
  tabs.select(2);
  expectShown(1);
  tabs.setTabVisible(2, true);
  expectShown(1);
  tabs.select(2);
  expectShown(2);
}

TEST_F(TabsTest, HidingTheSelectedOneShowsTheFirstThatIsLeft) {
  three();
  tabs.select(3);
  tabs.setTabVisible(3, false);
  expectShown(1);
  tabs.setTabVisible(1, false);
  expectShown(2);
}

TEST_F(TabsTest, TheLastThatIsHiddenKeepsItsPageUntilAnotherIsSelected) {
  three();
  for (const int tab : {1, 2, 3}) tabs.setTabVisible(tab, false);
  expectShown(3);
  tabs.setTabVisible(1, true);
  tabs.select(1);
  expectShown(1);
}

TEST_F(TabsTest, IsFoundByItsCaption) {
  three();
  EXPECT_EQ(tabs.indexOf("Uno"), 1);
  EXPECT_EQ(tabs.indexOf("Tre"), 3);
  EXPECT_EQ(tabs.indexOf("uno"), 0);
}

TEST_F(TabsTest, TellsItsViewWhatChanges) {
  three();
  test::CountingView view;
  tabs.attach(&view);
  tabs.select(1);
  EXPECT_EQ(view.changes, 0);
  tabs.select(2);
  EXPECT_EQ(view.changes, 1);
  tabs.setTabVisible(3, true);
  EXPECT_EQ(view.changes, 1);
  tabs.setTabVisible(3, false);
  EXPECT_EQ(view.changes, 2);
}

}  // namespace
}  // namespace cu
