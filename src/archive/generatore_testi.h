#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

#include "base/text.h"

namespace cu {

// The number with leading zeros, to the width.
inline std::string cifre(std::int64_t valore, std::size_t larghezza) {
  const std::string testo = fromInteger(valore);
  std::string risultato;
  if (testo.size() < larghezza) risultato.assign(larghezza - testo.size(), '0');
  risultato += testo;
  return risultato;
}

// Joins the pieces. An initializer list is evaluated from left to right, unlike the operands of +: pieces
// drawn at random require one order with every compiler.
inline std::string unito(std::initializer_list<std::string_view> pezzi) {
  std::string risultato;
  for (std::string_view pezzo : pezzi) risultato += pezzo;
  return risultato;
}

}  // namespace cu
