#include "sqlite/letter_case.h"

#include <array>

#include "base/text.h"

namespace cu::sqlite {
namespace {

// Ranges in which each capital, with an even or an odd number, is followed by its small letter.
struct Pairs {
  char32_t first;
  char32_t last;
};
constexpr std::array<Pairs, 9> kPairs = {{{0x100, 0x12F},
                                          {0x132, 0x137},
                                          {0x139, 0x148},
                                          {0x14A, 0x177},
                                          {0x179, 0x17E},
                                          {0x1CD, 0x1DC},
                                          {0x1F8, 0x21F},
                                          {0x222, 0x233},
                                          {0x1E00, 0x1E95}}};
constexpr Pairs kVietnamese = {0x1EA0, 0x1EFF};

// 0 for a capital, 1 for its small letter, -1 outside the pairs.
int placeInPair(char32_t c) {
  for (const Pairs& pairs : kPairs) {
    if (c >= pairs.first && c <= pairs.last) return static_cast<int>((c - pairs.first) % 2);
  }
  if (c >= kVietnamese.first && c <= kVietnamese.last) return static_cast<int>((c - kVietnamese.first) % 2);
  return -1;
}

char32_t upper(char32_t c) {
  if (c >= 'a' && c <= 'z') return c - 32;
  if (c < 0x80) return c;
  if (c >= 0xE0 && c <= 0xFE && c != 0xF7) return c - 32;
  if (c == 0xFF) return 0x178;
  return placeInPair(c) == 1 ? c - 1 : c;
}

}  // namespace

std::string upperCase(std::string_view text) {
  std::string result;
  result.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t start = at;
    const char32_t c = nextCodePoint(text, at);
    const char32_t other = upper(c);
    if (other == c) {
      result += text.substr(start, at - start);  // copies invalid bytes too
    } else {
      appendUtf8(result, other);
    }
  }
  return result;
}

}  // namespace cu::sqlite
