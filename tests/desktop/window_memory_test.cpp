#include "desktop/window_memory.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QMoveEvent>
#include <QResizeEvent>
#include <QScreen>
#include <QSettings>
#include <QTest>
#include <QWidget>
#include <QWindow>
#include <memory>

#include "desktop/look.h"
#include "desktop/screen_support.h"

namespace cu::test {
namespace {

using desktop::onScreen;

const QList<QRect>& twoScreens() {
  static const QList<QRect> screens{QRect(0, 0, 1024, 600), QRect(1024, 0, 3840, 2160)};
  return screens;
}

TEST(OnScreen, LeavesWhatIsWhollyOnOne) {
  EXPECT_EQ(onScreen({1200, 100, 800, 600}, twoScreens()), QRect(1200, 100, 800, 600));
}

TEST(OnScreen, MovesWhatIsOutsideIntoTheScreenWithMostOfIt) {
  EXPECT_EQ(onScreen({-300, 50, 800, 500}, twoScreens()), QRect(0, 50, 800, 500));
  EXPECT_EQ(onScreen({4800, 2100, 800, 500}, twoScreens()), QRect(4064, 2160 - 500 - 32, 800, 500));
}

TEST(OnScreen, MovesAWindowOfAScreenThatIsGoneToTheFirstOne) {
  EXPECT_EQ(onScreen({9000, 9000, 800, 500}, twoScreens()), QRect(224, 68, 800, 500));
}

TEST(OnScreen, ShrinksWhatIsLargerThanItsScreen) {
  const QRect placed = onScreen({0, 0, 1500, 900}, {QRect(0, 0, 1024, 600)});
  EXPECT_EQ(placed, QRect(0, 0, 1024, 568));
}

class KeptWindow : public testing::Test {
 protected:
  void SetUp() override { desktop::WindowMemory::forget(); }
  void TearDown() override {
    desktop::WindowMemory::forget();
    desktop::look::setLetters(desktop::look::kNormalLetters);
  }
  // As by the user's mouse: the window system changes the window.
  static void change(QWidget& window, const QRect& to) {
    window.windowHandle()->setGeometry(to);
    settle();
  }
  desktop::WindowMemory memory;
};

std::unique_ptr<QWidget> keptWindow(const char* name) {
  auto window = std::make_unique<QWidget>();
  window->setObjectName(QString::fromLatin1(name));
  window->resize(300, 200);
  window->move(20, 30);
  return window;
}

TEST_F(KeptWindow, HasItsSizeAndPlaceAgain) {
  auto window = keptWindow("una");
  window->show();
  settle();
  change(*window, {60, 70, 420, 310});
  ASSERT_EQ(window->size(), QSize(420, 310));
  window->hide();
  auto again = keptWindow("una");
  again->show();
  EXPECT_EQ(again->size(), QSize(420, 310));
  EXPECT_EQ(again->pos(), window->pos());
  EXPECT_TRUE(desktop::sizeRemembered(*again));
  auto other = keptWindow("altra");
  other->show();
  EXPECT_EQ(other->size(), QSize(300, 200));
}

TEST_F(KeptWindow, KeepsNothingThatTheProgramItselfHasChanged) {
  auto window = keptWindow("una");
  window->show();
  window->resize(500, 400);
  settle();
  window->hide();
  auto again = keptWindow("una");
  again->show();
  EXPECT_EQ(again->size(), QSize(300, 200));
  EXPECT_FALSE(desktop::sizeRemembered(*again));
}

TEST_F(KeptWindow, WithOtherLettersHasItsOwnSizeAgain) {
  auto window = keptWindow("una");
  window->show();
  settle();
  change(*window, {60, 70, 420, 310});
  window->hide();
  desktop::look::setLetters(130);
  auto again = keptWindow("una");
  again->show();
  EXPECT_EQ(again->size(), QSize(300, 200));
}

TEST_F(KeptWindow, IsTheWizardsTooAndNotAdaptedToItsContent) {
  const QSize wanted(780, 560);
  {
    Screen screen;
    settle();
    change(screen.window(), QRect(screen.window().pos(), wanted));
    ASSERT_EQ(screen.window().size(), wanted);
  }
  Screen screen;
  EXPECT_EQ(screen.window().size(), wanted);
}

}  // namespace
}  // namespace cu::test
