#pragma once

#include <string>

namespace cu {

// A message as a window says it: where its remedy is an option of the command line, the step that has it.
std::string perLaFinestra(std::string testo);

}  // namespace cu
