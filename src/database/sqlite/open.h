#pragma once

#include <span>
#include <string>
#include <string_view>

#include "database/sqlite/handle.h"

namespace cu::sqlite {

// An open file with the settings of this program. DatabaseError tells in words what is wrong with the file
// and what to do.
DatabaseHandle openFile(const std::string& path, bool create);

// DatabaseError NoSchema for the first name that is neither table nor view.
void requireTables(sqlite3* database, const std::string& path, std::span<const std::string_view> names);

}  // namespace cu::sqlite
