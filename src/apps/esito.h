#pragma once

#include <string>
#include <vector>

#include "apps/comune/terminale.h"
#include "base/result.h"
#include "host/session.h"
#include "suite/profilo.h"
#include "telematic/controlli.h"

namespace cu {

// The lines of a box, for the terminal.
std::string righeDiTesto(const std::string& testo);

// Adds the refusals that have a text to the messages.
void scriviRifiuti(const std::vector<Finding>& rifiuti, Terminale& terminale);

// Writes the warnings to standard error, each with its answer.
void scriviAvvisi(const Terminale& terminale);
// Writes the rejections to standard error.
void scriviMessaggi(const Terminale& terminale);

// Shows the missing data of a file in the suite's log; none without missing data.
void registra(const std::vector<DatoMancante>& mancanti, HostFactory& factory);
// Writes each log that was shown, as a table, to standard output.
void scriviRegistri(const Terminale& terminale);

// Writes each print stored in a file to standard output; where prints are only recorded, every one of them.
void scriviStampe(const Terminale& terminale, const Profilo& profilo);

}  // namespace cu
