#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "data/database.h"
#include "suite/platform_file.h"

namespace cu {

// The trace of statements: one JSON string per line, written to the disk before the statement runs. The
// constructor empties the file; a new one is its owner's alone, because statements have values. Raises
// FileError when it cannot be written: a trace with gaps would mislead. A file that is there and is no trace
// is not emptied, but refused with FileError.
class TracciaSql {
 public:
  explicit TracciaSql(const std::string& path);
  void scrivi(std::string_view istruzione);

 private:
  std::string path_;
  Descriptor file_;
};

// A text as a JSON string, with its quotes. Bytes that are not UTF-8 become U+FFFD.
std::string stringaJson(std::string_view testo);

// Writes every statement to the trace and passes it on.
class ConnessioneTracciata : public Connection {
 public:
  ConnessioneTracciata(Connection& connessione, TracciaSql& traccia)
      : connessione_(connessione), traccia_(traccia) {}
  std::int64_t Execute(std::string_view statement) override {
    traccia_.scrivi(statement);
    return connessione_.Execute(statement);
  }
  void Query(std::string_view source, RowStore& rows) override {
    traccia_.scrivi(source);
    connessione_.Query(source, rows);
  }
  void BeginRead() override { connessione_.BeginRead(); }
  void EndRead() noexcept override { connessione_.EndRead(); }
  void BeginWrites() override { connessione_.BeginWrites(); }
  void EndWrites() override { connessione_.EndWrites(); }

 private:
  Connection& connessione_;
  TracciaSql& traccia_;
};

// The session's database object for one connection; the trace may be null.
class DatabaseSuite : public DatabaseHost {
 public:
  DatabaseSuite(std::unique_ptr<Connection> connessione, TracciaSql* traccia);
  Connection& connection() override {
    if (tracciata_ != nullptr) return *tracciata_;
    return *connessione_;
  }
  Connection& internalConnection() override { return connection(); }
  Connection& ownConnection() override { return *connessione_; }
  std::unique_ptr<Rowset> CreateRowset() override;

 private:
  std::unique_ptr<Connection> connessione_;
  std::unique_ptr<ConnessioneTracciata> tracciata_;
};

}  // namespace cu
