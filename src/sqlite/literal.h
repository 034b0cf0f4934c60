#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "base/ascii.h"

namespace cu::sqlite {

// A constant of a statement. A text is stored without its quotes, with inner quotes still doubled.
struct Literal {
  enum class Kind { Text, Number };
  Kind kind = Kind::Number;
  std::string_view text;
  bool doubled = false;  // a text with doubled quotes
};

// The literal at the head of a text; `length` is 0 where there is none, where it has no end, or where it
// contains a null character.
struct LiteralSpan {
  Literal literal;
  std::size_t length = 0;
};

// 'text', from its first quote.
LiteralSpan scanText(std::string_view text);
// 12, 12.5, .5, 1e3; none for a number directly followed by a word.
LiteralSpan scanNumber(std::string_view text);

// The text with inner quotes undoubled.
std::string plainText(const Literal& literal);

// Bytes outside ASCII are part of words.
constexpr bool isWordStart(char c) {
  return isLetter(c) || c == '_' || c == '@' || c == '#' || static_cast<unsigned char>(c) >= 0x80;
}
constexpr bool isWordPart(char c) { return isWordStart(c) || isDigit(c) || c == '$'; }

}  // namespace cu::sqlite
