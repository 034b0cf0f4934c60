#pragma once

#include <string>
#include <vector>

#include "apps/comune/terminale.h"
#include "base/result.h"
#include "suite/profilo.h"

namespace cu {

// The lines of a box as the terminal takes them.
std::string righeDiTesto(const std::string& testo);

// Refusals that say something, among the messages.
void scriviRifiuti(const std::vector<Finding>& rifiuti, Terminale& terminale);

// What was refused, on standard error.
void scriviMessaggi(const Terminale& terminale);

// Each print that stands in its file, on standard output; and where prints are only recorded, each of these.
void scriviStampe(const Terminale& terminale, const Profilo& profilo);

}  // namespace cu
