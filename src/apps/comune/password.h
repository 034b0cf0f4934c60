#pragma once

#include <functional>
#include <optional>
#include <string>

#include "suite/profilo.h"

namespace cu {

// The password of the user of an odbc address: read from the named environment variable, otherwise from a
// program's own source, otherwise from the terminal without echo. DatabaseError where there is none. It is
// never written anywhere.
std::string passwordDi(const Profilo::Database& database);

// A source of a program with windows; nullopt where it has no answer. It is called in the thread that opens
// the connection, and set before the first one.
using FontePassword = std::function<std::optional<std::string>(const Profilo::Database&)>;
void usaFontePassword(FontePassword fonte);
// Whether someone can be asked at a terminal.
bool alTerminale();

}  // namespace cu
