#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "data/database.h"

namespace cu {

// The suite's database in one SQLite file. Statements in the server's dialect are adapted here; one that
// cannot be adapted is rejected with a DatabaseError that names the construct.
//
// When Execute returns, the change is in the file: a killed process loses none of it, a failed machine at
// most the last changes, never the file's consistency. Not thread-safe.
class SqliteConnection final : public Connection {
 public:
  static std::unique_ptr<SqliteConnection> open(const std::string& path);  // an existing database
  // The same for one that is only read: it may be one that this process may not write. A statement that
  // writes then raises DatabaseError.
  static std::unique_ptr<SqliteConnection> openToRead(const std::string& path);
  // Opens a database to be filled: a new file, or an existing one. ":memory:" is a private one.
  static std::unique_ptr<SqliteConnection> create(const std::string& path);
  ~SqliteConnection() override;

  std::int64_t Execute(std::string_view statement) override;
  void Query(std::string_view source, RowStore& rows) override;
  // One read transaction. A statement that writes ends it, runs and begins another one: later reads see the
  // change, and other processes do not wait.
  void BeginRead() override;
  void EndRead() noexcept override;
  // One write transaction, from the first statement that writes; a query between them sees it.
  void BeginWrites() override;
  void EndWrites() override;

  // How long to wait for a lock of another program, in milliseconds. `waiting` is called once, when it has
  // been waited for five seconds; it raises nothing.
  void setPatience(int milliseconds, std::function<void()> waiting = {});
  // Number of statements prepared since the opening: a text that differs from an earlier one only in its
  // values needs none.
  std::size_t prepared() const;

 private:
  struct State;
  explicit SqliteConnection(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

}  // namespace cu
