#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace cu {

// The file's text: one byte a character, Windows-1252. What has no place in it is one '?' a code point, and a
// byte that is no UTF-8 likewise.

// `out` has room for utf8.size() bytes; returns how many were written.
std::size_t a1252(std::string_view utf8, char* out);
std::string a1252(std::string_view utf8);
bool soloAscii(std::string_view text);

// The capital letter of the code page; ß, µ and ƒ have none in it and stay.
char maiuscola1252(char c);
void maiuscolo1252(char* text, std::size_t length);
std::string maiuscolo1252(std::string_view text1252);

// Back to UTF-8, for people; the five bytes without a character become U+FFFD.
std::string da1252(std::string_view text1252);

}  // namespace cu
