#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "data/database.h"

namespace cu {

// The suite's database in one file of SQLite. Statements come in the server's dialect and are adapted here;
// one that cannot be is refused with a DatabaseError that names the construct.
//
// What the program holds is in the file when Execute returns: a killed process loses nothing of it, and a
// failed machine at most the last changes, never the file's order. For one thread.
class SqliteConnection final : public Connection {
 public:
  static std::unique_ptr<SqliteConnection> open(const std::string& path);  // an existing database
  // A database to be filled: a new file, or one that is there. ":memory:" is one that nobody else sees.
  static std::unique_ptr<SqliteConnection> create(const std::string& path);
  ~SqliteConnection() override;

  std::int64_t Execute(std::string_view statement) override;
  void Query(std::string_view source, RowStore& rows) override;
  // One read transaction. A statement that writes ends it, runs and begins another: what follows sees the
  // change, and others are not kept waiting.
  void BeginRead() override;
  void EndRead() noexcept override;

  // How long a lock held by another program is waited for, in milliseconds.
  void setPatience(int milliseconds);
  // Statements prepared since the opening: a text that differs from an earlier one in its values costs none.
  std::size_t prepared() const;

 private:
  struct State;
  explicit SqliteConnection(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

}  // namespace cu
