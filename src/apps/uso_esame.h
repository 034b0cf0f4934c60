#pragma once

#include <CLI/CLI.hpp>
#include <functional>

namespace cu {

using Esecuzione = std::function<int()>;

// The commands that read what was filed: each sets what is to run when its line is complete.
void aggiungiInspect(CLI::App& programma, Esecuzione& esegui);
void aggiungiValidate(CLI::App& programma, Esecuzione& esegui);

}  // namespace cu
