#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "data/database.h"

namespace cu {

// The statements that create the suite's types, tables, indexes and views, in order, in the server's dialect.
std::vector<std::string_view> istruzioniSchema();

// The names of the tables and views, in order of creation.
std::vector<std::string_view> nomiSchema();

// A table or view, in order of creation.
struct OggettoSchema {
  std::string_view nome;
  bool vista = false;
};
std::vector<OggettoSchema> oggettiSchema();

// A type of the suite: "Note" and "varchar(1000)".
struct TipoSchema {
  std::string nome;
  std::string definizione;
};
std::vector<TipoSchema> tipiSchema();

// Whether the database contains at least one of the tables and views. Read-only.
bool contieneSuite(Connection& connessione);

// Creates all of them. Runs statements within the caller's transaction.
void creaSchema(Connection& connessione);

// Creates the tables of what this program keeps for itself, of files written, of boxes without a column of
// the suite and of imports, where they are missing, and returns how many it has created. Statements only,
// within the caller's transaction.
std::size_t creaRegistro(Connection& connessione);

// The version that such a database is marked with: a later one has what this program does not know.
inline constexpr int kVersioneArchivio = 1;
// Marks the database as created by this program.
void creaMarca(Connection& connessione);

}  // namespace cu
