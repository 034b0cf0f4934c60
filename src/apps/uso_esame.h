#pragma once

#include <CLI/CLI.hpp>
#include <functional>

namespace cu {

using Esecuzione = std::function<int()>;

// The commands that read, compare and follow what was filed: each sets what is to run when its line is
// complete.
void aggiungiInspect(CLI::App& programma, Esecuzione& esegui);
void aggiungiValidate(CLI::App& programma, Esecuzione& esegui);
void aggiungiDiff(CLI::App& programma, Esecuzione& esegui);
void aggiungiVerify(CLI::App& programma, Esecuzione& esegui);
void aggiungiSent(CLI::App& programma, Esecuzione& esegui);
void aggiungiReceipt(CLI::App& programma, Esecuzione& esegui);
void aggiungiStatus(CLI::App& programma, Esecuzione& esegui);

}  // namespace cu
