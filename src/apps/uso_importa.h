#pragma once

#include <CLI/CLI.hpp>

#include "uso_esame.h"

namespace cu {

// The commands that bring data in from other programs and out for them.
void aggiungiImport(CLI::App& programma, Esecuzione& esegui);
void aggiungiExport(CLI::App& programma, Esecuzione& esegui);
void aggiungiTemplate(CLI::App& programma, Esecuzione& esegui);

}  // namespace cu
