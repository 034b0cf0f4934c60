#pragma once

#include <functional>
#include <utility>

#include "apps/comune/surroundings.h"
#include "gestione/gestione.h"

namespace cu {

// The forms for own data with all objects required for one run. The profile outlives it.
class ImpiantoGestione {
 public:
  ImpiantoGestione(const Profilo& profilo, FrontEnd& schermo, std::function<bool()> interrotto = {})
      : surroundings_(profilo, schermo),
        gestione_({schermo, surroundings_.utilita(), surroundings_.factory(), surroundings_.clock(),
                   std::move(interrotto)}) {}

  Gestione& gestione() { return gestione_; }
  bool avvioRifiutato() const { return surroundings_.avvioRifiutato(); }

 private:
  Surroundings surroundings_;
  Gestione gestione_;
};

}  // namespace cu
