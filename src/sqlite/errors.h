#pragma once

#include <sqlite3.h>

#include <string>
#include <string_view>

#include "base/error.h"
#include "sqlite/sql_error.h"

namespace cu::sqlite {

// The extended code of the handle's last error; SQLITE_FULL also where the system had no space for a file
// next to the database, which the engine reports as a general failure.
int codeOf(sqlite3* database);

// Raises the last error of the handle as DatabaseError. `kind` is the statement's first word, or empty.
[[noreturn]] void raise(sqlite3* database, std::string_view kind);

// From an extended result code and the engine's text, which contains names of tables and columns but no
// values.
DatabaseError errorOf(int extendedCode, std::string_view engineText, std::string_view kind);

// For a text rejected by the adapter.
DatabaseError refused(const SqlError& error, std::string_view kind);
// For a literal without a stored form.
DatabaseError unfit(const SqlError& error, std::string_view kind);

}  // namespace cu::sqlite
