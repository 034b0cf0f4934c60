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
  std::string password;  // of the user of the text; not part of it
  bool encrypt = true;
  int loginSeconds = 15;
  int statementSeconds = 600;  // 0 for no limit
};

// A database server behind an ODBC driver. A statement reaches it as it stands; a plain table name is read
// with "SELECT * FROM name".
//
// A result is read to its end before Query returns, so that nothing of one statement is left open when the
// next comes: one handle serves every Connection of the session. A connection that was lost tells so once,
// with what was under way, and is made anew for the next statement. For one thread.
class OdbcConnection final : public Connection {
 public:
  // What the driver cannot do and what is not as safe as it should be is told to `warn`, in Italian.
  static std::unique_ptr<OdbcConnection> open(const OdbcSettings& settings,
                                              const std::function<void(const std::string&)>& warn);
  // Whether the text leaves the server to ask for a password. DatabaseError for a text that is none.
  static bool wantsPassword(std::string_view text);
  ~OdbcConnection() override;

  std::int64_t Execute(std::string_view statement) override;
  void Query(std::string_view source, RowStore& rows) override;

  // Of the last result.
  std::size_t rowsPerBlock() const;
  // The server's own name and version: "Microsoft SQL Server 15.00.2000".
  std::string product() const;
  bool isSqlServer() const;

 private:
  struct State;
  explicit OdbcConnection(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

}  // namespace cu
