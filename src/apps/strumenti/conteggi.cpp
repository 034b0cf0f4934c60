#include "apps/strumenti/conteggi.h"

namespace cu::strumenti {

std::string conPunti(std::uint64_t numero) {
  std::string cifre = std::to_string(numero);
  for (std::size_t posto = cifre.size(); posto > 3;) {
    posto -= 3;
    cifre.insert(posto, ".");
  }
  return cifre;
}

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
