#include "base/collation.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "base/text.h"

namespace cu {
namespace {

int sign(int value) { return value < 0 ? -1 : (value > 0 ? 1 : 0); }

TEST(Collation, CaseDoesNotCount) {
  EXPECT_EQ(compareItalian("Rossi", "ROSSI"), 0);
  EXPECT_EQ(compareItalian("è", "È"), 0);
  EXPECT_EQ(compareItalian("Æ", "æ"), 0);
  EXPECT_EQ(compareItalian("Œ", "œ"), 0);
  EXPECT_EQ(compareItalian("Ð", "ð"), 0);
  EXPECT_EQ(compareItalian("Þ", "þ"), 0);
  EXPECT_EQ(compareItalian("Ÿ", "ÿ"), 0);
  EXPECT_EQ(compareItalian("ČŠŽ", "čšž"), 0);
  EXPECT_EQ(compareItalian("Łódź", "ŁÓDŹ"), 0);
  EXPECT_EQ(compareItalian("Ŷ", "ŷ"), 0);
  EXPECT_EQ(compareItalian("Ŋ", "ŋ"), 0);
  EXPECT_EQ(compareItalian("Ĳ", "ĳ"), 0);
}

TEST(Collation, SignsAmongTheLettersOfTheCodePageAreNoLetters) {
  EXPECT_NE(compareItalian("×", "÷"), 0);  // 32 apart, like the two cases of a letter
  EXPECT_LT(compareItalian("×", "a"), 0);
  EXPECT_LT(compareItalian("ŷ", "z"), 0);
  EXPECT_LT(compareItalian("z", "µ"), 0);
}

TEST(Collation, SignsOutsideAsciiStandBeforeDigitsAndLetters) {
  for (const char* sign : {"€", "«", "»", "…", "°", "·", "©", "£", "§", "¿", "×", "÷", "™", "→", "–", "’"}) {
    EXPECT_LT(compareItalian(sign, "0"), 0) << sign;
    EXPECT_LT(compareItalian(sign, "A"), 0) << sign;
    EXPECT_GT(compareItalian(sign, ""), 0) << sign;
  }
}

TEST(Collation, ATypographicSignStandsBesideThePlainOne) {
  for (const auto& [sign, plain] : {std::pair{"’", "'"},
                                    {"‘", "'"},
                                    {"´", "'"},
                                    {"“", "\""},
                                    {"”", "\""},
                                    {"«", "\""},
                                    {"–", "-"},
                                    {"—", "-"},
                                    {"\u00A0", " "},
                                    {"²", "2"},
                                    {"º", "o"},
                                    {"ª", "a"}}) {
    const std::string one = std::string("d") + sign + "amico";
    const std::string two = std::string("D") + plain + "Amico";
    EXPECT_GT(compareItalian(one, two), 0) << sign;
    EXPECT_LT(compareItalian(one, two + "a"), 0) << sign;
    EXPECT_LT(compareItalian(std::string("D") + plain + "Alba", one), 0) << sign;
  }
}

TEST(Collation, TrailingBlanksDoNotCount) {
  EXPECT_EQ(compareItalian("M", "M   "), 0);
  EXPECT_EQ(compareItalian("", "   "), 0);
  EXPECT_NE(compareItalian(" M", "M"), 0);
  EXPECT_NE(compareItalian("M", "M\xC2\xA0"), 0);
}

TEST(Collation, AnAccentedLetterIsAnotherOneRightBehindThePlainOne) {
  EXPECT_LT(compareItalian("perche", "perché"), 0);
  EXPECT_LT(compareItalian("perché", "perchi"), 0);
  EXPECT_LT(compareItalian("cité", "citta"), 0);
  EXPECT_LT(compareItalian("Nicolo", "Nicolò"), 0);
  EXPECT_LT(compareItalian("Nicolò", "Nicolucci"), 0);
  EXPECT_LT(compareItalian("Nicolò", "Nicolo Anna"), 0);  // an accent has less weight than a letter
  EXPECT_NE(compareItalian("è", "é"), 0);
}

TEST(Collation, ADoubleLetterStandsRightBehindTheTwoThatItIs) {
  for (const auto& [one, two] : {std::pair{"æ", "ae"},
                                 {"Æ", "AE"},
                                 {"œ", "oe"},
                                 {"Œ", "oe"},
                                 {"ß", "ss"},
                                 {"ẞ", "SS"},
                                 {"ĳ", "ij"},
                                 {"þ", "th"},
                                 {"Þ", "Th"}}) {
    EXPECT_LT(compareItalian(two, one), 0) << one;
    EXPECT_GT(compareItalian(one, two), 0) << one;
    EXPECT_LT(compareItalian(one, std::string(two) + "a"), 0) << one;
    EXPECT_LT(compareItalian(std::string(two).substr(0, 1), one), 0) << one;
    EXPECT_GT(compareItalian(one, std::string(two).substr(0, 1) + "!"), 0) << one;
    EXPECT_LT(compareItalian(one, std::string(two).substr(0, 1) + "z"), 0) << one;
    EXPECT_LT(compareItalian(std::string("x") + one, std::string("x") + two + "!"), 0) << one;
  }
  EXPECT_EQ(compareItalian("ẞ", "ß"), 0);
  EXPECT_EQ(compareItalian("Weiß", "WEIß  "), 0);
  EXPECT_LT(compareItalian("weiß", "weisz"), 0);
  EXPECT_GT(compareItalian("weiß", "weiss"), 0);
}

TEST(Collation, TheOrderOfAnItalianList) {
  const std::vector<std::string> sorted = {
      "",        " A",       "'A",      "(A)",      "-A",    ".",      "0",      "10",       "2",
      "A",       "à",        "a b",     "Abate",    "Aetna", "Ætna",   "Affi",   "D'Angelo", "Dandolo",
      "De Luca", "Degan",    "è",       "Esposito", "F",     "Müller", "Munari", "Nicolo",   "NICOLÒ",
      "Rossi",   "ROSSI M.", "Rossini", "Weiss",    "Weiß",  "Weissa", "Zanìn",  "Zanon",    "Zürn",
  };
  std::vector<std::string> shuffled = sorted;
  std::mt19937 random(1);
  std::shuffle(shuffled.begin(), shuffled.end(), random);
  std::stable_sort(shuffled.begin(), shuffled.end(),
                   [](const std::string& a, const std::string& b) { return compareItalian(a, b) < 0; });
  EXPECT_EQ(shuffled, sorted);
}

TEST(Collation, BlanksThenMarksThenDigitsThenLetters) {
  EXPECT_LT(compareItalian("a b", "a!b"), 0);
  EXPECT_LT(compareItalian("!", "0"), 0);
  EXPECT_LT(compareItalian("~", "0"), 0);
  EXPECT_LT(compareItalian("9", "a"), 0);
  EXPECT_LT(compareItalian("[", "A"), 0);
  EXPECT_LT(compareItalian("_", "A"), 0);
  EXPECT_LT(compareItalian("a", "ab"), 0);
  EXPECT_LT(compareItalian("€", "0"), 0);
}

TEST(Collation, BytesThatAreNoCharactersCompareAsTheyStand) {
  EXPECT_EQ(compareItalian("\xE8", "\xE8"), 0);
  EXPECT_LT(compareItalian("\xE8", "\xE9"), 0);
  EXPECT_GT(compareItalian("\xE9", "\xE8"), 0);
  EXPECT_NE(compareItalian("\xE8", "\xEF\xBF\xBD"), 0);
  EXPECT_LT(compareItalian("z", "\x80"), 0);
}

// For any input it is an order: texts that compare equal compare alike with every other text.
TEST(Collation, IsATotalOrderOfClasses) {
  const std::vector<std::string> pieces = {"a",    "A",    "à",    "À",  "á", "e", "é",      "E",
                                           " ",    "  ",   "0",    "9",  "-", "'", "z",      "Z",
                                           "æ",    "Æ",    "ß",    "€",  "’", "–", "\u00A0", "𝄞",
                                           "\x80", "\xE8", "\xC3", "\t", ".", "ž", "Ž",      "\xEF\xBF\xBD",
                                           "ñ",    "n"};
  std::mt19937 random(42);
  std::vector<std::string> texts;
  for (int i = 0; i < 80; ++i) {
    std::string text;
    for (std::size_t n = random() % 5; n > 0; --n) text += pieces[random() % pieces.size()];
    texts.push_back(text);
  }
  for (const std::string& a : texts) {
    EXPECT_EQ(compareItalian(a, a), 0);
    for (const std::string& b : texts) {
      ASSERT_EQ(sign(compareItalian(a, b)), -sign(compareItalian(b, a))) << a << " / " << b;
    }
  }
  for (const std::string& a : texts) {
    for (const std::string& b : texts) {
      const int ab = sign(compareItalian(a, b));
      for (const std::string& c : texts) {
        const int bc = sign(compareItalian(b, c));
        if (ab <= 0 && bc <= 0) {
          const int ac = sign(compareItalian(a, c));
          ASSERT_LE(ac, 0) << a << " / " << b << " / " << c;
          if (ab < 0 || bc < 0) {
            ASSERT_LT(ac, 0) << a << " / " << b << " / " << c;
          }
        }
      }
    }
  }
}

// The fast path for plain texts and the path for accented ones agree.
TEST(Collation, AnAccentBehindTheDifferenceChangesNothing) {
  std::mt19937 random(5);
  const std::string letters = "abcABC019 -'";
  for (int i = 0; i < 5000; ++i) {
    std::string a;
    std::string b;
    for (std::size_t n = 1 + random() % 4; n > 0; --n) {
      a += letters[random() % letters.size()];
      b += letters[random() % letters.size()];
    }
    const int plain = sign(compareItalian(a + "x", b + "x"));
    ASSERT_EQ(sign(compareItalian(a + "xò", b + "xò")), plain) << a << " / " << b;
    ASSERT_EQ(sign(compareItalian("ò" + a + "x", "ò" + b + "x")), plain) << a << " / " << b;
  }
}

}  // namespace
}  // namespace cu
