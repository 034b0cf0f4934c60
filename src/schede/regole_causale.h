#pragma once

#include <optional>
#include <string_view>

namespace cu::schede {

// The usual tax of a payment reason. It proposes and warns; what the user writes is what counts.
struct RegolaCausale {
  std::string_view causale;
  int aliquota = 0;         // of the base, in percent
  bool imposta = false;     // taxed finally
  int imponibile = 100;     // of the fee, in percent: the share that is proposed
  int altroImponibile = 0;  // another usual share; 0 for none
};

// None for a reason without a usual tax. Payees abroad are taxed finally, whatever the reason.
std::optional<RegolaCausale> regolaDi(std::string_view causale, bool nonResidente);

}  // namespace cu::schede
