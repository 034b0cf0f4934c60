#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/decimal.h"
#include "schede/schede.h"

namespace cu {

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

// A percentage of an amount in cents, rounded half away from zero.
Decimal percentoDi(Decimal importo, int percento);
// "1.234,50"
std::string euro(Decimal importo);

// What is unusual in the amounts of a payment, in sentences; empty where nothing is. `arrotondamento`: only
// the last cent.
struct AvvisoCompenso {
  std::string testo;
  bool arrotondamento = false;
};
std::vector<AvvisoCompenso> avvisiCompenso(const schede::Importi& importi,
                                           const std::optional<RegolaCausale>& regola);

// Why a payment cannot be written with these amounts; "" where it can.
std::string erroreCompenso(const schede::Importi& importi);

}  // namespace cu
