// The wizard's window on its main path, by mouse and by keyboard, and its rejections.

#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include "desktop/agreement_support.h"
#include "desktop/screen_support.h"

namespace cu::test {
namespace {

void expectAgreement(Screen& screen) { EXPECT_EQ(disagreements(*screen.top()), ""); }

TEST(WizardWindow, OpensOnTheFirstStepAndAgreesWithItsForm) {
  Screen screen;
  EXPECT_EQ(screen.window().windowTitle().toStdString(),
            "Autocomposizione Quadrivio - Passo 1 di 2 - Inizio");
  EXPECT_TRUE(screen.window().isVisible());
  expectAgreement(screen);
}

TEST(WizardWindow, ByMouseFromStartToFile) {
  Screen screen;
  screen.toTelematicFile();
  expectAgreement(screen);
  screen.click("cmdNav(3)");
  expectAgreement(screen);
  screen.click("cmdNav(3)");
  expectAgreement(screen);
  QString notice;
  screen.whenModal([&](QWidget&) {
    notice = screen.top()->windowTitle() + screen.find<QWidget>("lblUser")->accessibleName();
    EXPECT_EQ(disagreements(*screen.top()), "");
    screen.click("Command1");
  });
  screen.click("cmdNav(4)");
  EXPECT_TRUE(screen.allAnswered());
  EXPECT_TRUE(notice.startsWith(QStringLiteral("Autocomposizione"))) << notice.toStdString();
  EXPECT_TRUE(notice.contains(QStringLiteral("CUR_04123450233_2016.cur"))) << notice.toStdString();
  EXPECT_TRUE(QDir(screen.documents()).exists(QStringLiteral("CUR_04123450233_2016.cur")));
  EXPECT_EQ(screen.window().windowTitle().toStdString(),
            "Autocomposizione Quadrivio - Passo 1 di 3 - Inizio");
  expectAgreement(screen);
}

TEST(WizardWindow, ByKeyboardAloneFromStartToFile) {
  Screen screen;
  EXPECT_EQ(screen.focus()->name(), "optstType(0)");
  screen.key(Qt::Key_Down);
  EXPECT_EQ(screen.focus()->name(), "optstType(1)");
  EXPECT_TRUE(screen.form().optstType[1].value());
  while (screen.focus() != nullptr && screen.focus()->name() != "KRNCboEsCont(0)") screen.key(Qt::Key_Tab);
  ASSERT_NE(screen.focus(), nullptr);
  screen.key(Qt::Key_Down);
  screen.key(Qt::Key_Down);
  EXPECT_EQ(screen.form().KRNCboEsCont0.text(), "2016");
  expectAgreement(screen);
  screen.key(Qt::Key_A, Qt::AltModifier);
  settle();
  EXPECT_EQ(screen.window().windowTitle().toStdString(), "Autocomposizione Quadrivio - Passo 2 di 3");
  screen.key(Qt::Key_A, Qt::AltModifier);
  settle();
  EXPECT_EQ(screen.window().windowTitle().toStdString(), "Autocomposizione Quadrivio - Passo 3 di 3 - Fine");
  expectAgreement(screen);
  screen.whenModal([&](QWidget&) { screen.key(Qt::Key_Return); });
  screen.key(Qt::Key_V, Qt::AltModifier);
  settle();
  EXPECT_TRUE(screen.allAnswered());
  EXPECT_TRUE(QDir(screen.documents()).exists(QStringLiteral("CUR_04123450233_2016.cur")));
}

TEST(WizardWindow, RefusesToGoOnWithoutAYearAndSaysSo) {
  Screen screen;
  QString text;
  screen.whenModal([&](QWidget& modal) {
    text = boxText(modal);
    pressButton(modal, "OK");
  });
  screen.click("cmdNav(3)");
  EXPECT_EQ(text, "Per il tipo di stampa selezionato il campo anno è obbligatorio.");
  EXPECT_EQ(screen.focus()->name(), "KRNCboEsCont(0)") << "the field that is missing";
  EXPECT_EQ(screen.window().windowTitle().toStdString(),
            "Autocomposizione Quadrivio - Passo 1 di 2 - Inizio");
  expectAgreement(screen);
}

TEST(WizardWindow, RefusesToGoOnWithNothingSelected) {
  Screen screen;
  screen.toGrid();
  screen.click("cmdSelect(1)");
  QString text;
  screen.whenModal([&](QWidget& modal) {
    text = boxText(modal);
    QTest::keyClick(&modal, Qt::Key_Escape);
  });
  screen.click("cmdNav(3)");
  EXPECT_EQ(text, "Per poter proseguire è necessario selezionare almeno un elemento.");
  EXPECT_EQ(screen.focus()->name(), "grdCompensi");
  expectAgreement(screen);
}

TEST(WizardWindow, GoingBackFromTheGridAsksAndCancelStays) {
  Screen screen;
  screen.toGrid();
  screen.whenModal([&](QWidget& modal) {
    EXPECT_TRUE(
        boxText(modal).startsWith(QStringLiteral("Attenzione! Si vogliono memorizzare le modifiche\n")));
    EXPECT_EQ(qobject_cast<QMessageBox*>(&modal)->defaultButton()->text(), QStringLiteral("&Sì"));
    pressButton(modal, "Annulla");
  });
  screen.click("cmdNav(2)");
  EXPECT_EQ(screen.window().windowTitle().toStdString(), "Autocomposizione Quadrivio - Passo 2 di 3");
  expectAgreement(screen);
}

TEST(WizardWindow, EscAndTheCloseBoxEnd) {
  {
    Screen screen;
    screen.whenModal([](QWidget& modal) { pressButton(modal, "No"); });
    screen.key(Qt::Key_Escape);
    ASSERT_TRUE(screen.frontEnd().anyOpen());
    screen.whenModal([](QWidget& modal) { pressButton(modal, "Sì"); });
    screen.key(Qt::Key_Escape);
    EXPECT_FALSE(screen.frontEnd().anyOpen());
  }
  Screen screen;
  screen.window().close();
  EXPECT_FALSE(screen.frontEnd().anyOpen());
}

class ClosingWindow : public ::testing::Test {
 protected:
  // Corrects the first line of the grid.
  void correct() {
    screen.inEditor("2016", [&] {
      screen.type("curField(19)", "1000,50");
      screen.click("cmdOk");
      EXPECT_EQ(screen.top(), &screen.window()) << "the row is taken";
    });
    ASSERT_NE(screen.form().unsavedWork(), "");
  }
  // The question of the close box; "" when there is none.
  QString close(const char* answer) {
    QString asked;
    screen.whenModal([&](QWidget& modal) {
      asked = boxText(modal);
      EXPECT_EQ(qobject_cast<QMessageBox*>(&modal)->defaultButton()->text(), QStringLiteral("&Resta"));
      pressButton(modal, answer);
    });
    screen.window().close();
    return asked;
  }
  Screen screen;
};

TEST_F(ClosingWindow, AsksFirstWhenACorrectedRowIsNotStored) {
  correct();
  EXPECT_EQ(close("Resta"), QStringLiteral("Un compenso corretto non è ancora stato memorizzato nei conti."));
  ASSERT_TRUE(screen.frontEnd().anyOpen());
  expectAgreement(screen);
  EXPECT_NE(close("Chiudi senza memorizzare"), QString());
  EXPECT_FALSE(screen.frontEnd().anyOpen());
}

TEST_F(ClosingWindow, AsksNothingWhenNothingWouldBeLost) {
  screen.toGrid();
  screen.window().close();
  EXPECT_FALSE(screen.frontEnd().anyOpen());
}

TEST(WizardWindow, TheCloseBoxOfAWindowBehindADialogDoesNothing) {
  Screen screen;
  screen.whenModal([&](QWidget& modal) {
    screen.window().close();
    pressButton(modal, "OK");
  });
  screen.click("cmdNav(3)");
  EXPECT_TRUE(screen.allAnswered());
  ASSERT_TRUE(screen.frontEnd().anyOpen());
  expectAgreement(screen);
}

// A key pressed once too often starts nothing.
TEST(WizardWindow, AStepBeginsWhereTheWorkIs) {
  Screen screen;
  screen.toTelematicFile();
  screen.find<QWidget>("cmdNav(3)")->setFocus();
  screen.key(Qt::Key_Return);
  EXPECT_EQ(screen.focus()->name(), "grdCompensi");
  expectAgreement(screen);
  screen.find<QWidget>("cmdNav(3)")->setFocus();
  screen.key(Qt::Key_Return);
  EXPECT_EQ(screen.focus()->name(), "dtDataFirma");
  screen.key(Qt::Key_Return);
  settle();
  EXPECT_TRUE(QDir(screen.documents()).isEmpty());
  EXPECT_EQ(screen.window().windowTitle().toStdString(), "Autocomposizione Quadrivio - Passo 3 di 3 - Fine");
  expectAgreement(screen);
  screen.key(Qt::Key_I, Qt::AltModifier);
  EXPECT_EQ(screen.focus()->name(), "grdCompensi");
  expectAgreement(screen);
}

TEST(WizardWindow, TheLastStepOfPrintsBeginsWithThePrint) {
  for (const std::int32_t mode : {246, 247}) {
    Screen screen(mode);
    screen.choose("KRNCboEsCont(0)", "2016");
    screen.find<QWidget>("cmdNav(3)")->setFocus();
    screen.key(Qt::Key_Return);
    EXPECT_EQ(screen.focus()->name(), "WizPrint") << mode;
    expectAgreement(screen);
  }
}

TEST(WizardWindow, F1OpensTheGuideAndControlKeysAreSwallowed) {
  Screen screen;
  screen.key(Qt::Key_F1);
  settle();
  bool guide = false;
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget->windowTitle() != QStringLiteral("Guida")) continue;
    guide = widget->isVisible();
    widget->close();
  }
  EXPECT_TRUE(guide);
  for (const char* inert : {"Mnu_RunApplication", "Mnu_SearchObject"}) {
    EXPECT_FALSE(screen.window().findChild<QAction*>(QString::fromLatin1(inert))->isEnabled()) << inert;
    EXPECT_TRUE(screen.form().BarMenuWzr.tool(inert)->enabled) << inert;
  }
  screen.key(Qt::Key_R, Qt::ControlModifier);
  EXPECT_EQ(screen.form().oggettoCorrente(), -1);
  screen.key(Qt::Key_G, Qt::ControlModifier);
  expectAgreement(screen);
}

TEST(WizardWindow, AMissingSignatureIsToldInTheLog) {
  Screen screen;
  screen.toEnd();
  screen.type("dtDataFirma", "");
  bool log = false;
  screen.whenModal([&](QWidget& modal) {
    log = modal.windowTitle() == QStringLiteral("Dati mancanti");
    pressButton(modal, "Chiudi");
  });
  screen.click("cmdNav(4)");
  EXPECT_TRUE(log);
  EXPECT_EQ(screen.focus()->name(), "dtDataFirma");
  EXPECT_TRUE(QDir(screen.documents()).isEmpty());
  expectAgreement(screen);
}

TEST(WizardWindow, ALateSignatureIsAWarningThatGivesTheDateItsFocus) {
  Screen screen;
  screen.toEnd();
  screen.type("dtDataFirma", "06032017");
  EXPECT_EQ(screen.form().dtDataFirma.text(), "06/03/2017") << "the slashes come by themselves";
  screen.whenModal([&](QWidget& modal) {
    EXPECT_EQ(qobject_cast<QMessageBox*>(&modal)->defaultButton()->text(), QStringLiteral("Annulla"));
    QTest::keyClick(&modal, Qt::Key_Escape);
  });
  screen.click("cmdNav(4)");
  EXPECT_EQ(screen.focus()->name(), "dtDataFirma");
  expectAgreement(screen);
}

TEST(WizardWindow, TheFolderDialogLeftWithoutAChoiceChangesNothing) {
  Screen screen;
  screen.toEnd();
  const std::string before = screen.form().txtPercorsoCU.text();
  screen.whenModal([&](QWidget& modal) {
    EXPECT_EQ(modal.windowTitle(), QStringLiteral("Seleziona cartella..."));
    modal.close();
  });
  screen.click("cmdSfoglia");
  EXPECT_EQ(screen.form().txtPercorsoCU.text(), before);
  expectAgreement(screen);
}

TEST(WizardWindow, TheIntermediaryOpensWithItsCheck) {
  Screen screen;
  screen.toEnd();
  EXPECT_FALSE(screen.find<QLineEdit>("txtCodiceFiscale")->isEnabled());
  screen.click("chkIntermediari");
  EXPECT_TRUE(screen.find<QLineEdit>("txtCodiceFiscale")->isEnabled());
  screen.type("txtCodiceFiscale", "RSSMRA70A01H501U99");
  EXPECT_EQ(screen.form().txtCodiceFiscale.text(), "RSSMRA70A01H501U") << "at most 16 characters";
  expectAgreement(screen);
}

TEST(WizardWindow, ShowsTheIndividualAccountsWithoutTheirOptions) {
  Screen screen(246);
  EXPECT_FALSE(screen.find<QWidget>("optstType(0)")->isVisible());
  screen.click("cmdNav(3)");
  EXPECT_EQ(screen.window().windowTitle().toStdString(), "Autocomposizione Quadrivio - Passo 2 di 2 - Fine");
  EXPECT_FALSE(screen.find<QWidget>("fraFirma")->isVisible());
  EXPECT_TRUE(screen.find<QWidget>("WizPrint")->isVisible());
  expectAgreement(screen);
}

}  // namespace
}  // namespace cu::test
