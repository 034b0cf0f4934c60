#pragma once

#include <cstdio>
#include <string>
#include <string_view>

namespace cu::reporting {

// A number as a sheet's file should hold it: without the last digits of sixteen that only tell how a binary
// number misses a decimal one ("8.005800000000001" is "8.0058"), where the shorter text is the same number.
std::string shortNumber(std::string_view text);

// Copies the rows of a sheet with short numbers in their cells; false where a file cannot be read or written.
bool copyWithShortNumbers(std::FILE* from, std::FILE* to);

}  // namespace cu::reporting
