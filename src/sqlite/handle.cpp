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

void execute(sqlite3* database, const char* sql) {
  if (sqlite3_exec(database, sql, nullptr, nullptr, nullptr) != SQLITE_OK) raise(database, "");
}

}  // namespace cu::sqlite
