#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/value.h"
#include "data/database.h"
#include "intake/colonne.h"

namespace cu::intake {

// The rows of a company as a table to be imported elsewhere: under the columns of the list, in their order,
// null for a cell without a value.
struct Esportazione {
  Elenco elenco = Elenco::Compensi;
  std::vector<std::vector<Value>> righe;
  std::vector<std::string> tralasciati;  // what has no place in the table, in words
};

// A company by id; all of them without one.
Esportazione esportaAziende(Connection& connessione, std::optional<std::int32_t> idAzienda);
Esportazione esportaPercipienti(Connection& connessione, std::int32_t idAzienda);
Esportazione esportaCompensi(Connection& connessione, std::int32_t idAzienda, std::optional<int> anno);

// The id of a company by its fiscal code, its VAT number or its id as text.
std::optional<std::int32_t> cercaAzienda(Connection& connessione, std::string_view codiceOId);

}  // namespace cu::intake
