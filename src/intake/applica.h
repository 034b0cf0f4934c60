#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/date.h"
#include "base/result.h"
#include "host/clock.h"
#include "host/session.h"
#include "intake/piano.h"

namespace cu::intake {

struct RichiestaApplica {
  bool prova = true;    // everything is done and taken back
  std::string utente;   // for the history
  std::string momento;  // "2018-03-05 10:30:00"
};

struct Applicato {
  std::optional<std::int32_t> lotto;  // the batch; none for a test, and where there is nothing to write
};

// Applies a plan in one transaction of the host's own connection, and rebuilds the accounts that it touches.
// Refused, with nothing written: a plan that is not applicable, and one whose database has changed since it
// was made. Raises DatabaseError.
Result<Applicato> applica(DatabaseHost& database, RicostruzioneConti& ricostruzione, const Piano& piano,
                          const RichiestaApplica& richiesta, ProgressSink* avanzamento = nullptr);

}  // namespace cu::intake
