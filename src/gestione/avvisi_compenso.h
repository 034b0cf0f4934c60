#pragma once

#include <optional>
#include <string>
#include <vector>

#include "schede/regole_causale.h"
#include "schede/schede.h"

namespace cu {

// What is unusual in the amounts of a payment, in sentences; empty where nothing is. `arrotondamento`: only
// the last cent.
struct AvvisoCompenso {
  std::string testo;
  bool arrotondamento = false;
};
std::vector<AvvisoCompenso> avvisiCompenso(const schede::Importi& importi,
                                           const std::optional<schede::RegolaCausale>& regola);

// Why a payment cannot be written with these amounts; "" where it can.
std::string erroreCompenso(const schede::Importi& importi);

}  // namespace cu
