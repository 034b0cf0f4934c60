#include "sqlite/page_copy.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <exception>
#include <filesystem>
#include <fstream>
#include <map>
#include <system_error>
#include <thread>

#include "sqlite/errors.h"
#include "sqlite/own_files.h"
#include "sqlite/read_only.h"

namespace cu::sqlite {
namespace {

constexpr int kPagesAtOnce = 64;
constexpr int kOperationsBetweenLooks = 50000;  // of the engine's machine
constexpr std::chrono::milliseconds kBetweenTries(20);
constexpr int kTries = 250;

struct FinishBackup {
  void operator()(sqlite3_backup* backup) const { sqlite3_backup_finish(backup); }
};
using BackupHandle = std::unique_ptr<sqlite3_backup, FinishBackup>;

using RowCounts = std::map<std::string, std::uint64_t>;

[[noreturn]] void sourceFails(int code, const char* engineText, const std::string& name) {
  const DatabaseError told = errorOf(code, engineText, "");
  if (told.kind() == DatabaseErrorKind::Corrupt || (code & 0xFF) == SQLITE_NOTADB) {
    throw DatabaseError((code & 0xFF) == SQLITE_NOTADB ? DatabaseErrorKind::Unavailable : told.kind(), code,
                        "",
                        (code & 0xFF) == SQLITE_NOTADB ? "Il file «" + name + "» non è un database."
                                                       : "Il file «" + name + "» è danneggiato.");
  }
  throw DatabaseError(told.kind(), code, "", "Il file «" + name + "» non si può leggere: " + told.what());
}

// The engine reports as a general failure what the system has not written for a limit of the process or a
// quota; during a backup it keeps the system's code with the file alone.
bool cannotGrow(sqlite3* target) {
  int system = 0;
  if (sqlite3_file_control(target, "main", SQLITE_FCNTL_LAST_ERRNO, &system) != SQLITE_OK) return false;
  return system == ENOSPC || system == EDQUOT || system == EFBIG;
}

[[noreturn]] void targetFails(sqlite3* target, int code, const std::string& place) {
  if (codeOf(target) == SQLITE_FULL || ((code & 0xFF) == SQLITE_IOERR && cannotGrow(target)))
    code = SQLITE_FULL;
  if ((code & 0xFF) == SQLITE_FULL) {
    throw DatabaseError(
        DatabaseErrorKind::Full, code, "",
        "Sul disco non c'è spazio per «" + place + "»: liberarne, o scegliere un'altra cartella.");
  }
  throw DatabaseError(errorOf(code, "", "").kind(), code, "",
                      "La copia «" + place + "» non si può scrivere: " + sqlite3_errstr(code) + ".");
}

// One state of the database during the whole copy: a change by somebody else does not make it begin again.
class Snapshot {
 public:
  Snapshot(sqlite3* source, const std::string& name) : source_(source) {
    for (const char* const sql : {"BEGIN", "SELECT count(*) FROM sqlite_schema"}) {
      const int code = sqlite3_exec(source, sql, nullptr, nullptr, nullptr);
      if (code != SQLITE_OK) {
        end();
        sourceFails(code, sqlite3_errmsg(source), name);
      }
    }
  }
  ~Snapshot() { end(); }
  Snapshot(const Snapshot&) = delete;
  Snapshot& operator=(const Snapshot&) = delete;

 private:
  void end() const {
    if (sqlite3_get_autocommit(source_) == 0) sqlite3_exec(source_, "ROLLBACK", nullptr, nullptr, nullptr);
  }
  sqlite3* source_;
};

// While it exists the observer is asked during the engine's statements; what it raises interrupts them.
class Watched {
 public:
  Watched(sqlite3* database, const CopyObserver& observer) : database_(database), observer_(observer) {
    if (observer_) sqlite3_progress_handler(database_, kOperationsBetweenLooks, &Watched::look, this);
  }
  ~Watched() { sqlite3_progress_handler(database_, 0, nullptr, nullptr); }
  Watched(const Watched&) = delete;
  Watched& operator=(const Watched&) = delete;
  void rethrow() const {
    if (raised_ != nullptr) std::rethrow_exception(raised_);
  }

 private:
  static int look(void* self) noexcept {
    auto& watched = *static_cast<Watched*>(self);
    try {
      watched.observer_(CopyStep::Check, 0, 0);
      return 0;
    } catch (...) {
      watched.raised_ = std::current_exception();
      return 1;
    }
  }
  sqlite3* database_;
  const CopyObserver& observer_;
  std::exception_ptr raised_;
};

RowCounts rowCounts(sqlite3* database) {
  RowCounts counts;
  const StatementHandle names = prepare(
      database, "SELECT name FROM sqlite_schema WHERE type = 'table' AND name NOT LIKE 'sqlite_%'", "");
  while (sqlite3_step(names.get()) == SQLITE_ROW) counts[std::string(columnText(names.get(), 0))] = 0;
  for (auto& [name, rows] : counts) {
    std::string quoted;
    for (const char c : name) quoted.append(c == '"' ? 2 : 1, c);
    const StatementHandle count = prepare(database, "SELECT count(*) FROM \"" + quoted + "\"", "");
    if (sqlite3_step(count.get()) != SQLITE_ROW) raise(database, "");
    rows = static_cast<std::uint64_t>(sqlite3_column_int64(count.get(), 0));
  }
  return counts;
}

RowCounts countedRows(sqlite3* database, const CopyObserver& observer) {
  const Watched watched(database, observer);
  try {
    return rowCounts(database);
  } catch (const DatabaseError&) {
    watched.rethrow();
    throw;
  }
}

// Returns the first damage that the engine finds; empty where there is none.
std::string damageOf(sqlite3* database, const CopyObserver& observer) {
  if (observer) observer(CopyStep::Check, 0, 0);
  const Watched watched(database, observer);
  const StatementHandle check = prepare(database, "PRAGMA integrity_check(1)", "");
  const int code = sqlite3_step(check.get());
  watched.rethrow();
  if (code != SQLITE_ROW) return sqlite3_errmsg(database);
  const std::string_view found = columnText(check.get(), 0);
  return found == "ok" ? std::string() : std::string(found);
}

void transfer(sqlite3* source, const std::string& sourceName, sqlite3* target, const std::string& place,
              const CopyObserver& observer) {
  const BackupHandle backup(sqlite3_backup_init(target, "main", source, "main"));
  if (backup == nullptr) targetFails(target, sqlite3_extended_errcode(target), place);
  for (int tries = 0;;) {
    const int code = sqlite3_backup_step(backup.get(), kPagesAtOnce);
    const auto total = static_cast<std::uint64_t>(sqlite3_backup_pagecount(backup.get()));
    const auto left = static_cast<std::uint64_t>(sqlite3_backup_remaining(backup.get()));
    if (code == SQLITE_DONE) return;
    if (code == SQLITE_OK) {
      if (observer) observer(CopyStep::Pages, total - left, total);
      continue;
    }
    const int kind = code & 0xFF;
    if ((kind == SQLITE_BUSY || kind == SQLITE_LOCKED) && ++tries < kTries) {
      if (observer) observer(CopyStep::Pages, total - left, total);
      std::this_thread::sleep_for(kBetweenTries);
      continue;
    }
    const bool reading = kind == SQLITE_CORRUPT || kind == SQLITE_NOTADB || kind == SQLITE_BUSY ||
                         kind == SQLITE_LOCKED || code == SQLITE_IOERR_READ ||
                         code == SQLITE_IOERR_SHORT_READ;
    if (reading) sourceFails(code, sqlite3_errstr(code), sourceName);
    targetFails(target, code, place);
  }
}

void writeCopy(sqlite3* source, const std::string& sourceName, const std::string& target,
               const std::string& place, const CopyObserver& observer) {
  int code = SQLITE_OK;
  const DatabaseHandle copy = openPatiently(target, SQLITE_OPEN_READWRITE, code);
  const auto set = [&](const char* sql) {
    if (code == SQLITE_OK) code = sqlite3_exec(copy.get(), sql, nullptr, nullptr, nullptr);
    if (code != SQLITE_OK) targetFails(copy.get(), code, place);
  };
  // The file is worth nothing before it is complete, and is written to the disk at the end.
  set("PRAGMA journal_mode = OFF");
  set("PRAGMA synchronous = OFF");
  transfer(source, sourceName, copy.get(), place, observer);
  set("PRAGMA journal_mode = DELETE");
}

}  // namespace

// A file that is not in use and has the mark of the write-ahead log would get files beside it when it is
// opened, and could not be opened where there is no right to make them.
DatabaseHandle openToCopy(const std::string& file) {
  std::error_code error;
  const auto status = std::filesystem::status(file, error);
  if (!std::filesystem::exists(status)) {
    throw DatabaseError(DatabaseErrorKind::Unavailable, SQLITE_CANTOPEN, "",
                        "Il file «" + file + "» non esiste.");
  }
  if (!std::filesystem::is_regular_file(status)) {
    throw DatabaseError(DatabaseErrorKind::Unavailable, SQLITE_CANTOPEN, "", "«" + file + "» non è un file.");
  }
  // One that this process uses is not opened by hand, and a right to write lets the engine tidy up behind it.
  const bool own = belongsToOwnDatabase(file);
  constexpr std::size_t kHead = 20;  // its last byte is the version of what may read the file
  std::array<char, kHead> head{};
  if (!own) std::ifstream(file, std::ios::binary).read(head.data(), head.size());
  const bool logged = head.back() == 2;
  const bool alone = logged && !std::filesystem::exists(realFileName(file) + "-wal", error);
  int code = SQLITE_OK;
  DatabaseHandle handle =
      own ? openPatiently(file.starts_with("file:") ? "./" + file : file, SQLITE_OPEN_READWRITE, code)
          : openUnwritten(file, alone, code);
  if (code != SQLITE_OK) sourceFails(code, sqlite3_errmsg(handle.get()), file);
  return handle;
}

void requireDatabase(const std::string& file) {
  const DatabaseHandle handle = openToCopy(file);
  const Snapshot readable(handle.get(), file);
}

DatabaseCopy copyPages(sqlite3* source, const std::string& sourceName, const std::string& target,
                       const std::string& place, const CopyObserver& observer) {
  RowCounts expected;
  {
    const Snapshot snapshot(source, sourceName);
    writeCopy(source, sourceName, target, place, observer);
    expected = countedRows(source, observer);
  }
  int code = SQLITE_OK;
  const DatabaseHandle copy = openPatiently(target, SQLITE_OPEN_READONLY, code);
  if (code != SQLITE_OK) targetFails(copy.get(), code, place);
  if (const std::string damage = damageOf(copy.get(), observer); !damage.empty()) {
    throw DatabaseError(DatabaseErrorKind::Corrupt, SQLITE_CORRUPT, "",
                        "Il database «" + sourceName +
                            "» è danneggiato, e una copia lo sarebbe: non ne è stata fatta "
                            "nessuna (" +
                            damage + ").");
  }
  if (countedRows(copy.get(), observer) != expected) {
    throw DatabaseError(DatabaseErrorKind::Corrupt, SQLITE_CORRUPT, "",
                        "La copia «" + place + "» non ha le stesse righe del database: non è stata tenuta.");
  }
  DatabaseCopy facts;
  std::error_code error;
  facts.bytes = std::filesystem::file_size(target, error);
  facts.tables = expected.size();
  for (const auto& [name, rows] : expected) facts.rows += rows;
  return facts;
}

}  // namespace cu::sqlite
