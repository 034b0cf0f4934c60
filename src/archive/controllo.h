#pragma once

#include <string>
#include <vector>

#include "data/database.h"

namespace cu {

// One requirement on a database and its state. The texts are for the administrator.
struct VoceControllo {
  std::string oggetto;  // "Tabella", "Vista", "Colonna", "Tipo", "Diritto", ...
  std::string nome;
  std::string occorre;
  std::string stato;
  bool manca = false;
};

// Checks what every database is required to contain: the tables and views with their columns. `modello` is a
// database made by this program. Read-only. Raises DatabaseError when the database cannot be queried at all.
std::vector<VoceControllo> controllaTabelle(Connection& connessione, Connection& modello);

// Checks what only a server has: version, collation, the suite's types, the user's rights.
std::vector<VoceControllo> controllaServer(Connection& connessione);

}  // namespace cu
