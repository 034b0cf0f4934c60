#pragma once

#include "controls/further_columns.h"
#include "suite/profilo.h"

namespace cu {

// First name and fiscal code of the payees that a selector lists; none for the table of another selector.
// They are read over a connection of their own, which is not traced. A database whose password has to be
// asked for has none: nobody would expect the question at a search.
FurtherColumns colonnePercipienti(const Profilo::Database& database, const LookupTable& elenco);

}  // namespace cu
