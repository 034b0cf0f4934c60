#pragma once

#include <string>

#include "controls/frontend.h"
#include "host/report.h"

namespace cu::stampa {

struct Uscita {
  FrontEnd& frontEnd;
  ReportEngine& oReport;  // told what to print
  PrinterDialog& dialogo;
  std::string gTitolo;
  std::int32_t tipoOggetto = 0;
};

// Sends a report where the output kind says: 1 preview, 2 printer, 3 to 6 a run with a code; any other number
// does nothing. The hourglass is on at the start and off at the end.
//
// Each statement that fails is told in a box, unless the person gave the print up, and the next one runs.
void esegui(const Uscita& uscita, int tipo);

}  // namespace cu::stampa
