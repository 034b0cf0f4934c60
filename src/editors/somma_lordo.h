#pragma once

#include <span>
#include <string>

#include "base/decimal.h"
#include "controls/numericbox.h"
#include "editors/campi_editor.h"

namespace cu {

// Whether the column of module 1 is added to the gross amount.
bool addendoDelLordo(std::string_view colonna);

// The boxes of the fields that are added to the gross amount, by number: "5 + 7 + 8".
std::string fnCaselleDelLordo(std::span<const CampoEditor> campi);

// Compares the gross amount with the sum of its boxes: "5 + 7 + 8 = 1.500,00", and the difference. The
// amounts of the further modules are named where there are any.
std::string fnNotaLordo(const std::string& caselle, Decimal somma, Decimal moduli, const AmountBox& lordo);

}  // namespace cu
