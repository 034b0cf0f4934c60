#include "apps/comune/riepilogo_file.h"

#include <fstream>

namespace cu {

RiepilogoFile riepiloga(const std::string& percorso) {
  constexpr std::size_t kRiga = 1900;
  constexpr std::size_t kFine = 2;
  constexpr std::size_t kBlocco = 552 * kRiga;
  RiepilogoFile riepilogo;
  std::ifstream file(percorso, std::ios::binary);
  std::string blocco(kBlocco, '\0');
  while (file) {
    file.read(blocco.data(), static_cast<std::streamsize>(blocco.size()));
    const auto letti = static_cast<std::size_t>(file.gcount());
    riepilogo.byte += letti;
    for (std::size_t riga = 0; riga + kRiga <= letti; riga += kRiga) {
      ++riepilogo.record[blocco[riga]];
      if (riepilogo.prime.size() < kPrimeRighe) riepilogo.prime.push_back(blocco.substr(riga, kRiga - kFine));
    }
  }
  return riepilogo;
}

}  // namespace cu
