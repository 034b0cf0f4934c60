#pragma once

#include <string_view>

#include "data/database.h"

namespace cu {

// Whether the database has a table of that name. Database errors propagate.
bool haTabella(Connection& connessione, std::string_view nome);

}  // namespace cu
