#include "base/collation.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "base/ascii.h"
#include "base/text.h"

namespace cu {
namespace {

// Primary weights of the ASCII characters: blank, marks, digits, letters (both cases alike).
constexpr std::array<std::uint8_t, 128> makeWeights() {
  std::array<std::uint8_t, 128> weights{};
  std::uint8_t next = 1;
  for (std::size_t c = 0; c < 32; ++c) weights[c] = next++;
  weights[127] = next++;
  weights[' '] = next++;
  for (std::size_t c = '!'; c < 127; ++c) {
    const char each = static_cast<char>(c);
    if (!isDigit(each) && !isLetter(each)) weights[c] = next++;
  }
  for (std::size_t c = '0'; c <= '9'; ++c) weights[c] = next++;
  for (std::size_t c = 'a'; c <= 'z'; ++c) {
    weights[c] = next;
    weights[c - 'a' + 'A'] = next++;
  }
  return weights;
}
constexpr std::array<std::uint8_t, 128> kWeight = makeWeights();

// The plain letter and the accent of each accented letter from U+00C0 to U+017F used by western languages; 0
// for the others.
struct Folded {
  char32_t base;
  std::uint32_t accent;
};

Folded foldLatin(char32_t c) {
  struct Range {
    char32_t first;
    char32_t last;
    char base;
  };
  // Latin-1: the lower case lies 32 above the upper case.
  if (c >= 0xE0 && c <= 0xFE && c != 0xF7) c -= 32;
  static constexpr std::array<Range, 9> kLatin1 = {{{0xC0, 0xC5, 'a'},
                                                    {0xC7, 0xC7, 'c'},
                                                    {0xC8, 0xCB, 'e'},
                                                    {0xCC, 0xCF, 'i'},
                                                    {0xD1, 0xD1, 'n'},
                                                    {0xD2, 0xD6, 'o'},
                                                    {0xD8, 0xD8, 'o'},
                                                    {0xD9, 0xDC, 'u'},
                                                    {0xDD, 0xDD, 'y'}}};
  for (const Range& range : kLatin1) {
    if (c >= range.first && c <= range.last) {
      return {static_cast<char32_t>(range.base), static_cast<std::uint32_t>(c - range.first) + 1};
    }
  }
  if (c == 0xFF || c == 0x178) return {'y', 2};
  // Latin Extended-A: pairs of upper and lower case.
  static constexpr std::array<Range, 18> kExtended = {{{0x100, 0x105, 'a'},
                                                       {0x106, 0x10D, 'c'},
                                                       {0x10E, 0x111, 'd'},
                                                       {0x112, 0x11B, 'e'},
                                                       {0x11C, 0x123, 'g'},
                                                       {0x124, 0x127, 'h'},
                                                       {0x128, 0x131, 'i'},
                                                       {0x134, 0x135, 'j'},
                                                       {0x136, 0x137, 'k'},
                                                       {0x139, 0x142, 'l'},
                                                       {0x143, 0x148, 'n'},
                                                       {0x14C, 0x151, 'o'},
                                                       {0x154, 0x159, 'r'},
                                                       {0x15A, 0x161, 's'},
                                                       {0x162, 0x167, 't'},
                                                       {0x168, 0x173, 'u'},
                                                       {0x174, 0x175, 'w'},
                                                       {0x179, 0x17E, 'z'}}};
  for (const Range& range : kExtended) {
    if (c >= range.first && c <= range.last) {
      return {static_cast<char32_t>(range.base), 16 + static_cast<std::uint32_t>(c - range.first) / 2};
    }
  }
  if (c == 0x176 || c == 0x177) return {'y', 16};
  return {0, 0};
}

struct Key {
  std::uint32_t primary;
  std::uint32_t accent;
};

// Letters that have no plain form: upper to lower case.
char32_t lowerCase(char32_t c) {
  if (c == 0xD0) return 0xF0;    // eth
  if (c == 0x14A) return c + 1;  // eng
  return c;
}

// The two letters into which a double letter expands; "" for any other letter.
std::string_view twoLetters(char32_t c) {
  switch (c) {
    case 0xC6:
    case 0xE6:
      return "ae";
    case 0xDE:
    case 0xFE:
      return "th";
    case 0xDF:
    case 0x1E9E:
      return "ss";
    case 0x132:
    case 0x133:
      return "ij";
    case 0x152:
    case 0x153:
      return "oe";
    default:
      return {};
  }
}

// The ASCII equivalent of a typographic sign outside ASCII; 0 where there is none.
char plainSign(char32_t c) {
  switch (c) {
    case 0xA0:
    case 0x202F:
      return ' ';
    case 0xAB:
    case 0xBB:
    case 0x201C:
    case 0x201D:
    case 0x201E:
      return '"';
    case 0xB4:
    case 0x2018:
    case 0x2019:
    case 0x201A:
      return '\'';
    case 0xAD:
    case 0x2010:
    case 0x2011:
    case 0x2012:
    case 0x2013:
    case 0x2014:
    case 0x2015:
    case 0x2212:
      return '-';
    case 0xB9:
      return '1';
    case 0xB2:
      return '2';
    case 0xB3:
      return '3';
    case 0xAA:
      return 'a';
    case 0xBA:
      return 'o';
    default:
      return 0;
  }
}

// Punctuation, currencies, arrows and similar characters that are not letters.
bool isSign(char32_t c) {
  constexpr char32_t kMicro = 0xB5;
  return (c < 0xC0 && c != kMicro) || c == 0xD7 || c == 0xF7 || (c >= 0x2000 && c < 0x2C00);
}

// Iterates over the collation keys of a text.
class Keys {
 public:
  Keys(std::string_view text, std::size_t at) : text_(text), at_(at) {}

  bool done() const { return at_ == text_.size() && second_ == 0; }

  // An invalid byte sorts after all characters, by its value.
  Key next() {
    if (second_ != 0) return {std::exchange(second_, 0U), 1};
    const std::size_t begin = at_;
    const char32_t c = nextCodePoint(text_, at_);
    if (c < 128) return {scaled(kWeight[c]), 0};
    if (c == 0xFFFD && at_ == begin + 1)
      return {scaled(0x2000) + static_cast<unsigned char>(text_[begin]), 0};
    const Folded folded = foldLatin(c);
    if (folded.base != 0) return {scaled(kWeight[folded.base]), folded.accent};
    if (const char plain = plainSign(c); plain != 0) return {weightOf(plain), static_cast<std::uint32_t>(c)};
    if (isSign(c)) return {weightOf('~') + static_cast<std::uint32_t>(c), 0};
    if (const std::string_view two = twoLetters(c); !two.empty()) {
      second_ = weightOf(two[1]);
      return {weightOf(two[0]), 1};
    }
    return {scaled(0x100) + static_cast<std::uint32_t>(lowerCase(c)), 0};
  }

 private:
  // The shift leaves room for all signs between the last ASCII punctuation mark and the first digit.
  static std::uint32_t scaled(std::uint32_t weight) { return weight << 16; }
  static std::uint32_t weightOf(char c) { return scaled(kWeight[static_cast<unsigned char>(c)]); }

  std::string_view text_;
  std::size_t at_;
  std::uint32_t second_ = 0;  // second letter of the double letter just read
};

int compareFrom(std::string_view a, std::string_view b, std::size_t at) {
  Keys left(a, at);
  Keys right(b, at);
  int accents = 0;
  while (!left.done() && !right.done()) {
    const Key x = left.next();
    const Key y = right.next();
    if (x.primary != y.primary) return x.primary < y.primary ? -1 : 1;
    if (accents == 0 && x.accent != y.accent) accents = x.accent < y.accent ? -1 : 1;
  }
  if (!left.done()) return 1;
  if (!right.done()) return -1;
  return accents;
}

}  // namespace

int compareItalian(std::string_view a, std::string_view b) {
  a = trimRight(a);
  b = trimRight(b);
  const std::size_t shorter = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < shorter; ++i) {
    const auto x = static_cast<unsigned char>(a[i]);
    const auto y = static_cast<unsigned char>(b[i]);
    if (x == y && x < 128) continue;
    if ((x | y) >= 128) return compareFrom(a, b, i);
    if (kWeight[x] != kWeight[y]) return kWeight[x] < kWeight[y] ? -1 : 1;
  }
  if (a.size() == b.size()) return 0;
  return a.size() < b.size() ? -1 : 1;
}

}  // namespace cu
