#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace cu::sqlite {

// The kind of an expression's value, as far as the adaptation of a statement depends on it.
enum class ValueKind {
  Unknown,
  Null,  // the word NULL: compatible with every kind
  Integer,
  Number,  // a numeric literal: an integer or an amount
  Decimal,
  Text,
  Date,
  Condition,  // true or false; not a value in the server's dialect
};

struct ColumnInfo {
  std::string name;
  ValueKind kind = ValueKind::Unknown;
  bool notNull = false;
  bool collated = true;  // a text that SQLite by itself compares without case
};

// A table or a view.
struct TableInfo {
  std::string name;
  bool view = false;
  std::vector<ColumnInfo> columns;
  std::vector<std::string> primaryKey;  // in the order of the key
  // The column of a single integer key, which SQLite numbers when it is not assigned; or kNone.
  std::size_t rowNumber = kNone;

  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  std::size_t find(std::string_view column) const;  // without case; kNone when there is none
};

// The tables of the open database.
class Catalog {
 public:
  virtual ~Catalog() = default;
  // Compares without case; null when there is none.
  virtual std::shared_ptr<const TableInfo> find(std::string_view name) const = 0;
};

// "un testo", "una data" and so on, for messages.
const char* describe(ValueKind kind);

}  // namespace cu::sqlite
