#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/date.h"

namespace cu::telematico {

// Formats a number with a mask of zeros: its digits, with leading zeros to the mask's width. A longer one
// keeps its first characters. A text of digits is such a number, of any length, and an empty one is 0; any
// other text is right-aligned unchanged to the mask's width.
std::string fnFormatta(std::int64_t valore, std::string_view maschera);
std::string fnFormatta(std::string_view valore, std::string_view maschera);

// Writes the same into `width` bytes at `out`.
void formatta(std::int64_t valore, char* out, std::size_t width);
void formatta(std::string_view valore, char* out, std::size_t width);

// "DDMMYYYY" into 8 bytes.
void giornoMeseAnno(Date data, char* out);
std::string giornoMeseAnno(Date data);

// Removes blanks and the usual separators of phone numbers.
std::size_t togliSeparatori(std::string_view testo, char* out);
std::string togliSeparatori(std::string_view testo);

// Whether the whole text is a number: digits, or another notation of an Italian keyboard.
bool numerico(std::string_view testo);

}  // namespace cu::telematico
