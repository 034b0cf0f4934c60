#pragma once

#include <string>

#include "controls/row_keys.h"
#include "suite/profilo.h"

namespace cu {

// The reading of a statement with two columns of whole numbers, over a connection of its own, which is not
// traced. A database whose password has to be asked for has none.
RowKeysReading chiaviRighe(const Profilo::Database& database, const std::string& istruzione);

}  // namespace cu
