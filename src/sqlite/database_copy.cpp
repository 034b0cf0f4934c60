#include "sqlite/database_copy.h"

#include <array>
#include <filesystem>
#include <optional>
#include <system_error>

#include "base/error.h"
#include "sqlite/own_files.h"
#include "sqlite/page_copy.h"
#include "sqlite/partial_file.h"
#include "sqlite/read_only.h"
#include "sqlite/sole_use.h"

namespace cu {
namespace {

namespace fs = std::filesystem;

constexpr std::array kSideEndings = {"-wal", "-shm", "-journal"};

[[noreturn]] void refuseFile(DatabaseErrorKind kind, const std::string& text) {
  throw DatabaseError(kind, 0, "", text);
}

bool present(const std::string& file) {
  std::error_code error;
  return fs::exists(fs::symlink_status(file, error));
}

// What differs after somebody has written a database, or has begun to.
struct FileState {
  fs::file_time_type when;
  std::uintmax_t bytes = 0;
  bool open = false;
  bool operator==(const FileState&) const = default;
};
FileState stateOf(const std::string& database) {
  std::error_code error;
  const std::string real = realFileName(database);
  return {fs::last_write_time(real, error), fs::file_size(real, error),
          present(real + "-wal") || present(real + "-journal")};
}

void refuseItself(const std::string& copy, const std::string& database) {
  if (belongsToDatabase(copy, database))
    refuseFile(DatabaseErrorKind::Exists, "«" + copy + "» è il database stesso: serve una sua copia.");
}

void requirePlace(const std::string& named, bool replace) {
  std::error_code error;
  std::string file = named;
  if (fs::is_symlink(file, error) && fs::exists(file, error)) file = fs::canonical(file, error).string();
  if (belongsToOwnDatabase(file))
    refuseFile(DatabaseErrorKind::Exists,
               "«" + file + "» è il database stesso: per la copia serve un altro nome.");
  const auto status = fs::status(file, error);
  if (present(file) && fs::exists(status) && !fs::is_regular_file(status)) {
    refuseFile(DatabaseErrorKind::Exists,
               "«" + file + (fs::is_directory(status) ? "» è una cartella" : "» non è un file") +
                   ": per la copia serve il nome di un file.");
  }
  if (present(file) && !replace) refuseFile(DatabaseErrorKind::Exists, "Il file «" + file + "» esiste già.");
  // They belong to a database of that name, which somebody has open, and would be taken for those of the
  // copy.
  for (const char* const ending : kSideEndings) {
    const std::string side = file + ending;
    if (!present(side)) continue;
    std::string told = "Accanto a «";
    told.append(file).append("» c'è «").append(side).append(
        "»: un database con quel nome è aperto, o non è stato chiuso. Per la copia serve un altro nome.");
    refuseFile(DatabaseErrorKind::Locked, told);
  }
}

}  // namespace

DatabaseCopy backUpDatabase(const std::string& database, const std::string& file, bool replace,
                            const CopyObserver& observer) {
  const FileState before = stateOf(database);
  const sqlite::ReadDatabase source = sqlite::openToRead(database);
  requirePlace(file, replace);
  using sqlite::PartialFile;
  PartialFile partial(file, ".parziale");
  const DatabaseCopy copy = sqlite::copyPages(source.handle.get(), database, partial.path(), file, observer);
  // Of a database that only others may write the engine has no lock.
  if (source.unchanging && stateOf(database) != before) {
    refuseFile(DatabaseErrorKind::Locked, "Il database «" + database +
                                              "» è stato scritto da un altro programma durante la copia, che "
                                              "non è stata tenuta: riprovare.");
  }
  partial.takePlace(replace ? PartialFile::Existing::Replaced : PartialFile::Existing::Rejected);
  return copy;
}

void requireCopy(const std::string& copy, const std::string& database) {
  refuseItself(copy, database);
  sqlite::requireDatabase(copy);
}

bool restoreDatabase(const std::string& copy, const std::string& database, const std::string& kept,
                     const std::function<void(const std::string& file)>& accept,
                     const CopyObserver& observer) {
  refuseItself(copy, database);
  using sqlite::PartialFile;
  std::error_code error;
  const auto status = fs::status(database, error);
  const bool existed = fs::exists(status);
  if (existed && !fs::is_regular_file(status))
    refuseFile(DatabaseErrorKind::Exists, "«" + database + "» non è un file: serve il nome di un database.");
  const sqlite::DatabaseHandle source = sqlite::openToCopy(copy);
  // Somebody who has the database open is told at once, not after the copying.
  if (existed) const sqlite::SoleUse free(database);
  PartialFile partial(database, ".ripristino");
  sqlite::copyPages(source.get(), copy, partial.path(), partial.place(), observer);
  accept(partial.path());
  for (const char* const ending : kSideEndings) fs::remove(partial.path() + ending, error);
  std::optional<sqlite::SoleUse> use;
  if (existed) {
    use.emplace(database);
    partial.takeRights();
  }
  // Of a damaged database, or of one that is missing: they would be taken for those of the copy.
  for (const char* const ending : kSideEndings) {
    const std::string side = partial.place() + ending;
    if (!present(side)) continue;
    fs::rename(side, kept + ending, error);
    if (error) sqlite::refusePlace(kept + ending, error.value());
  }
  existed ? partial.takePlaceOf(kept) : partial.takePlace(PartialFile::Existing::Rejected);
  return existed;
}

}  // namespace cu
