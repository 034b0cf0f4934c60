#pragma once

#include "data/database.h"

namespace cu {

// A transaction: the destructor rolls back what conferma() has not committed.
class Transazione {
 public:
  explicit Transazione(Connection& connessione) : connessione_(connessione) {
    connessione_.Execute("BEGIN TRANSACTION");
  }
  Transazione(const Transazione&) = delete;
  Transazione& operator=(const Transazione&) = delete;
  ~Transazione() {
    if (confermata_) return;
    try {
      connessione_.Execute("ROLLBACK TRANSACTION");
    } catch (...) {
      // The engine has already rolled back; the first error is the one to report.
    }
  }
  void conferma() {
    connessione_.Execute("COMMIT TRANSACTION");
    confermata_ = true;
  }

 private:
  Connection& connessione_;
  bool confermata_ = false;
};

}  // namespace cu
