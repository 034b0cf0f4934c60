#include "controls/numericbox.h"

#include <gtest/gtest.h>

#include <string_view>

#include "controls/form.h"
#include "support/scripted_front_end.h"

namespace cu {
namespace {
using test::ScriptedFrontEnd;

Decimal amount(const char* text) { return *Decimal::parse(text); }

struct Amounts : testing::Test {
  ScriptedFrontEnd screen;
  Form form{screen, "frm"};
  AmountBox box{form, "curField(11)", nullptr, "5 Somme"};
  NumberBox number{form, "numAnno", nullptr};
  int changes = 0;

  Amounts() {
    box.setFormat(2, "€", ",", ".");
    box.setLimits(Decimal(), amount("99999999999999"));
    box.onChange = [this] { ++changes; };
    number.onChange = [this] { ++changes; };
    number.setLimits(Decimal(), amount("9999"));
  }
  void leave() {
    form.setFocus(&box);
    form.setFocus(nullptr);
  }
};

TEST_F(Amounts, StartsEmptyAndWorthNothing) {
  EXPECT_EQ(box.text(), "");
  EXPECT_EQ(box.value(), 0);
  leave();
  EXPECT_EQ(box.text(), "");
}

TEST_F(Amounts, WritesANumberInFullAndAsItIsTyped) {
  EXPECT_EQ(box.inFull(amount("1234567.5")), "1.234.567,50");
  EXPECT_EQ(box.inFull(amount("-1234.5678")), "-1.234,5678");
  EXPECT_EQ(box.typed(amount("1234567.5")), "1234567,5");
  EXPECT_EQ(box.typed(Decimal()), "0");
  EXPECT_EQ(box.typed(amount("1.005")), std::nullopt);
  EXPECT_EQ(number.typed(amount("2016")), "2016");
}

TEST_F(Amounts, ShowsANumberPutInByCodeInTheCurrencysFormat) {
  box.setNumber(amount("1234567.5"));
  EXPECT_EQ(box.text(), "1.234.567,50");
  EXPECT_EQ(changes, 1);
  box.setNumber(amount("1234567.5"));
  EXPECT_EQ(changes, 1);
  box.setNumber(amount("999.999"));
  EXPECT_EQ(box.text(), "1.000,00");
}

TEST_F(Amounts, ShowsZeroWithoutAChangeWhereItWasEmpty) {
  box.setNumber(Decimal());
  EXPECT_EQ(box.text(), "0,00");
  EXPECT_EQ(changes, 0);
}

TEST_F(Amounts, KeepsFourPlacesUntilAPersonTypes) {
  box.setNumber(amount("10.1239"));
  leave();
  EXPECT_EQ(box.text(), "10,12");
  EXPECT_EQ(box.number(), amount("10.1239"));
  box.enter("10,12");
  EXPECT_EQ(box.number(), amount("10.12"));
}

TEST_F(Amounts, KeepsAStoredNegativeBelowItsLimitUntilAPersonTypes) {
  box.setNumber(amount("-3.5"));
  leave();
  EXPECT_EQ(box.text(), "-3,50");
  EXPECT_EQ(box.value(), -3.5);
  box.enter("-4");
  EXPECT_EQ(box.value(), 4);
}

TEST_F(Amounts, TakesWhatAPersonWrites) {
  box.enter("1.234,5");
  EXPECT_EQ(box.text(), "1.234,5");
  EXPECT_EQ(box.value(), 1234.5);
  EXPECT_EQ(changes, 7);
  leave();
  EXPECT_EQ(box.text(), "1.234,50");
  EXPECT_EQ(box.value(), 1234.5);
  EXPECT_EQ(changes, 7);
}

TEST_F(Amounts, LetsNoLetterInAndNoThirdPlace) {
  box.enter("12a");
  EXPECT_EQ(box.text(), "12");
  EXPECT_EQ(changes, 2);
  box.enter("1,239");
  EXPECT_EQ(box.text(), "1,23");
  box.enter("1,2,3");
  EXPECT_EQ(box.text(), "1,23");
}

TEST_F(Amounts, AnEmptyTextDeletes) {
  box.setNumber(amount("5"));
  box.enter("");
  EXPECT_EQ(box.text(), "");
  EXPECT_EQ(box.value(), 0);
  EXPECT_EQ(changes, 2);
}

TEST_F(Amounts, TakesAMinusOnlyWhereTheLimitAllowsIt) {
  box.enter("-10");
  EXPECT_EQ(box.text(), "10");
  box.setLimits(amount("-99999999999999"), amount("99999999999999"));
  box.enter("-10");
  EXPECT_EQ(box.text(), "-10");
  EXPECT_EQ(box.value(), -10);
  box.enter("1-0");
  EXPECT_EQ(box.value(), 10);
  box.enter("-");
  EXPECT_EQ(box.value(), 0);
  leave();
  EXPECT_EQ(box.text(), "0,00");
}

TEST_F(Amounts, StopsAtItsLargestValue) {
  box.enter("999999999999999");
  EXPECT_EQ(box.text(), "99999999999999");
  box.enter("99999999999999,9");
  EXPECT_EQ(box.value(), 99999999999999.0);
}

TEST_F(Amounts, WithoutDecimalsWhatFollowsTheMarkIsNotLetIn) {
  box.setFormat(0, "L.", ",", ".");
  box.enter("1234,5");
  EXPECT_EQ(box.value(), 1234);
  leave();
  EXPECT_EQ(box.text(), "1.234");
}

TEST_F(Amounts, FollowsTheMarksOfTheCurrency) {
  box.setFormat(2, "$", ".", ",");
  box.enter("1,234.5");
  EXPECT_EQ(box.value(), 1234.5);
  leave();
  EXPECT_EQ(box.text(), "1,234.50");
}

struct Pasted {
  const char* text;
  const char* shown;
};
class AmountPaste : public Amounts, public testing::WithParamInterface<Pasted> {};

TEST_P(AmountPaste, IsTakenWholeOrNotAtAll) {
  box.setNumber(amount("7"));
  box.paste(GetParam().text);
  EXPECT_EQ(box.text(), GetParam().shown);
}
INSTANTIATE_TEST_SUITE_P(Texts, AmountPaste,
                         testing::Values(Pasted{"1.234,56", "1.234,56"}, Pasted{" 12,5 ", "12,5"},
                                         Pasted{"1,239", "1,24"}, Pasted{"", ""}, Pasted{"abc", "7,00"},
                                         Pasted{"-5", "7,00"}, Pasted{"-", "7,00"},
                                         Pasted{"999999999999999", "7,00"}, Pasted{"1.", "7,00"},
                                         Pasted{"1.2,5", "7,00"}, Pasted{"0.125", "7,00"}));

struct Pointed {
  const char* text;
  const char* typed;  // the accepted part
  const char* left;   // the text after the focus has left
};
class AmountWithPoint : public Amounts, public testing::WithParamInterface<Pointed> {};

TEST_P(AmountWithPoint, AThousandsMarkWithOneOrTwoDigitsBehindItIsTheDecimalMark) {
  box.enter(GetParam().text);
  EXPECT_EQ(box.text(), GetParam().typed);
  leave();
  EXPECT_EQ(box.text(), GetParam().left);
}
INSTANTIATE_TEST_SUITE_P(
    Texts, AmountWithPoint,
    testing::Values(Pointed{"14000.5", "14000.5", "14.000,50"}, Pointed{"12.50", "12.50", "12,50"},
                    Pointed{"1234.56", "1234.56", "1.234,56"}, Pointed{"1234.567", "1234.56", "1.234,56"},
                    Pointed{"12.500", "12.500", "12.500,00"}, Pointed{"12.5001", "12.500", "12.500,00"},
                    Pointed{"1.234", "1.234", "1.234,00"}, Pointed{"1.234.567", "1.234.567", "1.234.567,00"},
                    Pointed{"1.234.5", "1.234.5", "1.234,50"}, Pointed{"0.125", "0.12", "0,12"},
                    Pointed{".5", ".5", "0,50"}, Pointed{"12.", "12.", "12,00"},
                    Pointed{"1.2.3", "1.23", "1,23"}, Pointed{"12.50,7", "12.507", "12.507,00"},
                    Pointed{"1..5", "1.5", "1,50"}, Pointed{"1.234,5.6", "1.234,56", "1.234,56"},
                    Pointed{"5000,5", "5000,5", "5.000,50"}));

TEST_P(AmountWithPoint, IsPastedAsItIsTyped) {
  box.setNumber(amount("7"));
  box.paste(GetParam().typed);
  leave();
  const bool unfinished = std::string_view(GetParam().typed).ends_with('.');
  EXPECT_EQ(box.text(), unfinished ? "7,00" : GetParam().left);
}

TEST_F(Amounts, AnEditInTheMiddlePassesOverThousandsMarks) {
  box.setNumber(amount("1234"));
  EXPECT_TRUE(box.typeAt(1, 0, U'5'));
  EXPECT_EQ(box.text(), "15.234,00");
  EXPECT_TRUE(box.typeAt(4, 0, U'6'));
  EXPECT_EQ(box.text(), "15.2634,00");
  EXPECT_EQ(box.number(), amount("152634"));
  EXPECT_TRUE(box.eraseAt(3, 2));
  EXPECT_EQ(box.number(), amount("1534"));
  EXPECT_TRUE(box.eraseAt(5, 3));
  EXPECT_EQ(box.text(), "15.34");
  EXPECT_TRUE(box.typeAt(4, 0, U'5'));
  EXPECT_TRUE(box.typeAt(4, 0, U'5'));
  EXPECT_EQ(box.text(), "15.3554");
  EXPECT_EQ(box.number(), amount("153554"));
  EXPECT_TRUE(box.type(U'1'));
  leave();
  EXPECT_EQ(box.text(), "1.535.541,00");
}

TEST_F(Amounts, AMarkInTheMiddleMakesANumberThatCanBeRead) {
  box.enter("14000");
  EXPECT_FALSE(box.typeAt(1, 0, U'.'));  // 1.4000
  EXPECT_TRUE(box.typeAt(2, 0, U'.'));
  EXPECT_EQ(box.number(), amount("14000"));
  EXPECT_TRUE(box.eraseAt(2, 1));
  EXPECT_TRUE(box.typeAt(4, 0, U'.'));
  EXPECT_EQ(box.number(), amount("1400"));
}

TEST_F(Amounts, WithoutDecimalsAPointNeverSwellsTheNumber) {
  box.setFormat(0, "L.", ",", ".");
  box.enter("14000.5");
  EXPECT_EQ(box.text(), "14000.");
  EXPECT_EQ(box.value(), 14000);
  box.enter("12.500");
  EXPECT_EQ(box.value(), 12500);
  box.enter("12.5");
  EXPECT_EQ(box.value(), 13);
  leave();
  EXPECT_EQ(box.text(), "13");
}

TEST_F(Amounts, TheOtherMarksServeInTheirPlaces) {
  box.setFormat(2, "$", ".", ",");
  box.enter("14000,5");
  leave();
  EXPECT_EQ(box.text(), "14,000.50");
  box.enter("12,345");
  EXPECT_EQ(box.value(), 12345);
}

TEST_F(Amounts, AWholeNumberTakesDigitsOnly) {
  number.enter("20x1.6");
  EXPECT_EQ(number.text(), "2016");
  EXPECT_EQ(number.value(), 2016);
  number.setValue(0);
  EXPECT_EQ(number.text(), "0");
  number.enter("12345");
  EXPECT_EQ(number.value(), 1234);
  number.setText("");
  EXPECT_EQ(number.value(), 0);
}

TEST_F(Amounts, ALockedBoxTakesNothing) {
  box.setLocked(true);
  box.enter("5");
  box.paste("5");
  EXPECT_EQ(box.value(), 0);
}

TEST_F(Amounts, ANewFormatReshapesWhatStands) {
  box.setNumber(amount("1234.5"));
  box.setFormat(2, "$", ".", ",");
  EXPECT_EQ(box.text(), "1,234.50");
  EXPECT_EQ(box.number(), amount("1234.5"));
  EXPECT_EQ(changes, 1);
}

TEST_F(Amounts, WithoutAMarkOfDecimalsOnlyDigitsAreLetIn) {
  box.setFormat(0, "L.", "", "");
  box.enter("1.2,34");
  EXPECT_EQ(box.value(), 1234);
  box.paste("5678");
  EXPECT_EQ(box.value(), 5678);
  leave();
  EXPECT_EQ(box.text(), "5678");
}

TEST_F(Amounts, ACharacterAtAPlaceMustLeaveANumberWithinTheLimits) {
  box.setLimits(amount("-99"), amount("99"));
  box.enter("12");
  EXPECT_TRUE(box.typeAt(0, 0, U'-'));
  EXPECT_EQ(box.value(), -12);
  EXPECT_FALSE(box.typeAt(0, 0, U'-'));
  EXPECT_FALSE(box.typeAt(2, 0, U'-'));
  EXPECT_FALSE(box.typeAt(1, 0, U'9'));  // -912
  EXPECT_TRUE(box.typeAt(1, 1, U'9'));
  EXPECT_EQ(box.value(), -92);
}

TEST_F(Amounts, AMinusThatLeavesTheLimitsIsNotLetIn) {
  box.setLimits(amount("-5"), amount("99"));
  box.enter("12");
  EXPECT_FALSE(box.typeAt(0, 0, U'-'));
  EXPECT_EQ(box.value(), 12);
}

TEST_F(Amounts, ErasingMustLeaveANumberWithinTheLimits) {
  box.setLimits(amount("10"), amount("99"));
  box.setText("99,5");
  EXPECT_FALSE(box.eraseAt(2, 1));  // 995
  EXPECT_FALSE(box.eraseAt(1, 1));  // 9,5
  EXPECT_EQ(box.text(), "99,5");
  EXPECT_TRUE(box.eraseAt(2, 2));
  EXPECT_EQ(box.value(), 99);
  EXPECT_TRUE(box.eraseAt(0, 2));  // an empty box may be left although 0 is below the minimum
  EXPECT_EQ(box.text(), "");
}

TEST_F(Amounts, ErasingWhatKeepsATextANumberIsRefused) {
  box.setLimits(amount("-99"), amount("99"));
  box.setText("1-2");  // by code
  EXPECT_FALSE(box.eraseAt(2, 1));
  EXPECT_EQ(box.text(), "1-2");
  EXPECT_TRUE(box.eraseAt(0, 1));
  EXPECT_EQ(box.value(), -2);
}

TEST_F(Amounts, APasteAtAPlaceThatMakesNoNumberChangesNothing) {
  box.enter("12");
  EXPECT_FALSE(box.pasteAt(1, 0, "abc"));
  EXPECT_EQ(box.text(), "12");
  EXPECT_TRUE(box.pasteAt(1, 0, "34"));
  EXPECT_EQ(box.value(), 1342);
}

TEST_F(Amounts, WithoutAHandlerTheNumberChangesAllTheSame) {
  box.onChange = nullptr;
  box.setNumber(amount("5"));
  EXPECT_EQ(box.text(), "5,00");
  EXPECT_EQ(changes, 0);
}

}  // namespace
}  // namespace cu
