#pragma once

#include <sqlite3.h>

#include "sqlite/ast.h"

namespace cu::sqlite {

// The transactions of a connection: those that statements ask for, one around a change of several steps, and
// the one under which a run of reads sees one state of the database.
class Transactions {
 public:
  explicit Transactions(sqlite3* database) : database_(database) {}

  // BEGIN, COMMIT and ROLLBACK TRANSACTION; those within another only count, as on the server.
  void statement(TransactionVerb verb);

  void beginRead();
  void endRead() noexcept;

  // Around every statement that writes: the run of reads steps aside.
  class Writing {
   public:
    // `atomic`: the statement is several steps, all or nothing.
    Writing(Transactions& transactions, bool atomic);
    ~Writing();
    Writing(const Writing&) = delete;
    Writing& operator=(const Writing&) = delete;
    void done();

   private:
    void back() noexcept;
    Transactions& transactions_;
    bool atomic_;
    bool nested_;  // within a transaction of the caller's
  };

 private:
  void startReading();
  void stopReading();

  sqlite3* database_;
  int depth_ = 0;  // of BEGIN TRANSACTION
  int readers_ = 0;
  bool reading_ = false;
};

}  // namespace cu::sqlite
