#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "server/tds_server.h"
#include "sqlite/sqlite_connection.h"

namespace cu::test {

// The answers of a server of the suite in one session: the embedded engine runs the server's statements, with
// a file for each database. Texts are limited to Windows-1252, as in the suite's columns: any other character
// becomes a question mark.
class SuiteSession {
 public:
  SuiteSession(std::string folder, std::string database)
      : folder_(std::move(folder)), database_(std::move(database)) {}

  TdsServer::Reply answer(std::string_view statement);

 private:
  std::string fileOf(const std::string& database) const { return folder_ + "/" + database + ".db"; }
  bool administered(const std::string& statement) const;
  void copy(const std::string& table, const std::string& to, const std::string& from) const;
  SqliteConnection& connection();

  std::string folder_;
  std::string database_;
  std::unique_ptr<SqliteConnection> connection_;
};

}  // namespace cu::test
