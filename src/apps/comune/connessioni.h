#pragma once

#include <memory>
#include <vector>

#include "archive/controllo.h"
#include "data/database.h"
#include "suite/profilo.h"

namespace cu {

// The suite's database that an address names. DatabaseError says in Italian what is wrong and what to do.
// What a server's connection lacks in safety is told on standard error.
std::unique_ptr<Connection> apriConnessione(const Profilo::Database& database);

// A database to be filled.
std::unique_ptr<Connection> creaConnessione(const Profilo::Database& database);

// All that the system needs of the database that an address names, whatever it holds now.
std::vector<VoceControllo> controllaDatabase(const Profilo::Database& database);

}  // namespace cu
