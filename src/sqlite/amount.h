#pragma once

#include <cmath>
#include <cstdint>

#include "base/decimal.h"

namespace cu::sqlite {

// The amount that a stored floating number stands for. Nearly every one is the nearest to some number of
// ten-thousandths, which shows in one multiplication and one division; the others go the long way. Error 6
// when it is out of range.
inline Decimal amountOf(double stored) {
  const double scaled = std::nearbyint(stored * 10000.0);
  if (std::fabs(scaled) < 9007199254740992.0 && scaled / 10000.0 == stored) {
    return Decimal::fromScaled(static_cast<std::int64_t>(scaled));
  }
  return Decimal::fromDouble(stored);
}

}  // namespace cu::sqlite
