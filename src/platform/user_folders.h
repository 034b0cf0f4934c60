#pragma once

#include <string>

namespace cu {

// The current user's folder for configuration, as the desktop's programs find it; it need not exist.
std::string configurationFolder();

// The same for what a program remembers from one run to the next; empty where the user has no home.
std::string stateFolder();

}  // namespace cu
