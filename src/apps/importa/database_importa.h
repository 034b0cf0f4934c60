#pragma once

#include <memory>
#include <optional>
#include <string>

#include "apps/importa/comandi_importa.h"
#include "suite/traccia.h"

namespace cu {

// The command line is wrong in a way that only running shows; one line in Italian, "" where it has been
// written.
class UsoSbagliato : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// Writes the line to standard error; returns the exit code.
int rifiutaUso(const UsoSbagliato& errore);

// Whether both paths name one existing file.
bool stessoFile(const std::string& uno, const std::string& altro);
// A file to be written that is the embedded database itself is UsoSbagliato, named by its option.
void rifiutaDatabase(const char* opzione, const std::string& file, const OpzioniDatabase& database);

// Opens the database of a command by `apri`. UsoSbagliato for an address that is none; DatabaseError.
DatabaseSuite apriDatabase(const OpzioniDatabase& opzioni, AperturaDatabase apri = &apriConnessione);

// The company of a fiscal code or id. UsoSbagliato for one that the database does not have.
std::int32_t aziendaDi(Connection& connessione, const std::string& codiceOId);

}  // namespace cu
