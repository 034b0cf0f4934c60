#pragma once

#include <string_view>

namespace cu {

// What a user of the server must be allowed. The work table is made anew at each load, in the schema dbo, and
// belongs then to the owner of the schema, not to who made it: so the rights on it can only be those on the
// schema. Every statement of the system stands behind one of these lines; docs/sqlserver.md grants them.
struct Diritto {
  std::string_view diritto;
  std::string_view classe;   // DATABASE, SCHEMA, TYPE, OBJECT
  std::string_view oggetto;  // of the database: ""
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
