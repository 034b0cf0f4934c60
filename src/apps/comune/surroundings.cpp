#include "apps/comune/surroundings.h"

#include <algorithm>
#include <iostream>
#include <thread>
#include <utility>

#include "apps/comune/connessioni.h"
#include "apps/comune/modello_del_profilo.h"
#include "archive/ricostruzione.h"
#include "suite/logged_file_system.h"

namespace cu {

Surroundings::Surroundings(const Profilo& profilo, FrontEnd& schermo, CreaImpaginatore impaginatore,
                           std::optional<std::int32_t> moduliInsieme)
    : modello_(modelloDi(profilo)),
      orologio_(orologio(profilo)),
      files_(machineFiles()),
      impostazioni_(profilo.impostazioni, *files_,
                    [](const std::string& avviso) { std::cerr << avviso << '\n'; }),
      utilita_(schermo, profilo.documenti),
      fileStampe_(machineFiles()),
      creaImpaginatore_(std::move(impaginatore)),
      moduliInsieme_(moduliInsieme ? static_cast<std::size_t>(*moduliInsieme)
                                   : std::max(1U, std::thread::hardware_concurrency())),
      fabbrica_(profilo, schermo, fornitori(profilo, schermo)) {}

FornitoriSuite Surroundings::fornitori(const Profilo& profilo, FrontEnd& schermo) {
  FornitoriSuite fornitori{[&profilo] { return apriConnessione(profilo.database); },
                           [] { return std::make_unique<RicostruzioneContiIndividuali>(); }};
  if (creaImpaginatore_) {
    fornitori.creaImpaginatore = [this, &schermo] { return impaginatore(schermo).create(); };
    fornitori.creaCorsaStampe = [this, &schermo] { return impaginatore(schermo).beginRun(); };
  }
  return fornitori;
}

Impaginatore& Surroundings::impaginatore(FrontEnd& schermo) {
  if (!impaginatore_) {
    impaginatore_ = creaImpaginatore_(
        ReportSurroundings{schermo, *fileStampe_, *orologio_, "cuwizard", modello_, moduliInsieme_});
  }
  return *impaginatore_;
}

}  // namespace cu
