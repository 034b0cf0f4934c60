#pragma once

#include <initializer_list>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/value.h"
#include "data/rowstore.h"

namespace cu::test {

// Short names for the values of test tables.
inline Value null() { return {}; }
inline Value whole(std::int64_t value) { return Value::ofInteger(value); }
inline Value text(std::string value) { return Value::ofText(std::move(value)); }
inline Value amount(std::string_view value) {
  const auto decimal = Decimal::parse(value);
  if (!decimal) throw std::logic_error("no amount: " + std::string(value));
  return Value::ofDecimal(*decimal);
}
inline Value day(int year, int month, int dayOfMonth) {
  const auto date = Date::fromYmd(year, month, dayOfMonth);
  if (!date) throw std::logic_error("no such day");
  return Value::ofDate(*date);
}

// The result of a query: columns and rows.
struct Table {
  std::vector<Column> columns;
  std::vector<std::vector<Value>> rows;

  Table() = default;
  explicit Table(std::vector<Column> names, std::vector<std::vector<Value>> content = {})
      : columns(std::move(names)), rows(std::move(content)) {}
  Table(std::initializer_list<const char*> names, std::vector<std::vector<Value>> content)
      : rows(std::move(content)) {
    for (const char* name : names) columns.push_back({name, ValueType::Null});
  }

  std::size_t column(std::string_view name) const {
    for (std::size_t i = 0; i < columns.size(); ++i) {
      if (columns[i].name == name) return i;
    }
    throw std::logic_error("no column " + std::string(name));
  }

  void fill(RowStore& store) const {
    store.setColumns(std::make_shared<Columns>(columns));
    for (const auto& row : rows) {
      if (row.size() != columns.size()) throw std::logic_error("a row is not as wide as its table");
      store.beginRow();
      for (const Value& value : row) append(store, value.view());
      store.endRow();
    }
  }

 private:
  static void append(RowStore& store, const CellView& cell) {
    switch (cell.type()) {
      case ValueType::Null:
        return store.null();
      case ValueType::Integer:
        return store.integer(cell.integer());
      case ValueType::Decimal:
        return store.decimal(cell.decimal());
      case ValueType::Text:
        return store.text(cell.text());
      case ValueType::Date:
        return store.date(cell.date());
    }
  }
};

}  // namespace cu::test
