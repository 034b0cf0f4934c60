#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace cu {

// The file's text: Windows-1252, one byte per character. A code point outside the code page is converted to
// one '?', and so is an invalid UTF-8 byte.

// `out` has room for utf8.size() bytes; returns the number of bytes written.
std::size_t a1252(std::string_view utf8, char* out);
std::string a1252(std::string_view utf8);
bool soloAscii(std::string_view text);

// The upper-case letter in the code page; ß, µ and ƒ have none and are not changed.
char maiuscola1252(char c);
void maiuscolo1252(char* text, std::size_t length);
std::string maiuscolo1252(std::string_view text1252);

// Converts back to UTF-8, for display; the five bytes without a character become U+FFFD.
std::string da1252(std::string_view text1252);

}  // namespace cu
