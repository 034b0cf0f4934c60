#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "modello/modello.h"

namespace cu::telematico {

// Decodes one line into a text for each field and each cell that is not blank: "Progressivo modulo:
// 00000001", "DA002002 (Anagrafica): ROSSI". Texts are UTF-8, with continuations joined and surrounding
// blanks removed. `linea` is without its end; a line of another length or type returns nothing.
std::vector<std::string> decodifica(std::string_view linea, std::int32_t anno,
                                    const modello::Modello& modello = modello::kModello);

}  // namespace cu::telematico
