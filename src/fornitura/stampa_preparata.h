#pragma once

#include <memory>

#include "fornitura/stampa.h"
#include "host/report.h"
#include "printing/uscita.h"

namespace cu::fornitura {

// A configured print and its printer dialog.
struct StampaPreparata {
  std::unique_ptr<ReportEngine> oReport;
  std::unique_ptr<PrinterDialog> dialogo;
};
StampaPreparata preparaStampa(const Intorno& intorno, const RichiestaStampa& richiesta);
stampa::Lancio lancio(const Intorno& intorno, const RichiestaStampa& richiesta,
                      const StampaPreparata& preparata);

}  // namespace cu::fornitura
