#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "support/temp_folder.h"
#include "system/processo_support.h"
#include "system/server_di_prova_support.h"

namespace cu::test {

// A place to run in: a folder with a profile, a folder for documents and the database, by default the
// demonstration company's.
class Posto {
 public:
  enum class Database { Dimostrativo, Vuoto, Nessuno };
  explicit Posto(Database database = Database::Dimostrativo);

  // The profile's keys as TOML values, by "section.key"; an empty value removes the key.
  void imposta(const std::string& chiave, const std::string& valore);
  std::string profilo();  // writes it again; returns its path

  Esecuzione cuctl(std::vector<std::string> argomenti, const std::string& ingresso = {});
  std::unique_ptr<Processo> guida(std::vector<std::string> altri = {});  // cuctl drive, and further arguments

  // The place's database.
  std::string indirizzo() const;
  // cuctl create, replacing the present database.
  Esecuzione crea(std::vector<std::string> argomenti);
  Esecuzione sulDatabase(const std::string& comando, std::vector<std::string> argomenti = {});
  std::unique_ptr<Lettore> lettore() const;
  const DatabaseDelServer* databaseDelServer() const { return database_.get(); }  // null where it is a file

  const TempFolder& cartella() const { return cartella_; }
  std::vector<std::string> file(const std::string& sotto) const;  // names in a folder, sorted

 private:
  void usa(std::unique_ptr<DatabaseDelServer> database);

  TempFolder cartella_;
  std::unique_ptr<DatabaseDelServer> database_;
  std::map<std::string, std::map<std::string, std::string>> chiavi_;
};

}  // namespace cu::test
