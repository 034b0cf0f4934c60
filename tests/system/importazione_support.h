#pragma once

#include <map>
#include <string>
#include <vector>

#include "support/temp_folder.h"
#include "system/processo_support.h"

namespace cu::test {

// A database with a company and its payees, and a table of a few thousand payments of three years to import.
class LuogoImportazione {
 public:
  // The database is in the folder `dove`, or in the temporary folder; the table and what the program writes
  // to standard error are in the temporary folder.
  LuogoImportazione();
  explicit LuogoImportazione(const std::string& dove);

  std::vector<std::string> argomenti() const;  // of the import, the program's path first
  const std::string& cartella() const { return tabella_.path(); }
  std::string database() const { return database_ / "importazione.db"; }
  Esecuzione importa() const { return esegui(argomenti(), cartella()); }

  // The tables that an import of payments writes, each as one text; of the batch all but the moment. Under
  // "integrità" the engine's own check, "ok".
  using Tavole = std::map<std::string, std::string>;
  Tavole tavole() const;
  static const Tavole& prima();
  static const Tavole& dopo();

 private:
  TempFolder database_;
  TempFolder tabella_;
};

}  // namespace cu::test
