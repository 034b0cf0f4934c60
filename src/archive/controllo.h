#pragma once

#include <string>
#include <vector>

#include "data/database.h"

namespace cu {

// One thing that the system needs of a database, and how it stands. The texts are for the administrator.
struct VoceControllo {
  std::string oggetto;  // "Tabella", "Vista", "Colonna", "Tipo", "Diritto", ...
  std::string nome;
  std::string occorre;
  std::string stato;
  bool manca = false;
};

// What every database must hold: the tables and views with their columns. `modello` is one that was made by
// this program. It only reads. DatabaseError when the database cannot be asked at all.
std::vector<VoceControllo> controllaTabelle(Connection& connessione, Connection& modello);

// What only a server has: version, order of texts, the suite's types, the user's rights.
std::vector<VoceControllo> controllaServer(Connection& connessione);

}  // namespace cu
