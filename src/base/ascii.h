#pragma once

#include <string>
#include <string_view>

namespace cu {

// ASCII only, independent of the process's locale.

constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }
constexpr bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
constexpr char upperAscii(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }
inline std::string upperAscii(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = upperAscii(c);
  return result;
}

}  // namespace cu
