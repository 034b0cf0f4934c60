#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace cu {

enum class CopyStep : std::uint8_t { Pages, Check };

// How far a copy is; the total is 0 where that is not known. What it raises ends the copy, and nothing of it
// stays.
using CopyObserver = std::function<void(CopyStep step, std::uint64_t done, std::uint64_t total)>;

// What a copy has been found to hold.
struct DatabaseCopy {
  std::uint64_t bytes = 0;
  std::size_t tables = 0;
  std::uint64_t rows = 0;
};

// Copies an embedded database into a file while others may go on writing: the copy has the database of one
// moment, is one file without others beside it, and can be read by its owner alone. It is read again and
// compared before it gets its name. A process that is killed leaves the file as it was, and at most one with
// the ending ".parziale", which the next copy takes over. Raises DatabaseError: the file exists and is not to
// be replaced, is no file or one of a database in use, there is no room, the database is damaged.
DatabaseCopy backUpDatabase(const std::string& database, const std::string& file, bool replace,
                            const CopyObserver& observer = {});

// Raises DatabaseError where a file is missing, cannot be read, is no database or the one that it would
// replace, before somebody is asked whether it shall.
void requireCopy(const std::string& copy, const std::string& database);

// Puts a copy in the place of an embedded database, which may be missing. It is copied and examined beside
// its place; `accept` raises what is wrong with it, given a file that it may open. Nobody else may have the
// database open. The former one gets the name `kept`, which no file may have; a damaged one keeps the
// engine's files with it. Killed at any moment, the database is whole, the former one or the copy. Raises
// DatabaseError with nothing changed. Returns whether there was a former one.
bool restoreDatabase(const std::string& copy, const std::string& database, const std::string& kept,
                     const std::function<void(const std::string& file)>& accept,
                     const CopyObserver& observer = {});

}  // namespace cu
