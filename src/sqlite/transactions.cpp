#include "sqlite/transactions.h"

#include <utility>

#include "sqlite/errors.h"

namespace cu::sqlite {
namespace {

constexpr std::chrono::seconds kBetweenLooks(1);

bool attempt(sqlite3* database, const char* sql) noexcept {
  return sqlite3_exec(database, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

}  // namespace

void Transactions::startReading() {
  if (readers_ == 0 || reading_ || writing_ || depth_ > 0) return;
  execute(database_, "BEGIN");
  reading_ = true;
}

void Transactions::stopReading() {
  if (!reading_) return;
  execute(database_, "COMMIT");
  reading_ = false;
}

void Transactions::beginRead() {
  ++readers_;
  try {
    startReading();
  } catch (...) {
    --readers_;
    throw;
  }
}

void Transactions::endRead() noexcept {
  if (readers_ == 0 || --readers_ > 0 || !reading_) return;
  if (!attempt(database_, "COMMIT")) attempt(database_, "ROLLBACK");
  reading_ = false;
}

void Transactions::endWrites() {
  if (writers_ == 0 || --writers_ > 0) return;
  keepWritten();
  startReading();
}

// After some errors the engine has already rolled back by itself.
void Transactions::keepWritten() {
  if (!std::exchange(writing_, false) || sqlite3_get_autocommit(database_) != 0) return;
  try {
    commit_.run(database_);
  } catch (...) {
    attempt(database_, "ROLLBACK");
    throw;
  }
}

void Transactions::requireFile() {
  const auto now = std::chrono::steady_clock::now();
  if (looked_ != std::chrono::steady_clock::time_point() && now - looked_ < kBetweenLooks) return;
  int moved = 0;
  if (sqlite3_file_control(database_, "main", SQLITE_FCNTL_HAS_MOVED, &moved) == SQLITE_OK && moved != 0)
    throw errorOf(SQLITE_READONLY_DBMOVED, "", "BEGIN");
  looked_ = now;
}

void Transactions::statement(TransactionVerb verb) {
  if (verb == TransactionVerb::Begin) {
    if (depth_ == 0) {
      requireFile();
      stopReading();
      keepWritten();
      // Takes the write lock at once: a transaction that waited for it until its first change would find its
      // reads out of date.
      try {
        execute(database_, "BEGIN IMMEDIATE");
      } catch (...) {
        startReading();
        throw;
      }
    }
    ++depth_;
    return;
  }
  const char* word = verb == TransactionVerb::Commit ? "COMMIT" : "ROLLBACK";
  if (depth_ == 0) {
    throw DatabaseError(DatabaseErrorKind::Other, 0, word,
                        std::string(word) + " TRANSACTION senza una BEGIN TRANSACTION.");
  }
  if (verb == TransactionVerb::Commit && depth_ > 1) {
    --depth_;
    return;
  }
  // After some errors the engine has already rolled back by itself.
  const bool open = sqlite3_get_autocommit(database_) == 0;
  if (open) execute(database_, word);
  depth_ = 0;
  startReading();
  if (!open && verb == TransactionVerb::Commit) {
    throw DatabaseError(DatabaseErrorKind::Other, 0, word,
                        "La transazione è già stata annullata da un errore.");
  }
}

Transactions::Writing::Writing(Transactions& transactions, bool atomic)
    : transactions_(transactions), atomic_(atomic) {
  transactions_.stopReading();
  try {
    begin();
  } catch (...) {
    atomic_ = false;
    back();
    throw;
  }
}

void Transactions::Writing::begin() {
  sqlite3* database = transactions_.database_;
  const bool together = transactions_.writers_ > 0 && transactions_.depth_ == 0;
  // One that the engine has rolled back begins again.
  if (together && (!transactions_.writing_ || sqlite3_get_autocommit(database) != 0)) {
    transactions_.writing_ = false;
    transactions_.begin_.run(database);
    transactions_.writing_ = true;
  }
  nested_ = transactions_.writing_ || transactions_.depth_ > 0;
  if (atomic_) execute(database, nested_ ? "SAVEPOINT cu" : "BEGIN IMMEDIATE");
}

void Transactions::Writing::done() {
  if (!atomic_) return;
  execute(transactions_.database_, nested_ ? "RELEASE cu" : "COMMIT");
  atomic_ = false;
}

void Transactions::Writing::back() noexcept {
  try {
    transactions_.startReading();
  } catch (...) {
    // Reads continue, each with its own lock.
  }
}

Transactions::Writing::~Writing() {
  sqlite3* database = transactions_.database_;
  if (atomic_ && sqlite3_get_autocommit(database) == 0) {
    attempt(database, nested_ ? "ROLLBACK TO cu" : "ROLLBACK");
    if (nested_) attempt(database, "RELEASE cu");
  }
  back();
}

}  // namespace cu::sqlite
