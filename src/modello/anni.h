#pragma once

#include <cstdint>
#include <limits>

namespace cu::modello {

// Tax years, first and last, inclusive. A tax year is always the year of the payment, which the user chooses
// and the rows contain; the form of a tax year is issued in the following year.
struct Anni {
  std::int32_t primo = std::numeric_limits<std::int32_t>::min();
  std::int32_t ultimo = std::numeric_limits<std::int32_t>::max();
  constexpr bool comprende(std::int64_t anno) const { return anno >= primo && anno <= ultimo; }
};

constexpr bool siToccano(const Anni& a, const Anni& b) { return a.primo <= b.ultimo && b.primo <= a.ultimo; }

inline constexpr Anni kTutti = {};
constexpr Anni nel(std::int32_t anno) { return {anno, anno}; }
constexpr Anni dal(std::int32_t anno) { return {.primo = anno}; }
constexpr Anni finoAl(std::int32_t anno) { return {.ultimo = anno}; }

}  // namespace cu::modello
