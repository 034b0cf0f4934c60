#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "data/database.h"

namespace cu {

struct AziendaTrovata {
  std::int32_t azienda = 0;
  std::int32_t filiale = 0;
  std::string nome;
  std::string codiceFiscale;  // or the VAT number
  std::string ultimoAnno;     // with accounts; empty for none
};
// The companies of a database, by name; database errors propagate.
std::vector<AziendaTrovata> aziendeDelDatabase(Connection& connessione);

}  // namespace cu
