#include "controls/numericbox.h"

#include <algorithm>
#include <utility>

#include "base/ascii.h"
#include "base/text.h"

namespace cu {
namespace {

// Removes every occurrence.
void drop(std::string& text, std::string_view what) {
  if (what.empty()) return;
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at)) {
    text.erase(at, what.size());
  }
}

std::size_t countDigits(std::string_view text) {
  return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), isDigit));
}

// "1.234.567": marks between groups of three digits; the first group may be shorter and does not begin with
// 0.
bool grouped(std::string_view whole, std::string_view mark) {
  if (!whole.empty() && whole.front() == '-') whole.remove_prefix(1);
  std::size_t end = whole.find(mark);
  if (end == 0 || end > 3 || whole.front() == '0') return false;
  while (end != std::string_view::npos) {
    whole.remove_prefix(end + mark.size());
    end = whole.find(mark);
    if (std::min(end, whole.size()) != 3) return false;
  }
  return true;
}

}  // namespace

void NumericBox::setShape(Shape shape) {
  shape_ = std::move(shape);
  if (!text().empty()) show(shown(number_));
  notify();
}

void NumericBox::setLimits(Decimal min, Decimal max) {
  min_ = min;
  max_ = max;
  notify();
}

void NumericBox::setNumber(Decimal number) {
  const bool another = number != number_;
  number_ = number;
  show(shown(number));
  if (another && onChange) onChange();
}

void NumericBox::leaving() {
  if (!text().empty()) show(shown(number_));
}

// The number keeps the decimal places that the box does not show.
Event NumericBox::restorer() {
  if (text().empty()) return EditBox::restorer();
  return [this, number = number_] { setNumber(number); };
}

void NumericBox::edited() {
  number_ = read(text()).value_or(Decimal());
  if (split(text()).byPoint) number_ = number_.rounded(shape_.decimals);
}

std::string NumericBox::inFull(Decimal number) const {
  int decimals = shape_.decimals;
  while (number.rounded(decimals) != number) ++decimals;
  return shown(number, decimals);
}

std::optional<std::string> NumericBox::typed(Decimal number) const {
  if (number.rounded(shape_.decimals) != number) return std::nullopt;
  std::string digits = number.toText();
  const std::size_t mark = digits.find('.');
  if (mark != std::string::npos) digits.replace(mark, 1, shape_.decimalPoint);
  return digits;
}

std::string NumericBox::shown(Decimal number, int decimals) const {
  std::string digits = number.toFixed(decimals, '.');
  const std::size_t mark = std::min(digits.find('.'), digits.size());
  if (mark < digits.size()) digits.replace(mark, 1, shape_.decimalPoint);
  if (shape_.separator.empty()) return digits;
  const std::size_t first = digits.front() == '-' ? 1 : 0;
  for (std::size_t at = mark; at > first + 3;) {
    at -= 3;
    digits.insert(at, shape_.separator);
  }
  return digits;
}

bool NumericBox::hasMarks(std::string_view whole) const {
  return !shape_.separator.empty() && whole.find(shape_.separator) != std::string_view::npos;
}

bool NumericBox::placed(std::string_view whole) const {
  return !hasMarks(whole) || grouped(whole, shape_.separator);
}

NumericBox::Split NumericBox::split(std::string_view text) const {
  const std::size_t mark =
      shape_.decimalPoint.empty() ? std::string_view::npos : text.find(shape_.decimalPoint);
  if (mark != std::string_view::npos) {
    return {text.substr(0, mark), text.substr(mark + shape_.decimalPoint.size()), true, false};
  }
  if (!hasMarks(text)) return {text, {}, false, false};
  const std::size_t last = text.rfind(shape_.separator);
  const std::string_view behind = text.substr(last + shape_.separator.size());
  const bool decimal = (behind.size() == 1 || behind.size() == 2) && placed(text.substr(0, last));
  if (!decimal) return {text, {}, false, false};
  return {text.substr(0, last), behind, true, true};
}

// A text that ends with a thousands mark may become a group of three digits or decimals.
bool NumericBox::wellFormed(std::string_view text) const {
  const Split parts = split(text);
  const bool open = !parts.marked && hasMarks(text) && text.ends_with(shape_.separator);
  return placed(open ? text.substr(0, text.size() - shape_.separator.size()) : parts.whole);
}

// Reads a complete or partial number such as "-1.234,5", "-", "1." or "12,". Thousands marks misplaced by an
// edit in the middle are ignored.
std::optional<Decimal> NumericBox::read(std::string_view text) const {
  const Split parts = split(text);
  std::string whole(parts.whole);
  drop(whole, shape_.separator);
  const std::size_t first = !whole.empty() && whole.front() == '-' ? 1 : 0;
  if (countDigits(whole) != whole.size() - first || countDigits(parts.places) != parts.places.size()) {
    return std::nullopt;
  }
  if (whole.size() == first) whole += '0';
  if (!parts.places.empty()) whole.append(1, '.').append(parts.places);
  return Decimal::parse(whole);
}

bool NumericBox::admits(const std::string& before, char32_t character, const std::string& behind) const {
  std::string typed;
  appendUtf8(typed, character);
  const std::string after = before + typed + behind;
  if (character == U'-') return before.empty() && min_ < Decimal() && leaves(after);
  const auto number = read(after);
  if (!number || !allowed(*number)) return false;
  // A character appended, and every mark, is accepted only if the text remains readable when the focus
  // leaves.
  const bool mark = typed == shape_.separator || typed == shape_.decimalPoint;
  if ((mark || behind.empty()) && !wellFormed(after) && wellFormed(before + behind)) return false;
  // A decimal mark is accepted also in a box without decimals; the digits after it must not extend the whole
  // number.
  const Split parts = split(after);
  if (parts.places.size() <= static_cast<std::size_t>(shape_.decimals)) return true;
  return parts.byPoint && grouped(after + std::string(3 - parts.places.size(), '0'), shape_.separator);
}

bool NumericBox::leaves(const std::string& text) const {
  const auto number = read(text);
  return number && (allowed(*number) || *number == Decimal());
}

std::optional<std::string> NumericBox::pasted(std::string_view text) const {
  const std::string clean(trim(text));
  if (clean.empty()) return std::string();
  if (clean == "-") return std::nullopt;
  const auto number = read(clean);
  const bool unfinished = hasMarks(clean) && clean.ends_with(shape_.separator);
  if (!number || unfinished || !wellFormed(clean)) return std::nullopt;
  const Decimal kept = number->rounded(shape_.decimals);
  if (!allowed(kept)) return std::nullopt;
  return kept == *number ? clean : shown(kept);
}

void AmountBox::setFormat(int decimalPlaces, std::string symbol, std::string decimalPoint,
                          std::string separator) {
  symbol_ = std::move(symbol);
  setShape({decimalPlaces, std::move(decimalPoint), std::move(separator)});
}

}  // namespace cu
