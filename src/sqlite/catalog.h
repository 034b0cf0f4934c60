#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace cu::sqlite {

// What kind of value an expression yields, as far as a statement can be adapted by it.
enum class ValueKind {
  Unknown,
  Null,  // the word NULL: goes with every kind
  Integer,
  Number,  // a numeric literal: an integer or an amount
  Decimal,
  Text,
  Date,
  Condition,  // true or false; no value in the server's dialect
};

struct ColumnInfo {
  std::string name;
  ValueKind kind = ValueKind::Unknown;
  bool notNull = false;
  bool collated = true;  // a text that SQLite compares without regard to case by itself
};

// A table or a view.
struct TableInfo {
  std::string name;
  bool view = false;
  std::vector<ColumnInfo> columns;
  std::vector<std::string> primaryKey;  // in the order of the key
  // Column of a key of one integer, which SQLite fills by itself when it is given nothing; or kNone.
  std::size_t rowNumber = kNone;

  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  std::size_t find(std::string_view column) const;  // regardless of case; or kNone
};

// The tables of the open database.
class Catalog {
 public:
  virtual ~Catalog() = default;
  // Regardless of case; null when there is none.
  virtual std::shared_ptr<const TableInfo> find(std::string_view name) const = 0;
};

// "un testo", "una data", ...: for messages.
const char* describe(ValueKind kind);

}  // namespace cu::sqlite
