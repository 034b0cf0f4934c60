#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "base/date.h"
#include "base/decimal.h"

namespace cu {

enum class ValueType : std::uint8_t { Null, Integer, Decimal, Text, Date };

// A value of a row where it lies, without a copy: valid while the row is not changed or released.
class CellView {
 public:
  constexpr CellView() = default;
  static constexpr CellView ofInteger(std::int64_t value) { return {ValueType::Integer, value}; }
  static constexpr CellView ofDecimal(Decimal value) { return {ValueType::Decimal, value.scaled()}; }
  static constexpr CellView ofDate(Date value) { return {ValueType::Date, value.serial()}; }
  static constexpr CellView ofText(std::string_view value) {
    CellView cell(ValueType::Text, 0);
    cell.text_ = value.data();
    cell.length_ = static_cast<std::uint32_t>(value.size());
    return cell;
  }

  ValueType type() const { return type_; }
  bool isNull() const { return type_ == ValueType::Null; }

  // The content of that type; of another type it is the null-safe conversion: null is 0, "", day 0; an
  // integer is a decimal; a decimal's integer is rounded half away from zero; a text's number is the whole
  // text or else the integer at its head, its date one of Date's two forms, day 0 otherwise. A number beyond
  // Decimal's range raises Error 6.
  std::int64_t integer() const;
  Decimal decimal() const;
  Date date() const;
  bool flag() const { return integer() != 0; }
  // Only of a text; "" of anything else. See toText for the others.
  std::string_view text() const {
    return type_ == ValueType::Text ? std::string_view(text_, length_) : std::string_view();
  }
  // Null is "", an integer its digits, a decimal a point and no superfluous zeros, a date "dd/mm/yyyy".
  std::string toText() const;

 private:
  constexpr CellView(ValueType type, std::int64_t number) : type_(type), number_(number) {}

  ValueType type_ = ValueType::Null;
  std::uint32_t length_ = 0;
  union {
    std::int64_t number_ = 0;
    const char* text_;
  };
};

// A value of its own.
class Value {
 public:
  Value() = default;
  static Value ofInteger(std::int64_t value) { return Value(value); }
  static Value ofFlag(bool value) { return Value(static_cast<std::int64_t>(value ? -1 : 0)); }  // true is -1
  static Value ofDecimal(Decimal value) { return Value(value); }
  static Value ofText(std::string value) { return Value(std::move(value)); }
  static Value ofDate(Date value) { return Value(value); }
  static Value of(const CellView& cell);

  ValueType type() const { return static_cast<ValueType>(content_.index()); }
  bool isNull() const { return content_.index() == 0; }
  CellView view() const;
  friend bool operator==(const Value&, const Value&) = default;

 private:
  using Content = std::variant<std::monostate, std::int64_t, Decimal, std::string, Date>;
  template <class T>
  explicit Value(T value) : content_(std::move(value)) {}
  Content content_;
};

}  // namespace cu
