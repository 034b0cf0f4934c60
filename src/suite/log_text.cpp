#include "suite/log_text.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <ctime>

#include "base/ascii.h"
#include "base/error.h"
#include "base/text.h"
#include "suite/profilo.h"

namespace cu {
namespace {

constexpr std::size_t kLongestWord = 48;
constexpr std::int64_t kPerSecond = 1000;
constexpr std::string_view kHidden = "?";

bool isPlain(char c) {
  constexpr std::string_view kMarks = " _.-:#()";
  return isLetter(c) || isDigit(c) || kMarks.find(c) != std::string_view::npos;
}

std::string_view plain(std::string_view word) {
  const bool known = word.size() <= kLongestWord && std::all_of(word.begin(), word.end(), isPlain);
  return known ? word : kHidden;
}

std::string padded(std::int64_t number, std::size_t digits) {
  std::string text = fromInteger(number);
  if (text.size() < digits) text.insert(0, digits - text.size(), '0');
  return text;
}

const char* categoryOf(DatabaseErrorKind kind) {
  switch (kind) {
    case DatabaseErrorKind::Unavailable:
      return "Unavailable";
    case DatabaseErrorKind::NoSchema:
      return "NoSchema";
    case DatabaseErrorKind::Locked:
      return "Locked";
    case DatabaseErrorKind::Missing:
      return "Missing";
    case DatabaseErrorKind::Exists:
      return "Exists";
    case DatabaseErrorKind::Duplicate:
      return "Duplicate";
    case DatabaseErrorKind::Constraint:
      return "Constraint";
    case DatabaseErrorKind::Syntax:
      return "Syntax";
    case DatabaseErrorKind::Full:
      return "Full";
    case DatabaseErrorKind::ReadOnly:
      return "ReadOnly";
    case DatabaseErrorKind::Corrupt:
      return "Corrupt";
    case DatabaseErrorKind::Timeout:
      return "Timeout";
    case DatabaseErrorKind::Other:
      break;
  }
  return "Other";
}

std::string described(const std::exception& error) {
  if (const auto* const database = dynamic_cast<const DatabaseError*>(&error)) {
    return std::string(" errore=database/") + categoryOf(database->kind()) +
           " numero=" + fromInteger(database->number()) + " codice=" + fromInteger(database->nativeCode());
  }
  if (const auto* const file = dynamic_cast<const FileError*>(&error))
    return " errore=file numero=" + fromInteger(file->number());
  if (const auto* const own = dynamic_cast<const Error*>(&error))
    return " errore=programma numero=" + fromInteger(own->number());
  if (dynamic_cast<const ErroreProfilo*>(&error) != nullptr) return " errore=profilo";
  return " errore=interno numero=" + fromInteger(asError(error).number());
}

}  // namespace

std::string logMoment() {
  using std::chrono::duration_cast;
  using std::chrono::milliseconds;
  const auto now = std::chrono::system_clock::now();
  const std::time_t seconds = std::chrono::system_clock::to_time_t(now);
  const auto since = duration_cast<milliseconds>(now.time_since_epoch()).count();
  std::tm local{};
  ::localtime_r(&seconds, &local);
  const std::int64_t offset = std::abs(local.tm_gmtoff) / 60;
  constexpr std::int64_t kFirstYear = 1900;
  std::string text = padded(kFirstYear + local.tm_year, 4) + '-' + padded(local.tm_mon + 1, 2) + '-' +
                     padded(local.tm_mday, 2) + 'T' + padded(local.tm_hour, 2) + ':' +
                     padded(local.tm_min, 2) + ':' + padded(local.tm_sec, 2) + '.' +
                     padded(since % kPerSecond, 3);
  text += local.tm_gmtoff < 0 ? '-' : '+';
  return text + padded(offset / 60, 2) + ':' + padded(offset % 60, 2);
}

std::string logSubject(const LogEntry& entry) {
  std::string text(plain(entry.operation));
  if (!entry.detail.empty()) text.append(" ").append(plain(entry.detail));
  if (!entry.object.empty()) text.append(" su=").append(plain(entry.object));
  return text;
}

std::string logMeasures(const LogEntry& entry) {
  std::string text;
  if (entry.duration) {
    using std::chrono::milliseconds;
    text += " ms=" + fromInteger(std::chrono::duration_cast<milliseconds>(*entry.duration).count());
  }
  if (entry.rows) text += " righe=" + fromInteger(*entry.rows);
  if (entry.bytes) text += " byte=" + fromInteger(static_cast<std::int64_t>(*entry.bytes));
  if (entry.error != nullptr) text += described(*entry.error);
  if (entry.exitCode) text += " esito=" + fromInteger(*entry.exitCode);
  return text;
}

bool isLogLine(std::string_view text) {
  constexpr std::string_view kPattern = "0000-00-00T00:00:00.000+00:00 [";
  if (text.size() <= kPattern.size()) return false;
  for (std::size_t i = 0; i < kPattern.size(); ++i) {
    const bool sign = kPattern[i] == '+' && (text[i] == '+' || text[i] == '-');
    const bool same = kPattern[i] == '0' ? isDigit(text[i]) : sign || text[i] == kPattern[i];
    if (!same) return false;
  }
  return true;
}

}  // namespace cu
