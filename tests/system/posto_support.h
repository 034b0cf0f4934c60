#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "support/temp_folder.h"
#include "system/processo_support.h"

namespace cu::test {

// A place to run in: a folder with the demonstration database, a profile and a folder for documents.
class Posto {
 public:
  enum class Database { Dimostrativo, Vuoto, Nessuno };
  explicit Posto(Database database = Database::Dimostrativo);

  // The profile's keys as TOML values, by "section.key"; an empty value takes the key out.
  void imposta(const std::string& chiave, const std::string& valore);
  std::string profilo();  // written anew; its path

  Esecuzione cuctl(std::vector<std::string> argomenti, const std::string& ingresso = {});
  std::unique_ptr<Processo> guida();  // cuctl drive

  const TempFolder& cartella() const { return cartella_; }
  std::vector<std::string> file(const std::string& sotto) const;  // names in a folder, sorted

 private:
  TempFolder cartella_;
  std::map<std::string, std::map<std::string, std::string>> chiavi_;
};

}  // namespace cu::test
