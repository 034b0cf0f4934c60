#pragma once

#include <string>
#include <string_view>

#include "schede/tabelle_suite.h"

namespace cu::schede {

// A row as one line of text, for the history: the values in the order of the columns, parted by tabs. Null is
// nothing at all, a text begins with an apostrophe and has no control characters, amounts have a point, dates
// are in ISO form. Equal texts are equal rows. New columns of a table go to its end: a shorter line has none.
std::string testoRiga(const Riga& riga);
Riga rigaDaTesto(const TabellaSuite& tabella, std::string_view testo);

// The key of a row, its values parted by commas.
std::string testoChiave(const TabellaSuite& tabella, const Riga& riga);

}  // namespace cu::schede
