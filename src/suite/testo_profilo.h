#pragma once

#include <string>

#include "suite/profilo.h"

namespace cu {

// The profile as a commented TOML text, which analizzaProfilo reads back as it is; paths are written as they
// are. There is no password in a profile, and none in the text.
std::string testoProfilo(const Profilo& profilo);

}  // namespace cu
