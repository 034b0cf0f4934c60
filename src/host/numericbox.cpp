#include "host/numericbox.h"

#include <utility>

#include "host/ascii.h"
#include "host/text.h"

namespace cu {
namespace {

// Removes every occurrence.
void drop(std::string& text, std::string_view what) {
  if (what.empty()) return;
  for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at)) {
    text.erase(at, what.size());
  }
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
  const bool differs = number != number_;
  number_ = number;
  show(shown(number));
  if (differs && onChange) onChange();
}

void NumericBox::leaving() {
  if (!text().empty()) show(shown(number_));
}

void NumericBox::edited() { number_ = read(text()).value_or(Decimal()); }

std::string NumericBox::shown(Decimal number) const {
  std::string digits = number.toFixed(shape_.decimals, '.');
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

// "-1.234,5", as far as it has been typed: "-", "1.", "12," are on their way to a number.
std::optional<Decimal> NumericBox::read(std::string_view text) const {
  const std::size_t mark =
      shape_.decimalPoint.empty() ? std::string_view::npos : text.find(shape_.decimalPoint);
  std::string whole(text.substr(0, mark));
  std::string places;
  if (mark != std::string_view::npos) places = text.substr(mark + shape_.decimalPoint.size());
  drop(whole, shape_.separator);
  const std::size_t first = !whole.empty() && whole.front() == '-' ? 1 : 0;
  for (std::size_t at = first; at < whole.size(); ++at) {
    if (!isDigit(whole[at])) return std::nullopt;
  }
  for (const char c : places) {
    if (!isDigit(c)) return std::nullopt;
  }
  if (whole.size() == first) whole += '0';
  if (!places.empty()) whole += '.' + places;
  return Decimal::parse(whole);
}

bool NumericBox::admits(const std::string& before, char32_t character, const std::string& behind) const {
  std::string after = before;
  appendUtf8(after, character);
  after += behind;
  if (character == U'-') return before.empty() && min_ < Decimal() && leaves(after);
  const auto number = read(after);
  if (!number || !allowed(*number)) return false;
  // A mark of decimals is let in without decimals too: what follows it must not swell the whole number.
  const std::size_t mark = shape_.decimalPoint.empty() ? std::string::npos : after.find(shape_.decimalPoint);
  if (mark == std::string::npos) return true;
  return after.size() - mark - shape_.decimalPoint.size() <= static_cast<std::size_t>(shape_.decimals);
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
  if (!number) return std::nullopt;
  const Decimal kept = number->rounded(shape_.decimals);
  if (!allowed(kept)) return std::nullopt;
  // Thousands marks stand where they belong, or the text is no number.
  std::string plain = shown(*number);
  if (!shape_.separator.empty() && clean.find(shape_.separator) != std::string::npos) {
    const auto wholeOf = [&](const std::string& of) { return of.substr(0, of.find(shape_.decimalPoint)); };
    if (wholeOf(clean) != wholeOf(plain)) return std::nullopt;
  }
  return kept == *number ? clean : shown(kept);
}

void AmountBox::setFormat(int decimalPlaces, std::string symbol, std::string decimalPoint,
                          std::string separator) {
  symbol_ = std::move(symbol);
  setShape({decimalPlaces, std::move(decimalPoint), std::move(separator)});
}

}  // namespace cu
