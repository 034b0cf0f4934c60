#include "base/text.h"

#include <array>
#include <charconv>
#include <limits>

#include "base/ascii.h"

namespace cu {
namespace {
char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }
}  // namespace

std::string_view trimRight(std::string_view text) {
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  return text;
}

std::string_view trim(std::string_view text) {
  text = trimRight(text);
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  return text;
}

bool equalsNoCase(std::string_view a, std::string_view b) {
  if (a.size() != b.size()) return false;
  for (std::size_t i = 0; i < a.size(); ++i) {
    if (lower(a[i]) != lower(b[i])) return false;
  }
  return true;
}

std::string lowerAscii(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = lower(c);
  return result;
}

std::string fromInteger(std::int64_t value) {
  std::array<char, 24> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
  return {buffer.data(), end};
}

std::int64_t leadingInteger(std::string_view text) {
  text = trim(text);
  const bool negative = !text.empty() && text.front() == '-';
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) text.remove_prefix(1);
  std::int64_t value = 0;
  for (char c : text) {
    if (!isDigit(c)) break;
    if (value > (std::numeric_limits<std::int64_t>::max() - 9) / 10) break;
    value = value * 10 + (c - '0');
  }
  return negative ? -value : value;
}

char32_t nextCodePoint(std::string_view text, std::size_t& at) {
  constexpr char32_t kBad = 0xFFFD;
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char first = byte(at++);
  if (first < 0x80) return first;
  std::size_t more = 0;
  char32_t value = 0;
  char32_t least = 0;
  if (first >= 0xC2 && first <= 0xDF) {
    more = 1;
    value = first & 0x1FU;
    least = 0x80;
  } else if (first >= 0xE0 && first <= 0xEF) {
    more = 2;
    value = first & 0x0FU;
    least = 0x800;
  } else if (first >= 0xF0 && first <= 0xF4) {
    more = 3;
    value = first & 0x07U;
    least = 0x10000;
  } else {
    return kBad;
  }
  if (text.size() - at < more) return kBad;
  for (std::size_t i = 0; i < more; ++i) {
    if ((byte(at + i) & 0xC0U) != 0x80U) return kBad;
    value = (value << 6) | (byte(at + i) & 0x3FU);
  }
  if (value < least || value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF)) return kBad;
  at += more;
  return value;
}

std::size_t codePoints(std::string_view text) {
  std::size_t count = 0;
  for (std::size_t at = 0; at < text.size(); ++count) nextCodePoint(text, at);
  return count;
}

void appendUtf8(std::string& text, char32_t c) {
  const auto put = [&](char32_t byte) {
    text.push_back(static_cast<char>(static_cast<unsigned char>(byte)));
  };
  if (c < 0x80) {
    put(c);
  } else if (c < 0x800) {
    put(0xC0 | (c >> 6));
    put(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    put(0xE0 | (c >> 12));
    put(0x80 | ((c >> 6) & 0x3F));
    put(0x80 | (c & 0x3F));
  } else {
    put(0xF0 | (c >> 18));
    put(0x80 | ((c >> 12) & 0x3F));
    put(0x80 | ((c >> 6) & 0x3F));
    put(0x80 | (c & 0x3F));
  }
}

std::string_view leftCodePoints(std::string_view text, std::size_t count) {
  std::size_t at = 0;
  while (count > 0 && at < text.size()) {
    nextCodePoint(text, at);
    --count;
  }
  return text.substr(0, at);
}

}  // namespace cu
