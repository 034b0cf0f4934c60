#include "telematic/formatta.h"

#include <gtest/gtest.h>

#include <string>

namespace cu::telematico {
namespace {

TEST(FnFormatta, FillsWithLeadingZerosToTheMasksWidth) {
  EXPECT_EQ(fnFormatta(7, "00000"), "00007");
  EXPECT_EQ(fnFormatta(0, "00000000000000000"), "00000000000000000");
  EXPECT_EQ(fnFormatta(12345, "00000"), "12345");
  EXPECT_EQ(fnFormatta(1, "000000000"), "000000001");
}

TEST(FnFormatta, ANumberThatHasOutgrownTheMaskLosesItsLastDigits) {
  EXPECT_EQ(fnFormatta(123456, "00000"), "12345");
  EXPECT_EQ(fnFormatta("123456", "00000"), "12345");
}

TEST(FnFormatta, ATextOfDigitsIsTreatedAsTheNumber) {
  EXPECT_EQ(fnFormatta("1", "00"), "01");
  EXPECT_EQ(fnFormatta("01", "00"), "01");
  EXPECT_EQ(fnFormatta("001", "00"), "01");
  EXPECT_EQ(fnFormatta("000000", "00"), "00");
  EXPECT_EQ(fnFormatta("", "000000"), "000000");
}

TEST(FnFormatta, SeventeenDigitsKeepEveryOne) {
  EXPECT_EQ(fnFormatta("12345678901234567", "00000000000000000"), "12345678901234567");
  EXPECT_EQ(fnFormatta("99999999999999999", "00000000000000000"), "99999999999999999");
  EXPECT_EQ(fnFormatta("1234567890123456", "00000000000000000"), "01234567890123456");
}

TEST(FnFormatta, ATextThatIsNotDigitsIsPlacedAsItStands) {
  EXPECT_EQ(fnFormatta("A", "00"), " A");
  EXPECT_EQ(fnFormatta("1A", "0000"), "  1A");
  EXPECT_EQ(fnFormatta("RSSMRA80A01L781X", "00000000000"), "RSSMRA80A01");
  EXPECT_EQ(fnFormatta(" ", "00"), "  ");
}

TEST(FnFormatta, ANegativeNumberKeepsItsSignInFront) {
  EXPECT_EQ(fnFormatta(-5, "00000"), "-0000");
  EXPECT_EQ(fnFormatta(-12345, "000"), "-12");
}

TEST(GiornoMeseAnno, HasNoSeparators) {
  EXPECT_EQ(giornoMeseAnno(Date::fromYmd(2017, 3, 5).value()), "05032017");
  EXPECT_EQ(giornoMeseAnno(Date::fromYmd(1980, 12, 31).value()), "31121980");
  EXPECT_EQ(giornoMeseAnno(Date::fromYmd(999, 1, 1).value()), "01010999");
}

TEST(TogliSeparatori, RemovesBlanksAndTheMarksOfPhoneNumbers) {
  EXPECT_EQ(togliSeparatori(" -/\\().+"), "");
  EXPECT_EQ(togliSeparatori("+39 (045) 12-34.567/8\\9"), "39045123456789");
  EXPECT_EQ(togliSeparatori("int. 3,4_a"), "int3,4_a");
}

TEST(Numerico, IsATextThatReadsAsANumberAsAWhole) {
  for (const char* si : {"0", "0451234567", "12,5", "1e3", ",5"}) EXPECT_TRUE(numerico(si)) << si;
  for (const char* no : {"", "int3", "045a", "a045", "12,5,6", "12.5", "inf", "nan", ",", "1e999"}) {
    EXPECT_FALSE(numerico(no)) << no;
  }
  EXPECT_TRUE(numerico(std::string(400, '7')));
}

}  // namespace
}  // namespace cu::telematico
