#pragma once

#include <cstdint>
#include <string>

#include "host/date.h"
#include "host/textbox.h"

namespace cu {

// A date as a person writes it, "dd/mm/yyyy". Its value is the number of days since 30 December 1899, 0 when
// the text is empty or no date; such a text is kept. When the focus goes, a date takes its full shape.
class DateBox : public EditBox {
 public:
  using EditBox::EditBox;
  void accept(ControlVisitor& visitor) override { visitor.visit(*this); }
  std::int32_t value() const {
    const auto day = Date::parseItalian(text());
    return day ? day->serial() : 0;
  }
  void leaving() override {
    if (const auto day = Date::parseItalian(text())) show(day->toItalian());
  }
  void setDate(Date day) { setText(day.toItalian()); }
};

}  // namespace cu
