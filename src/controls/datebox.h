#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/date.h"
#include "base/text.h"
#include "controls/textbox.h"

namespace cu {

// A date entered as "dd/mm/yyyy"; surrounding blanks are ignored. A text that is no date is kept as typed,
// but has no value. When the focus leaves, a date is formatted in full.
class DateBox : public EditBox {
 public:
  using EditBox::EditBox;
  void accept(ControlVisitor& visitor) override { visitor.visit(*this); }
  std::optional<Date> date() const { return Date::parseItalian(trim(text())); }
  // Days since 30 December 1899; 0 without a date.
  std::int32_t value() const {
    const auto day = date();
    return day ? day->serial() : 0;
  }
  // The value for the form: the date formatted in full, or empty.
  std::string entered() const {
    const auto day = date();
    return day ? day->toItalian() : std::string();
  }
  void leaving() override {
    if (const auto day = date()) show(day->toItalian());
  }
  void setDate(Date day) { setText(day.toItalian()); }
};

}  // namespace cu
