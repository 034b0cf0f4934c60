#include "sqlite/sole_use.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>

#include "sqlite/errors.h"

namespace cu::sqlite {
namespace {

constexpr int kPatienceForOthers = 500;  // milliseconds: a command that is just ending

// The bytes that the engine locks: pending, reserved and shared.
constexpr off_t kFirstLock = 0x40000000;
constexpr off_t kLocks = 512;

[[noreturn]] void usedByOthers(const std::string& database) {
  throw DatabaseError(
      DatabaseErrorKind::Locked, SQLITE_BUSY, "",
      "Il database «" + database +
          "» è aperto in un'altra finestra o da un altro programma. Non è stato cambiato nulla: "
          "chiudere tutto ciò che lo usa e riprovare.");
}

bool isDamage(int code) { return (code & 0xFF) == SQLITE_NOTADB || (code & 0xFF) == SQLITE_CORRUPT; }

}  // namespace

SoleUse::SoleUse(const std::string& database) {
  if (!byEngine(database)) bySystem(database);
}

SoleUse::~SoleUse() {
  handle_.reset();
  if (file_ >= 0) ::close(file_);
}

// Leaving the write-ahead log needs the file for oneself: whoever has it open keeps a lock for as long.
// Returns false for a damaged file.
bool SoleUse::byEngine(const std::string& database) {
  sqlite3* raw = nullptr;
  // A file name that looks like a URI is still a file name.
  const std::string name = database.starts_with("file:") ? "./" + database : database;
  int code = sqlite3_open_v2(name.c_str(), &raw, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
  handle_.reset(raw);
  if (raw == nullptr) throw errorOf(SQLITE_NOMEM, "", "");
  sqlite3_extended_result_codes(raw, 1);
  sqlite3_busy_timeout(raw, kPatienceForOthers);
  // The first setting keeps every lock until the end: nobody gets in between the steps.
  for (const char* const sql :
       {"PRAGMA locking_mode = EXCLUSIVE", "PRAGMA journal_mode = DELETE", "BEGIN EXCLUSIVE"}) {
    if (code == SQLITE_OK) code = sqlite3_exec(raw, sql, nullptr, nullptr, nullptr);
  }
  if (code == SQLITE_OK) return true;
  if ((code & 0xFF) == SQLITE_BUSY || (code & 0xFF) == SQLITE_LOCKED) usedByOthers(database);
  if (!isDamage(code)) raise(raw, "");
  handle_.reset();
  return false;
}

void SoleUse::bySystem(const std::string& database) {
  file_ = ::open(database.c_str(), O_RDWR | O_CLOEXEC | O_NOCTTY);
  struct flock lock {};
  lock.l_type = F_WRLCK;
  lock.l_whence = SEEK_SET;
  lock.l_start = kFirstLock;
  lock.l_len = kLocks;
  if (file_ >= 0 && ::fcntl(file_, F_OFD_SETLK, &lock) == 0) return;
  const bool taken = errno == EAGAIN || errno == EACCES;
  const bool opened = file_ >= 0;
  if (opened) ::close(file_);
  file_ = -1;
  if (opened && taken) usedByOthers(database);
  throw DatabaseError(DatabaseErrorKind::ReadOnly, SQLITE_READONLY, "",
                      "Il database «" + database + "» non si può scrivere. Verificare i permessi del file.");
}

}  // namespace cu::sqlite
