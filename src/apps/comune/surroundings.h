#pragma once

#include <cstddef>
#include <memory>
#include <optional>

#include "host/filesystem.h"
#include "impaginazione/impaginazione.h"
#include "modello/modello.h"
#include "suite/catalogo_stampe.h"
#include "suite/fabbrica.h"
#include "suite/impostazioni.h"
#include "suite/orologio.h"
#include "suite/profilo.h"
#include "suite/utilita.h"

namespace cu {

// The surroundings of a run, created for a profile and a front end, which both outlive it. ErroreProfilo when
// the trace cannot be created. Without `impaginatore` a print is an error; `moduliInsieme` forms are laid out
// at a time, by default as many as there are processors.
class Surroundings {
 public:
  Surroundings(const Profilo& profilo, FrontEnd& schermo, CreaImpaginatore impaginatore = {},
               std::optional<std::int32_t> moduliInsieme = {});
  Surroundings(const Surroundings&) = delete;
  Surroundings& operator=(const Surroundings&) = delete;

  Clock& clock() { return *orologio_; }
  FileSystem& files() { return *files_; }
  const ReportCatalogue& stampe() const { return stampe_; }
  Settings& settings() { return impostazioni_; }
  UtilitaSuite& utilita() { return utilita_; }
  HostFactory& factory() { return fabbrica_; }
  const modello::Modello& modello() const { return modello_; }
  bool avvioRifiutato() const { return fabbrica_.avvioRifiutato(); }

 private:
  FornitoriSuite fornitori(const Profilo& profilo, FrontEnd& schermo);
  Impaginatore& impaginatore(FrontEnd& schermo);

  const modello::Modello& modello_;
  std::unique_ptr<Clock> orologio_;
  std::unique_ptr<FileSystem> files_;
  CatalogoStampe stampe_;
  ImpostazioniToml impostazioni_;
  UtilitaItaliana utilita_;
  std::unique_ptr<FileSystem> fileStampe_;
  CreaImpaginatore creaImpaginatore_;
  std::size_t moduliInsieme_;
  std::unique_ptr<Impaginatore> impaginatore_;  // created by the first print
  FabbricaSuite fabbrica_;
};

}  // namespace cu
