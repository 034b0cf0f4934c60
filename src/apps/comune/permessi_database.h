#pragma once

#include <functional>
#include <optional>
#include <string>

#include "suite/profilo.h"

namespace cu {

// Whether others can read an embedded database, which is reported once for each file. The files that have
// been reported are remembered in a file of the user; where that cannot be written, the report comes again.
class PermessiDatabase {
 public:
  // The file with a path on each line; empty for none.
  explicit PermessiDatabase(std::string memoria = memoriaDelUtente()) : memoria_(std::move(memoria)) {}

  // Who can read it, as the end of a sentence ("da ogni utente di questo computer"), unless it was reported
  // before. Nothing for a database of a server, and for one that its owner alone can read.
  std::optional<std::string> daSegnalare(const Profilo::Database& database) const;
  void segnalato(const Profilo::Database& database) const;

  // $XDG_STATE_HOME/cuwizard/permessi-segnalati, or below the user's home.
  static std::string memoriaDelUtente();

 private:
  std::string memoria_;
};

// Makes a database, with the files of the engine next to it, readable by its owner alone. FileError.
void riservaDatabase(const Profilo::Database& database);

// From now on apriConnessione and the like pass on a line for the user where a database is to be reported,
// and remember it.
void ascoltaPermessi(std::function<void(const std::string&)> avviso);
void segnalaPermessi(const Profilo::Database& database);

}  // namespace cu
