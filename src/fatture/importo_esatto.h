#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string_view>

#include "base/decimal.h"

namespace cu::fatture {

// An amount of an invoice with all of its decimals, of which a line has up to eight: lines are added first,
// and their sum is rounded once. The range is about +-92,000,000,000; a sum beyond it raises Error 6
// (overflow).
class ImportoEsatto {
 public:
  constexpr ImportoEsatto() = default;
  // "-1234.56": a point, no exponent, at most eight decimals.
  static std::optional<ImportoEsatto> leggi(std::string_view testo);

  // To two places, half away from zero.
  Decimal arrotondato() const;
  bool inCentesimi() const { return unita_ % 1'000'000 == 0; }
  constexpr bool zero() const { return unita_ == 0; }

  friend ImportoEsatto operator+(ImportoEsatto a, ImportoEsatto b);
  friend constexpr auto operator<=>(ImportoEsatto a,
                                    ImportoEsatto b) = default;  // NOLINT(modernize-use-nullptr)

 private:
  std::int64_t unita_ = 0;  // of 10^-8
};

}  // namespace cu::fatture
