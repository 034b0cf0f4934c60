#include "suite/utilita.h"

#include <limits>

#include "base/error.h"
#include "base/text.h"

namespace cu {
namespace {

constexpr int kErrorOverflow = 6;
constexpr std::string_view kNull = "NULL";

std::int32_t fitting(std::int64_t value) {
  if (value < std::numeric_limits<std::int32_t>::min() || value > std::numeric_limits<std::int32_t>::max()) {
    throw Error(kErrorOverflow, "Overflow: il numero " + fromInteger(value) + " è troppo grande.");
  }
  return static_cast<std::int32_t>(value);
}

}  // namespace

int UtilitaItaliana::question(const std::string& text, const std::string& title) {
  const Answer answer =
      frontEnd_.messageBox({text, title, BoxIcon::Question, BoxButtons::YesNo, Answer::Yes});
  return static_cast<int>(answer);
}

void UtilitaItaliana::message(const std::string& text, const std::string& title, BoxIcon icon) {
  frontEnd_.messageBox({text, title, icon, BoxButtons::Ok, Answer::Ok});
}

void UtilitaItaliana::refusedStart(const std::string& text, const std::string& title) {
  frontEnd_.messageBox({text, title, BoxIcon::Stop, BoxButtons::Ok, Answer::Ok});
}

int UtilitaItaliana::confirm(const std::string& text, const std::string& title) {
  const Answer answer =
      frontEnd_.messageBox({text, title, BoxIcon::Question, BoxButtons::OkCancel, Answer::Cancel});
  return static_cast<int>(answer);
}

std::int32_t UtilitaItaliana::toLong(const CellView& value) const { return fitting(value.integer()); }
std::int32_t UtilitaItaliana::toLong(std::string_view text) const { return fitting(leadingInteger(text)); }

std::string UtilitaItaliana::literal(const CellView& text) const {
  return text.isNull() ? std::string(kNull) : literal(text.toText());
}

std::string UtilitaItaliana::literal(std::string_view text) const {
  std::string quoted = "'";
  for (const char c : text) {
    if (c == '\'') quoted += c;
    quoted += c;
  }
  return quoted += '\'';
}

std::string UtilitaItaliana::literalNumber(const CellView& number) const {
  return number.isNull() ? std::string(kNull) : number.decimal().toText();
}

std::string UtilitaItaliana::literalId(const CellView& id) const {
  const std::int64_t value = id.integer();
  return value == 0 ? std::string(kNull) : fromInteger(value);
}

std::string UtilitaItaliana::literalFlag(const CellView& flag) const {
  if (flag.isNull()) return std::string(kNull);
  return flag.flag() ? "1" : "0";
}

std::string UtilitaItaliana::literalDate(std::string_view italianDate) const {
  const auto day = Date::parseItalian(trim(italianDate));
  return day ? "'" + day->toCompact() + "'" : std::string(kNull);
}

std::string UtilitaItaliana::absolute(const CellView& number) const {
  return number.isNull() ? std::string(kNull) : number.decimal().abs().toText();
}

}  // namespace cu
