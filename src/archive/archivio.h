#pragma once

#include <optional>
#include <stdexcept>

#include "archive/generatore.h"
#include "data/database.h"

namespace cu {

// The database holds tables of the suite already: nothing was touched. The text is for the user.
class ArchivioEsistente : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

enum class ContenutoArchivio { Vuoto, Dimostrativo, Sintetico };

// Makes the suite's archive in an empty database: schema, lists, and the company asked for (`opzioni` counts
// for a synthetic one only). All of it or nothing: one transaction. ArchivioEsistente, DatabaseError,
// std::invalid_argument.
void creaArchivio(Connection& connessione, ContenutoArchivio contenuto,
                  const OpzioniGeneratore& opzioni = {});

}  // namespace cu
