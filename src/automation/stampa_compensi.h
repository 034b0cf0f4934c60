#pragma once

#include <optional>
#include <string>

#include "automation/percorso.h"

namespace cu {

// What a person would enter to print the accounts or a certificate into a file.
struct RichiestaStampa {
  std::string report;
  std::optional<std::string> anno;
  std::optional<std::string> adAnno;  // of the accounts only
  Estremi estremi;
  std::string file;
};

// Walks the wizard, which stands on its first step in the run mode of the report, to the print, by its
// controls alone. False when nothing was printed: the walker's messages tell why.
[[nodiscard]] bool stampaCompensi(Form& wizard, Walker& walker, const RichiestaStampa& richiesta);

}  // namespace cu
