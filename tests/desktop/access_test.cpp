// The names for a screen reader, and that no displayed text is cut.

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QTest>

#include "desktop/access_support.h"
#include "desktop/agreement_support.h"
#include "desktop/foot.h"
#include "desktop/screen_support.h"

namespace cu::test {
namespace {

TEST(Accessibility, EveryFieldOfTheWizardHasRoleAndName) {
  Screen screen;
  screen.toEnd();
  EXPECT_EQ(nameless(screen.window()), "");
}

TEST(Accessibility, AnOptionIsARadioButtonThatCanBePressed) {
  Screen screen;
  QAccessibleInterface* const first =
      QAccessible::queryAccessibleInterface(screen.find<QWidget>("optstType(0)"));
  QAccessibleInterface* const other =
      QAccessible::queryAccessibleInterface(screen.find<QWidget>("optstType(1)"));
  ASSERT_TRUE(first != nullptr && other != nullptr);
  EXPECT_EQ(other->role(), QAccessible::RadioButton);
  EXPECT_EQ(other->text(QAccessible::Name), "Creazione tracciato ministeriale e stampa moduli");
  EXPECT_TRUE(first->state().checked);
  EXPECT_FALSE(other->state().checked);
  other->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
  EXPECT_FALSE(first->state().checked);
  EXPECT_TRUE(other->state().checked);
}

TEST(Accessibility, TheSearchButtonsSayWhatTheyFind) {
  Screen screen;
  std::string all;
  for (const QAbstractButton* button : screen.window().findChildren<QAbstractButton*>()) {
    if (button->text() == QStringLiteral("…")) all += button->accessibleName().toStdString() + "\n";
  }
  EXPECT_EQ(all,
            "Ricerca, Da percipiente\nRicerca, A percipiente\n"
            "Ricerca, Da causale pagamento\nRicerca, A causale pagamento\n");
}

TEST(Accessibility, ACellSaysItsColumnAndTheFootItsState) {
  Screen screen;
  QAccessibleInterface* const state =
      QAccessible::queryAccessibleInterface(screen.window().foot()->findChild<QLabel*>());
  EXPECT_EQ(state->text(QAccessible::Name), "Pronto");
  screen.toGrid();
  const QAbstractItemModel* const model = screen.find<QTableView>("grdCompensi")->model();
  const auto said = [&](int column) {
    return model->data(model->index(0, column), Qt::AccessibleTextRole).toString();
  };
  EXPECT_EQ(said(0), "Selezione: Sì");
  EXPECT_EQ(said(1), "Menu della riga");
  EXPECT_EQ(said(2), "Percipiente: Rossi Marco");
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
    EXPECT_EQ(cutTexts(screen.window()), "") << "first step " << size.width();
    screen.toGrid();
    settle();
    EXPECT_EQ(cutTexts(screen.window()), "") << "second step " << size.width();
    screen.whenModal([&](QWidget&) {
      screen.top()->resize(size);
      settle();
      EXPECT_EQ(cutTexts(*screen.top()), "") << "editor " << size.width();
      screen.key(Qt::Key_Escape);
    });
    screen.find<QWidget>("grdCompensi")->setFocus();
    screen.key(Qt::Key_Return);
    screen.click("cmdNav(3)");
    settle();
    EXPECT_EQ(cutTexts(screen.window()), "") << "last step " << size.width();
  }
}

}  // namespace
}  // namespace cu::test
