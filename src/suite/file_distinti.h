#pragma once

#include "suite/profilo.h"

namespace cu {

// What a run writes has files of its own: the trace, the settings and the log are not the profile, not the
// embedded database or one of the engine's files beside it, by whatever name or link, and not one another;
// and the settings are a file that can be read to its end. Raises ErroreProfilo with the key. Opens nothing.
void controllaFileDistinti(const Profilo& profilo);

}  // namespace cu
