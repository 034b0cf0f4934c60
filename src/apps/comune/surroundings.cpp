#include "apps/comune/surroundings.h"

#include <iostream>

#include "apps/comune/connessioni.h"
#include "archive/ricostruzione.h"

namespace cu {

Surroundings::Surroundings(const Profilo& profilo, FrontEnd& schermo)
    : orologio_(orologio(profilo)),
      impostazioni_(profilo.impostazioni, files_,
                    [](const std::string& avviso) { std::cerr << avviso << '\n'; }),
      utilita_(schermo, profilo.documenti),
      fabbrica_(profilo, schermo,
                {[&profilo] { return apriConnessione(profilo.database); },
                 [] { return std::make_unique<RicostruzioneContiIndividuali>(); },
                 [this, &schermo] { return impaginatore(schermo).create(); },
                 [this, &schermo] { return impaginatore(schermo).beginRun(); }}) {}

PdfReports& Surroundings::impaginatore(FrontEnd& schermo) {
  if (!impaginatore_) impaginatore_.emplace(ReportSurroundings{schermo, fileStampe_, *orologio_, "cuwizard"});
  return *impaginatore_;
}

}  // namespace cu
