#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "data/rowstore.h"
#include "odbc/handle.h"
#include "odbc/watchdog.h"

namespace cu::odbc {

// A call of the API failed; the statement's diagnostics contain the reason.
struct CallFailed {};

// Reads a result into rows: forward only, in blocks of rows, with one buffer per column. A text may be longer
// than the declared length of its column; it is then read separately, in pieces. If a column is declared
// without a limit, rows are read one by one.
class BlockReader {
 public:
  // `wide`: the driver supplies texts as wide characters, otherwise as UTF-8. `rereads`: it can supply a cell
  // of a block a second time.
  BlockReader(bool wide, bool rereads) : wide_(wide), rereads_(rereads) {}

  // Reads the statement's current result with that number of columns. The time limit applies to each driver
  // call. Raises CallFailed, and DatabaseError for a value that a row cannot represent.
  void read(const StatementHandle& statement, SQLSMALLINT columns, RowStore& rows, Watchdog& watchdog,
            int seconds);

  std::size_t rowsPerBlock() const { return block_; }

  static constexpr std::size_t kBlockBytes = std::size_t{1} << 21;  // of all buffers together
  static constexpr std::size_t kMostRows = 512;
  // Many results have one or two rows, and a driver processes every row of a block.
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
    std::size_t cell = 0;  // bytes; 0 for a cell that is not bound but read row by row
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
  std::vector<Described> last_;  // the columns for which the buffers are bound
  std::shared_ptr<const Columns> columns_;
  std::vector<Bound> bound_;
  std::size_t block_ = 1;
  std::size_t rowset_ = 1;  // the number of rows that the driver fetches at a time
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
