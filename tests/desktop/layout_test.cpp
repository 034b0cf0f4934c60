// The positions in the windows, and what can be read of them.

#include <gtest/gtest.h>

#include <QFocusFrame>
#include <QLabel>
#include <QLineEdit>
#include <QScreen>
#include <QTableWidget>
#include <QTest>

#include "controls/textbox.h"
#include "desktop/dialogs.h"
#include "desktop/grid_view.h"
#include "desktop/layouter.h"
#include "desktop/screen_support.h"
#include "desktop/selector_view.h"

namespace cu::test {
namespace {

class Layout : public ::testing::Test {
 protected:
  QRect place(const char* name) {
    const auto* const widget = screen.find<QWidget>(name);
    return {widget->mapTo(screen.top(), QPoint()), widget->size()};
  }

  Screen screen;
};

// The second occurrence of a box in a section is below the first.
void expectBelow(const QRect& second, const QRect& first) {
  EXPECT_EQ(second.left(), first.left());
  EXPECT_GT(second.top(), first.bottom());
}

TEST_F(Layout, WhatIsAskedTwiceStandsInTwoRows) {
  screen.inEditor("2016", [&] {
    screen.top()->resize(1080, 700);
    settle();
    expectBelow(place("txtField(10)"), place("txtField(9)"));
    expectBelow(place("curField(41)"), place("curField(39)"));
    expectBelow(place("curField(51)"), place("curField(50)"));
    expectBelow(place("curField(48)"), place("curField(46)"));
    expectBelow(place("curField(44)"), place("curField(43)"));
    EXPECT_EQ(place("curField(50)").top(), place("txtField(9)").top());
  });
}

TEST_F(Layout, TheEditorOf2014IsAsHighAsItsContentWhereTheScreenHasRoom) {
  screen.inEditor("2014", [&] {
    const int room = screen.top()->screen()->availableGeometry().height() - 32;
    for (const auto* area : screen.top()->findChildren<desktop::ContentArea*>()) {
      if (!area->isVisible()) continue;
      EXPECT_TRUE(area->missingHeight() == 0 || screen.top()->height() == room) << area->missingHeight();
    }
    EXPECT_EQ(place("fraRiferimenti").left(), place("fraSezione(0)").left());
    EXPECT_EQ(place("fraRiferimenti").left(), place("Frame2").left());
    EXPECT_EQ(place("Frame2").top(), place("Frame3").top());
  });
}

TEST_F(Layout, ASectionWithOneFieldIsNotHigherThanItNeeds) {
  screen.inEditor("2014", [&] {
    screen.top()->findChild<QTabBar*>()->setCurrentIndex(1);
    settle();
    const auto* const section =
        screen.find<QWidget>("numModulo")->parentWidget()->parentWidget()->parentWidget();
    EXPECT_LE(section->height(), section->sizeHint().height());
  });
}

TEST_F(Layout, ATextThatCannotBeTypedIntoIsToldWholeWhereItIsCut) {
  screen.inEditor("2016", [&] {
    auto& name = dynamic_cast<TextBox&>(*screen.top()->form().find("txtField(1)"));
    const auto* const box = screen.find<QLineEdit>("txtField(1)");
    ASSERT_TRUE(box->isReadOnly());
    const std::string whole = "Cassa Dimostrativa " + std::string(120, 'x');
    name.setText(whole);
    EXPECT_EQ(box->toolTip().toStdString(), whole);
    name.setText("INPS");
    EXPECT_EQ(box->toolTip(), QString());
  });
}

TEST_F(Layout, TheLineAroundTheKeyboardIsWholeInASelector) {
  auto& view = static_cast<desktop::SelectorView&>(*screen.window().view(screen.form().KrnCDPerc0));
  view.codeBox()->setFocus();
  settle();
  const auto* const ring = screen.window().findChild<QFocusFrame*>();
  ASSERT_NE(ring, nullptr);
  ASSERT_EQ(ring->widget(), view.codeBox());
  EXPECT_TRUE(ring->parentWidget()->rect().contains(ring->geometry()));
  const QRect around(view.codeBox()->mapTo(ring->parentWidget(), QPoint()), view.codeBox()->size());
  EXPECT_TRUE(ring->geometry().contains(around.adjusted(-1, -1, 1, 1)));
}

TEST_F(Layout, MarkAndArrowAreSeenOnTheSelectedRow) {
  screen.toGrid();
  auto& view = static_cast<desktop::GridView&>(*screen.window().view(screen.form().grdCompensi));
  desktop::GridTable& table = view.table();
  const QColor ink = table.palette().color(QPalette::HighlightedText);
  ASSERT_EQ(table.currentIndex().row(), 0);
  int columns = 0;
  for (int column = 0; column < view.model().columnCount(); ++column) {
    if (!view.model().isMenu(column) && view.model().column(column).field != "Selezionato") continue;
    const QImage cell = table.viewport()->grab(table.visualRect(view.model().index(0, column))).toImage();
    int bright = 0;
    for (int y = 0; y < cell.height(); ++y) {
      for (int x = 0; x < cell.width(); ++x) {
        const QColor colour = cell.pixelColor(x, y);
        if (std::abs(colour.lightness() - ink.lightness()) < 60) ++bright;
      }
    }
    EXPECT_GE(bright, 8) << column;
    ++columns;
  }
  EXPECT_EQ(columns, 2);
}

TEST(Log, ALongNameLeavesTheOtherColumnsInSight) {
  LogTable log;
  log.columns = {"MessageType", "Message", "Percipiente", "Codice fiscale"};
  const std::string name(200, 'm');
  log.rows.push_back({Value::ofInteger(1), Value::ofText("Codice fiscale mancante"), Value::ofText(name),
                      Value::ofText("RSSMRA70A01H501U")});
  desktop::LogDialog dialog(nullptr, log);
  dialog.show();
  settle();
  const auto* const table = dialog.findChild<QTableWidget*>();
  EXPECT_LT(table->columnViewportPosition(2) + 100, table->viewport()->width());
  EXPECT_EQ(table->item(0, 1)->toolTip().toStdString(), name);
}

TEST(Log, AMessageThatIsCutIsBelowTheTableForTheRowOfTheKeyboard) {
  LogTable log;
  log.columns = {"MessageType", "Message", "Percipiente"};
  const std::string message = "Manca il codice delle somme non soggette (casella 6): " + std::string(80, 'm');
  log.rows.push_back({Value::ofInteger(1), Value::ofText(message), Value::ofText("Rossi")});
  log.rows.push_back({Value::ofInteger(1), Value::ofText("Codice fiscale mancante"), Value::ofText("Verdi")});
  desktop::LogDialog dialog(nullptr, log);
  dialog.show();
  settle();
  auto& whole = *dialog.findChild<QLabel*>(QStringLiteral("messaggioIntero"));
  EXPECT_TRUE(whole.isVisible());
  EXPECT_EQ(whole.text().toStdString(), message);
  QTest::keyClick(dialog.findChild<QTableWidget*>(), Qt::Key_Down);
  EXPECT_EQ(whole.text(), QStringLiteral("Codice fiscale mancante"));
  log.rows.erase(log.rows.begin());
  const desktop::LogDialog brief(nullptr, log);
  EXPECT_TRUE(brief.findChild<QLabel*>(QStringLiteral("messaggioIntero"))->isHidden());
}

}  // namespace
}  // namespace cu::test
