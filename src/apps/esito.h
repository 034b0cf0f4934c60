#pragma once

#include <string>

#include "automation/walker.h"
#include "suite/profilo.h"

namespace cu {

// The lines of a box as the terminal takes them.
std::string righeDiTesto(const std::string& testo);

// What was refused, on standard error.
void scriviMessaggi(const Walker& walker);

// Each print that stands in its file, on standard output; and where prints are only recorded, each of these.
void scriviStampe(const Walker& walker, const Profilo& profilo);

}  // namespace cu
