// The lines before and after from within the editor: the same events as by hand, in the window and for a
// driver.

#include "desktop/row_steps.h"

#include <gtest/gtest.h>

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>

#include "controls/grid.h"
#include "desktop/leaving_support.h"
#include "desktop/screen_support.h"

namespace cu::test {
namespace {

using Commands = Together::Commands;
constexpr Qt::KeyboardModifiers kThroughOk = Qt::ControlModifier;
constexpr Qt::KeyboardModifiers kThroughCancel =
    Qt::KeyboardModifiers(Qt::ControlModifier) | Qt::ShiftModifier;

class RowByRow : public Leaving {
 protected:
  void toGrid(const char* year, const char* kind = nullptr) {
    click("optstType(1)");
    together.step(
        "the year", [this, year] { screen.choose("KRNCboEsCont(0)", year); },
        [year] {
          return Commands{{{"do", "choose"}, {"in", "frmWizard.KRNCboEsCont(0)"}, {"text", year}}};
        });
    if (kind != nullptr) click(kind);
    click("cmdNav(3)");
  }
  static nlohmann::json opening(int row) {
    return {{"do", "doubleclick"}, {"in", "frmWizard.grdCompensi"}, {"row", row}};
  }
  nlohmann::json pressing(const char* button) { return {{"do", "click"}, {"on", form + "." + button}}; }
  void open() {
    together.step(
        "open the first line",
        [this] {
          screen.find<QWidget>("grdCompensi")->setFocus();
          QTest::keyClick(screen.top()->focusWidget(), Qt::Key_Return);
        },
        [] { return Commands{opening(1)}; });
  }
  void step(Qt::Key key, Qt::KeyboardModifiers held, const char* button, std::vector<int> rows) {
    together.step(
        "a step",
        [this, key, held] {
          form = together.front().name();
          QTest::keyClick(screen.top()->windowHandle(), key, held);
        },
        [this, button, rows] {
          Commands all{pressing(button)};
          for (const int row : rows) all.push_back(opening(row));
          return all;
        });
  }
  void enter(const char* field, const char* text) {
    together.step(
        "an entry", [this, field, text] { screen.type(field, text); },
        [this, field, text] {
          return Commands{{{"do", "enter"}, {"in", together.named(field)}, {"text", text}}};
        });
  }

  std::string form;
};

class EveryLayout : public RowByRow, public ::testing::WithParamInterface<const char*> {};

TEST_P(EveryLayout, LeadsThroughTheLinesByOkAndByAnnulla) {
  toGrid(GetParam());
  open();
  step(Qt::Key_PageDown, kThroughOk, "cmdOk", {2});
  enter("curField(19)", "1234,5");
  step(Qt::Key_PageDown, kThroughOk, "cmdOk", {3});
  step(Qt::Key_PageUp, kThroughOk, "cmdOk", {2});
  step(Qt::Key_PageUp, kThroughCancel, "cmdAnnulla", {1});
  closeForms();
  together.run();
}

INSTANTIATE_TEST_SUITE_P(Years, EveryLayout, ::testing::Values("2014", "2015", "2016", "2017"),
                         [](const auto& year) { return std::string(year.param); });

// The references are missing: OK shows a box and the form stays.
TEST_F(RowByRow, StaysWhereOkIsRejected) {
  toGrid("2016", "optTipoComunicazione(1)");
  open();
  enter("txtProtocollo", "");
  step(Qt::Key_PageDown, kThroughOk, "cmdOk", {});
  answerBoxes();
  closeForms();
  together.run();
  EXPECT_TRUE(screen.allAnswered());
}

class Steps : public ::testing::Test {
 protected:
  static desktop::RowSteps* steps(Screen& screen) {
    for (auto* widget : screen.top()->findChildren<QWidget*>()) {
      if (auto* const found = dynamic_cast<desktop::RowSteps*>(widget)) return found;
    }
    return nullptr;
  }
  std::size_t row() { return dynamic_cast<Grid&>(*screen.form().find("grdCompensi")).row(); }
  Screen screen;
};

TEST_F(Steps, AreOffAtTheEndsAndSayWhereTheLineIs) {
  screen.toGrid();
  const auto rows = static_cast<int>(screen.form().grdCompensi.rowCount());
  ASSERT_GT(rows, 2);
  int seen = 0;
  const auto look = [&](int at) {
    const auto* const shown = steps(screen);
    ASSERT_NE(shown, nullptr);
    EXPECT_EQ(shown->place()->text(), QStringLiteral("Riga %1 di %2").arg(at).arg(rows));
    EXPECT_EQ(shown->before()->isEnabled(), at > 1);
    EXPECT_EQ(shown->after()->isEnabled(), at < rows);
    EXPECT_FALSE(shown->after()->accessibleName().isEmpty());
    for (const QAction* action : shown->after()->menu()->actions()) {
      EXPECT_EQ(action->isEnabled(), at < rows);
    }
    ++seen;
  };
  screen.whenModal([&](QWidget&) {
    look(1);
    screen.key(Qt::Key_PageUp, kThroughOk);  // off
    look(1);
    QTest::mouseClick(steps(screen)->after(), Qt::LeftButton, {}, QPoint(8, 8));
  });
  screen.whenModal([&](QWidget&) {
    look(2);
    screen.key(Qt::Key_Escape);
  });
  screen.find<QWidget>("grdCompensi")->setFocus();
  screen.key(Qt::Key_Return);
  screen.whenModal([&](QWidget&) {
    look(rows);
    std::vector<int> heights;
    const auto bars = screen.top()->findChildren<QScrollBar*>();
    for (const QScrollBar* bar : bars) heights.push_back(bar->value());
    screen.key(Qt::Key_PageDown, kThroughOk);
    screen.key(Qt::Key_PageDown, kThroughCancel);
    look(rows);
    for (qsizetype i = 0; i < bars.size(); ++i)
      EXPECT_EQ(bars[i]->value(), heights[static_cast<std::size_t>(i)]) << "the keys scroll nothing";
    screen.key(Qt::Key_Escape);
  });
  screen.key(Qt::Key_End, Qt::ControlModifier);
  screen.key(Qt::Key_Return);
  EXPECT_EQ(seen, 5);
  EXPECT_TRUE(screen.allAnswered());
}

TEST_F(Steps, ThroughAnnullaAskOnlyWhereSomethingWasChanged) {
  screen.toGrid();
  QString question;
  screen.whenModal([&](QWidget&) { screen.key(Qt::Key_PageDown, kThroughCancel); });
  screen.whenModal([&](QWidget&) {
    EXPECT_EQ(steps(screen)->place()->text().left(7), QStringLiteral("Riga 2 "));
    screen.type("curField(19)", "77");
    screen.whenModal([&](QWidget& box) {
      question = boxText(box);
      pressButton(box, "Resta");
    });
    screen.key(Qt::Key_PageDown, kThroughCancel);
    EXPECT_EQ(steps(screen)->place()->text().left(7), QStringLiteral("Riga 2 "));
    EXPECT_EQ(screen.find<QLineEdit>("curField(19)")->text(), QStringLiteral("77,00"));
    screen.whenModal([&](QWidget& box) { pressButton(box, "Prosegui senza salvare"); });
    screen.whenModal([&](QWidget&) {
      EXPECT_EQ(steps(screen)->place()->text().left(7), QStringLiteral("Riga 3 "));
      screen.key(Qt::Key_Escape);
    });
    screen.key(Qt::Key_PageDown, kThroughCancel);
  });
  screen.find<QWidget>("grdCompensi")->setFocus();
  screen.key(Qt::Key_Return);
  EXPECT_TRUE(screen.allAnswered());
  EXPECT_EQ(question, QStringLiteral("Il compenso è stato modificato e non confermato con OK."));
  EXPECT_EQ(row(), 3U);
}

TEST_F(Steps, AreNotInAFormThatNoRowHasOpened) {
  screen.inEditor("2016", [&] {
    EXPECT_NE(steps(screen), nullptr);
    bool inDialog = true;
    screen.whenModal([&](QWidget&) {
      inDialog = steps(screen) != nullptr;
      screen.key(Qt::Key_Escape);
    });
    screen.click("cmdDatiAggiuntivi");
    EXPECT_FALSE(inDialog);
  });
}

}  // namespace
}  // namespace cu::test
