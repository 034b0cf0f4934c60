#pragma once

#include <cstdint>

#include "data/database.h"

namespace cu {

struct OpzioniGeneratore {
  std::int32_t percipienti = 0;  // 1 to 9,999,999
  int primoAnno = 2014;
  int ultimoAnno = 2017;
  std::uint64_t seme = 1;
};

// std::invalid_argument for options out of range.
void controlla(const OpzioniGeneratore& opzioni);

// Fills an archive that has schema and lists with an invented company of any size: payees of all kinds, about
// one line a payee and year, its payments, for some additional data and modules. The same options give the
// same rows on every machine, and a payee does not depend on how many others there are. Statements only,
// within the caller's transaction; std::invalid_argument for options out of range.
void generaAzienda(Connection& connessione, const OpzioniGeneratore& opzioni);

}  // namespace cu
