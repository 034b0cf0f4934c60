#pragma once

#include <string>

#include "sqlite/handle.h"

namespace cu::sqlite {

// Opens a file with the settings of this program. DatabaseError states what is wrong with the file and the
// remedy.
DatabaseHandle openFile(const std::string& path, bool create);

// Raises the engine's error on opening, with the file's name and the remedy.
[[noreturn]] void explain(sqlite3* database, const std::string& path);

// What every connection of this program has, whether it may write or not.
void prepareConnection(sqlite3* database);

// An index on a text has the order of its creator, while a connection orders texts differently: look-ups in
// it would fail. This program creates none; DatabaseError names one.
void refuseTextIndexes(sqlite3* database, const std::string& path);

}  // namespace cu::sqlite
