#include "liste/risorse.h"

#include <stdexcept>
#include <string>

namespace cu {

std::string_view risorsa(std::string_view nome) {
  for (const RisorsaIncorporata& una : risorseIncorporate()) {
    if (una.nome == nome) return {reinterpret_cast<const char*>(una.dati), una.lunghezza};
  }
  throw std::out_of_range("risorsa sconosciuta: " + std::string(nome));
}

}  // namespace cu
