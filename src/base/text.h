#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace cu {

// Text operations that do not depend on the process's locale. Texts are UTF-8.

std::string_view trim(std::string_view text);               // blanks (0x20) at both ends
std::string_view trimRight(std::string_view text);          // blanks at the right end
bool equalsNoCase(std::string_view a, std::string_view b);  // ASCII letters
std::string lowerAscii(std::string_view text);
std::string fromInteger(std::int64_t value);

// The number at the head of the text, blanks before it passed over, decimals cut: what a clerk's "2016" and a
// text such as "12a" mean; 0 when there is none. Digits beyond the range of the type are left out.
std::int64_t leadingInteger(std::string_view text);

// The code point that begins at `at`, which is below the text's size and is moved behind it; a byte that
// begins none is taken as U+FFFD by itself.
char32_t nextCodePoint(std::string_view text, std::size_t& at);
std::size_t codePoints(std::string_view text);
void appendUtf8(std::string& text, char32_t codePoint);
// The first `count` code points.
std::string_view leftCodePoints(std::string_view text, std::size_t count);

}  // namespace cu
