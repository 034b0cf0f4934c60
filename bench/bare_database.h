#pragma once

// The embedded engine's C API alone: the reference of every figure of the database.

#include <sqlite3.h>

#include <cstddef>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/collation.h"
#include "sqlite/parser.h"
#include "sqlite/rewrite.h"
#include "sqlite/stored_catalog.h"

namespace cu::bench {

// SQLite with the settings of a careful program and the order of the suite's texts.
class BareDatabase {
 public:
  explicit BareDatabase(const std::string& path) {
    if (sqlite3_open(path.c_str(), &handle_) != SQLITE_OK) throw std::runtime_error("cannot open " + path);
    execute(
        "PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL; PRAGMA secure_delete = OFF;"
        "PRAGMA temp_store = MEMORY; PRAGMA cache_size = -65536");
    sqlite3_create_collation(handle_, "NOCASE", SQLITE_UTF8, nullptr, compare);
  }
  ~BareDatabase() { sqlite3_close(handle_); }
  BareDatabase(const BareDatabase&) = delete;
  BareDatabase& operator=(const BareDatabase&) = delete;

  void execute(const std::string& text) {
    char* message = nullptr;
    if (sqlite3_exec(handle_, text.c_str(), nullptr, nullptr, &message) == SQLITE_OK) return;
    const std::string told = message == nullptr ? "" : message;
    sqlite3_free(message);
    throw std::runtime_error(told + ": " + text.substr(0, 200));
  }
  void execute(const std::vector<std::string>& texts) {
    for (const std::string& text : texts) execute(text);
  }
  sqlite3* handle() { return handle_; }

 private:
  static int compare(void*, int lengthA, const void* a, int lengthB, const void* b) {
    return compareItalian({static_cast<const char*>(a), static_cast<std::size_t>(lengthA)},
                          {static_cast<const char*>(b), static_cast<std::size_t>(lengthB)});
  }
  sqlite3* handle_ = nullptr;
};

class BareStatement {
 public:
  BareStatement(BareDatabase& database, const std::string& text) {
    if (sqlite3_prepare_v2(database.handle(), text.c_str(), -1, &statement_, nullptr) != SQLITE_OK) {
      throw std::runtime_error(std::string(sqlite3_errmsg(database.handle())) + ": " + text.substr(0, 200));
    }
  }
  ~BareStatement() { sqlite3_finalize(statement_); }
  BareStatement(const BareStatement&) = delete;
  BareStatement& operator=(const BareStatement&) = delete;
  sqlite3_stmt* get() const { return statement_; }
  bool step() const {
    const int code = sqlite3_step(statement_);
    if (code != SQLITE_ROW && code != SQLITE_DONE) throw std::runtime_error("a bare statement has failed");
    return code == SQLITE_ROW;
  }
  void reset() const { sqlite3_reset(statement_); }

  // Reads every cell of the current row, as any reader has to; returns a number that depends on all of them.
  std::size_t readRow() const {
    std::size_t seen = 1;
    const int columns = sqlite3_column_count(statement_);
    for (int i = 0; i < columns; ++i) {
      switch (sqlite3_column_type(statement_, i)) {
        case SQLITE_INTEGER:
          seen += static_cast<std::size_t>(sqlite3_column_int64(statement_, i) & 1);
          break;
        case SQLITE_FLOAT:
          seen += sqlite3_column_double(statement_, i) > 0 ? 1U : 0U;
          break;
        case SQLITE_TEXT:
          seen += sqlite3_column_text(statement_, i)[0];
          seen += static_cast<std::size_t>(sqlite3_column_bytes(statement_, i));
          break;
        default:
          break;
      }
    }
    return seen;
  }

  // Steps to the end and reads every row.
  std::size_t drain() const {
    std::size_t seen = 0;
    while (step()) seen += readRow();
    reset();
    return seen;
  }

 private:
  sqlite3_stmt* statement_ = nullptr;
};

inline void replaceAll(std::string& text, const std::string& what, const std::string& by) {
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + by.size())) {
    text.replace(at, what.size(), by);
  }
}

// A text of the system in the engine's dialect, with its values inlined, without the program's functions.
inline std::vector<std::string> plain(BareDatabase& database, const std::string& text) {
  const sqlite::StoredCatalog catalog(database.handle());
  const sqlite::TokenList tokens = sqlite::tokenize(text);
  std::vector<std::string> result;
  for (const sqlite::StatementPtr& statement : sqlite::parseStatements(tokens)) {
    if (const auto* exec = std::get_if<sqlite::ExecStatement>(&statement->body)) {
      return plain(database, sqlite::plainText(tokens.literals[exec->literal]));
    }
    for (const sqlite::Piece& piece : sqlite::rewrite(*statement, tokens.literals, catalog).pieces) {
      std::string sql = piece.sql;
      for (std::size_t i = tokens.literals.size(); i > 0; --i) {
        const sqlite::Literal& literal = tokens.literals[i - 1];
        std::string value(literal.text);
        if (literal.kind == sqlite::Literal::Kind::Text) value = "'" + value + "'";
        replaceAll(sql, "?" + std::to_string(i), value);
      }
      replaceAll(sql, "cu_amount(", "(");
      replaceAll(sql, "cu_sum(", "sum(");
      result.push_back(sql);
    }
  }
  return result;
}

inline std::string plainOne(BareDatabase& database, const std::string& text) {
  return plain(database, text).front();
}

}  // namespace cu::bench
