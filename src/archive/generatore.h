#pragma once

#include <cstdint>

#include "data/database.h"

namespace cu {

struct OpzioniGeneratore {
  std::int32_t percipienti = 0;  // 1 to 9,999,999
  int primoAnno = 2014;
  int ultimoAnno = 2017;
  std::uint64_t seme = 1;
  std::int32_t aziende = 1;  // 1 to 9,999, each with so many payees; 9,999,999 payees together at most
};

// Raises std::invalid_argument for options out of range.
void controlla(const OpzioniGeneratore& opzioni);

// Fills an archive that has schema and lists with invented companies of any size: payees of all kinds, about
// one line per payee and year, its payments, and for some lines additional data and modules. The same options
// produce the same rows on every machine. A payee of the first company does not depend on the number of the
// others, nor the first company on that of the companies. Runs statements within the caller's transaction;
// raises std::invalid_argument for options out of range.
void generaAzienda(Connection& connessione, const OpzioniGeneratore& opzioni);

}  // namespace cu
