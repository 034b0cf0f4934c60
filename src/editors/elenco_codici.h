#pragma once

#include <cstdint>
#include <string>

#include "modello/modello.h"

namespace cu {

// The statement of the list of codes of sums not subject to withholding: all of them, or in a form whose
// codes have to be chosen those that a line of the year may have.
std::string fnElencoCodici(std::int32_t anno, const modello::Modello& modello);

}  // namespace cu
