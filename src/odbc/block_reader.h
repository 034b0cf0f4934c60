#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "data/rowstore.h"
#include "odbc/handle.h"
#include "odbc/watchdog.h"

namespace cu::odbc {

// A call of the API failed; the statement's diagnostics say why.
struct CallFailed {};

// Reads a result into rows: forward only, a block of rows at a time into a buffer a column. A text may be
// longer than its column is declared; then it is asked for by itself, piece by piece. Where a column is
// declared without a limit the rows come one by one.
class BlockReader {
 public:
  // `wide`: the driver gives texts as wide characters; otherwise they are taken as UTF-8. `rereads`: it gives
  // a cell of a block once more.
  BlockReader(bool wide, bool rereads) : wide_(wide), rereads_(rereads) {}

  // The result at which the statement stands, of so many columns. The time allowed counts for each call of
  // the driver. CallFailed, DatabaseError for a value that has no place in a row.
  void read(const StatementHandle& statement, SQLSMALLINT columns, RowStore& rows, Watchdog& watchdog,
            int seconds);

  std::size_t rowsPerBlock() const { return block_; }

  static constexpr std::size_t kBlockBytes = std::size_t{1} << 21;  // of the buffers together
  static constexpr std::size_t kMostRows = 512;
  // Many results are a row or two, and a driver looks at every place of a block.
  static constexpr std::size_t kFirstRows = 8;
  static constexpr std::size_t kLongestBound = 8000;  // characters

 private:
  enum class Form : std::uint8_t { Integer, Real, Amount, Date, Text };
  struct Described {
    std::vector<SQLWCHAR> name;
    SQLSMALLINT type = 0;
    SQLULEN size = 0;
    friend bool operator==(const Described&, const Described&) = default;
  };
  struct Bound {
    Form form = Form::Text;
    SQLSMALLINT cType = SQL_C_CHAR;
    std::size_t cell = 0;  // bytes; 0: not bound, asked for row by row
    char* cells = nullptr;
    SQLLEN* lengths = nullptr;
  };

  void describe(const StatementHandle& statement, SQLSMALLINT count);
  void plan();
  void bind(const StatementHandle& statement);
  void setRowset(const StatementHandle& statement, std::size_t rowset);
  Bound boundOf(const Described& column) const;
  void row(const StatementHandle& statement, std::size_t row, RowStore& rows);
  void cell(const Bound& column, const char* content, SQLLEN length, RowStore& rows);
  void text(const char* content, std::size_t bytes, RowStore& rows);
  bool truncated(const Bound& column, SQLLEN length) const;
  void askFor(const StatementHandle& statement, std::size_t column, RowStore& rows);

  bool wide_;
  bool rereads_;
  std::vector<Described> described_;
  std::vector<Described> last_;  // what the buffers are bound for
  std::shared_ptr<const Columns> columns_;
  std::vector<Bound> bound_;
  std::size_t block_ = 1;
  std::size_t rowset_ = 1;  // what the driver fetches at a time now
  std::unique_ptr<char[]> buffer_;
  std::size_t bufferBytes_ = 0;
  std::vector<SQLLEN> lengths_;
  std::vector<SQLUSMALLINT> status_;
  SQLULEN fetched_ = 0;
  std::vector<char> piece_;
  std::vector<char> whole_;
  std::string utf8_;
};

}  // namespace cu::odbc
