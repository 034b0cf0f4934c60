#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "base/result.h"
#include "host/modi.h"
#include "worklist/compensi.h"

// Selecting and correcting the lines that were loaded. Errors of the database rise as they are, and leave the
// rows that failed as they were.
namespace cu::fornitura {

struct RichiestaSelezione {
  AzioneSelezione azione = AzioneSelezione::Seleziona;
  bool tutte = false;                       // all lines, otherwise
  std::vector<std::size_t> posizioni = {};  // these, inverted; none for the current line
};
Result<> seleziona(Compensi& compensi, const RichiestaSelezione& richiesta);

// Refused where no line is selected, or where one that annuls or replaces lacks its references.
Result<> controllaSelezione(Compensi& compensi, Comunicazione tipo);

// The references of the supply that is annulled or replaced, on all selected lines.
struct RichiestaRiferimenti {
  std::string protocollo;
  std::string progressivo;
  bool sovrascrivi = true;  // also where a line has its own
};
// Refused where the boxes would not take the texts as they are.
Result<> controllaRiferimenti(const RichiestaRiferimenti& richiesta);
// Returns how many lines have got one or both.
Result<std::size_t> correggiRiferimenti(Compensi& compensi, const RichiestaRiferimenti& richiesta);

// Refused where the box of the intermediary would not take the text as it is.
Result<> controllaCodiceIntermediario(const std::string& codiceFiscale);

// Brings the current line, as it was corrected in memory, to the work table.
Result<> correggi(Compensi& compensi);

// Brings what was corrected on the selected lines to the accounts; returns how many accounts.
Result<std::size_t> memorizza(Compensi& compensi);

}  // namespace cu::fornitura
