#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "base/date.h"
#include "base/text.h"
#include "controls/textbox.h"

namespace cu {

// A date as a person writes it, "dd/mm/yyyy"; blanks beside it do not count. A text that is no date is kept
// as it was typed, but holds no date. When the focus goes, a date takes its full shape.
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
  // What a form goes by: the date in its full shape, empty without one.
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
