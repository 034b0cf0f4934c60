#pragma once

#include <cstddef>

#include "data/database.h"

namespace cu {

// Adds the payment reasons, the codes of sums not subject to withholding and the categories of the forms from
// 2019 on that a database of this program does not have yet; returns how many. Statements only, within the
// caller's transaction. The lists of an installed suite are the suite's.
std::size_t aggiungiCodiciPubblicati(Connection& connessione);

// Marks an archive as made for these forms, and reads the mark; false for a database of others.
void segnaModuliPubblicati(Connection& connessione);
bool perModuliPubblicati(Connection& connessione);

}  // namespace cu
