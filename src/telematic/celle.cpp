#include "telematic/celle.h"

#include <algorithm>

namespace cu::telematico {

bool Celle::continua(const char* codice, const char* resto, std::size_t n) {
  constexpr std::size_t kPezzo = kLunghezzaValore - 1;
  while (n > 0) {
    if (usate_ == kCelle) return false;
    char* const valore = prossima(codice);
    const std::size_t pezzo = std::min(n, kPezzo);
    valore[0] = kSegnoContinuazione;
    std::memcpy(valore + 1, resto, pezzo);
    resto += pezzo;
    n -= pezzo;
  }
  return true;
}

}  // namespace cu::telematico
