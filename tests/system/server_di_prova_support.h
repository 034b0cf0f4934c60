#pragma once

#include <memory>
#include <string>

#include "system/lettore_support.h"

namespace cu::test {

// The system tests on a server: where CU_TEST_SERVER contains the connection text of a Microsoft SQL Server,
// such as "Driver=FreeTDS;Server=...;Port=1433;UID=...", and CU_TEST_PASSWORD the password, each place has a
// database of its own there instead of a file. The user is required to have the right to create databases.
bool sulServer();
inline constexpr const char* kVariabilePassword = "CU_TEST_PASSWORD";

// A database on that server, deleted with the object.
class DatabaseDelServer {
 public:
  DatabaseDelServer();
  explicit DatabaseDelServer(
      const DatabaseDelServer& modello);  // with all tables and the rows of the suite's
  ~DatabaseDelServer();
  DatabaseDelServer& operator=(const DatabaseDelServer&) = delete;

  std::string indirizzo() const;  // "odbc:..."
  std::unique_ptr<Lettore> lettore() const;

 private:
  std::string nome_;
};

}  // namespace cu::test
