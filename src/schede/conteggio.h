#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "base/result.h"
#include "data/database.h"
#include "schede/scrittura.h"

namespace cu::schede {

// The number of rows of a table under a condition.
std::int64_t quante(Connection& connessione, std::string_view tabella, std::string_view condizione);

// Whether the database has the table.
bool haTabella(Connection& connessione, std::string_view nome);
// Whether this program has created the database: in any other one the suite numbers its own rows.
bool archivioProprio(Connection& connessione);

// A table whose rows may name a record.
struct Uso {
  std::string_view tabella;
  std::string condizione;
  std::string_view uno;  // of its rows, with the article
  std::string_view piu;  // of several, without
};
// Refused when there are such rows, with the number of each kind.
Result<> senzaUsi(Connection& connessione, std::string_view chi, std::initializer_list<Uso> usi);

// Removes a name unless a company, a representative or a payee still is that person.
void togliAnagraficaLibera(Scrittura& scrittura, std::int32_t idAnagrafica);

}  // namespace cu::schede
