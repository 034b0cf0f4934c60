#pragma once

#include "apps/comune/surroundings.h"
#include "wizard/mod_main.h"

namespace cu {

// The wizard with everything that one run of it needs.
class Impianto {
 public:
  Impianto(const Profilo& profilo, FrontEnd& schermo)
      : intorno_(profilo, schermo),
        programma_(Ambiente{schermo, intorno_.factory(), intorno_.utilita(), intorno_.settings(),
                            intorno_.clock(), intorno_.files(), intorno_.stampe()}) {}

  ModMain& programma() { return programma_; }
  bool avvioRifiutato() const { return intorno_.avvioRifiutato(); }

 private:
  Surroundings intorno_;
  ModMain programma_;
};

}  // namespace cu
