#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/modi.h"

namespace cu {

// The name the program gives itself, and its title where the session has none.
inline constexpr std::string_view kNomeProgramma = "Autocomposizione";

// The program's own numbered texts; "" for a number it does not carry.
std::string testoProgramma(std::int16_t numero);

// The run modes, stored as decimal texts in that table.
std::int32_t fnModoContiIndividuali();  // print of the individual accounts over a range of years
std::int32_t fnModoCertificazione();    // free-form certificate of the compensations of one year
std::int32_t fnModoCU();                // telematic file and ministerial forms

// The run mode for a number passed by the launcher.
ModoCorsa modoCorsa(std::int32_t idFunzione);

}  // namespace cu
