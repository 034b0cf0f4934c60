#pragma once

#include <functional>
#include <memory>

#include "controls/frontend.h"
#include "host/clock.h"
#include "host/session.h"
#include "suite/sessione.h"

namespace cu {

// What the factory takes from other rooms.
struct FornitoriSuite {
  ApriDatabase apriDatabase;
  std::function<std::unique_ptr<RicostruzioneConti>()> creaRicostruzione;
  // What lays a report out; may be empty where prints are only told.
  std::function<std::unique_ptr<ReportEngine>()> creaImpaginatore = {};
  // Begins a run of its prints; empty where the above is.
  std::function<std::unique_ptr<PrintRun>()> creaCorsaStampe = {};
};

// The suite's objects for one profile. Profile and front end outlive it. Making it empties the trace that the
// profile names; ErroreProfilo when that cannot be done.
class FabbricaSuite : public HostFactory {
 public:
  FabbricaSuite(const Profilo& profilo, FrontEnd& frontEnd, FornitoriSuite fornitori);
  std::unique_ptr<TestiSuite> createTesti() override;
  std::unique_ptr<SessioneHost> createSessione() override;
  std::unique_ptr<ValutaHost> createValuta() override;
  std::unique_ptr<RicostruzioneConti> createRicostruzione() override;
  std::unique_ptr<LogGrid> createLogGrid() override;
  std::unique_ptr<ReportEngine> createReport() override;
  std::unique_ptr<PrintRun> createPrintRun() override;
  std::unique_ptr<PrinterDialog> createPrinterDialog() override;

  bool avvioRifiutato() const { return rifiutato_; }

 private:
  const Profilo& profilo_;
  FrontEnd& frontEnd_;
  FornitoriSuite fornitori_;
  std::unique_ptr<TracciaSql> traccia_;
  std::unique_ptr<Clock> orologio_;
  bool rifiutato_ = false;
};

}  // namespace cu
