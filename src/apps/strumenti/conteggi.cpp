#include "apps/strumenti/conteggi.h"

#include "base/thousands.h"

namespace cu::strumenti {

std::string conPunti(std::uint64_t numero) { return groupThousands(std::to_string(numero)); }

std::string alPlurale(std::uint64_t numero, const char* uno, const char* piu) {
  return conPunti(numero) + " " + (numero == 1 ? uno : piu);
}

std::string dettiRilievi(const lettura::Rilievi& rilievi) {
  const auto quanti = [](std::size_t numero, const char* uno, const char* piu) {
    return numero == 0 ? std::string("nessun ") + uno : alPlurale(numero, uno, piu);
  };
  return quanti(rilievi.errori(), "errore", "errori") + ", " + quanti(rilievi.avvisi(), "avviso", "avvisi");
}

}  // namespace cu::strumenti
