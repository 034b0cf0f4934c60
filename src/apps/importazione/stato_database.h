#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "suite/profilo.h"

namespace cu {

struct AziendaDelDatabase {
  std::int32_t id = 0;
  std::string nome;
  std::string codiceFiscale;
};

// Whether imports into a database are possible, and for whom.
struct StatoDatabase {
  bool creatoQui = false;                   // otherwise a suite numbers its rows
  bool storico = false;                     // it has the tables of the history
  std::vector<AziendaDelDatabase> aziende;  // by name
};
// Over a connection of its own. Raises DatabaseError.
StatoDatabase esaminaDatabase(const Profilo::Database& database);

}  // namespace cu
