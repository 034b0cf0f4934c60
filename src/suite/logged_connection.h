#pragma once

#include <memory>

#include "data/database.h"
#include "suite/support_log.h"

namespace cu {

// Records kind, table, duration, rows and error of every statement, and passes it on as it is. The log
// outlives it.
class LoggedConnection : public Connection {
 public:
  LoggedConnection(std::unique_ptr<Connection> connection, SupportLog& log)
      : connection_(std::move(connection)), log_(log) {}
  std::int64_t Execute(std::string_view statement) override;
  void Query(std::string_view source, RowStore& rows) override;
  void BeginRead() override { connection_->BeginRead(); }
  void EndRead() noexcept override { connection_->EndRead(); }
  void BeginWrites() override { connection_->BeginWrites(); }
  void EndWrites() override { connection_->EndWrites(); }

 private:
  std::unique_ptr<Connection> connection_;
  SupportLog& log_;
};

// The connection itself where the process has no log.
std::unique_ptr<Connection> withLog(std::unique_ptr<Connection> connection);

}  // namespace cu
