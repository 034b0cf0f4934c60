#pragma once

#include <sqlite3.h>

namespace cu::sqlite {

// Installs the Italian text order under the name of the built-in collation, upper() and lower() for accented
// letters, and the functions called by adapted statements. The file's own schema uses none of the latter.
void installFunctions(sqlite3* database);

}  // namespace cu::sqlite
