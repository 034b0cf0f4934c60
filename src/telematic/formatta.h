#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "base/date.h"

namespace cu::telematico {

// A number by a mask of zeros: its digits, filled with leading zeros to the mask's width. What is longer
// keeps its first characters. A text of digits is such a number, however long, and an empty one is 0; any
// other text is placed at the right end of the mask's width as it stands.
std::string fnFormatta(std::int64_t valore, std::string_view maschera);
std::string fnFormatta(std::string_view valore, std::string_view maschera);

// The same into `width` bytes at `out`.
void formatta(std::int64_t valore, char* out, std::size_t width);
void formatta(std::string_view valore, char* out, std::size_t width);

// "DDMMYYYY" into 8 bytes.
void giornoMeseAnno(Date data, char* out);
std::string giornoMeseAnno(Date data);

// Without blanks and the marks that people put into phone numbers.
std::size_t togliSeparatori(std::string_view testo, char* out);
std::string togliSeparatori(std::string_view testo);

// Whether the whole text reads as a number: digits, or what else an Italian keyboard writes for one.
bool numerico(std::string_view testo);

}  // namespace cu::telematico
