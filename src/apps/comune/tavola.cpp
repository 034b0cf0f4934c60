#include "apps/comune/tavola.h"

#include <algorithm>

#include "base/text.h"

namespace cu {

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
      riga += celle[i];
      riga.append(larghezze[i] - codePoints(celle[i]), ' ');
    }
    uscita << trimRight(riga) << '\n';
  }
}

}  // namespace cu
