#pragma once

#include <string>

#include "suite/profilo.h"

namespace cu {

// The password of the user of an odbc address: from the environment variable that is named, otherwise asked
// at the terminal without showing it. DatabaseError where there is neither. It is never written anywhere.
std::string passwordDi(const Profilo::Database& database);

}  // namespace cu
