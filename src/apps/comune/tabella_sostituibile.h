#pragma once

#include <string>

namespace cu {

// Why a table (.csv, .xlsx) cannot take the place of a file that is there: a sentence for the user; "" where
// it can. A table replaces an earlier one without a question, but never a database or a file of another kind:
// a mistyped name, or a link, must not cost it.
std::string tabellaRifiutata(const std::string& file);

}  // namespace cu
