#pragma once

#include <cstdint>

#include "base/text.h"
#include "data/lookup.h"

namespace cu {

// The look-up tables of payees and payment reasons, by code.

inline LookupTable elencoPercipienti(std::int32_t idAzienda) {
  return {.table = "RepPercipienteCD",
          .codeField = "Codice",
          .descriptionField = "Anagrafica",
          .idField = "IDAnagrafica",
          .filter = "IDAzienda = " + fromInteger(idAzienda)};
}

inline LookupTable elencoCausali() {
  return {.table = "CausalePagamento",
          .codeField = "Codice",
          .descriptionField = "CausalePagamento",
          .idField = "IDCausalePagamento",
          .filter = {}};
}

}  // namespace cu
