#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>
#include <string_view>

namespace cu::sqlite {

struct CloseDatabase {
  void operator()(sqlite3* database) const { sqlite3_close_v2(database); }
};
using DatabaseHandle = std::unique_ptr<sqlite3, CloseDatabase>;

struct FinalizeStatement {
  void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
};
using StatementHandle = std::unique_ptr<sqlite3_stmt, FinalizeStatement>;

// Resets a prepared statement when its run ends, also by an error.
class Running {
 public:
  explicit Running(sqlite3_stmt* statement) : statement_(statement) {}
  ~Running() { sqlite3_reset(statement_); }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;

 private:
  sqlite3_stmt* statement_;
};

// Raises DatabaseError. `kind` is the first word of the statement ("SELECT"), or empty.
StatementHandle prepare(sqlite3* database, std::string_view sql, std::string_view kind, bool kept = false);
// What the engine says of a table or an index of the database: the pragma of that name. Prepared in a third
// of the time of the same question as a table of a query.
StatementHandle preparePragma(sqlite3* database, std::string_view pragma, std::string_view name);
// Runs one or more of the connection's own statements, without rows.
void execute(sqlite3* database, const char* sql);

// One of the connection's own statements without rows, which repeats: prepared when it is first run.
class RepeatedStatement {
 public:
  explicit RepeatedStatement(const char* sql) : sql_(sql) {}
  // Raises DatabaseError.
  void run(sqlite3* database);

 private:
  const char* sql_;
  StatementHandle statement_;
};

inline std::string_view columnText(sqlite3_stmt* statement, int column) {
  const unsigned char* text = sqlite3_column_text(statement, column);
  if (text == nullptr) return {};
  return {reinterpret_cast<const char*>(text),
          static_cast<std::size_t>(sqlite3_column_bytes(statement, column))};
}

inline std::string_view valueText(sqlite3_value* value) {
  const unsigned char* text = sqlite3_value_text(value);
  if (text == nullptr) return {};
  return {reinterpret_cast<const char*>(text), static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

}  // namespace cu::sqlite
