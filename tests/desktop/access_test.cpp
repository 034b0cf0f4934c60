// What a screen reader is told, and that nothing that is shown is cut.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include "desktop/agreement_support.h"
#include "desktop/screen_support.h"

namespace cu::test {
namespace {

// Every widget that takes the keyboard has a role and a name; "" when all have.
std::string nameless(const desktop::FormWindow& window) {
  std::string all;
  for (Control* control : window.form().controls()) {
    const desktop::View* const view = window.view(*control);
    if (view == nullptr) continue;
    for (QWidget* widget : view->focusWidgets()) {
      QAccessibleInterface* const told = QAccessible::queryAccessibleInterface(widget);
      if (told == nullptr || told->role() == QAccessible::NoRole || told->text(QAccessible::Name).isEmpty()) {
        all += control->name() + "\n";
      }
    }
  }
  return all;
}

// Texts wider or higher than the widget that shows them; "" when there are none.
std::string cut(const QWidget& window) {
  std::string all;
  const auto tell = [&](const QWidget& widget, const QString& text) {
    all += widget.objectName().toStdString() + ": " + text.toStdString() + "\n";
  };
  for (const QLabel* label : window.findChildren<QLabel*>()) {
    if (!label->isVisible() || label->text().isEmpty()) continue;
    const int needed = label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height();
    const bool narrow = !label->wordWrap() && label->width() < label->sizeHint().width();
    if (label->height() < needed || narrow) tell(*label, label->text());
  }
  for (const QAbstractButton* button : window.findChildren<QAbstractButton*>()) {
    if (!button->isVisible() || button->text().isEmpty()) continue;
    if (button->width() < button->minimumSizeHint().width() - 1) tell(*button, button->text());
  }
  return all;
}

TEST(Accessibility, EveryFieldOfTheWizardHasRoleAndName) {
  Screen screen;
  screen.toEnd();
  EXPECT_EQ(nameless(screen.window()), "");
}

TEST(Accessibility, EveryFieldOfTheEditorsHasRoleAndName) {
  for (const char* year : {"2014", "2015", "2016"}) {
    Screen screen;
    screen.click("optstType(1)");
    screen.choose("KRNCboEsCont(0)", year);
    screen.click("cmdNav(3)");
    screen.whenModal([&](QWidget&) {
      EXPECT_EQ(nameless(*screen.top()), "") << year;
      EXPECT_EQ(disagreements(*screen.top()), "") << year;
      screen.key(Qt::Key_Escape);
    });
    screen.find<QWidget>("grdCompensi")->setFocus();
    screen.key(Qt::Key_Return);
    EXPECT_TRUE(screen.allAnswered());
  }
}

TEST(Accessibility, NoTextIsCutAtTheSizesOfADesk) {
  for (const QSize size : {QSize(1366, 730), QSize(1920, 1040), QSize(683, 384)}) {
    Screen screen;
    screen.window().resize(size);
    settle();
    EXPECT_EQ(cut(screen.window()), "") << "first step " << size.width();
    screen.toGrid();
    settle();
    EXPECT_EQ(cut(screen.window()), "") << "second step " << size.width();
    screen.whenModal([&](QWidget&) {
      screen.top()->resize(size);
      settle();
      EXPECT_EQ(cut(*screen.top()), "") << "editor " << size.width();
      screen.key(Qt::Key_Escape);
    });
    screen.find<QWidget>("grdCompensi")->setFocus();
    screen.key(Qt::Key_Return);
    screen.click("cmdNav(3)");
    settle();
    EXPECT_EQ(cut(screen.window()), "") << "last step " << size.width();
  }
}

}  // namespace
}  // namespace cu::test
