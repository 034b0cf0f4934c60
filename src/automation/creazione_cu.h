#pragma once

#include <optional>
#include <string>

#include "automation/percorso.h"
#include "base/date.h"

namespace cu {

// What a person would enter on the wizard's steps to make the telematic file of one year.
struct RichiestaCU {
  std::string anno;
  int tipo = 1;  // 1 communication, 2 annulment, 3 replacement
  Estremi estremi;
  std::string cartella;  // "" keeps the folder that the wizard proposes
  std::optional<Date> firma;
  struct Riferimenti {
    std::string protocollo;
    std::string progressivo;
    bool mantieniPresenti = false;
  };
  std::optional<Riferimenti> riferimenti;
  struct Intermediario {
    std::string codiceFiscale;
    std::optional<int> impegno;  // 1 or 2
    std::optional<Date> data;
  };
  std::optional<Intermediario> intermediario;
  bool stampaCumulativa = false;
};

// Walks the wizard, which stands on its first step, in the run mode of the telematic file through the notice
// back to the first step, by its controls alone. False when it stopped on the way: the walker's messages,
// warnings and logs tell why.
[[nodiscard]] bool creaFileCU(Form& wizard, Walker& walker, const RichiestaCU& richiesta);

}  // namespace cu
