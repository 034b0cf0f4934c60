#pragma once

#include <cstddef>

namespace cu {

// The references to the supply that is annulled or replaced: the input rules of all their boxes.
inline constexpr std::size_t kMassimoProtocollo = 17;
inline constexpr std::size_t kMassimoProgressivo = 6;

// Whether the box accepts a typed character: digits, and the codes 8, 9, 12, 37 to 40 and 46.
constexpr bool tastoRiferimento(char32_t carattere) {
  if (carattere >= U'0' && carattere <= U'9') return true;
  return carattere == 8 || carattere == 9 || carattere == 12 || (carattere >= 37 && carattere <= 40) ||
         carattere == 46;
}

}  // namespace cu
