#pragma once

#include <CLI/CLI.hpp>
#include <functional>
#include <string>
#include <vector>

namespace cu {

struct OpzioniFinestra {
  std::string profilo;
  std::string colori;             // empty: as remembered
  std::vector<std::string> file;  // telematic files to read, or tables to import
  bool importa = false;
};

// The command line of the window program. cuctl has it too, for the completions.
void descriviFinestra(CLI::App& programma, OpzioniFinestra& opzioni,
                      const std::function<std::string()>& versione);

}  // namespace cu
