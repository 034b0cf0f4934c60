#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "base/date.h"
#include "base/decimal.h"

namespace cu {

enum class ValueType : std::uint8_t { Null, Integer, Decimal, Text, Date };

// A view of a row's value in place, without a copy: valid while the row is not changed or released.
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

  // The value as that type. Another type is converted, null-safe: null is 0, "", day 0; an integer converts
  // to a decimal; a decimal is rounded to an integer half away from zero; a text is parsed as a number,
  // otherwise the integer at its head is used; a text is parsed as a date in one of Date's two forms,
  // otherwise day 0. A number beyond Decimal's range raises Error 6.
  std::int64_t integer() const;
  Decimal decimal() const;
  Date date() const;
  bool flag() const { return integer() != 0; }
  // Only for a text; "" for any other type, which toText converts.
  std::string_view text() const {
    return type_ == ValueType::Text ? std::string_view(text_, length_) : std::string_view();
  }
  // Null is "", an integer its digits, a decimal has a point and no superfluous zeros, a date is
  // "dd/mm/yyyy".
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

// A value that owns its content.
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
