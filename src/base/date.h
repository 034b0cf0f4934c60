#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace cu {

// A day without time and time zone, stored as the number of days since 30 December 1899.
class Date {
 public:
  static constexpr std::int32_t kFirst = -693593;  // 1 January of the year 1
  static constexpr std::int32_t kLast = 2958465;   // 31 December 9999
  constexpr Date() = default;
  static constexpr Date fromSerial(std::int32_t days) {
    Date d;
    d.serial_ = days;
    return d;
  }
  // Returns nullopt when there is no such day (years 1 to 9999).
  static std::optional<Date> fromYmd(int year, int month, int day);
  // "dd/mm/yyyy"; day and month may have one digit.
  static std::optional<Date> parseItalian(std::string_view text);
  // "yyyy-mm-dd" or "yyyymmdd"; a time after a blank or a T is ignored.
  static std::optional<Date> parseIso(std::string_view text);

  constexpr std::int32_t serial() const { return serial_; }
  // For a number outside kFirst to kLast, year, month, day and texts are those of the nearer limit.
  int year() const;
  int month() const;
  int day() const;

  std::string toItalian() const;   // "05/03/2017"
  std::string toIso() const;       // "2017-03-05"
  std::string toCompact() const;   // "20170305"
  std::string toDdmmyyyy() const;  // "05032017"

  // The check misreads the comparison with 0 that the compiler generates.
  friend constexpr auto operator<=>(Date a, Date b) = default;  // NOLINT(modernize-use-nullptr)

 private:
  std::int32_t serial_ = 0;
};

struct TimeOfDay {
  int hour = 0;
  int minute = 0;
  int second = 0;
  std::string toHhmm() const;  // "1030"
};

}  // namespace cu
