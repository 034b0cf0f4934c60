#pragma once

#include <cstddef>
#include <functional>
#include <optional>

#include "apps/strumenti/tabella_vista.h"
#include "base/decimal.h"

// Columns of the tables of an import.
namespace cu::assistente {

// Sorted by their values; an amount that is not known is empty.
strumenti::Colonna colonnaImporto(const char* chiave, const char* titolo,
                                  const std::function<std::optional<Decimal>(std::size_t riga)>& di);
strumenti::Colonna colonnaNumero(const char* chiave, const char* titolo,
                                 const std::function<std::size_t(std::size_t riga)>& di);
// The last column takes the space that is left.
strumenti::Colonna colonnaVuota();

}  // namespace cu::assistente
