#pragma once

#include <functional>
#include <memory>

#include "controls/frontend.h"
#include "host/clock.h"
#include "host/session.h"
#include "suite/sessione.h"

namespace cu {

// Functions that the factory receives from other rooms.
struct FornitoriSuite {
  ApriDatabase apriDatabase;
  std::function<std::unique_ptr<RicostruzioneConti>()> creaRicostruzione;
  // Creates the engine that lays a report out; empty where prints are only reported.
  std::function<std::unique_ptr<ReportEngine>()> creaImpaginatore = {};
  // Begins a run of its prints; empty where creaImpaginatore is.
  std::function<std::unique_ptr<PrintRun>()> creaCorsaStampe = {};
};

// The suite's objects for one profile. Profile and front end outlive the factory. The constructor empties the
// trace named by the profile and raises ErroreProfilo when it cannot.
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
