#pragma once

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "archive/archivio.h"
#include "archive/archivio_di_prova.h"

namespace cu::test {

// An archive with schema and lists; what a test writes into it is taken back.
class EmptyArchive {
 public:
  EmptyArchive() { connection().Execute("BEGIN TRANSACTION"); }
  EmptyArchive(const EmptyArchive&) = delete;
  EmptyArchive& operator=(const EmptyArchive&) = delete;
  ~EmptyArchive() { connection().Execute("ROLLBACK TRANSACTION"); }
  Connection& operator*() const { return connection(); }
  Connection* operator->() const { return &connection(); }

 private:
  static Connection& connection() {
    static const std::unique_ptr<SqliteConnection> shared = [] {
      auto created = SqliteConnection::create(":memory:");
      creaArchivio(*created, ContenutoArchivio::Vuoto);
      return created;
    }();
    return *shared;
  }
};

inline std::vector<std::string> words(const char* text) {
  std::istringstream stream(text);
  std::vector<std::string> result;
  for (std::string word; stream >> word;) result.push_back(word);
  return result;
}

}  // namespace cu::test
