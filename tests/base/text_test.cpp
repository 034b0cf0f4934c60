#include "base/text.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace cu {
namespace {

std::vector<char32_t> decoded(std::string_view text) {
  std::vector<char32_t> result;
  for (std::size_t at = 0; at < text.size();) result.push_back(nextCodePoint(text, at));
  return result;
}

constexpr char32_t kBad = 0xFFFD;

TEST(Text, TrimsBlanksOnly) {
  EXPECT_EQ(trim("  a b  "), "a b");
  EXPECT_EQ(trimRight("  a b  "), "  a b");
  EXPECT_EQ(trim("   "), "");
  EXPECT_EQ(trim(""), "");
  EXPECT_EQ(trim("\ta\n"), "\ta\n");
  EXPECT_EQ(trim("\xC2\xA0"
                 "a"),
            "\xC2\xA0"
            "a");
}

TEST(Text, ComparesNamesWithoutCaseInAsciiOnly) {
  EXPECT_TRUE(equalsNoCase("IDAnagrafica", "idanagrafica"));
  EXPECT_TRUE(equalsNoCase("", ""));
  EXPECT_FALSE(equalsNoCase("a", "ab"));
  EXPECT_FALSE(equalsNoCase("a", "b"));
  EXPECT_FALSE(equalsNoCase("[", "{"));
  EXPECT_FALSE(equalsNoCase("@", "`"));
  EXPECT_FALSE(equalsNoCase("È", "è"));
  EXPECT_EQ(lowerAscii("ABCxyz[È]"), "abcxyz[È]");
}

TEST(Text, WritesIntegers) {
  EXPECT_EQ(fromInteger(0), "0");
  EXPECT_EQ(fromInteger(-1), "-1");
  EXPECT_EQ(fromInteger(std::numeric_limits<std::int64_t>::max()), "9223372036854775807");
  EXPECT_EQ(fromInteger(std::numeric_limits<std::int64_t>::min()), "-9223372036854775808");
}

TEST(Text, ReadsTheIntegerAtTheHead) {
  const std::vector<std::pair<std::string, std::int64_t>> table = {
      {"2016", 2016}, {" 2016 ", 2016}, {"12a", 12}, {"12.9", 12}, {"12,9", 12}, {"-7", -7},
      {"+7", 7},      {"", 0},          {"abc", 0},  {"-", 0},     {"- 5", 0},   {"--5", 0},
      {"0009", 9},    {"1 2", 1},       {"\t5", 0},  {"-0", 0},    {"5e3", 5},
  };
  for (const auto& [text, number] : table) EXPECT_EQ(leadingInteger(text), number) << '"' << text << '"';
}

TEST(Text, AnEndlessNumberDoesNotOverflow) {
  EXPECT_EQ(leadingInteger("922337203685477579"), 922337203685477579);
  EXPECT_GT(leadingInteger(std::string(500, '9')), 0);
  EXPECT_LT(leadingInteger("-" + std::string(500, '9')), 0);
}

TEST(Text, DecodesCodePointsOfEveryLength) {
  EXPECT_EQ(decoded("aàl’€𝄞"), (std::vector<char32_t>{U'a', U'à', U'l', U'’', U'€', U'𝄞'}));
  EXPECT_EQ(decoded(std::string("\0", 1)), (std::vector<char32_t>{0}));
  EXPECT_EQ(codePoints("perché"), 6U);
  EXPECT_EQ(codePoints(""), 0U);
}

TEST(Text, DamagedBytesCountOneEach) {
  EXPECT_EQ(decoded("\x80"), (std::vector<char32_t>{kBad}));
  EXPECT_EQ(decoded("\xFF\xFE"), (std::vector<char32_t>{kBad, kBad}));
  EXPECT_EQ(decoded("\xC3"), (std::vector<char32_t>{kBad}));            // truncated
  EXPECT_EQ(decoded("\xE2\x82"), (std::vector<char32_t>{kBad, kBad}));  // truncated
  EXPECT_EQ(decoded("\xC3("), (std::vector<char32_t>{kBad, U'('}));     // no continuation
  EXPECT_EQ(decoded("\xC0\xAF"), (std::vector<char32_t>{kBad, kBad}));  // overlong
  EXPECT_EQ(decoded("\xE0\x80\xAF"), (std::vector<char32_t>{kBad, kBad, kBad}));
  EXPECT_EQ(decoded("\xF0\x80\x80\xAF").size(), 4U);
  EXPECT_EQ(decoded("\xED\xA0\x80"), (std::vector<char32_t>{kBad, kBad, kBad}));  // surrogate
  EXPECT_EQ(decoded("\xF4\x90\x80\x80").size(), 4U);                              // beyond the last
  EXPECT_EQ(decoded("\xF5\x80\x80\x80").size(), 4U);
  EXPECT_EQ(decoded("a\xE8"
                    "b"),
            (std::vector<char32_t>{U'a', kBad, U'b'}));  // Latin-1
}

TEST(Text, EncodesWhatItDecodes) {
  for (char32_t c = 1; c <= 0x10FFFF; c += c < 0x3000 ? 1 : 37) {
    if (c >= 0xD800 && c <= 0xDFFF) continue;
    std::string text;
    appendUtf8(text, c);
    std::size_t at = 0;
    ASSERT_EQ(nextCodePoint(text, at), c);
    ASSERT_EQ(at, text.size());
  }
}

TEST(Text, AnyBytesAreReadToTheirEnd) {
  std::mt19937 random(8);
  for (int i = 0; i < 5000; ++i) {
    std::string bytes(random() % 12, '\0');
    for (char& c : bytes) c = static_cast<char>(random());
    const std::size_t count = codePoints(bytes);
    ASSERT_LE(count, bytes.size());
    ASSERT_EQ(leftCodePoints(bytes, count), bytes);
    std::size_t before = 0;
    for (std::size_t n = 0; n <= count; ++n) {
      const std::size_t size = leftCodePoints(bytes, n).size();
      ASSERT_GE(size, before);
      before = size;
    }
  }
}

TEST(Text, CutsAtCharactersAndNotInsideThem) {
  EXPECT_EQ(leftCodePoints("perché no", 6), "perché");
  EXPECT_EQ(leftCodePoints("perché", 5), "perch");
  EXPECT_EQ(leftCodePoints("perché", 99), "perché");
  EXPECT_EQ(leftCodePoints("perché", 0), "");
}

}  // namespace
}  // namespace cu
