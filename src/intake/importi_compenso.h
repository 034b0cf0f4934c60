#pragma once

#include <string_view>

#include "intake/riga_in_corso.h"

namespace cu::intake {

// The amounts of a payment from what the row gives: the share from the taxable percentage, the tax from its
// rate, the contributions from their parts, the fee from the gross. What follows is reported as derived, what
// contradicts itself as a message: R01, R02, R06, R09, R13, R14.
schede::Importi importiDelCompenso(RigaInCorso& corso, std::string_view causale);

}  // namespace cu::intake
