#pragma once

#include <string>
#include <vector>

#include "base/decimal.h"
#include "host/filtri.h"
#include "host/session.h"
#include "modello/moduli.h"

namespace cu {

class Recordset;

// The sums given back net of the withholding (box 22 of the forms from CU 2023 on), which no column of the
// suite holds: from this program's own table into the work table and back, over the connection that is not
// traced.

struct Restituzione {
  modello::ChiaveConto conto;
  Decimal importo;  // 0: none any more
};

// Fills the column of a work table that was loaded without it. Without its own table it stays empty.
void riempiRestituzioni(const Ambito& ambito, const std::string& tabella, const Filtri& filtri);

// The changed and selected lines whose amount is not the stored one. Raises an error where there are some,
// and the database does not have the table.
std::vector<Restituzione> restituzioniCambiate(const Ambito& ambito, const Recordset& righe);
void scriviRestituzioni(const Ambito& ambito, const std::vector<Restituzione>& cambiate);

}  // namespace cu
