// Tabs by the keys that every window has for them.

#include <gtest/gtest.h>

#include <QLineEdit>

#include "controls/tabs.h"
#include "desktop/agreement_support.h"
#include "desktop/screen_support.h"

namespace cu::test {
namespace {

class TabKeys : public ::testing::Test {
 protected:
  int selected() { return dynamic_cast<const Tabs&>(*screen.top()->form().find("stbMain")).selected(); }
  void turn(Qt::KeyboardModifiers held = {}) {
    screen.key(held.testFlag(Qt::ShiftModifier) ? Qt::Key_Backtab : Qt::Key_Tab, held | Qt::ControlModifier);
  }
  Screen screen;
};

TEST_F(TabKeys, TurnThePagesFromAnyField) {
  screen.inEditor("2014", [&] {
    screen.type("curField(19)", "77");
    turn();
    EXPECT_EQ(selected(), 2);
    EXPECT_EQ(screen.focus()->name(), "stbMain") << "as after a click";
    EXPECT_TRUE(screen.find<QWidget>("picAltriModuli")->isVisible());
    EXPECT_EQ(disagreements(*screen.top()), "");
    turn();
    EXPECT_EQ(selected(), 1) << "after the last one comes the first";
    EXPECT_EQ(screen.find<QLineEdit>("curField(19)")->text(), QStringLiteral("77,00"));
    turn(Qt::ShiftModifier);
    EXPECT_EQ(selected(), 2);
  });
}

TEST_F(TabKeys, PassOverAHiddenPage) {
  screen.click("optstType(1)");
  screen.click("optTipoComunicazione(1)");
  screen.inEditor("2014", [&] {
    turn();
    EXPECT_EQ(selected(), 1);
    EXPECT_EQ(disagreements(*screen.top()), "");
  });
}

}  // namespace
}  // namespace cu::test
