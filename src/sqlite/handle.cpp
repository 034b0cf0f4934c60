#include "sqlite/handle.h"

#include "sqlite/errors.h"

namespace cu::sqlite {

StatementHandle prepare(sqlite3* database, std::string_view sql, std::string_view kind, bool kept) {
  sqlite3_stmt* statement = nullptr;
  const unsigned flags = kept ? SQLITE_PREPARE_PERSISTENT : 0U;
  const int code =
      sqlite3_prepare_v3(database, sql.data(), static_cast<int>(sql.size()), flags, &statement, nullptr);
  if (code != SQLITE_OK) raise(database, kind);
  return StatementHandle(statement);
}

StatementHandle preparePragma(sqlite3* database, std::string_view pragma, std::string_view name) {
  std::string sql = "PRAGMA main.";
  sql.append(pragma).append("('");
  for (const char c : name) sql.append(c == '\'' ? 2 : 1, c);
  return prepare(database, sql += "')", "");
}

void execute(sqlite3* database, const char* sql) {
  if (sqlite3_exec(database, sql, nullptr, nullptr, nullptr) != SQLITE_OK) raise(database, "");
}

void RepeatedStatement::run(sqlite3* database) {
  if (!statement_) statement_ = prepare(database, sql_, "", true);
  const Running running(statement_.get());
  if (sqlite3_step(statement_.get()) != SQLITE_DONE) raise(database, "");
}

}  // namespace cu::sqlite
