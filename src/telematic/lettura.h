#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace cu::telematico {

// What one line holds, a text for each field and each cell that is not blank: "Progressivo modulo: 00000001",
// "DA002002 (Anagrafica): ROSSI". UTF-8; continuations are joined, blanks at both ends dropped. `linea` is
// without its end; a line of another length or type yields nothing.
std::vector<std::string> decodifica(std::string_view linea, std::int32_t anno);

}  // namespace cu::telematico
