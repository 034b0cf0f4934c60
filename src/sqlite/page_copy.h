#pragma once

#include <string>

#include "sqlite/database_copy.h"
#include "sqlite/handle.h"

namespace cu::sqlite {

// Opens a file to be copied, and nothing else: neither the file nor the ones beside it change.
DatabaseHandle openToCopy(const std::string& file);

// Copies the database, as it is at the beginning, into an existing file without content, in the journal mode
// that needs no file beside it. Then reads the copy from the file: it has no damage and as many rows.
// DatabaseError; what the observer raises.
DatabaseCopy copyPages(sqlite3* source, const std::string& sourceName, const std::string& target,
                       const std::string& place, const CopyObserver& observer);

// Raises DatabaseError where openToCopy does, and where the file is no database.
void requireDatabase(const std::string& file);

}  // namespace cu::sqlite
