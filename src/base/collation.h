#pragma once

#include <string_view>

namespace cu {

// Negative, zero, positive, as the suite's tables compare and sort text on every engine: case and trailing
// blanks do not count; an accented letter is another letter than its plain one and sorts right behind it,
// a double letter (æ, œ, ß) behind the two that it stands for; blanks, then marks, then digits, then letters;
// a typographic apostrophe, quotation mark or dash stands beside the plain one. UTF-8; bytes that are none
// compare as they stand.
int compareItalian(std::string_view a, std::string_view b);

}  // namespace cu
