#pragma once

#include <functional>
#include <utility>

#include "apps/comune/surroundings.h"
#include "wizard/mod_main.h"

namespace cu {

// The wizard with all objects required for one run.
class Impianto {
 public:
  using DopoFile = std::function<void(const FileCreato& file, Connection& connessione)>;
  Impianto(const Profilo& profilo, FrontEnd& schermo, CreaImpaginatore impaginatore, DopoFile dopoFile = {})
      : surroundings_(profilo, schermo, std::move(impaginatore)),
        programma_(Ambiente{schermo, surroundings_.factory(), surroundings_.utilita(),
                            surroundings_.settings(), surroundings_.clock(), surroundings_.files(),
                            surroundings_.stampe(), std::move(dopoFile), surroundings_.modello()}) {}

  ModMain& programma() { return programma_; }
  bool avvioRifiutato() const { return surroundings_.avvioRifiutato(); }

 private:
  Surroundings surroundings_;
  ModMain programma_;
};

}  // namespace cu
