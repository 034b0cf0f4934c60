#pragma once

#include <memory>
#include <vector>

#include "archive/controllo.h"
#include "data/database.h"
#include "suite/profilo.h"

namespace cu {

// What is said of an address that is none.
inline constexpr const char* kIndirizzoAtteso =
    "--database: atteso \"sqlite:FILE\" oppure \"odbc:Driver=...;Server=...\"\n";

// Opens the suite's database for an address. DatabaseError states in Italian the problem and the remedy.
// Missing security of a server's connection is reported on standard error.
std::unique_ptr<Connection> apriConnessione(const Profilo::Database& database);

// Opens or creates a database to be filled.
std::unique_ptr<Connection> creaConnessione(const Profilo::Database& database);

// Checks everything that the system requires of the database, whatever its present content.
std::vector<VoceControllo> controllaDatabase(const Profilo::Database& database);

}  // namespace cu
