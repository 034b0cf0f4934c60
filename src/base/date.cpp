#include "base/date.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>

#include "base/ascii.h"

namespace cu {
namespace {

using std::chrono::days;
using std::chrono::sys_days;
using std::chrono::year_month_day;

constexpr sys_days kDayZero = sys_days(std::chrono::year(1899) / 12 / 30);

year_month_day civil(std::int32_t serial) {
  return {kDayZero + days(std::clamp(serial, Date::kFirst, Date::kLast))};
}

std::optional<int> number(std::string_view digits) {
  if (digits.empty()) return std::nullopt;
  int value = 0;
  for (char c : digits) {
    if (!isDigit(c)) return std::nullopt;
    value = value * 10 + (c - '0');
  }
  return value;
}

std::string padded(int value, std::size_t width) {
  std::array<char, 12> buffer{};
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value).ptr;
  std::string text(buffer.data(), end);
  if (text.size() < width) text.insert(0, width - text.size(), '0');
  return text;
}

}  // namespace

std::optional<Date> Date::fromYmd(int year, int month, int day) {
  if (year < 1 || year > 9999 || month < 1 || month > 12 || day < 1 || day > 31) return std::nullopt;
  const year_month_day ymd{std::chrono::year(year), std::chrono::month(static_cast<unsigned>(month)),
                           std::chrono::day(static_cast<unsigned>(day))};
  if (!ymd.ok()) return std::nullopt;
  return fromSerial(static_cast<std::int32_t>((sys_days(ymd) - kDayZero).count()));
}

std::optional<Date> Date::parseItalian(std::string_view text) {
  const std::size_t first = text.find('/');
  if (first > 2) return std::nullopt;  // also for npos
  const std::size_t second = text.find('/', first + 1);
  if (second == std::string_view::npos || second - first > 3 || text.size() - second != 5)
    return std::nullopt;
  const auto d = number(text.substr(0, first));
  const auto m = number(text.substr(first + 1, second - first - 1));
  const auto y = number(text.substr(second + 1));
  if (!d || !m || !y) return std::nullopt;
  return fromYmd(*y, *m, *d);
}

std::optional<Date> Date::parseIso(std::string_view text) {
  std::size_t day = 0;
  std::optional<int> y;
  std::optional<int> m;
  std::optional<int> d;
  if (text.size() >= 10 && text[4] == '-' && text[7] == '-') {
    y = number(text.substr(0, 4));
    m = number(text.substr(5, 2));
    d = number(text.substr(8, 2));
    day = 10;
  } else if (text.size() >= 8) {
    y = number(text.substr(0, 4));
    m = number(text.substr(4, 2));
    d = number(text.substr(6, 2));
    day = 8;
  }
  if (!y || !m || !d) return std::nullopt;
  if (text.size() > day && text[day] != ' ' && text[day] != 'T') return std::nullopt;
  return fromYmd(*y, *m, *d);
}

int Date::year() const { return static_cast<int>(civil(serial_).year()); }
int Date::month() const { return static_cast<int>(static_cast<unsigned>(civil(serial_).month())); }
int Date::day() const { return static_cast<int>(static_cast<unsigned>(civil(serial_).day())); }

std::string Date::toItalian() const {
  return padded(day(), 2) + "/" + padded(month(), 2) + "/" + padded(year(), 4);
}
std::string Date::toIso() const {
  return padded(year(), 4) + "-" + padded(month(), 2) + "-" + padded(day(), 2);
}
std::string Date::toCompact() const { return padded(year(), 4) + padded(month(), 2) + padded(day(), 2); }
std::string Date::toDdmmyyyy() const { return padded(day(), 2) + padded(month(), 2) + padded(year(), 4); }

std::string TimeOfDay::toHhmm() const { return padded(hour, 2) + padded(minute, 2); }

}  // namespace cu
