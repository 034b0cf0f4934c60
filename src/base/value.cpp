#include "base/value.h"

#include "base/text.h"

namespace cu {
namespace {

// A number outside the calendar yields no date.
Date dayOf(std::int64_t number) {
  if (number < Date::kFirst || number > Date::kLast) return {};
  return Date::fromSerial(static_cast<std::int32_t>(number));
}

}  // namespace

std::int64_t CellView::integer() const {
  switch (type_) {
    case ValueType::Null:
      break;
    case ValueType::Integer:
    case ValueType::Date:
      return number_;
    case ValueType::Decimal:
      return Decimal::fromScaled(number_).rounded(0).scaled() / 10000;
    case ValueType::Text:
      return leadingInteger(text());
  }
  return 0;
}

Decimal CellView::decimal() const {
  switch (type_) {
    case ValueType::Null:
      break;
    case ValueType::Integer:
    case ValueType::Date:
      return Decimal::fromInteger(number_);
    case ValueType::Decimal:
      return Decimal::fromScaled(number_);
    case ValueType::Text:
      if (const auto whole = Decimal::parse(text())) return *whole;
      return Decimal::fromInteger(leadingInteger(text()));
  }
  return {};
}

Date CellView::date() const {
  switch (type_) {
    case ValueType::Null:
      break;
    case ValueType::Integer:
      return dayOf(number_);
    case ValueType::Date:
      return Date::fromSerial(static_cast<std::int32_t>(number_));
    case ValueType::Decimal:
      return dayOf(number_ / 10000);
    case ValueType::Text:
      if (const auto iso = Date::parseIso(text())) return *iso;
      return Date::parseItalian(text()).value_or(Date());
  }
  return {};
}

std::string CellView::toText() const {
  switch (type_) {
    case ValueType::Null:
      break;
    case ValueType::Integer:
      return fromInteger(number_);
    case ValueType::Decimal:
      return Decimal::fromScaled(number_).toText();
    case ValueType::Text:
      return std::string(text());
    case ValueType::Date:
      return date().toItalian();
  }
  return {};
}

Value Value::of(const CellView& cell) {
  switch (cell.type()) {
    case ValueType::Null:
      break;
    case ValueType::Integer:
      return ofInteger(cell.integer());
    case ValueType::Decimal:
      return ofDecimal(cell.decimal());
    case ValueType::Text:
      return ofText(std::string(cell.text()));
    case ValueType::Date:
      return ofDate(cell.date());
  }
  return {};
}

CellView Value::view() const {
  switch (type()) {
    case ValueType::Null:
      break;
    case ValueType::Integer:
      return CellView::ofInteger(std::get<std::int64_t>(content_));
    case ValueType::Decimal:
      return CellView::ofDecimal(std::get<Decimal>(content_));
    case ValueType::Text:
      return CellView::ofText(std::get<std::string>(content_));
    case ValueType::Date:
      return CellView::ofDate(std::get<Date>(content_));
  }
  return {};
}

}  // namespace cu
