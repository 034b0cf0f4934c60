#pragma once

#include <functional>
#include <string>

#include "controls/grid.h"

namespace cu {

// The statement that reads payee and reason of each further module of a company's year.
std::string fnSelectConModuli(std::int32_t idAzienda, std::int32_t anno);

// What a window shows of the lines beyond their cells. `conModuli` gives the statement above for the lines
// that are there when it is called.
void descriviRighe(Grid& griglia, std::function<std::string()> conModuli);

}  // namespace cu
