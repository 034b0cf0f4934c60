#pragma once

#include <optional>
#include <string>
#include <vector>

#include "apps/comune/terminale.h"
#include "apps/esame/dopo_scrittura.h"
#include "comandi.h"

namespace cu {

// The run of "make" for the company of a profile, and what follows the file that it has written.
struct CorsaMake {
  bool riuscita = false;
  std::optional<fornitura::FileScritto> scritto;
  std::vector<DatoMancante> mancanti;
  std::string motivo;  // of a run that ended without a word: the folder's, as far as it shows; "" for none
  DopoScrittura dopo;
  std::int32_t anno = 0;
};
// Messages, warnings and prints are in the terminal; `ricorda` keeps the folder for the next run. Raises
// ErroreProfilo for a profile that cannot be used.
CorsaMake eseguiMake(const Profilo& profilo, const OpzioniMake& opzioni, Terminale& terminale, bool ricorda);

}  // namespace cu
