#pragma once

#include <string>

#include "suite/profilo.h"

namespace cu {

// The password of the user of an odbc address: read from the named environment variable, otherwise from the
// terminal without echo. DatabaseError where there is neither. It is never written anywhere.
std::string passwordDi(const Profilo::Database& database);

}  // namespace cu
