#include "odbc/block_reader.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>

#include "base/error.h"
#include "odbc/wide.h"

namespace cu::odbc {
namespace {

constexpr std::size_t kAmountBytes = 64;  // the server's longest number has 38 digits
constexpr std::size_t kPieceBytes = std::size_t{1} << 16;

void need(SQLRETURN code) {
  if (!SQL_SUCCEEDED(code)) throw CallFailed{};
}

[[noreturn]] void refuseResult(const char* what) {
  throw DatabaseError(DatabaseErrorKind::Other, 0, "SELECT", what);
}

std::size_t alignedUp(std::size_t bytes) { return (bytes + 7) / 8 * 8; }

template <class T>
T at(const char* content) {
  T value;
  std::memcpy(&value, content, sizeof value);
  return value;
}

}  // namespace

void BlockReader::read(const StatementHandle& statement, SQLSMALLINT columns, RowStore& rows,
                       Watchdog& watchdog, int seconds) {
  describe(statement, columns);
  if (described_ != last_) {
    last_.clear();
    plan();
    bind(statement);
    last_ = described_;
  }
  rows.setColumns(columns_);
  setRowset(statement, std::min(block_, kFirstRows));
  for (;;) {
    {
      const Watchdog::Watch watch(watchdog, seconds);
      const SQLRETURN code = SQLFetch(statement.get());
      if (code == SQL_NO_DATA) return;
      need(code);
    }
    const auto count = static_cast<std::size_t>(fetched_);
    for (std::size_t i = 0; i < count; ++i) {
      if (status_[i] == SQL_ROW_ERROR) throw CallFailed{};
      std::optional<Watchdog::Watch> watch;  // while single cells are requested from the driver
      if (block_ == 1) watch.emplace(watchdog, seconds);
      row(statement, i, rows);
    }
    if (count == rowset_) setRowset(statement, block_);
  }
}

void BlockReader::setRowset(const StatementHandle& statement, std::size_t rowset) {
  if (rowset_ == rowset) return;
  need(SQLSetStmtAttr(statement.get(), SQL_ATTR_ROW_ARRAY_SIZE, number(rowset), 0));
  rowset_ = rowset;
}

void BlockReader::describe(const StatementHandle& statement, SQLSMALLINT count) {
  described_.resize(static_cast<std::size_t>(count));
  std::array<SQLWCHAR, 256> name{};
  for (SQLSMALLINT i = 0; i < count; ++i) {
    Described& column = described_[static_cast<std::size_t>(i)];
    SQLSMALLINT length = 0;
    SQLSMALLINT digits = 0;
    SQLSMALLINT nullable = 0;
    need(SQLDescribeColW(statement.get(), static_cast<SQLUSMALLINT>(i + 1), name.data(),
                         static_cast<SQLSMALLINT>(name.size()), &length, &column.type, &column.size, &digits,
                         &nullable));
    // The driver manager returns the length of some drivers' names in the driver's own bytes.
    const auto shown = std::min(static_cast<std::size_t>(length), name.size() - 1);
    const auto end = name.begin() + static_cast<std::ptrdiff_t>(shown);
    column.name.assign(name.begin(), std::find(name.begin(), end, SQLWCHAR{0}));
  }
}

BlockReader::Bound BlockReader::boundOf(const Described& column) const {
  switch (column.type) {
    case SQL_BIT:
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
      return {Form::Integer, SQL_C_SBIGINT, sizeof(SQLBIGINT)};
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
      return {Form::Real, SQL_C_DOUBLE, sizeof(double)};
    case SQL_DECIMAL:
    case SQL_NUMERIC:
      return {Form::Amount, SQL_C_CHAR, kAmountBytes};
    case SQL_TYPE_DATE:
    case SQL_TYPE_TIMESTAMP:
      return {Form::Date, SQL_C_TYPE_TIMESTAMP, alignedUp(sizeof(SQL_TIMESTAMP_STRUCT))};
    default:
      break;  // any numeric type is possible here; each can be converted to text
  }
  Bound bound{Form::Text, static_cast<SQLSMALLINT>(wide_ ? SQL_C_WCHAR : SQL_C_CHAR)};
  if (column.size == 0 || column.size > kLongestBound) return bound;
  constexpr std::size_t kLongestUtf8 = 4;
  const std::size_t unit = wide_ ? sizeof(SQLWCHAR) : kLongestUtf8;
  bound.cell = alignedUp((static_cast<std::size_t>(column.size) + 1) * unit);
  return bound;
}

void BlockReader::plan() {
  constexpr ValueType kTypes[] = {ValueType::Integer, ValueType::Decimal, ValueType::Decimal, ValueType::Date,
                                  ValueType::Text};
  std::vector<Column> columns;
  bound_.clear();
  std::size_t rowBytes = 0;
  bool rowByRow = false;
  for (const Described& each : described_) {
    Bound bound = boundOf(each);
    columns.push_back(
        {fromWide(each.name.data(), each.name.size()), kTypes[static_cast<std::size_t>(bound.form)]});
    // A driver supplies unbound cells in column order, and only after the bound ones.
    if (bound.cell == 0) rowByRow = true;
    if (rowByRow) bound.cell = 0;
    rowBytes += bound.cell;
    bound_.push_back(bound);
  }
  columns_ = std::make_shared<const Columns>(std::move(columns));
  block_ =
      rowByRow ? 1 : std::clamp(kBlockBytes / std::max(rowBytes, std::size_t{1}), std::size_t{1}, kMostRows);
  if (bufferBytes_ < rowBytes * block_) {
    bufferBytes_ = std::max(rowBytes * block_, kBlockBytes);
    buffer_ = std::make_unique_for_overwrite<char[]>(bufferBytes_);
  }
  lengths_.assign(bound_.size() * block_, 0);
  status_.assign(block_, SQL_ROW_SUCCESS);
  char* cells = buffer_.get();
  SQLLEN* lengths = lengths_.data();
  for (Bound& bound : bound_) {
    bound.cells = cells;
    bound.lengths = lengths;
    cells += bound.cell * block_;
    lengths += block_;
  }
}

void BlockReader::bind(const StatementHandle& statement) {
  SQLHSTMT handle = statement.get();
  need(SQLFreeStmt(handle, SQL_UNBIND));
  need(SQLSetStmtAttr(handle, SQL_ATTR_ROW_BIND_TYPE, number(SQL_BIND_BY_COLUMN), 0));
  need(SQLSetStmtAttr(handle, SQL_ATTR_ROWS_FETCHED_PTR, &fetched_, 0));
  need(SQLSetStmtAttr(handle, SQL_ATTR_ROW_STATUS_PTR, status_.data(), 0));
  for (std::size_t i = 0; i < bound_.size(); ++i) {
    const Bound& bound = bound_[i];
    if (bound.cell == 0) continue;
    need(SQLBindCol(handle, static_cast<SQLUSMALLINT>(i + 1), bound.cType, bound.cells,
                    static_cast<SQLLEN>(bound.cell), bound.lengths));
  }
}

bool BlockReader::truncated(const Bound& column, SQLLEN length) const {
  if (column.form != Form::Text || length == SQL_NULL_DATA) return false;
  const std::size_t end = wide_ ? sizeof(SQLWCHAR) : 1;
  return length == SQL_NO_TOTAL || static_cast<std::size_t>(length) + end > column.cell;
}

void BlockReader::row(const StatementHandle& statement, std::size_t row, RowStore& rows) {
  rows.beginRow();
  for (std::size_t i = 0; i < bound_.size(); ++i) {
    const Bound& bound = bound_[i];
    if (bound.cell == 0) {
      askFor(statement, i, rows);
      continue;
    }
    const SQLLEN length = bound.lengths[row];
    if (!truncated(bound, length)) {
      cell(bound, bound.cells + row * bound.cell, length, rows);
      continue;
    }
    if (!rereads_)
      refuseResult(
          "Una colonna del risultato contiene un testo più lungo di quanto il driver ODBC dichiara.");
    need(SQLSetPos(statement.get(), static_cast<SQLSETPOSIROW>(row + 1), SQL_POSITION, SQL_LOCK_NO_CHANGE));
    askFor(statement, i, rows);
  }
  rows.endRow();
}

void BlockReader::cell(const Bound& column, const char* content, SQLLEN length, RowStore& rows) {
  if (length == SQL_NULL_DATA) {
    rows.null();
    return;
  }
  switch (column.form) {
    case Form::Integer:
      rows.integer(at<SQLBIGINT>(content));
      return;
    case Form::Real:
      rows.decimal(Decimal::fromDouble(at<double>(content)));
      return;
    case Form::Amount: {
      const auto bytes = std::min(static_cast<std::size_t>(std::max<SQLLEN>(length, 0)), kAmountBytes - 1);
      const auto amount = Decimal::parse(std::string_view(content, bytes));
      if (!amount) refuseResult("Un importo del risultato è fuori dai limiti del programma.");
      rows.decimal(*amount);
      return;
    }
    case Form::Date: {
      const auto stamp = at<SQL_TIMESTAMP_STRUCT>(content);
      const auto day = Date::fromYmd(stamp.year, stamp.month, stamp.day);
      if (!day) refuseResult("Una data del risultato è fuori dai limiti del programma.");
      rows.date(*day);
      return;
    }
    case Form::Text:
      text(content, static_cast<std::size_t>(length), rows);
      return;
  }
}

void BlockReader::text(const char* content, std::size_t bytes, RowStore& rows) {
  if (!wide_) {
    rows.text(std::string_view(content, bytes));
    return;
  }
  utf8_.clear();
  // Cells are aligned to eight bytes.
  appendFromWide(utf8_, reinterpret_cast<const SQLWCHAR*>(content), bytes / sizeof(SQLWCHAR));
  rows.text(utf8_);
}

// Reads a cell of the current row in pieces.
void BlockReader::askFor(const StatementHandle& statement, std::size_t column, RowStore& rows) {
  const Bound& bound = bound_[column];
  const std::size_t end = bound.form != Form::Text ? 0 : wide_ ? sizeof(SQLWCHAR) : 1;
  piece_.resize(kPieceBytes);
  whole_.clear();
  for (;;) {
    SQLLEN length = 0;
    const SQLRETURN code = SQLGetData(statement.get(), static_cast<SQLUSMALLINT>(column + 1), bound.cType,
                                      piece_.data(), static_cast<SQLLEN>(piece_.size()), &length);
    if (code == SQL_NO_DATA) break;
    need(code);
    if (length == SQL_NULL_DATA || bound.form != Form::Text) {
      cell(bound, piece_.data(), length, rows);
      return;
    }
    const std::size_t room = piece_.size() - end;
    const bool more = length == SQL_NO_TOTAL || static_cast<std::size_t>(length) > room;
    const std::size_t here = more ? room : static_cast<std::size_t>(length);
    whole_.insert(whole_.end(), piece_.begin(), piece_.begin() + static_cast<std::ptrdiff_t>(here));
    if (!more) break;
  }
  text(whole_.data(), whole_.size(), rows);
}

}  // namespace cu::odbc
