#pragma once

#include <string>
#include <string_view>

namespace cu {

// A text within a line of a longer one: backslashes and control characters become a backslash and two
// hexadecimal digits, so that tabs and line ends part the values and any value comes back as it was.
void appendProtetto(std::string& testo, std::string_view valore);
std::string senzaProtezione(std::string_view testo);

}  // namespace cu
