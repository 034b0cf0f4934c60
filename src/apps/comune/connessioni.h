#pragma once

#include <memory>

#include "host/database.h"
#include "suite/profilo.h"

namespace cu {

// The suite's database that an address names. DatabaseError says in Italian what is wrong and what to do.
std::unique_ptr<Connection> apriConnessione(const Profilo::Database& database);

// A database to be filled.
std::unique_ptr<Connection> creaConnessione(const Profilo::Database& database);

}  // namespace cu
