#pragma once

#include <ostream>
#include <string>

#include "lettura/rilievi.h"

namespace cu {

// "compensi.cur, riga 4, posizione 114, AU001004: ... (K03, errore)"
std::string dettoRilievo(const std::string& file, const lettura::Rilievo& rilievo);
// Each finding on a line, and how many more there are of the rules that are cut short.
void scriviRilievi(const std::string& file, const lettura::Rilievi& rilievi, std::ostream& uscita);
// "2 errori, 1 avviso", "nessun errore, nessun avviso"
std::string dettoConteggio(const lettura::Rilievi& rilievi);

}  // namespace cu
