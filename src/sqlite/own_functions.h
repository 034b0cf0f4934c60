#pragma once

#include <sqlite3.h>

namespace cu::sqlite {

// The Italian order of text under the name of the built-in collation, upper() and lower() that know accented
// letters, and the functions that adapted statements call. What the file itself holds calls none of the
// latter.
void installFunctions(sqlite3* database);

}  // namespace cu::sqlite
