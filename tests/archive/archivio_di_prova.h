#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"
#include "data/database.h"
#include "sqlite/sqlite_connection.h"

namespace cu::test {

// The rows of a query, read by name.
class Righe {
 public:
  Righe(Connection& connection, std::string_view source) { connection.Query(source, store_); }
  std::size_t size() const { return store_.size(); }
  const Columns& columns() const { return *store_.columns(); }
  Value value(std::size_t row, std::string_view column) const {
    std::vector<CellView> cells(columns().size());
    store_.read(row, cells.data());
    const std::size_t at = columns().find(column);
    if (at == Columns::kNone) throw std::logic_error("no column " + std::string(column));
    return Value::of(cells[at]);
  }
  std::string text(std::size_t row, std::string_view column) const {
    return value(row, column).view().toText();
  }
  std::int64_t integer(std::size_t row, std::string_view column) const {
    return value(row, column).view().integer();
  }
  Decimal amount(std::size_t row, std::string_view column) const {
    return value(row, column).view().decimal();
  }
  bool isNull(std::size_t row, std::string_view column) const { return value(row, column).isNull(); }
  std::vector<std::string> names() const {
    std::vector<std::string> result;
    for (std::size_t i = 0; i < columns().size(); ++i) result.push_back(columns()[i].name);
    return result;
  }

 private:
  RowStore store_;
};

inline std::int64_t number(Connection& connection, std::string_view question) {
  RowStore rows;
  connection.Query(question, rows);
  std::vector<CellView> cells(rows.columns()->size());
  rows.read(0, cells.data());
  return cells.at(0).integer();
}

// Rejects a statement that contains the given text, and forwards all others.
class RefusingConnection : public Connection {
 public:
  RefusingConnection(Connection& connection, std::string piece)
      : connection_(connection), piece_(std::move(piece)) {}
  std::int64_t Execute(std::string_view statement) override {
    if (statement.find(piece_) != std::string_view::npos) {
      throw DatabaseError(DatabaseErrorKind::Full, 0, "", "Spazio esaurito.");
    }
    return connection_.Execute(statement);
  }
  void Query(std::string_view source, RowStore& rows) override { connection_.Query(source, rows); }

 private:
  Connection& connection_;
  std::string piece_;
};

// A database host on one connection.
class OneConnectionHost : public DatabaseHost {
 public:
  explicit OneConnectionHost(Connection& connection) : connection_(connection) {}
  Connection& connection() override { return connection_; }
  Connection& internalConnection() override { return connection_; }
  Connection& ownConnection() override { return connection_; }
  std::unique_ptr<Rowset> CreateRowset() override { return std::make_unique<ConnectionRowset>(connection_); }

 private:
  Connection& connection_;
};

}  // namespace cu::test
