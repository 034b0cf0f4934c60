#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "host/modi.h"
#include "host/progress.h"
#include "host/report.h"

namespace cu::stampa {

struct Lancio {
  ProgressSink& avanzamento;
  ReportEngine& oReport;  // told what to print
  PrinterDialog& dialogo;
  std::int32_t tipoOggetto = 0;
  // Called with the text of each statement that fails, before the next one runs.
  std::function<void(const std::string& testo)> guasto;
};

// Sends a report where the output kind says; a number that is none does nothing. The hourglass is on at the
// start and off at the end.
//
// Each statement that fails is reported, unless the person gave the print up, and the next one runs.
void esegui(const Lancio& lancio, Uscita tipo);

}  // namespace cu::stampa
