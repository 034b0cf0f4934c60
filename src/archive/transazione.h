#pragma once

#include "data/database.h"

namespace cu {

// All or nothing: what is not confirmed by conferma() is taken back when the object goes.
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
      // The engine has taken it back by itself: the first error is the one to be told.
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
