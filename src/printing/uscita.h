#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "host/modi.h"
#include "host/progress.h"
#include "host/report.h"

namespace cu::stampa {

struct Lancio {
  ProgressSink& avanzamento;
  ReportEngine& oReport;  // already configured
  PrinterDialog& dialogo;
  std::int32_t tipoOggetto = 0;
  // Called with the text of each statement that fails, before the next one runs.
  std::function<void(const std::string& testo)> guasto;
  // Called where the user has interrupted the print; may be empty.
  std::function<void()> interrotta = {};
};

// Sends a report to the destination of the output kind; an unknown kind has no effect. The hourglass is on at
// the start and off at the end.
//
// Each failing statement is reported, unless the user cancelled or interrupted the print, and the next one
// runs.
void esegui(const Lancio& lancio, Uscita tipo);

// The same for a print into its file, in two parts: what fails in the first is reported by the second.
std::unique_ptr<BegunPrint> inizia(ReportEngine& oReport);
void concludi(const Lancio& lancio, BegunPrint& iniziata);

}  // namespace cu::stampa
