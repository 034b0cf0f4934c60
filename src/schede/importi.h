#pragma once

#include <string>

#include "base/decimal.h"
#include "schede/schede.h"

namespace cu::schede {

// A percentage of an amount in cents, rounded half away from zero.
Decimal percento(Decimal importo, Decimal percentuale);
Decimal percento(Decimal importo, int percentuale);

// "1.234,50"
std::string euro(Decimal importo);

// Why a payment or an account cannot have these amounts, as a part of a sentence; "" where it can.
std::string oltreIlCompenso(const Importi& importi);

}  // namespace cu::schede
