#include "server/suite_session.h"

#include <sqlite3.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <stdexcept>
#include <vector>

#include "base/error.h"
#include "base/windows1252.h"
#include "server/tds_tokens.h"

namespace cu::test {
namespace {

constexpr const char* kMaster = "master";

// A column of a result: its type as the protocol describes it.
std::string typeOf(ValueType type) {
  switch (type) {
    case ValueType::Integer:
      return "\x26\x08";
    case ValueType::Decimal:
      return "\x6A\x11\x26\x04";
    case ValueType::Date:
      return "\x6F\x08";
    default:
      break;
  }
  constexpr int kLongest = 8000;
  return "\xA7" + tds::little(kLongest, 2) + std::string("\x09\x04\xD0\x00\x34", 5);
}

std::string cellOf(ValueType type, const CellView& cell) {
  constexpr std::int32_t kFirstDay = 2;  // 1 January 1900
  if (cell.isNull()) return type == ValueType::Text ? tds::little(0xFFFF, 2) : std::string(1, '\0');
  switch (type) {
    case ValueType::Integer:
      return '\x08' + tds::little(static_cast<std::uint64_t>(cell.integer()), 8);
    case ValueType::Decimal: {
      const std::int64_t scaled = cell.decimal().scaled();
      const bool negative = scaled < 0;
      return std::string{'\x11', static_cast<char>(negative ? 0 : 1)} +
             tds::little(static_cast<std::uint64_t>(negative ? -scaled : scaled), 8) + tds::little(0, 8);
    }
    case ValueType::Date:
      return '\x08' + tds::little(static_cast<std::uint32_t>(cell.date().serial() - kFirstDay), 4) +
             tds::little(0, 4);
    default:
      break;
  }
  const std::string text = a1252(cell.toText());
  return tds::little(text.size(), 2) + text;
}

// The server's number for the error.
int numberOf(DatabaseErrorKind kind) {
  switch (kind) {
    case DatabaseErrorKind::Missing:
      return 208;
    case DatabaseErrorKind::Exists:
      return 2714;
    case DatabaseErrorKind::Duplicate:
      return 2627;
    case DatabaseErrorKind::Constraint:
      return 547;
    case DatabaseErrorKind::Locked:
      return 1222;
    default:
      return 50000;
  }
}

std::string resultOf(const RowStore& rows) {
  const Columns& columns = *rows.columns();
  std::string tokens = static_cast<char>(0x81) + tds::little(columns.size(), 2);
  for (std::size_t i = 0; i < columns.size(); ++i) {
    constexpr int kNullable = 0x09;
    tokens += tds::little(0, 4) + tds::little(kNullable, 2) + typeOf(columns[i].type) +
              tds::counted(columns[i].name, 1);
  }
  std::vector<CellView> cells(columns.size());
  for (std::size_t row = 0; row < rows.size(); ++row) {
    rows.read(row, cells.data());
    tokens += static_cast<char>(0xD1);
    for (std::size_t i = 0; i < cells.size(); ++i) tokens += cellOf(columns[i].type, cells[i]);
  }
  return tokens + tds::selected(rows.size());
}

}  // namespace

TdsServer::Reply SuiteSession::answer(std::string_view statement) {
  if (statement.empty()) {
    const bool known =
        database_.empty() || database_ == kMaster || std::filesystem::exists(fileOf(database_));
    return {known ? tds::welcome() : tds::error(4060, 11, "Cannot open database \"" + database_ + "\".")};
  }
  try {
    const std::string text = da1252(a1252(statement));
    if (administered(text)) return {tds::done()};
    if (!std::regex_search(text, std::regex("^\\s*(SELECT|WITH)\\b"))) {
      const std::int64_t rows = connection().Execute(text);
      return {rows < 0 ? tds::done() : tds::touched(static_cast<std::uint64_t>(rows))};
    }
    RowStore rows;
    connection().Query(text, rows);
    return {resultOf(rows)};
  } catch (const DatabaseError& error) {
    return {tds::error(numberOf(error.kind()), 16, error.what())};
  } catch (const std::exception& error) {
    return {tds::error(50001, 16, error.what())};
  }
}

// Statements on whole databases are not passed to the engine.
bool SuiteSession::administered(const std::string& statement) const {
  static const std::regex create("CREATE DATABASE (\\w+) COLLATE \\w+");
  static const std::regex drop("DROP DATABASE (\\w+)");
  static const std::regex insert("INSERT INTO (\\w+)\\.dbo\\.(\\w+) SELECT \\* FROM (\\w+)\\.dbo\\.\\2");
  std::smatch found;
  if (std::regex_match(statement, found, create)) {
    std::ofstream(fileOf(found[1]));
  } else if (std::regex_match(statement, found, drop)) {
    for (const char* const end : {"", "-wal", "-shm"}) std::filesystem::remove(fileOf(found[1]) + end);
  } else if (std::regex_match(statement, found, insert)) {
    copy(found[2], found[1], found[3]);
  } else {
    return false;
  }
  return true;
}

void SuiteSession::copy(const std::string& table, const std::string& to, const std::string& from) const {
  constexpr int kPatience = 10'000;
  sqlite3* file = nullptr;
  const std::string statement =
      "ATTACH '" + fileOf(from) + "' AS other; INSERT INTO main." + table + " SELECT * FROM other." + table;
  sqlite3_open(fileOf(to).c_str(), &file);
  sqlite3_busy_timeout(file, kPatience);
  const bool done = sqlite3_exec(file, statement.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
  const std::string error = sqlite3_errmsg(file);
  sqlite3_close(file);
  if (!done) throw std::runtime_error(error);
}

SqliteConnection& SuiteSession::connection() {
  if (connection_ == nullptr) connection_ = SqliteConnection::create(fileOf(database_));
  return *connection_;
}

}  // namespace cu::test
