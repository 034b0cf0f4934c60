#pragma once

#include <string_view>

namespace cu {

// The rights that a user of the server requires. The work table is created at each load in the schema dbo and
// then belongs to the owner of the schema, not to its creator: the rights on it can therefore only be those
// on the schema. Every statement of the system requires one of these rights but those of own data, which
// docs/sqlserver.md names apart; it grants them.
struct Diritto {
  std::string_view diritto;
  std::string_view classe;   // DATABASE, SCHEMA, TYPE, OBJECT
  std::string_view oggetto;  // "" for the database
};

inline constexpr Diritto kDiritti[] = {
    {"CREATE TABLE", "DATABASE", ""},
    {"ALTER", "SCHEMA", "dbo"},
    {"SELECT", "SCHEMA", "dbo"},
    {"INSERT", "SCHEMA", "dbo"},
    {"UPDATE", "SCHEMA", "dbo"},
    {"REFERENCES", "TYPE", "Note"},
    {"REFERENCES", "TYPE", "Descrizione"},
    {"REFERENCES", "TYPE", "Importo"},
    {"REFERENCES", "TYPE", "SiNo"},
    {"DELETE", "OBJECT", "ModuloXContoIndividuale"},
    {"DELETE", "OBJECT", "TabellaRicorsione2"},
};

}  // namespace cu
