#pragma once

#include <memory>

#include "data/database.h"
#include "misura.h"
#include "support/fake_session.h"

namespace cu::bench {

// A database object with one connection for all purposes, as with the embedded engine.
class OneConnection : public DatabaseHost {
 public:
  explicit OneConnection(Connection& connection) : connection_(connection) {}
  Connection& connection() override { return connection_; }
  Connection& internalConnection() override { return connection_; }
  Connection& ownConnection() override { return connection_; }
  std::unique_ptr<Rowset> CreateRowset() override { return std::make_unique<ConnectionRowset>(connection_); }

 private:
  Connection& connection_;
};

// Forwards all calls and sums the time spent in the database.
class TimedConnection : public Connection {
 public:
  explicit TimedConnection(Connection& inner) : inner_(inner) {}
  std::int64_t Execute(std::string_view statement) override {
    std::int64_t touched = -1;
    spent += seconds([&] { touched = inner_.Execute(statement); });
    return touched;
  }
  void Query(std::string_view source, RowStore& rows) override {
    spent += seconds([&] { inner_.Query(source, rows); });
  }
  void BeginRead() override { inner_.BeginRead(); }
  void EndRead() noexcept override { inner_.EndRead(); }
  void BeginWrites() override { inner_.BeginWrites(); }
  void EndWrites() override { inner_.EndWrites(); }
  double spent = 0;

 private:
  Connection& inner_;
};

// A session of user 12 and company 1 on it.
class OneSession : public test::FakeSession {
 public:
  explicit OneSession(DatabaseHost& database) : FakeSession(unused_), database_(database) {}
  DatabaseHost& database() override { return database_; }

 private:
  test::FakeDatabase unused_;
  DatabaseHost& database_;
};

}  // namespace cu::bench
