#pragma once

#include <cstdint>
#include <string_view>

#include "data/database.h"

namespace cu::intake {

// How many rows of the accounts' additional data, under a condition, have more than what the tables of an
// import know of them: the code of the sums not subject.
std::int64_t quantiAltriDati(Connection& connessione, std::string_view condizione);

}  // namespace cu::intake
