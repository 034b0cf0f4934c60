#pragma once

#include <sqlite3.h>

#include <string>
#include <string_view>

#include "base/error.h"
#include "sqlite/sql_error.h"

namespace cu::sqlite {

// The extended code of the handle's last error; SQLITE_FULL also where the system found no room for a file
// beside the database, which the engine tells as any other failure.
int codeOf(sqlite3* database);

// The last error of the handle as DatabaseError. `kind` is the statement's first word, or empty.
[[noreturn]] void raise(sqlite3* database, std::string_view kind);

// By an extended result code and the engine's own words, which name tables and columns but no values.
DatabaseError errorOf(int extendedCode, std::string_view engineText, std::string_view kind);

// A text that the adapter does not take.
DatabaseError refused(const SqlError& error, std::string_view kind);
// A literal without a stored form.
DatabaseError unfit(const SqlError& error, std::string_view kind);

}  // namespace cu::sqlite
