#pragma once

#include <optional>
#include <stdexcept>

#include "archive/generatore.h"
#include "data/database.h"

namespace cu {

// Raised when the database already contains tables of the suite; nothing was changed. The text is for the
// user.
class ArchivioEsistente : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

enum class ContenutoArchivio { Vuoto, Dimostrativo, Sintetico };

// The forms whose codes an archive is created with. One for the published forms is marked as such.
enum class ModuliArchivio { DiAllora, Pubblicati };

// Creates the suite's archive in an empty database, in one transaction: schema, lists, and the company
// requested (`opzioni` is used only for a synthetic one). Raises ArchivioEsistente, DatabaseError,
// std::invalid_argument.
void creaArchivio(Connection& connessione, ContenutoArchivio contenuto, const OpzioniGeneratore& opzioni = {},
                  ModuliArchivio moduli = ModuliArchivio::DiAllora);

}  // namespace cu
