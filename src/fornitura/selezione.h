#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "base/result.h"
#include "host/modi.h"
#include "worklist/compensi.h"

// Selecting and correcting the loaded lines. Database errors propagate unchanged; the rows that failed are
// not changed.
namespace cu::fornitura {

struct RichiestaSelezione {
  AzioneSelezione azione = AzioneSelezione::Seleziona;
  bool tutte = false;                       // all lines; otherwise `posizioni`
  std::vector<std::size_t> posizioni = {};  // positions to invert; empty for the current line
};
Result<> seleziona(Compensi& compensi, const RichiestaSelezione& richiesta);

// Rejected where no line is selected, or where an annulling or replacing line lacks its references.
Result<> controllaSelezione(Compensi& compensi, Comunicazione tipo);

// The references of the supply that is annulled or replaced, for all selected lines.
struct RichiestaRiferimenti {
  std::string protocollo;
  std::string progressivo;
  bool sovrascrivi = true;  // also for lines with references of their own
};
// Rejected where the boxes would not accept the texts unchanged.
Result<> controllaRiferimenti(const RichiestaRiferimenti& richiesta);
// Returns the number of lines with one or both references.
Result<std::size_t> correggiRiferimenti(Compensi& compensi, const RichiestaRiferimenti& richiesta);

// Rejected where the intermediary's box would not accept the text unchanged.
Result<> controllaCodiceIntermediario(const std::string& codiceFiscale);

// Stores the current line, as corrected in memory, in the work table.
Result<> correggi(Compensi& compensi);

// Writes the corrections of the selected lines back to the accounts; returns the number of accounts.
Result<std::size_t> memorizza(Compensi& compensi);

}  // namespace cu::fornitura
