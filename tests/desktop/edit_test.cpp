// Typing in boxes: at a position, over a selection, pasting, deleting; amounts, dates and rejected
// characters.

#include <gtest/gtest.h>

#include <QClipboard>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <QToolTip>

#include "base/error.h"
#include "controls/datebox.h"
#include "controls/form.h"
#include "controls/numericbox.h"
#include "desktop/agreement_support.h"
#include "desktop/edit_view.h"
#include "desktop/qt_front_end.h"
#include "desktop/screen_support.h"

namespace cu::test {
namespace {

TEST(LockedBox, IsDrawnAsWhatCannotBeChanged) {
  Screen screen;
  screen.toEnd();
  QCoreApplication::processEvents();  // the page has its layout with the overview
  auto& line = *screen.find<QLineEdit>("txtPercorsoCU");
  const auto ground = [&] { return line.grab().toImage().pixelColor(line.width() - 6, line.height() / 2); };
  EXPECT_EQ(ground(), line.palette().color(QPalette::Window));
  screen.form().txtPercorsoCU.setLocked(false);
  EXPECT_NE(ground(), line.palette().color(QPalette::Window));
}

class Boxes : public Form {
 public:
  explicit Boxes(FrontEnd& frontEnd)
      : Form(frontEnd, "frmProva", "Prova"),
        txtTesto(*this, "txtTesto", nullptr, "Testo"),
        curImporto(*this, "curImporto", nullptr, "Importo"),
        dtGiorno(*this, "dtGiorno", nullptr, "Giorno") {
    curImporto.setFormat(2, "€", ",", ".");
    curImporto.setLimits(Decimal(), Decimal::fromScaled(999'999'900));
    txtTesto.onChange = [this] { ++changes; };
  }
  TextBox txtTesto;
  AmountBox curImporto;
  DateBox dtGiorno;
  int changes = 0;
};

class Typing : public ::testing::Test {
 protected:
  Typing() {
    form.show();
    window = frontEnd.window(form);
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(window));
  }
  ~Typing() override { form.unload(); }

  QLineEdit& line(const Control& control) {
    auto& found = *static_cast<desktop::EditView*>(window->view(control))->line();
    found.setFocus();
    return found;
  }
  void expectAgreement() { EXPECT_EQ(disagreements(*window), ""); }

  desktop::QtFrontEnd frontEnd;
  Boxes form{frontEnd};
  desktop::FormWindow* window = nullptr;
};

TEST_F(Typing, TheFirstCharacterReplacesWhatTheFocusHasSelected) {
  form.txtTesto.setText("vecchio");
  QTest::keyClicks(&line(form.txtTesto), QStringLiteral("x"));
  EXPECT_EQ(form.txtTesto.text(), "x");
  expectAgreement();
}

TEST_F(Typing, ACharacterGoesWhereTheCursorIs) {
  form.txtTesto.setText("Rosi");
  QLineEdit& box = line(form.txtTesto);
  box.setCursorPosition(2);
  QTest::keyClicks(&box, QStringLiteral("s"));
  EXPECT_EQ(form.txtTesto.text(), "Rossi");
  EXPECT_EQ(box.cursorPosition(), 3);
  expectAgreement();
}

TEST_F(Typing, EachCharacterIsOneChange) {
  typeText(line(form.txtTesto), QStringLiteral("perché"));
  EXPECT_EQ(form.txtTesto.text(), "perché");
  EXPECT_EQ(form.changes, 6);
}

TEST_F(Typing, ACharacterOverItsLikeIsAChange) {
  form.txtTesto.setText("1");
  form.changes = 0;
  QTest::keyClicks(&line(form.txtTesto), QStringLiteral("1"));
  EXPECT_EQ(form.txtTesto.text(), "1");
  EXPECT_EQ(form.changes, 1);
  form.txtTesto.setText("12");
  form.txtTesto.keyFilter = [](char32_t typed) { return typed != U'1'; };
  QTest::keyClicks(&line(form.txtTesto), QStringLiteral("1"));
  EXPECT_EQ(form.txtTesto.text(), "12") << "the filter is asked also where the letter stands already";
  expectAgreement();
}

TEST_F(Typing, ARefusedCharacterLeavesTextAndCursor) {
  form.txtTesto.setText("12");
  form.txtTesto.keyFilter = [](char32_t typed) { return typed >= U'0' && typed <= U'9'; };
  QLineEdit& box = line(form.txtTesto);
  box.setCursorPosition(1);
  QTest::keyClicks(&box, QStringLiteral("a3"));
  EXPECT_EQ(form.txtTesto.text(), "132");
  EXPECT_EQ(box.cursorPosition(), 2);
  expectAgreement();
}

TEST_F(Typing, DeletingTakesTheCharacterAtTheCursor) {
  form.txtTesto.setText("Rossi");
  QLineEdit& box = line(form.txtTesto);
  box.setCursorPosition(5);
  QTest::keyClick(&box, Qt::Key_Backspace);
  EXPECT_EQ(form.txtTesto.text(), "Ross");
  box.setCursorPosition(0);
  QTest::keyClick(&box, Qt::Key_Delete);
  EXPECT_EQ(form.txtTesto.text(), "oss");
  expectAgreement();
}

TEST_F(Typing, APasteIsOneStepPastTheFilterCutAtTheLength) {
  form.txtTesto.keyFilter = [](char32_t) { return false; };
  form.txtTesto.setMaxLength(4);
  form.changes = 0;
  QApplication::clipboard()->setText(QStringLiteral("abcdef"));
  QTest::keyClick(&line(form.txtTesto), Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(form.txtTesto.text(), "abcd");
  EXPECT_EQ(form.changes, 1);
  expectAgreement();
}

TEST_F(Typing, WhatACopiedCellBringsAlongHasNoPlaceInALine) {
  const auto incolla = [&](const QString& testo) {
    QApplication::clipboard()->setText(testo);
    QTest::keyClick(&line(form.txtTesto), Qt::Key_V, Qt::ControlModifier);
  };
  incolla(QStringLiteral("RSSMRA60A01H501W\r\n"));
  EXPECT_EQ(form.txtTesto.text(), "RSSMRA60A01H501W");
  expectAgreement();
  line(form.txtTesto).selectAll();
  incolla(QStringLiteral("\tVia Roma 1,\r\n\t37100 \u2028Verona"));
  EXPECT_EQ(form.txtTesto.text(), "Via Roma 1, 37100 Verona");
  EXPECT_EQ(line(form.txtTesto).cursorPosition(), 24);
  expectAgreement();
  line(form.txtTesto).setCursorPosition(3);
  incolla(QStringLiteral("\n"));
  EXPECT_EQ(form.txtTesto.text(), "Via Roma 1, 37100 Verona");
  incolla(QStringLiteral(" Della\n"));
  EXPECT_EQ(form.txtTesto.text(), "Via Della Roma 1, 37100 Verona");
  EXPECT_EQ(line(form.txtTesto).cursorPosition(), 9);
  expectAgreement();
}

TEST_F(Typing, ALockedBoxTakesNothing) {
  form.txtTesto.setText("fisso");
  form.txtTesto.setLocked(true);
  QTest::keyClicks(&line(form.txtTesto), QStringLiteral("x"));
  EXPECT_EQ(form.txtTesto.text(), "fisso");
  expectAgreement();
}

TEST_F(Typing, AnAmountTakesItsShapeWhenTheFocusGoes) {
  QLineEdit& box = line(form.curImporto);
  QTest::keyClicks(&box, QStringLiteral("1234,5"));
  EXPECT_EQ(box.text(), QStringLiteral("1234,5"));
  QTest::keyClick(&box, Qt::Key_Tab);
  EXPECT_EQ(box.text(), QStringLiteral("1.234,50"));
  EXPECT_TRUE(box.alignment().testFlag(Qt::AlignRight));
  expectAgreement();
}

TEST_F(Typing, TheKeypadsPointTypesTheDecimalMark) {
  QLineEdit& box = line(form.curImporto);
  QTest::keyClicks(&box, QStringLiteral("7"));
  QTest::keyClick(&box, Qt::Key_Period, Qt::KeypadModifier);
  QTest::keyClicks(&box, QStringLiteral("25"));
  EXPECT_EQ(box.text(), QStringLiteral("7,25"));
  EXPECT_DOUBLE_EQ(form.curImporto.value(), 7.25);
  expectAgreement();
}

TEST_F(Typing, AFullStopBeforeOneOrTwoDigitsIsTheDecimalMark) {
  QLineEdit& box = line(form.curImporto);
  QTest::keyClicks(&box, QStringLiteral("14000.5"));
  EXPECT_EQ(box.text(), QStringLiteral("14000.5")) << "typing keeps the point";
  QTest::keyClick(&box, Qt::Key_Tab);
  EXPECT_EQ(box.text(), QStringLiteral("14.000,50"));
  box.setFocus();
  box.selectAll();
  QTest::keyClicks(&box, QStringLiteral("12.500"));
  QTest::keyClick(&box, Qt::Key_Tab);
  EXPECT_EQ(box.text(), QStringLiteral("12.500,00"));
  QApplication::clipboard()->setText(QStringLiteral("12.50"));
  box.setFocus();
  box.selectAll();
  QTest::keyClick(&box, Qt::Key_V, Qt::ControlModifier);
  QTest::keyClick(&box, Qt::Key_Tab);
  EXPECT_EQ(box.text(), QStringLiteral("12,50"));
  expectAgreement();
}

TEST_F(Typing, AnAmountRefusesWhatIsNoneAndWhatIsTooMuch) {
  QLineEdit& box = line(form.curImporto);
  QTest::keyClicks(&box, QStringLiteral("-9x9999,129"));
  EXPECT_EQ(box.text(), QStringLiteral("99999,12")) << "no sign, no letter, two places, the greatest value";
  box.setCursorPosition(1);
  QTest::keyClicks(&box, QStringLiteral("1"));
  EXPECT_EQ(box.text(), QStringLiteral("99999,12")) << "nor in the middle";
  box.setCursorPosition(6);
  QTest::keyClick(&box, Qt::Key_Backspace);
  EXPECT_EQ(box.text(), QStringLiteral("99999,12")) << "without its mark it would be too much";
  expectAgreement();
}

TEST_F(Typing, ARefusedLetterLosesNoneOfTheDigitsThatFollow) {
  QLineEdit& box = line(form.curImporto);
  QTest::keyClicks(&box, QStringLiteral("800"));
  box.selectAll();
  QTest::keyClicks(&box, QStringLiteral("ab1x2,5"));
  EXPECT_EQ(box.text(), QStringLiteral("12,5"));
  expectAgreement();
}

TEST_F(Typing, WhatAnAmountTakesIsToldBesideIt) {
  QLineEdit& box = line(form.curImporto);
  QTest::keyClicks(&box, QStringLiteral("7x"));
  EXPECT_EQ(QToolTip::text(), QStringLiteral("«x» qui non si può scrivere: va un importo, come 1.234,56"));
  QApplication::clipboard()->setText(QStringLiteral("€ 5,00\tsaldo"));
  box.selectAll();
  box.paste();
  EXPECT_EQ(QToolTip::text(),
            QStringLiteral("«€ 5,00 saldo» qui non si può scrivere: va un importo, come 1.234,56"));
  EXPECT_EQ(box.text(), QStringLiteral("7"));
}

TEST_F(Typing, ADateGetsItsSlashesAndKeepsThemWhereTheyAreTyped) {
  QTest::keyClicks(&line(form.dtGiorno), QStringLiteral("05032017"));
  EXPECT_EQ(form.dtGiorno.text(), "05/03/2017");
  QLineEdit& box = line(form.dtGiorno);
  box.selectAll();
  QTest::keyClicks(&box, QStringLiteral("6/12/2016"));
  EXPECT_EQ(form.dtGiorno.text(), "6/12/2016");
  expectAgreement();
}

TEST_F(Typing, ABoxThatHoldsNoDateSaysSoAtOnceBesideIt) {
  QLineEdit& box = line(form.dtGiorno);
  const auto note = [&] {
    QString told;
    for (const QLabel* label : box.parentWidget()->findChildren<QLabel*>()) {
      if (label->isVisible()) told += label->text();
    }
    EXPECT_EQ(told.isEmpty(), box.accessibleDescription().isEmpty());
    return told;
  };
  const QString kNoDate = QStringLiteral("⚠ Non è una data");
  const auto replace = [&](const QString& text) {
    box.setFocus();
    box.selectAll();
    QTest::keyClicks(&box, text);
  };
  EXPECT_EQ(note(), QString());
  QTest::keyClicks(&box, QStringLiteral("3102202"));
  EXPECT_EQ(note(), kNoDate) << "no year has this day";
  QTest::keyClicks(&box, QStringLiteral("6"));
  EXPECT_EQ(note(), kNoDate);
  replace(QStringLiteral("2802201"));
  EXPECT_EQ(note(), QString()) << "it is on its way to a date";
  QTest::keyClick(&box, Qt::Key_Tab);
  EXPECT_EQ(note(), kNoDate) << "it was left unfinished";
  replace(QStringLiteral("28.02.17"));
  EXPECT_EQ(note(), kNoDate);
  replace(QStringLiteral("28/02/2017 "));
  EXPECT_EQ(note(), QString());
  expectAgreement();
  QTest::keyClick(&box, Qt::Key_Tab);
  EXPECT_EQ(box.text(), QStringLiteral("28/02/2017"));
  form.dtGiorno.setText("mai");
  EXPECT_EQ(note(), kNoDate);
  form.dtGiorno.setText("");
  EXPECT_EQ(note(), QString());
}

TEST_F(Typing, TabGoesInTheOrderOfTheControlsAndBack) {
  line(form.txtTesto);
  QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(form.focus(), &form.curImporto);
  QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
  EXPECT_EQ(form.focus(), &form.dtGiorno);
  QTest::keyClick(window->focusWidget(), Qt::Key_Backtab);
  EXPECT_EQ(form.focus(), &form.curImporto);
  expectAgreement();
}

TEST_F(Typing, AClickBesideTheFieldsEndsTheTyping) {
  QLineEdit& box = line(form.curImporto);
  QTest::keyClicks(&box, QStringLiteral("5"));
  QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, QPoint(2, window->height() - 2));
  EXPECT_EQ(form.focus(), nullptr);
  EXPECT_EQ(box.text(), QStringLiteral("5,00"));
}

// The box keeps the longer text for the database; also where the character typed equals the replaced one.
TEST_F(Typing, EscBringsBackATextThatIsLongerThanItsBox) {
  form.txtTesto.setMaxLength(4);
  for (const char* typed : {"x", "i"}) {
    form.txtTesto.setText("iiiiLUNGO");
    QLineEdit& box = line(form.txtTesto);
    box.setSelection(1, 1);
    QTest::keyClicks(&box, QString::fromLatin1(typed));
    EXPECT_EQ(form.txtTesto.stored().size(), 4U) << typed;
    QTest::keyClick(&box, Qt::Key_Escape);
    EXPECT_EQ(form.txtTesto.stored(), "iiiiLUNGO") << typed;
    EXPECT_TRUE(form.isOpen());
    expectAgreement();
  }
}

TEST_F(Typing, AnErrorOfAHandlerIsToldAndTheWindowStays) {
  form.txtTesto.onChange = [] { throw Error(13, "Tipo non corrispondente."); };
  QString told;
  QTimer::singleShot(30, window, [&] {
    QWidget* const box = QApplication::activeModalWidget();
    ASSERT_NE(box, nullptr);
    told = qobject_cast<QMessageBox*>(box)->informativeText();
    QTest::keyClick(box, Qt::Key_Escape);
  });
  QTest::keyClicks(&line(form.txtTesto), QStringLiteral("x"));
  EXPECT_TRUE(form.isOpen());
  EXPECT_EQ(told, QStringLiteral("Errore 13"));
  EXPECT_EQ(form.txtTesto.text(), "x");
  expectAgreement();
}

}  // namespace
}  // namespace cu::test
