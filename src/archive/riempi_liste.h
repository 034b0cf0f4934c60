#pragma once

#include "data/database.h"

namespace cu {

// Fills the tables of provinces, municipalities, countries, payment reasons and all codes. Runs statements
// within the caller's transaction.
void riempiListe(Connection& connessione);

}  // namespace cu
