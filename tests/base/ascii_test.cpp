#include "base/ascii.h"

#include <gtest/gtest.h>

namespace cu {
namespace {

TEST(Ascii, KnowsDigitsAndLettersOfAsciiAlone) {
  std::string digits;
  std::string letters;
  for (int c = 0; c < 256; ++c) {
    if (isDigit(static_cast<char>(c))) digits += static_cast<char>(c);
    if (isLetter(static_cast<char>(c))) letters += static_cast<char>(c);
  }
  EXPECT_EQ(digits, "0123456789");
  EXPECT_EQ(letters, "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
}

TEST(Ascii, RaisesLettersOfAsciiAlone) {
  EXPECT_EQ(upperAscii("select @Città_1 {~"), "SELECT @CITTà_1 {~");
  EXPECT_EQ(upperAscii(""), "");
  EXPECT_EQ(upperAscii('`'), '`');
  EXPECT_EQ(upperAscii('{'), '{');
}

}  // namespace
}  // namespace cu
