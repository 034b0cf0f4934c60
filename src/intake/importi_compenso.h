#pragma once

#include <bitset>
#include <string_view>

#include "intake/riga_in_corso.h"

namespace cu::intake {

// The amounts that a row gives, or that follow from its own columns; those that it does not give are zero.
struct ImportiDati {
  schede::Importi importi{};
  std::bitset<schede::kImporti> dati;
};
// Reports the columns that are derived.
ImportiDati importiDati(RigaInCorso& corso, std::string_view causale);

// Checks the amounts of the payment as it would be written against the row: R01, R02, R06, R09, R13, R14.
// `prima`: those of the database, which the row does not change where it gives nothing; null for a new one.
void controllaImporti(RigaInCorso& corso, std::string_view causale, const schede::Importi& importi,
                      const schede::Importi* prima);

}  // namespace cu::intake
