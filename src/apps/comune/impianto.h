#pragma once

#include <memory>
#include <optional>

#include "apps/comune/file_annotati.h"
#include "reporting/pdf_reports.h"
#include "suite/catalogo_stampe.h"
#include "suite/fabbrica.h"
#include "suite/impostazioni.h"
#include "suite/orologio.h"
#include "suite/profilo.h"
#include "suite/utilita.h"
#include "wizard/mod_main.h"

namespace cu {

// Everything that one run of the wizard needs, built for a profile and set before a front end. Profile and
// front end outlive it. ErroreProfilo when the trace cannot be begun.
class Impianto {
 public:
  Impianto(const Profilo& profilo, FrontEnd& schermo);
  Impianto(const Impianto&) = delete;
  Impianto& operator=(const Impianto&) = delete;

  ModMain& programma() { return programma_; }
  // Paths of the files opened for output, in order; prints not among them.
  const std::vector<std::string>& fileScritti() const { return files_.aperti(); }
  bool avvioRifiutato() const { return fabbrica_.avvioRifiutato(); }

 private:
  PdfReports& impaginatore(FrontEnd& schermo);

  std::unique_ptr<Clock> orologio_;
  FileSystemAnnotato files_;
  CatalogoStampe stampe_;
  ImpostazioniToml impostazioni_;
  UtilitaItaliana utilita_;
  FileSystemPiattaforma fileStampe_;
  std::optional<PdfReports> impaginatore_;  // from the first print on
  FabbricaSuite fabbrica_;
  ModMain programma_;
};

}  // namespace cu
