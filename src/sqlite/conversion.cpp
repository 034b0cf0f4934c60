#include "sqlite/conversion.h"

#include <array>
#include <charconv>
#include <cmath>
#include <optional>

#include "base/date.h"
#include "base/decimal.h"
#include "base/text.h"
#include "sqlite/sql_error.h"

namespace cu::sqlite {
namespace {

constexpr std::int64_t kUnit = 10000;
constexpr std::int64_t kLargestAmount = 922337203685477;  // of a Decimal
constexpr double kLargestRead = 9.2e14;                   // the largest that Decimal accepts from a double

[[noreturn]] void fail(const char* message) { throw SqlError(0, message); }

std::optional<std::int64_t> wholeNumber(std::string_view text) {
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size() || text.empty()) return std::nullopt;
  return value;
}

double floating(std::string_view text) {
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc() || end != text.data() + text.size()) fail("numero fuori dai limiti");
  return value;
}

StoredValue number(std::string_view text) {
  if (const auto whole = wholeNumber(text)) return *whole;
  return floating(text);
}

StoredValue amount(std::string_view text) {
  if (const auto whole = wholeNumber(text)) {
    if (*whole > kLargestAmount) fail("importo fuori dai limiti");
    return *whole;
  }
  std::optional<Decimal> decimal = Decimal::parse(text);
  if (!decimal && text.find_first_of("eE") != std::string_view::npos)
    decimal = Decimal::fromDouble(floating(text));
  if (!decimal) fail("importo fuori dai limiti");
  const std::int64_t scaled = decimal->scaled();
  if (scaled % kUnit == 0) return scaled / kUnit;
  // The file stores a double: exact for up to fifteen digits, for more only by chance.
  const double stored = floating(decimal->toText());
  if (std::fabs(stored) >= kLargestRead || Decimal::fromDouble(stored) != *decimal)
    fail("un importo ha più cifre di quante il database ne conservi esatte");
  return stored;
}

std::int64_t whole(std::string_view text) {
  if (const auto value = wholeNumber(text)) return *value;
  const double value = std::trunc(floating(text));
  if (!(std::fabs(value) < 9.2e18)) fail("numero fuori dai limiti");
  return static_cast<std::int64_t>(value);
}

std::string withoutSign(std::string_view text) {
  return std::string(!text.empty() && text.front() == '+' ? text.substr(1) : text);
}

std::optional<int> twoDigits(std::string_view text, std::size_t at) {
  if (at + 2 > text.size() || !isDigit(text[at]) || !isDigit(text[at + 1])) return std::nullopt;
  return (text[at] - '0') * 10 + (text[at + 1] - '0');
}

// "HH:MM", "HH:MM:SS" with ignored fractions of a second; "" for midnight.
std::optional<std::string> timeOf(std::string_view text) {
  const auto hour = twoDigits(text, 0);
  const auto minute = twoDigits(text, 3);
  if (!hour || !minute || text[2] != ':' || *hour > 23 || *minute > 59) return std::nullopt;
  int second = 0;
  if (text.size() > 5) {
    const auto seconds = twoDigits(text, 6);
    if (!seconds || text[5] != ':' || *seconds > 59) return std::nullopt;
    second = *seconds;
    if (text.size() > 8 &&
        (text[8] != '.' || text.find_first_not_of("0123456789", 9) != std::string_view::npos)) {
      return std::nullopt;
    }
  }
  if (*hour == 0 && *minute == 0 && second == 0) return std::string();
  std::string time(text.substr(0, 5));
  time += ':';
  time += static_cast<char>('0' + second / 10);
  time += static_cast<char>('0' + second % 10);
  return time;
}

std::string quotedName(std::string_view text) {
  std::string result = "'";
  for (const char c : text) {
    result += c;
    if (c == '\'') result += c;
  }
  return result + "'";
}

}  // namespace

std::string storedDate(const std::string& text) {
  const std::string_view trimmed = trim(text);
  if (trimmed.empty()) return "1900-01-01";
  const bool dashed = trimmed.size() > 4 && trimmed[4] == '-';
  const std::size_t length = dashed ? 10 : 8;
  if (trimmed.size() < length) fail("data non valida");
  for (std::size_t i = 0; i < length; ++i) {
    const bool mark = dashed && (i == 4 || i == 7);
    if (mark ? trimmed[i] != '-' : !isDigit(trimmed[i])) fail("data non valida");
  }
  const std::optional<Date> day = Date::parseIso(trimmed.substr(0, length));
  if (!day) fail("data non valida");
  std::string stored = day->toIso();
  if (trimmed.size() == length) return stored;
  if (trimmed[length] != ' ' && trimmed[length] != 'T') fail("data non valida");
  const std::optional<std::string> time = timeOf(trim(trimmed.substr(length + 1)));
  if (!time) fail("data non valida");
  if (!time->empty()) stored += " " + *time;
  return stored;
}

StoredValue convert(const Literal& literal, Conversion conversion) {
  const bool isText = literal.kind == Literal::Kind::Text;
  const std::string text = isText ? plainText(literal) : std::string(literal.text);
  const std::string_view trimmed = trim(text);
  switch (conversion) {
    case Conversion::AsIs:
      return isText ? StoredValue(text) : number(text);
    case Conversion::Date:
      return storedDate(text);
    case Conversion::IntegerText: {
      if (trimmed.empty()) return std::int64_t{0};
      const auto value = wholeNumber(withoutSign(trimmed));
      if (!value) fail("un testo dove occorre un numero intero");
      return *value;
    }
    case Conversion::DecimalText: {
      const std::optional<Decimal> value = Decimal::parse(trimmed);
      if (!value) fail("un testo dove occorre un importo");
      return amount(value->toText());
    }
    case Conversion::Amount:
      return amount(text);
    case Conversion::Whole:
      return whole(text);
    case Conversion::TextNumber: {
      if (const auto value = wholeNumber(text)) return fromInteger(*value);
      return text;
    }
  }
  fail("conversione sconosciuta");
}

std::string writtenOut(const Literal& literal, Conversion conversion) {
  if (literal.kind == Literal::Kind::Number && conversion == Conversion::AsIs)
    return std::string(literal.text);
  const StoredValue value = convert(literal, conversion);
  if (const auto* integer = std::get_if<std::int64_t>(&value)) return fromInteger(*integer);
  if (const auto* real = std::get_if<double>(&value)) {
    std::array<char, 32> buffer{};
    const auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), *real);
    if (error != std::errc()) fail("numero fuori dai limiti");
    return {buffer.data(), end};
  }
  return quotedName(std::get<std::string>(value));
}

}  // namespace cu::sqlite
