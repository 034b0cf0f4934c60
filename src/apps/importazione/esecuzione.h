#pragma once

#include <string>
#include <vector>

#include "apps/importazione/resoconto.h"
#include "host/progress.h"
#include "intake/annulla.h"
#include "intake/piano.h"
#include "suite/traccia.h"

// What the commands and the windows do with a plan and with a batch.
namespace cu {

// A bad file stops nothing as long as there is a good one: the message of a file that cannot be read at all
// becomes an information. It stays out of the history.
void tralasciaIllegibili(std::vector<intake::Lettura>& letture);

// "2018-03-05 10:30:00", of the machine's clock.
std::string momentoAttuale();

struct RichiestaEsecuzione {
  bool applica = false;  // without it everything is done and taken back
  std::string utente;    // for the history
};
struct EsecuzionePiano {
  EsitoImportazione esito;
  std::vector<std::string> rifiuti;  // why a plan that seemed applicable was not applied
};
// Tests or applies a plan. One that is not applicable is left alone. Raises DatabaseError, and what the sink
// raises: nothing was written then.
EsecuzionePiano eseguiPiano(DatabaseSuite& database, const intake::Piano& piano,
                            const RichiestaEsecuzione& richiesta, ProgressSink* avanzamento = nullptr);

// Takes a batch back, or tests whether it could be.
Result<intake::Annullato> annullaLotto(DatabaseSuite& database, std::int32_t lotto, bool prova);

}  // namespace cu
