#include "apps/esame/impronta.h"

#include <vector>

#include "apps/comune/file_letto.h"
#include "apps/comune/sha256.h"

namespace cu {

std::string improntaFile(const std::string& percorso) {
  constexpr std::size_t kBlocco = std::size_t{1} << 20U;
  FileLetto file(percorso);
  Sha256 somma;
  std::vector<char> blocco(kBlocco);
  while (const std::size_t letti = file.leggi(blocco.data(), blocco.size())) {
    somma.aggiungi({blocco.data(), letti});
  }
  return somma.cifre();
}

}  // namespace cu
