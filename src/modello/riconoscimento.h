#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/ascii.h"
#include "modello/modello.h"

namespace cu::modello {

// The form whose layout a file's record B has: `riga` of 1898 characters. Up to 2019 the forms have the same
// records, and the answer is kModello. From 2020 the published form has the second digit of the
// representative's office where the other one has the first letter of the surname, and from 2021 a flag where
// the other one is blank.
constexpr const Modello& modelloDelRecordB(std::int32_t anno, std::string_view riga) {
  constexpr std::int32_t kPrimoDiverso = 2020;
  constexpr std::size_t kCarica = 328 - 1;
  constexpr std::size_t kCasi = 527 - 1;
  if (anno < kPrimoDiverso || riga.size() != kLarghezzaRecord) return kModello;
  const bool flag = haCasiParticolari(anno) && (riga[kCasi] == '0' || riga[kCasi] == '1');
  return flag || isDigit(riga[kCarica]) ? kModelloPubblicato : kModello;
}

}  // namespace cu::modello
