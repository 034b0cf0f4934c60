#include "sqlite/row_reader.h"

#include <sqlite3.h>

#include "sqlite/amount.h"
#include "sqlite/handle.h"

namespace cu::sqlite {
namespace {

ValueType typeOf(ValueKind kind) {
  switch (kind) {
    case ValueKind::Integer:
      return ValueType::Integer;
    case ValueKind::Decimal:
      return ValueType::Decimal;
    case ValueKind::Text:
      return ValueType::Text;
    case ValueKind::Date:
      return ValueType::Date;
    case ValueKind::Unknown:
    case ValueKind::Null:
    case ValueKind::Number:
    case ValueKind::Condition:
      return ValueType::Null;
  }
  return ValueType::Null;
}

void readText(std::string_view text, ValueKind kind, RowStore& rows) {
  if (kind == ValueKind::Date) {
    if (const std::optional<Date> date = Date::parseIso(text)) {
      rows.date(*date);
      return;
    }
  }
  rows.text(text);
}

}  // namespace

std::shared_ptr<const Columns> makeColumns(const std::vector<ColumnInfo>& columns) {
  std::vector<Column> result;
  result.reserve(columns.size());
  for (const ColumnInfo& column : columns) result.push_back({column.name, typeOf(column.kind)});
  return std::make_shared<const Columns>(std::move(result));
}

// A cell is fetched once and its type is then read from the value: the connection is used by one thread, so
// that a value can be read without the lock that each call on the statement would take.
void readRow(sqlite3_stmt* statement, const std::vector<ValueKind>& kinds, RowStore& rows) {
  rows.beginRow();
  int column = 0;
  for (const ValueKind kind : kinds) {
    sqlite3_value* const value = sqlite3_column_value(statement, column);
    switch (sqlite3_value_type(value)) {
      case SQLITE_NULL:
        rows.null();
        break;
      case SQLITE_INTEGER:
        if (kind == ValueKind::Decimal) {
          rows.decimal(Decimal::fromInteger(sqlite3_value_int64(value)));
        } else {
          rows.integer(sqlite3_value_int64(value));
        }
        break;
      case SQLITE_FLOAT:
        rows.decimal(amountOf(sqlite3_value_double(value)));
        break;
      default:
        readText(valueText(value), kind, rows);
        break;
    }
    ++column;
  }
  rows.endRow();
}

}  // namespace cu::sqlite
