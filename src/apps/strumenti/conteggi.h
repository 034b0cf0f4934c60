#pragma once

#include <cstdint>
#include <string>

#include "lettura/rilievi.h"

namespace cu::strumenti {

// Counts as the windows show them.

// "38.000.000"
std::string conPunti(std::uint64_t numero);
// "1 riga", "2.000 righe"
std::string alPlurale(std::uint64_t numero, const char* uno, const char* piu);
// "nessun errore, 1.200 avvisi"
std::string dettiRilievi(const lettura::Rilievi& rilievi);

}  // namespace cu::strumenti
