#pragma once

#include <memory>

#include "apps/comune/file_annotati.h"
#include "shell/mod_main.h"
#include "suite/catalogo_stampe.h"
#include "suite/fabbrica.h"
#include "suite/impostazioni.h"
#include "suite/orologio.h"
#include "suite/profilo.h"
#include "suite/utilita.h"

namespace cu {

// Everything that one run of the wizard needs, built for a profile and set before a front end. Profile and
// front end outlive it. ErroreProfilo when the trace cannot be begun.
class Impianto {
 public:
  Impianto(const Profilo& profilo, FrontEnd& schermo);

  ModMain& programma() { return programma_; }
  // Paths of the files opened for output, in order.
  const std::vector<std::string>& fileScritti() const { return files_.aperti(); }
  bool avvioRifiutato() const { return fabbrica_.avvioRifiutato(); }

 private:
  std::unique_ptr<Clock> orologio_;
  FileSystemAnnotato files_;
  CatalogoStampe stampe_;
  ImpostazioniToml impostazioni_;
  UtilitaItaliana utilita_;
  FabbricaSuite fabbrica_;
  ModMain programma_;
};

}  // namespace cu
