#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "data/database.h"

namespace cu {

// The statements that make the suite's types, tables, indexes and views, in order, in the server's dialect.
std::vector<std::string_view> istruzioniSchema();

// The names of the tables and views among them, in order.
std::vector<std::string_view> nomiSchema();

// The tables and views, in order.
struct OggettoSchema {
  std::string_view nome;
  bool vista = false;
};
std::vector<OggettoSchema> oggettiSchema();

// The suite's own types: "Note" and "varchar(1000)".
struct TipoSchema {
  std::string nome;
  std::string definizione;
};
std::vector<TipoSchema> tipiSchema();

// Whether the database holds at least one of them. It only reads.
bool contieneSuite(Connection& connessione);

// Makes them all; statements only, within the caller's transaction.
void creaSchema(Connection& connessione);

}  // namespace cu
