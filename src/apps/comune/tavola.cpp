#include "apps/comune/tavola.h"

#include <algorithm>

#include "base/text.h"

namespace cu {

std::string suUnaRiga(std::string testo) {
  constexpr unsigned char kBlank = 0x20;
  constexpr unsigned char kDelete = 0x7F;
  for (char& c : testo) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < kBlank || byte == kDelete) c = ' ';
  }
  return testo;
}

void stampaTavola(const std::vector<std::vector<std::string>>& tavola, std::ostream& uscita) {
  std::vector<std::size_t> larghezze;
  for (const auto& celle : tavola) {
    larghezze.resize(std::max(larghezze.size(), celle.size()));
    for (std::size_t i = 0; i < celle.size(); ++i)
      larghezze[i] = std::max(larghezze[i], codePoints(celle[i]));
  }
  for (const auto& celle : tavola) {
    std::string riga;
    for (std::size_t i = 0; i < celle.size(); ++i) {
      if (i > 0) riga += " | ";
      riga += suUnaRiga(celle[i]);
      riga.append(larghezze[i] - codePoints(celle[i]), ' ');
    }
    uscita << trimRight(riga) << '\n';
  }
}

}  // namespace cu
