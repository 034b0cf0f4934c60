#include "controls/menubar.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "controls/controls_support.h"

namespace cu {
namespace {

MenuBar::Tool tool(std::string key) {
  MenuBar::Tool result;
  result.key = std::move(key);
  return result;
}

TEST(MenuBar, HoldsToolsByKeyInBands) {
  test::Stage stage;
  MenuBar bar(stage.form, "BarMenuWzr", nullptr);
  bar.addBand("PopDettaglio");
  bar.addTool({"ModificaCompenso", 1, "PopDettaglio", "&Modifica", "F2", true});
  EXPECT_EQ(bar.bands(), (std::vector<std::string>{"PopDettaglio"}));
  ASSERT_NE(bar.tool("ModificaCompenso"), nullptr);
  EXPECT_EQ(bar.tool("ModificaCompenso")->caption, "&Modifica");
  EXPECT_TRUE(bar.tool("ModificaCompenso")->enabled);
  EXPECT_EQ(bar.tool("modificacompenso"), nullptr);
}

TEST(MenuBar, AChosenToolReachesTheHandlerByKey) {
  test::Stage stage;
  MenuBar bar(stage.form, "BarMenuWzr", nullptr);
  bar.click("a");
  std::vector<std::string> chosen;
  bar.onToolClick = [&](const std::string& key) { chosen.push_back(key); };
  bar.click("a");
  EXPECT_EQ(chosen, (std::vector<std::string>{"a"}));
}

TEST(MenuBar, TheToolsOfABandThatCannotOpenAreNotAvailable) {
  test::Stage stage;
  MenuBar bar(stage.form, "BarMenuWzr", nullptr);
  bool opens = false;
  bar.addBand("always");
  bar.addBand("popup", [&] { return opens; });
  bar.addTool({"a", 1, "always", "A", "", true});
  bar.addTool({"b", 2, "popup", "B", "", true});
  bar.addTool({"c", 3, "popup", "C", "", false});
  std::vector<std::string> chosen;
  bar.onToolClick = [&](const std::string& key) { chosen.push_back(key); };
  EXPECT_TRUE(bar.toolAvailable(*bar.tool("a")));
  EXPECT_FALSE(bar.toolAvailable(*bar.tool("b")));
  bar.click("a");
  bar.click("b");
  opens = true;
  bar.click("b");
  EXPECT_FALSE(bar.toolAvailable(*bar.tool("c")));
  bar.click("c");
  EXPECT_EQ(chosen, (std::vector<std::string>{"a", "b"}));
}

TEST(MenuBar, StyleAndClearing) {
  test::Stage stage;
  MenuBar bar(stage.form, "BarMenuWzr", nullptr);
  test::CountingView view;
  bar.attach(&view);
  bar.setStyle(2);
  EXPECT_EQ(bar.style(), 2);
  bar.addBand("x");
  bar.addTool(tool("a"));
  bar.clear();
  EXPECT_TRUE(bar.tools().empty());
  EXPECT_TRUE(bar.bands().empty());
  EXPECT_EQ(bar.style(), 2);
  EXPECT_GE(view.changes, 3);
}

}  // namespace
}  // namespace cu
