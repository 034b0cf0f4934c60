#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "data/rowstore.h"

namespace cu {

class Rowset;

// One connection to the suite's database. Statements are complete texts in the server's dialect, with values
// inlined. Every operation may raise DatabaseError.
class Connection {
 public:
  virtual ~Connection() = default;
  // Runs a statement without a result set and returns the number of rows affected: for several statements in
  // one text that of the last one, -1 where the engine does not report it.
  virtual std::int64_t Execute(std::string_view statement) = 0;
  // Runs a statement, or reads the whole table when the text is a plain table name; appends columns and rows
  // to `rows`.
  virtual void Query(std::string_view source, RowStore& rows) = 0;
  // Between these two calls all reads see one state of the database and need no lock each. Calls may nest; a
  // statement that writes may run between them where the engine permits it. No effect on an engine that does
  // not need it.
  virtual void BeginRead() {}
  virtual void EndRead() noexcept {}
  // Between these two calls statements that write become visible to other programs together, where the engine
  // would otherwise make a transaction of each. Calls may nest. A statement that fails leaves those before
  // it, which EndWrites() keeps. No effect on an engine on which a transaction is more work than the
  // statements.
  virtual void BeginWrites() {}
  virtual void EndWrites() {}
};

class ReadScope {
 public:
  explicit ReadScope(Connection& connection) : connection_(connection) { connection_.BeginRead(); }
  ~ReadScope() { connection_.EndRead(); }
  ReadScope(const ReadScope&) = delete;
  ReadScope& operator=(const ReadScope&) = delete;

 private:
  Connection& connection_;
};

// Few statements, without any wait for a person between them: other programs' writes wait for the end.
class WriteScope {
 public:
  explicit WriteScope(Connection& connection) : connection_(connection) { connection_.BeginWrites(); }
  // After an error, which is the one to report, what was written before it is kept.
  ~WriteScope() {
    if (ended_) return;
    try {
      connection_.EndWrites();
    } catch (...) {
      return;
    }
  }
  WriteScope(const WriteScope&) = delete;
  WriteScope& operator=(const WriteScope&) = delete;
  // The statements are in the database when it returns.
  void end() {
    ended_ = true;
    connection_.EndWrites();
  }

 private:
  Connection& connection_;
  bool ended_ = false;
};

// The session's database object.
class DatabaseHost {
 public:
  virtual ~DatabaseHost() = default;
  virtual Connection& connection() = 0;
  virtual Connection& internalConnection() = 0;
  // The connection used by controls, reports and the rebuild.
  virtual Connection& ownConnection() = 0;
  virtual std::unique_ptr<Rowset> CreateRowset() = 0;
};

// A look-up in one table or view: set fields, table and filter, open it, then read the values.
class Rowset {
 public:
  virtual ~Rowset() = default;
  virtual void addField(std::string_view name) = 0;
  virtual void setTable(std::string_view name) = 0;
  virtual void setFilter(std::string_view text) = 0;  // a condition; may be empty
  virtual void open() = 0;
  virtual bool eof() const = 0;
  // A field of the first row; Error 3265 for a name that was not added, 3021 without a row.
  virtual Value value(std::string_view field) const = 0;
};

// Rowset on any connection: "SELECT fields FROM table WHERE filter".
class ConnectionRowset : public Rowset {
 public:
  explicit ConnectionRowset(Connection& connection) : connection_(connection) {}
  void addField(std::string_view name) override;
  void setTable(std::string_view name) override { table_ = name; }
  void setFilter(std::string_view text) override { filter_ = text; }
  void open() override;
  bool eof() const override { return rows_ == nullptr || rows_->size() == 0; }
  Value value(std::string_view field) const override;
  std::string source() const;

 private:
  Connection& connection_;
  std::string fields_;
  std::string table_;
  std::string filter_;
  std::unique_ptr<RowStore> rows_;
};

}  // namespace cu
