#include "apps/comune/riepilogo_file.h"

#include <fstream>
#include <vector>

namespace cu {

RiepilogoFile riepiloga(const std::string& percorso) {
  constexpr std::size_t kRiga = 1900;
  constexpr std::size_t kBlocco = 552 * kRiga;
  RiepilogoFile riepilogo;
  std::ifstream file(percorso, std::ios::binary);
  std::vector<char> blocco(kBlocco);
  char ultimo = 0;
  while (file) {
    file.read(blocco.data(), static_cast<std::streamsize>(blocco.size()));
    const auto letti = static_cast<std::size_t>(file.gcount());
    riepilogo.byte += letti;
    for (std::size_t riga = 0; riga + kRiga <= letti; riga += kRiga) {
      ultimo = blocco[riga];
      ++riepilogo.record[ultimo];
    }
  }
  riepilogo.completo = ultimo == 'Z' && riepilogo.byte % kRiga == 0;
  return riepilogo;
}

}  // namespace cu
