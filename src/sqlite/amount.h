#pragma once

#include <cmath>
#include <cstdint>

#include "base/decimal.h"

namespace cu::sqlite {

// The amount represented by a stored floating-point number. Nearly every one is the nearest to a number of
// ten-thousandths, which one multiplication and one division verify; Decimal::fromDouble converts the others.
// Raises Error 6 when it is out of range.
inline Decimal amountOf(double stored) {
  const double scaled = std::nearbyint(stored * 10000.0);
  if (std::fabs(scaled) < 9007199254740992.0 && scaled / 10000.0 == stored) {
    return Decimal::fromScaled(static_cast<std::int64_t>(scaled));
  }
  return Decimal::fromDouble(stored);
}

}  // namespace cu::sqlite
