#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "archive/controllo.h"
#include "data/database.h"
#include "suite/profilo.h"

namespace cu {

// The options of a command that name its database.
struct OpzioniDatabase {
  std::string indirizzo;
  std::string variabilePassword;
  bool inChiaro = false;  // permits an unencrypted connection to a server
};
// Nothing where the address is none, which is reported on standard error.
std::optional<Profilo::Database> databaseIndicato(const OpzioniDatabase& opzioni);

// Asks now for what each connection would ask for, where several are to follow. Raises as apriConnessione
// does.
void chiediPassword(Profilo::Database& database);

// Whether a connection would ask for the password where there is a terminal. What reads beside the forms does
// without such a database: nobody expects the question there.
bool chiedePassword(const Profilo::Database& database);

// Tells of a database that is going to be used: from now on no file of an embedded one is opened as another
// file.
void ricordaDatabase(const Profilo::Database& database);

// Opens the suite's database for an address. DatabaseError states in Italian the problem and the remedy.
// Missing security of a server's connection is reported on standard error.
std::unique_ptr<Connection> apriConnessione(const Profilo::Database& database);

// The same for what only reads: an embedded database may be one that the user may not write.
std::unique_ptr<Connection> apriPerLeggere(const Profilo::Database& database);
// One of these two.
using AperturaDatabase = std::unique_ptr<Connection> (*)(const Profilo::Database& database);

// Opens or creates a database to be filled.
std::unique_ptr<Connection> creaConnessione(const Profilo::Database& database);

// Checks everything that the system requires of the database, whatever its present content.
std::vector<VoceControllo> controllaDatabase(const Profilo::Database& database);

}  // namespace cu
