#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "data/database.h"

namespace cu {

struct OdbcSettings {
  std::string text;      // keywords and values: "Driver=FreeTDS;Server=...;Database=...;UID=..."
  std::string password;  // of the text's user; not part of the text
  bool encrypt = true;
  int loginSeconds = 15;
  int statementSeconds = 600;  // 0 for no limit
};

// A database server behind an ODBC driver. Statements are sent unchanged; a plain table name is read with
// "SELECT * FROM name".
//
// Query reads a result to its end, so that no statement is left open when the next one runs: one handle
// serves every Connection of the session. A lost connection is reported once, by the running operation, and
// is reopened for the next statement. Not thread-safe.
class OdbcConnection final : public Connection {
 public:
  // `warn` receives, in Italian, missing capabilities of the driver and security weaknesses of the
  // connection.
  static std::unique_ptr<OdbcConnection> open(const OdbcSettings& settings,
                                              const std::function<void(const std::string&)>& warn);
  // Whether the server requires a password that the text does not replace. DatabaseError for an invalid text.
  static bool wantsPassword(std::string_view text);
  ~OdbcConnection() override;

  std::int64_t Execute(std::string_view statement) override;
  void Query(std::string_view source, RowStore& rows) override;

  // For the last result.
  std::size_t rowsPerBlock() const;
  // The server's name and version: "Microsoft SQL Server 15.00.2000".
  std::string product() const;
  bool isSqlServer() const;

 private:
  struct State;
  explicit OdbcConnection(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

}  // namespace cu
