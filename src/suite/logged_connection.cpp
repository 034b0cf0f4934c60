#include "suite/logged_connection.h"

#include "suite/log_text.h"

namespace cu {
namespace {

constexpr const char* kStatement = "istruzione";

}  // namespace

std::int64_t LoggedConnection::Execute(std::string_view statement) {
  const StatementSubject subject = statementSubject(statement);
  LogEntry entry{.operation = kStatement, .detail = subject.kind, .object = subject.table};
  return logged(&log_, entry, [&] {
    const std::int64_t rows = connection_->Execute(statement);
    if (rows >= 0) entry.rows = rows;
    return rows;
  });
}

void LoggedConnection::Query(std::string_view source, RowStore& rows) {
  const StatementSubject subject = statementSubject(source);
  LogEntry entry{.operation = kStatement, .detail = subject.kind, .object = subject.table};
  logged(&log_, entry, [&] {
    const std::size_t before = rows.size();
    connection_->Query(source, rows);
    entry.rows = static_cast<std::int64_t>(rows.size() - before);
  });
}

std::unique_ptr<Connection> withLog(std::unique_ptr<Connection> connection) {
  SupportLog* const log = SupportLog::active();
  if (log == nullptr) return connection;
  return std::make_unique<LoggedConnection>(std::move(connection), *log);
}

}  // namespace cu
