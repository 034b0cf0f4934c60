#pragma once

#include <cstdint>

#include "data/database.h"

namespace cu {

inline constexpr std::int32_t kAziendaDemo = 1;
inline constexpr std::int32_t kFilialeDemo = 1;

// Fills an archive that has schema and lists with the demonstration company of data/demo/: its payees, their
// payments from 2014 to 2017, the accounts summed from them, additional data and modules. All persons are
// invented; their fiscal codes are computed from their data. Runs statements within the caller's transaction.
void riempiDemo(Connection& connessione);

}  // namespace cu
