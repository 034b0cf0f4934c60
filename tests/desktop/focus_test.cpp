// A typed text is committed whichever way a box is left, and the keyboard focus stays where the user set it.

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QTableView>
#include <QTest>

#include "controls/grid.h"
#include "controls/numericbox.h"
#include "desktop/agreement_support.h"
#include "desktop/screen_support.h"
#include "desktop/selector_view.h"
#include "support/fake_connection.h"
#include "worklist/elenchi.h"

namespace cu::test {
namespace {

class SelectorFocus : public ::testing::Test {
 protected:
  SelectorFocus() { screen.toTelematicFile(); }
  QLineEdit& code(const Selector& selector) {
    return *static_cast<desktop::SelectorView&>(*screen.window().view(selector)).codeBox();
  }
  QLineEdit& description(const Selector& selector) {
    return *static_cast<desktop::SelectorView&>(*screen.window().view(selector)).descriptionBox();
  }
  void clickInto(QWidget& box) { QTest::mouseClick(&box, Qt::LeftButton, Qt::NoModifier, {8, 8}); }
  // At the keyboard focus.
  void typeOn(const QString& text) { QTest::keyClicks(screen.window().focusWidget(), text); }

  Screen screen;
  FrmWizard& form = screen.form();
};

TEST_F(SelectorFocus, ACodeLeftByAMnemonicBoundsTheLinesThatAreLoaded) {
  screen.click("optCode");
  clickInto(code(form.KrnCDPerc1));
  typeOn(QStringLiteral("P002"));
  screen.key(Qt::Key_A, Qt::AltModifier);
  ASSERT_EQ(screen.window().windowTitle().toStdString(), "Autocomposizione Quadrivio - Passo 2 di 3");
  EXPECT_EQ(form.KrnCDPerc1.code(), "P002");
  EXPECT_NE(form.KrnCDPerc1.record(), 0);
  ASSERT_GT(form.grdCompensi.rowCount(), 0U);
  Recordset& rows = *form.grdCompensi.rows();
  for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) {
    EXPECT_LE(rows.Get("IDAnagrafica").integer(), form.KrnCDPerc1.record());
  }
  rows.MoveFirst();
  EXPECT_EQ(disagreements(screen.window()), "");
}

TEST_F(SelectorFocus, ACodeLeftByAClickOnBareGroundIsLookedUp) {
  clickInto(code(form.KrnCDPerc0));
  typeOn(QStringLiteral("P003"));
  QTest::mouseClick(&screen.window(), Qt::LeftButton, Qt::NoModifier, {2, screen.window().height() - 2});
  EXPECT_EQ(form.focus(), nullptr);
  EXPECT_NE(form.KrnCDPerc0.record(), 0);
  EXPECT_EQ(disagreements(screen.window()), "");
}

TEST_F(SelectorFocus, TheKeyboardStaysInTheBoxThatIsClickedInto) {
  clickInto(code(form.KrnCDPerc0));
  typeOn(QStringLiteral("P002"));
  clickInto(code(form.KrnCDPerc1));
  EXPECT_EQ(screen.focus(), &form.KrnCDPerc1);
  typeOn(QStringLiteral("P004"));
  screen.key(Qt::Key_Tab);
  EXPECT_EQ(form.KrnCDPerc0.code(), "P002");
  EXPECT_EQ(form.KrnCDPerc1.code(), "P004");
  EXPECT_EQ(disagreements(screen.window()), "");
}

TEST_F(SelectorFocus, TheKeyboardGoesBackWithShiftTab) {
  clickInto(code(form.KrnCDPerc1));
  typeOn(QStringLiteral("P004"));
  screen.key(Qt::Key_Tab, Qt::ShiftModifier);
  EXPECT_EQ(screen.focus(), &form.KrnCDPerc0);
  EXPECT_EQ(screen.window().focusWidget(), &description(form.KrnCDPerc0));
  EXPECT_EQ(form.KrnCDPerc1.code(), "P004");
  EXPECT_NE(form.KrnCDPerc1.record(), 0);
  EXPECT_EQ(disagreements(screen.window()), "");
}

TEST_F(SelectorFocus, ACodeIsLookedUpWhenTheDescriptionIsEntered) {
  clickInto(code(form.KrnCDPerc0));
  typeOn(QStringLiteral("P003"));
  clickInto(description(form.KrnCDPerc0));
  EXPECT_NE(form.KrnCDPerc0.record(), 0);
  EXPECT_EQ(screen.window().focusWidget(), &description(form.KrnCDPerc0));
}

TEST_F(SelectorFocus, ADescriptionIsReadFromItsBeginning) {
  QLineEdit& box = description(form.KrnCDCausContrib0);
  box.setFixedWidth(90);
  clickInto(code(form.KrnCDCausContrib0));
  typeOn(QStringLiteral("W"));
  screen.key(Qt::Key_Tab);
  ASSERT_EQ(screen.window().focusWidget(), &box);
  ASSERT_GT(box.fontMetrics().horizontalAdvance(box.text()), box.width()) << "longer than its box";
  EXPECT_EQ(box.selectedText(), box.text());
  EXPECT_EQ(box.cursorPosition(), 0);
  screen.key(Qt::Key_End);
  screen.key(Qt::Key_Tab);
  EXPECT_EQ(box.cursorPosition(), 0) << "also after it was left";
}

TEST_F(SelectorFocus, ACodeCountsAsTypedWhereTheTableCannotBeRead) {
  FakeConnection broken;
  broken.refuseContaining("Codice = 'P003'");
  form.KrnCDPerc0.bind(broken, {elencoPercipienti(1), "", "", ""});
  clickInto(code(form.KrnCDPerc0));
  typeOn(QStringLiteral("P003"));
  QString told;
  screen.whenModal([&](QWidget& modal) {
    told = modal.windowTitle();
    QTest::keyClick(&modal, Qt::Key_Escape);
  });
  clickInto(code(form.KrnCDPerc1));
  EXPECT_TRUE(screen.allAnswered());
  EXPECT_EQ(form.KrnCDPerc0.code(), "P003");
  EXPECT_EQ(form.KrnCDPerc0.description(), "");
  EXPECT_EQ(screen.focus(), &form.KrnCDPerc1);
  EXPECT_EQ(disagreements(screen.window()), "");
}

TEST(OptionFocus, TheOptionsOfAFrameAreOneStopOfTheTabKey) {
  Screen screen;
  screen.click("optstType(1)");
  std::vector<std::string> stops;
  for (int i = 0; i < 40; ++i) {
    const std::string name = screen.focus() == nullptr ? std::string() : screen.focus()->name();
    if (!stops.empty() && name == stops.front()) break;
    if (stops.empty() || stops.back() != name) stops.push_back(name);
    screen.key(Qt::Key_Tab);
  }
  const auto count = [&](const std::string& group) {
    return std::count_if(stops.begin(), stops.end(),
                         [&](const std::string& stop) { return stop.rfind(group, 0) == 0; });
  };
  EXPECT_EQ(count("optstType"), 1);
  EXPECT_EQ(count("optTipoComunicazione"), 1);
  EXPECT_EQ(count("optCode") + count("optName"), 1);
  EXPECT_EQ(count("KrnCDPerc"), 2) << "and nothing else is passed over";
  EXPECT_TRUE(screen.form().optTipoComunicazione[0].value());
}

TEST(OptionFocus, TheStopIsTheOptionThatIsOn) {
  Screen screen;
  screen.click("optstType(1)");
  screen.click("optTipoComunicazione(2)");
  screen.find<QWidget>("optstType(1)")->setFocus();
  screen.key(Qt::Key_Tab);
  EXPECT_EQ(screen.focus()->name(), "optTipoComunicazione(2)");
  screen.key(Qt::Key_Tab, Qt::ShiftModifier);
  EXPECT_EQ(screen.focus()->name(), "optstType(1)");
  EXPECT_TRUE(screen.form().optTipoComunicazione[2].value());
}

// The button of the run is disabled on the first step, and the first control there is the other option.
TEST(OptionFocus, AfterTheRunTheKeyboardIsOnTheOptionThatIsOn) {
  Screen screen;
  screen.toEnd();
  screen.whenModal([&](QWidget&) { screen.key(Qt::Key_Return); });
  screen.click("cmdNav(4)");
  ASSERT_TRUE(screen.window().windowTitle().endsWith(QStringLiteral("Passo 1 di 3 - Inizio")));
  EXPECT_EQ(screen.focus()->name(), "optstType(1)");
  EXPECT_EQ(disagreements(screen.window()), "");
  screen.key(Qt::Key_Space);
  EXPECT_TRUE(screen.form().optstType[1].value());
}

class EscKey : public ::testing::Test {
 protected:
  // Whether the wizard has asked for confirmation to leave; the answer is no.
  bool asked() {
    bool box = false;
    screen.whenModal([&](QWidget& modal) {
      box = true;
      pressButton(modal, "No");
    });
    screen.key(Qt::Key_Escape);
    const bool gone = screen.allAnswered();
    screen.forgetModals();
    return box && gone;
  }
  Screen screen;
};

TEST_F(EscKey, TakesBackATypedCodeBeforeItOffersToLeave) {
  screen.type("KrnCDPerc(0)", "P003");
  EXPECT_FALSE(asked());
  EXPECT_EQ(disagreements(screen.window()), "");
  EXPECT_EQ(screen.form().KrnCDPerc0.code(), "");
  EXPECT_TRUE(asked());
}

TEST_F(EscKey, TakesBackATypedDateBeforeItOffersToLeave) {
  screen.toEnd();
  const std::string before = screen.form().dtDataFirma.text();
  screen.type("dtDataFirma", "0101");
  ASSERT_NE(screen.form().dtDataFirma.text(), before);
  EXPECT_FALSE(asked());
  EXPECT_EQ(screen.form().dtDataFirma.text(), before);
  EXPECT_EQ(disagreements(screen.window()), "");
  EXPECT_TRUE(asked());
}

TEST_F(EscKey, ClosesAListBeforeItOffersToLeave) {
  auto* const years = screen.find<QComboBox>("KRNCboEsCont(0)");
  years->setFocus();
  years->showPopup();
  settle();
  ASSERT_TRUE(years->view()->isVisible());
  QTest::keyClick(QApplication::activePopupWidget()->focusWidget() != nullptr
                      ? QApplication::activePopupWidget()->focusWidget()
                      : QApplication::activePopupWidget(),
                  Qt::Key_Escape);
  settle();
  EXPECT_FALSE(years->view()->isVisible());
  EXPECT_TRUE(screen.frontEnd().anyOpen());
  EXPECT_TRUE(asked());
}

TEST_F(EscKey, GivesAnAmountBackAsItWasStoredAndThenGivesTheEditorUp) {
  screen.inEditor("2016", [&] {
    auto& amount = dynamic_cast<AmountBox&>(*screen.top()->form().find("curField(19)"));
    const Decimal stored = amount.number();
    screen.type("curField(19)", "1,5");
    screen.key(Qt::Key_Escape);
    ASSERT_NE(screen.top(), &screen.window());
    EXPECT_EQ(amount.number(), stored);
    EXPECT_EQ(disagreements(*screen.top()), "");
    screen.key(Qt::Key_Escape);
    EXPECT_EQ(screen.top(), &screen.window());
  });
}

TEST_F(EscKey, OnceATypedTextIsLeftItIsNotTakenBack) {
  screen.inEditor("2016", [&] {
    screen.type("txtField(5)", "RSSMRA70A01H501U");
    screen.key(Qt::Key_Tab);
    screen.key(Qt::Key_Escape);
    EXPECT_EQ(screen.top(), &screen.window());
  });
}

TEST_F(EscKey, InTheListOfModulesGivesTheEditorUp) {
  screen.inEditor("2016", [&] {
    screen.click("cmdAltriModuli");
    screen.click("cmdNew");
    screen.type("curField(18)", "12,5");
    screen.click("cmdSave");
    ASSERT_EQ(screen.focus()->name(), "grdAltriModuli");
    screen.key(Qt::Key_Escape);
    EXPECT_EQ(screen.top(), &screen.window());
    if (screen.top() != &screen.window()) screen.click("cmdAnnulla");
  });
}

class EnterKey : public ::testing::Test {
 protected:
  double gross() {
    Recordset& rows = *screen.form().grdCompensi.rows();
    return rows.Get("AmmontareLordo").decimal().toDouble();
  }
  void toModules() {
    screen.click("cmdAltriModuli");
    screen.click("cmdNew");
    screen.type("curField(18)", "12,5");
  }
  Screen screen;
};

TEST_F(EnterKey, LeavesTheAmountBeforeTheEditorIsConfirmed) {
  double others = 0;
  screen.inEditor("2016", [&] {
    const auto value = [&](const char* name) {
      return dynamic_cast<AmountBox&>(*screen.top()->form().find(name)).value();
    };
    others = value("curField(10)") - value("curField(19)");
    screen.type("curField(19)", "20000");
    screen.key(Qt::Key_Return);
    EXPECT_EQ(screen.top(), &screen.window());
  });
  EXPECT_NEAR(gross(), others + 20000, 0.001);
}

TEST_F(EnterKey, AsksBeforeAModuleThatWasBegunIsDropped) {
  screen.inEditor("2016", [&] {
    toModules();
    QString question;
    screen.whenModal([&](QWidget& modal) {
      question = boxText(modal);
      QTest::keyClick(&modal, Qt::Key_Return);
    });
    screen.key(Qt::Key_Return);
    EXPECT_TRUE(screen.allAnswered());
    EXPECT_TRUE(question.startsWith(QStringLiteral("Il modulo n. "))) << question.toStdString();
    EXPECT_NE(screen.top(), &screen.window()) << "Enter stays";
    screen.whenModal([&](QWidget& modal) { pressButton(modal, "Prosegui senza salvare"); });
    screen.click("cmdOk");
    EXPECT_EQ(screen.top(), &screen.window());
  });
}

TEST_F(EnterKey, AsksNothingOnceTheModuleIsSaved) {
  screen.inEditor("2016", [&] {
    toModules();
    screen.click("cmdSave");
    EXPECT_EQ(screen.focus()->name(), "grdAltriModuli");
    screen.key(Qt::Key_Return);
    const auto* const modules = dynamic_cast<const Grid*>(screen.top()->form().find("grdAltriModuli"));
    EXPECT_GE(modules->rowCount(), 1U) << "the next Enter deletes nothing";
    screen.click("cmdOk");
    EXPECT_EQ(screen.top(), &screen.window());
  });
}

// By the mouse and by the keyboard.
TEST_F(EnterKey, AnotherRowIsNotChosenOverAModuleThatIsNotSaved) {
  screen.inEditor("2016", [&] {
    screen.click("cmdAltriModuli");
    for (int i = 0; i < 2; ++i) {
      screen.click("cmdNew");
      screen.type("curField(18)", "1");
      screen.click("cmdSave");
    }
    auto& table = *screen.find<QTableView>("grdAltriModuli");
    const auto& modules = dynamic_cast<const Grid&>(*screen.top()->form().find("grdAltriModuli"));
    const std::size_t last = modules.rowCount();
    ASSERT_GE(last, 2U);
    ASSERT_EQ(modules.row(), last);
    const QPoint other = table.visualRect(table.model()->index(static_cast<int>(last) - 2, 0)).center();
    const auto press = [&] { QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::NoModifier, other); };
    const auto goUp = [&] {
      table.setFocus();
      screen.key(Qt::Key_Up);
    };
    for (const std::function<void()>& leave : {std::function<void()>(press), std::function<void()>(goUp)}) {
      screen.type("curField(18)", "9");
      screen.whenModal([](QWidget& modal) { pressButton(modal, "Resta"); });
      leave();
      EXPECT_TRUE(screen.allAnswered());
      EXPECT_EQ(modules.row(), last);
      EXPECT_EQ(disagreements(*screen.top()), "");
      EXPECT_EQ(table.selectionModel()->selectedRows().value(0).row(), static_cast<int>(last) - 1);
      EXPECT_EQ(screen.find<QLineEdit>("curField(18)")->text().left(1), QStringLiteral("9"));
    }
    screen.whenModal([](QWidget& modal) { pressButton(modal, "Prosegui senza salvare"); });
    press();
    EXPECT_EQ(modules.row(), last - 1);
    EXPECT_EQ(disagreements(*screen.top()), "");
    press();
    screen.click("cmdOk");
    EXPECT_EQ(screen.top(), &screen.window()) << "nothing is left to be asked";
  });
}

TEST(WindowSwitch, TheTypingGoesOnWhereItWas) {
  Screen screen;
  screen.toEnd();
  screen.click("chkIntermediari");
  screen.type("txtCodiceFiscale", "RSSMRA");
  {
    QWidget other(&screen.window(), Qt::Tool);
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
  }
  screen.window().activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&screen.window()));
  QTest::keyClicks(screen.window().focusWidget(), QStringLiteral("70"));
  EXPECT_EQ(screen.form().txtCodiceFiscale.text(), "RSSMRA70");
}

}  // namespace
}  // namespace cu::test
