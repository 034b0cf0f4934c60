// A server over the loopback, compared with a program that only calls the ODBC API with the same block.

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <vector>

#include "misura.h"
#include "odbc/api.h"
#include "odbc/handle.h"
#include "odbc/odbc_connection.h"
#include "support/postgres_server.h"

namespace cu::bench {
namespace {

constexpr int kRounds = 5;
constexpr int kParts = 20;  // short rounds: a disturbance affects few of them

// The work table's 101 columns, by their kinds.
std::string columnsOfWorkTable(bool definition) {
  std::string text;
  for (int i = 0; i < 101; ++i) {
    const char* type = i % 10 == 0 ? " int" : i % 2 == 0 ? " varchar(255)" : " decimal(18,4)";
    const char* value = i % 10 == 0  ? "i"
                        : i % 2 == 0 ? "CASE WHEN i % 3 = 0 THEN NULL ELSE 'Rossi Mario' END"
                                     : "i + 0.25";
    text += (i > 0 ? ", " : "") + (definition ? "c" + std::to_string(i) + type : std::string(value));
  }
  return text;
}

// The same API calls alone.
class Bare {
 public:
  Bare(const std::string& text, std::size_t block) : block_(block) {
    SQLAllocHandle(SQL_HANDLE_ENV, nullptr, &environment_);
    SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, odbc::number(SQL_OV_ODBC3), 0);
    SQLAllocHandle(SQL_HANDLE_DBC, environment_, &session_);
    std::vector<SQLCHAR> given(text.begin(), text.end());
    need(SQLDriverConnect(session_, nullptr, given.data(), static_cast<SQLSMALLINT>(given.size()), nullptr, 0,
                          nullptr, SQL_DRIVER_NOPROMPT));
    SQLAllocHandle(SQL_HANDLE_STMT, session_, &statement_);
  }
  ~Bare() {
    SQLFreeHandle(SQL_HANDLE_STMT, statement_);
    SQLDisconnect(session_);
    SQLFreeHandle(SQL_HANDLE_DBC, session_);
    SQLFreeHandle(SQL_HANDLE_ENV, environment_);
  }
  Bare(const Bare&) = delete;
  Bare& operator=(const Bare&) = delete;

  void execute(const std::string& text) {
    need(SQLExecDirect(statement_, bytes(text), static_cast<SQLINTEGER>(text.size())));
    SQLFreeStmt(statement_, SQL_CLOSE);
  }
  // Reads every cell, as any reader has to; returns the number of bytes read.
  std::size_t fetch(const std::string& text) {
    need(SQLExecDirect(statement_, bytes(text), static_cast<SQLINTEGER>(text.size())));
    SQLSMALLINT count = 0;
    SQLNumResultCols(statement_, &count);
    if (cells_.empty()) bind(count);
    std::size_t seen = 0;
    while (SQL_SUCCEEDED(SQLFetch(statement_))) {
      for (SQLULEN row = 0; row < fetched_; ++row) {
        for (std::size_t i = 0; i < cells_.size(); ++i) {
          const SQLLEN length = lengths_[i * block_ + row];
          if (length != SQL_NULL_DATA) seen += static_cast<std::size_t>(length + cells_[i][row * widths_[i]]);
        }
      }
    }
    SQLFreeStmt(statement_, SQL_CLOSE);
    return seen;
  }

 private:
  static SQLCHAR* bytes(const std::string& text) {
    return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text.data()));
  }
  void need(SQLRETURN code) const {
    if (!SQL_SUCCEEDED(code)) throw std::runtime_error("the bare program failed");
  }
  void bind(SQLSMALLINT count) {
    SQLSetStmtAttr(statement_, SQL_ATTR_ROW_ARRAY_SIZE, odbc::number(block_), 0);
    SQLSetStmtAttr(statement_, SQL_ATTR_ROWS_FETCHED_PTR, &fetched_, 0);
    lengths_.resize(static_cast<std::size_t>(count) * block_);
    for (SQLSMALLINT i = 0; i < count; ++i) {
      SQLCHAR name[64];
      SQLSMALLINT type = 0;
      SQLULEN size = 0;
      SQLDescribeCol(statement_, static_cast<SQLUSMALLINT>(i + 1), name, sizeof name, nullptr, &type, &size,
                     nullptr, nullptr);
      const bool whole = type == SQL_INTEGER;
      const bool amount = type == SQL_NUMERIC;
      const std::size_t width = whole ? sizeof(SQLBIGINT) : amount ? 64 : (size + 1) * sizeof(SQLWCHAR);
      widths_.push_back(width);
      cells_.push_back(std::make_unique<char[]>(width * block_));
      need(SQLBindCol(statement_, static_cast<SQLUSMALLINT>(i + 1),
                      static_cast<SQLSMALLINT>(whole    ? SQL_C_SBIGINT
                                               : amount ? SQL_C_CHAR
                                                        : SQL_C_WCHAR),
                      cells_.back().get(), static_cast<SQLLEN>(width),
                      &lengths_[static_cast<std::size_t>(i) * block_]));
    }
  }

  std::size_t block_;
  SQLHANDLE environment_ = nullptr;
  SQLHANDLE session_ = nullptr;
  SQLHANDLE statement_ = nullptr;
  SQLULEN fetched_ = 0;
  std::vector<std::unique_ptr<char[]>> cells_;
  std::vector<std::size_t> widths_;
  std::vector<SQLLEN> lengths_;
};

// `parts` is the number of rounds that make up the figure.
void compare(const std::string& name, int parts, const std::string& promise,
             const std::function<void()>& ours, const std::function<void()>& bare) {
  const Pair times = best(std::max(kRounds, parts), ours, bare);
  print({name, times.ours * parts, times.limit * parts, "the same calls of the ODBC API, bare", promise});
}

void measure(int rows, int statements) {
  const test::PostgresServer server;
  OdbcSettings settings;
  settings.text = server.text();
  settings.password = test::PostgresServer::kPassword;
  const auto connection = OdbcConnection::open(settings, [](const std::string&) {});
  connection->Execute("CREATE TABLE lavoro (" + columnsOfWorkTable(true) + ")");
  connection->Execute("INSERT INTO lavoro SELECT " + columnsOfWorkTable(false) + " FROM generate_series(1, " +
                      std::to_string(rows) + ") AS s(i)");
  connection->Execute("CREATE TABLE riga (id int PRIMARY KEY, a int)");
  connection->Execute("INSERT INTO riga VALUES (1, 0)");

  RowStore sample;
  connection->Query("SELECT * FROM lavoro LIMIT 1", sample);
  Bare bare(server.text() + ";PWD={" + "se;gr}}e+t%o" + "}", connection->rowsPerBlock());
  compare(
      grouped(rows) + " rows of 101 columns, blocks of " + std::to_string(connection->rowsPerBlock()), 1,
      "ratio:1.5",
      [&] {
        RowStore all;
        connection->Query("SELECT * FROM lavoro", all);
        if (all.size() != static_cast<std::size_t>(rows)) std::abort();
      },
      [&] {
        if (bare.fetch("SELECT * FROM lavoro") == 0) std::abort();
      });
  const auto each = [&](const auto& run) {
    for (int i = 0; i < statements / kParts; ++i)
      run("UPDATE riga SET a = " + std::to_string(i) + " WHERE id = 1");
  };
  Bare second(server.text() + ";PWD={" + "se;gr}}e+t%o" + "}", 1);
  compare(
      grouped(statements) + " single statements", kParts, "ratio:1.1",
      [&] { each([&](const std::string& text) { connection->Execute(text); }); },
      [&] { each([&](const std::string& text) { second.execute(text); }); });
  compare(
      grouped(statements) + " single rows", kParts, "",
      [&] {
        for (int i = 0; i < statements / kParts; ++i) {
          RowStore one;
          connection->Query("SELECT id, a FROM riga WHERE id = 1", one);
        }
      },
      [&] {
        for (int i = 0; i < statements / kParts; ++i) second.fetch("SELECT id, a FROM riga WHERE id = 1");
      });
}

}  // namespace
}  // namespace cu::bench

int main(int argc, char** argv) {
  const int rows = argc > 1 ? std::atoi(argv[1]) : 100000;
  cu::bench::measure(rows, argc > 2 ? std::atoi(argv[2]) : 100000);
}
