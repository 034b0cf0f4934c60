#pragma once

#include <sqlite3.h>

#include <chrono>

#include "sqlite/ast.h"
#include "sqlite/handle.h"

namespace cu::sqlite {

// The transactions of a connection: those of statements, one around a change of several steps, one around a
// few statements that write, and the one in which a series of reads sees one state of the database.
class Transactions {
 public:
  explicit Transactions(sqlite3* database) : database_(database) {}

  // BEGIN, COMMIT and ROLLBACK TRANSACTION; nested ones are only counted, as on the server.
  void statement(TransactionVerb verb);

  void beginRead();
  void endRead() noexcept;

  // The statements that write between these are one transaction, which the first of them begins. A failed
  // statement is undone alone, unless the engine has already undone them all.
  void beginWrites() { ++writers_; }
  void endWrites();

  // Surrounds every statement that writes: suspends the series of reads.
  class Writing {
   public:
    // `atomic`: the statement consists of several steps that are executed all or none.
    Writing(Transactions& transactions, bool atomic);
    ~Writing();
    Writing(const Writing&) = delete;
    Writing& operator=(const Writing&) = delete;
    void done();

   private:
    void begin();
    void back() noexcept;
    Transactions& transactions_;
    bool atomic_;
    bool nested_ = false;  // within a transaction that goes on
  };

 private:
  void startReading();
  void stopReading();
  void keepWritten();
  // A file that was deleted or replaced while it is open takes every write and keeps none.
  void requireFile();

  sqlite3* database_;
  RepeatedStatement begin_{"BEGIN IMMEDIATE"};
  RepeatedStatement commit_{"COMMIT"};
  int depth_ = 0;  // of BEGIN TRANSACTION
  int readers_ = 0;
  bool reading_ = false;
  int writers_ = 0;
  bool writing_ = false;                          // the transaction of a few statements is open
  std::chrono::steady_clock::time_point looked_;  // for the file, the last time
};

}  // namespace cu::sqlite
