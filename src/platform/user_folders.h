#pragma once

#include <string>

namespace cu {

// The current user's folder for configuration, as the desktop's programs find it; it need not exist.
std::string configurationFolder();

}  // namespace cu
