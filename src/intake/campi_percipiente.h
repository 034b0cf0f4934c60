#pragma once

#include "intake/riga_in_corso.h"

namespace cu::intake {

// Writes the fields of a row into a payee's record: what the row gives and what follows from it. A derived
// value never replaces one that the record has.
void applicaCampi(RigaInCorso& corso, const ArchivioLetto& archivio, schede::SchedaPercipiente& percipiente,
                  AccantoPercipiente& accanto, bool nuovo);

}  // namespace cu::intake
