#pragma once

#include <string_view>

namespace cu {

// Returns a negative value, zero or a positive value. The order is that of the suite's tables on every
// engine: case and trailing blanks are ignored; an accented letter differs from its plain letter and sorts
// directly after it; a double letter (æ, œ, ß) sorts after its two letters; blanks, then punctuation, then
// digits, then letters; a typographic apostrophe, quotation mark or dash sorts next to the plain one. Texts
// are UTF-8; invalid bytes compare by value.
int compareItalian(std::string_view a, std::string_view b);

}  // namespace cu
