#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace cu {

// Text operations independent of the process's locale. Texts are UTF-8.

std::string_view trim(std::string_view text);               // blanks (0x20) at both ends
std::string_view trimRight(std::string_view text);          // blanks at the right end
bool equalsNoCase(std::string_view a, std::string_view b);  // ASCII letters
std::string lowerAscii(std::string_view text);
std::string fromInteger(std::int64_t value);

// Returns the integer at the head of the text: leading blanks are skipped, decimals and any rest are ignored
// ("2016", "12a"). Returns 0 when there is none. Digits beyond the range of the type are dropped.
std::int64_t leadingInteger(std::string_view text);

// Decodes the code point at `at`, which is required to be below the text's size, and moves `at` after it. An
// invalid byte yields U+FFFD and is consumed alone.
char32_t nextCodePoint(std::string_view text, std::size_t& at);
std::size_t codePoints(std::string_view text);
void appendUtf8(std::string& text, char32_t codePoint);
// Returns the first `count` code points.
std::string_view leftCodePoints(std::string_view text, std::size_t count);

}  // namespace cu
