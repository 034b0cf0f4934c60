#pragma once

#include <string>
#include <vector>

#include "riscontro/ricevuta.h"

namespace cu {

// The rows of a receipt, a table as CSV or XLSX. Raises Error with an Italian text.
std::vector<riscontro::RigaRicevuta> righeRicevuta(const std::string& percorso);

}  // namespace cu
