#include "suite/fabbrica.h"

#include "suite/dialogo_stampante.h"
#include "suite/orologio.h"
#include "suite/registro_errori.h"
#include "suite/stampa.h"
#include "suite/testi.h"

namespace cu {

FabbricaSuite::FabbricaSuite(const Profilo& profilo, FrontEnd& frontEnd, FornitoriSuite fornitori)
    : profilo_(profilo), frontEnd_(frontEnd), fornitori_(std::move(fornitori)), orologio_(orologio(profilo)) {
  if (profilo.traccia.empty()) return;
  try {
    traccia_ = std::make_unique<TracciaSql>(profilo.traccia);
  } catch (const FileError& error) {
    throw ErroreProfilo(profilo.file + ": trace.sql: " + error.description() +
                        ", atteso un file che si possa scrivere");
  }
}

std::unique_ptr<TestiSuite> FabbricaSuite::createTesti() { return std::make_unique<TestiItaliani>(); }

std::unique_ptr<SessioneHost> FabbricaSuite::createSessione() {
  return std::make_unique<SessioneProfilo>(profilo_, fornitori_.apriDatabase, traccia_.get(), rifiutato_);
}

std::unique_ptr<ValutaHost> FabbricaSuite::createValuta() {
  return std::make_unique<ValutaProfilo>(profilo_.valuta);
}

std::unique_ptr<RicostruzioneConti> FabbricaSuite::createRicostruzione() {
  return fornitori_.creaRicostruzione();
}

std::unique_ptr<LogGrid> FabbricaSuite::createLogGrid() {
  return std::make_unique<RegistroErrori>(frontEnd_);
}

std::unique_ptr<ReportEngine> FabbricaSuite::createReport() {
  const bool impagina = profilo_.stampa == Profilo::MotoreStampa::Pdf;
  if (impagina && !fornitori_.creaImpaginatore) {
    throw Error(kErrorInvalidCall, "Questo programma non sa impaginare le stampe.");
  }
  return std::make_unique<StampaSuite>(frontEnd_, profilo_.documenti, *orologio_,
                                       impagina ? fornitori_.creaImpaginatore() : nullptr);
}

std::unique_ptr<PrintRun> FabbricaSuite::createPrintRun() {
  const bool impagina = profilo_.stampa == Profilo::MotoreStampa::Pdf;
  return impagina && fornitori_.creaCorsaStampe ? fornitori_.creaCorsaStampe() : std::make_unique<PrintRun>();
}

std::unique_ptr<PrinterDialog> FabbricaSuite::createPrinterDialog() {
  return std::make_unique<DialogoStampante>(frontEnd_);
}

}  // namespace cu
