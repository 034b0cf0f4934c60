#pragma once

#include "uso_esame.h"

namespace cu {

// The commands for copies of an embedded database.
void aggiungiBackup(CLI::App& programma, Esecuzione& esegui);
void aggiungiRestore(CLI::App& programma, Esecuzione& esegui);

}  // namespace cu
