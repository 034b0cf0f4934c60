#include "sqlite/sqlite_connection.h"

#include <utility>

#include "sqlite/engine.h"
#include "sqlite/open.h"
#include "sqlite/patience.h"
#include "sqlite/read_only.h"

namespace cu {

struct SqliteConnection::State {
  explicit State(sqlite::DatabaseHandle database) : engine(std::move(database)) {}
  sqlite::Patience patience;  // also while the engine closes the file
  sqlite::Engine engine;
};

SqliteConnection::SqliteConnection(std::unique_ptr<State> state) : state_(std::move(state)) {}
SqliteConnection::~SqliteConnection() = default;

std::unique_ptr<SqliteConnection> SqliteConnection::open(const std::string& path) {
  return std::unique_ptr<SqliteConnection>(
      new SqliteConnection(std::make_unique<State>(sqlite::openFile(path, false))));
}

std::unique_ptr<SqliteConnection> SqliteConnection::openToRead(const std::string& path) {
  return std::unique_ptr<SqliteConnection>(
      new SqliteConnection(std::make_unique<State>(sqlite::openToRead(path).handle)));
}

std::unique_ptr<SqliteConnection> SqliteConnection::create(const std::string& path) {
  return std::unique_ptr<SqliteConnection>(
      new SqliteConnection(std::make_unique<State>(sqlite::openFile(path, true))));
}

std::int64_t SqliteConnection::Execute(std::string_view statement) {
  state_->engine.run(statement, nullptr);
  return state_->engine.touched();
}

void SqliteConnection::Query(std::string_view source, RowStore& rows) { state_->engine.run(source, &rows); }

void SqliteConnection::BeginRead() { state_->engine.transactions().beginRead(); }

void SqliteConnection::EndRead() noexcept { state_->engine.transactions().endRead(); }

void SqliteConnection::BeginWrites() { state_->engine.transactions().beginWrites(); }

void SqliteConnection::EndWrites() { state_->engine.transactions().endWrites(); }

void SqliteConnection::setPatience(int milliseconds, std::function<void()> waiting) {
  state_->patience.install(state_->engine.handle(), milliseconds, std::move(waiting));
}

std::size_t SqliteConnection::prepared() const { return state_->engine.prepared(); }

}  // namespace cu
