#include "base/decimal.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "base/ascii.h"
#include "base/error.h"

namespace cu {
namespace {

constexpr std::int64_t kUnit = 10000;
constexpr std::array<std::int64_t, 5> kStep = {10000, 1000, 100, 10, 1};

[[noreturn]] void overflow() { throw Error(6, "Importo fuori dai limiti."); }

std::uint64_t magnitude(std::int64_t value) {
  return value < 0 ? ~static_cast<std::uint64_t>(value) + 1 : static_cast<std::uint64_t>(value);
}

}  // namespace

Decimal Decimal::fromInteger(std::int64_t units) {
  if (units > std::numeric_limits<std::int64_t>::max() / kUnit ||
      units < std::numeric_limits<std::int64_t>::min() / kUnit) {
    overflow();
  }
  return fromScaled(units * kUnit);
}

Decimal Decimal::fromDouble(double value) {
  // A double guarantees fifteen significant digits. Rounding to them first makes 1.00005 round as the number
  // typed and not as the binary fraction just below it. Where fifteen digits do not reach the fourth decimal
  // place, the shortest text that identifies the double is used: 19999999999999.98 has sixteen.
  if (!std::isfinite(value) || std::fabs(value) >= 9.2e14) overflow();
  std::array<char, 40> buffer{};
  char* const last = buffer.data() + buffer.size();
  const char* const end =
      (std::fabs(value) < 1e11 ? std::to_chars(buffer.data(), last, value, std::chars_format::scientific, 14)
                               : std::to_chars(buffer.data(), last, value, std::chars_format::scientific))
          .ptr;
  // d.dddddddddddddde+XX
  std::string_view text(buffer.data(), static_cast<std::size_t>(end - buffer.data()));
  bool negative = false;
  if (text.front() == '-') {
    negative = true;
    text.remove_prefix(1);
  }
  const std::size_t mark = text.find('e');
  int exponent = 0;
  std::string_view exponentText = text.substr(mark + 1);
  if (exponentText.front() == '+') exponentText.remove_prefix(1);
  std::from_chars(exponentText.data(), exponentText.data() + exponentText.size(), exponent);
  std::int64_t digits = 0;
  int shift = exponent + 5;  // the digits as a whole number times 10^shift are ten-thousandths
  for (char c : text.substr(0, mark)) {
    if (!isDigit(c)) continue;
    digits = digits * 10 + (c - '0');
    --shift;
  }
  while (shift > 0) {  // fits in 64 bits: the value is below 9.2e14
    digits *= 10;
    --shift;
  }
  if (shift < -18) return {};
  std::int64_t divisor = 1;
  while (shift < 0) {
    divisor *= 10;
    ++shift;
  }
  const std::int64_t half = divisor / 2;
  std::int64_t scaled = digits / divisor;
  if (divisor > 1 && digits % divisor >= half) ++scaled;
  return fromScaled(negative ? -scaled : scaled);
}

std::optional<Decimal> Decimal::parse(std::string_view text) {
  while (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
  bool negative = false;
  if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
    negative = text.front() == '-';
    text.remove_prefix(1);
  }
  std::int64_t scaled = 0;
  bool any = false;
  std::size_t i = 0;
  const auto push = [&](int digit) {
    if (scaled > (std::numeric_limits<std::int64_t>::max() - digit) / 10) return false;
    scaled = scaled * 10 + digit;
    return true;
  };
  for (; i < text.size() && isDigit(text[i]); ++i) {
    any = true;
    if (!push(text[i] - '0')) return std::nullopt;
  }
  int places = 0;
  bool roundUp = false;
  if (i < text.size() && text[i] == '.') {
    ++i;
    for (; i < text.size() && isDigit(text[i]); ++i) {
      any = true;
      if (places < 4) {
        if (!push(text[i] - '0')) return std::nullopt;
      } else if (places == 4) {
        roundUp = text[i] >= '5';
      }
      ++places;
    }
  }
  if (!any || i != text.size()) return std::nullopt;
  for (; places < 4; ++places) {
    if (!push(0)) return std::nullopt;
  }
  if (roundUp) {
    if (scaled == std::numeric_limits<std::int64_t>::max()) return std::nullopt;
    ++scaled;
  }
  return fromScaled(negative ? -scaled : scaled);
}

Decimal Decimal::abs() const {
  if (scaled_ == std::numeric_limits<std::int64_t>::min()) overflow();
  return fromScaled(scaled_ < 0 ? -scaled_ : scaled_);
}

Decimal Decimal::rounded(int places) const {
  const std::int64_t step = kStep.at(static_cast<std::size_t>(places));
  const std::int64_t rest = scaled_ % step;
  const Decimal whole = fromScaled(scaled_ - rest);
  if (step == 1 || magnitude(rest) < magnitude(step) / 2) return whole;
  return scaled_ < 0 ? whole - fromScaled(step) : whole + fromScaled(step);
}

std::string Decimal::toText() const {
  std::string text = toFixed(4, '.');
  while (text.back() == '0') text.pop_back();
  if (text.back() == '.') text.pop_back();
  return text;
}

std::string Decimal::toFixed(int places, char decimalMark) const {
  std::array<char, 32> buffer{};
  return {buffer.data(), toFixed(places, decimalMark, buffer.data())};
}

std::size_t Decimal::toFixed(int places, char decimalMark, char* buffer) const {
  const std::uint64_t step = static_cast<std::uint64_t>(kStep.at(static_cast<std::size_t>(places)));
  std::uint64_t value = (magnitude(scaled_) + step / 2) / step;
  char* out = buffer;
  if (scaled_ < 0) *out++ = '-';
  std::array<char, 24> digits{};
  std::size_t count = 0;
  while (value != 0) {
    digits[count++] = static_cast<char>('0' + value % 10);
    value /= 10;
  }
  const auto decimals = static_cast<std::size_t>(places);
  while (count < decimals + 1) digits[count++] = '0';
  while (count > decimals) *out++ = digits[--count];
  if (decimals > 0) {
    *out++ = decimalMark;
    while (count > 0) *out++ = digits[--count];
  }
  return static_cast<std::size_t>(out - buffer);
}

Decimal operator+(Decimal a, Decimal b) {
  const std::int64_t x = a.scaled_;
  const std::int64_t y = b.scaled_;
  if ((y > 0 && x > std::numeric_limits<std::int64_t>::max() - y) ||
      (y < 0 && x < std::numeric_limits<std::int64_t>::min() - y)) {
    overflow();
  }
  return Decimal::fromScaled(x + y);
}

Decimal operator-(Decimal a, Decimal b) {
  const std::int64_t x = a.scaled_;
  const std::int64_t y = b.scaled_;
  if ((y < 0 && x > std::numeric_limits<std::int64_t>::max() + y) ||
      (y > 0 && x < std::numeric_limits<std::int64_t>::min() + y)) {
    overflow();
  }
  return Decimal::fromScaled(x - y);
}

Decimal operator-(Decimal a) { return Decimal() - a; }

}  // namespace cu
