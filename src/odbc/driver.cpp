#include "odbc/driver.h"

#include <array>
#include <vector>

#include "base/text.h"
#include "odbc/wide.h"

namespace cu::odbc {
namespace {

using Buffer = std::array<SQLWCHAR, 1024>;

std::string textOf(const Buffer& buffer, SQLSMALLINT length) {
  const auto shown = std::min(static_cast<std::size_t>(std::max<SQLSMALLINT>(length, 0)), buffer.size() - 1);
  return fromWide(buffer.data(), shown);
}

// Name and description of each entry of a list of the driver manager.
template <class List>
std::string described(const Environment& environment, const std::string& wanted, List list) {
  Buffer name{};
  Buffer description{};
  SQLSMALLINT nameLength = 0;
  SQLSMALLINT descriptionLength = 0;
  SQLUSMALLINT direction = SQL_FETCH_FIRST;
  while (SQL_SUCCEEDED(list(environment.get(), direction, name.data(), static_cast<SQLSMALLINT>(name.size()),
                            &nameLength, description.data(), static_cast<SQLSMALLINT>(description.size()),
                            &descriptionLength))) {
    direction = SQL_FETCH_NEXT;
    // Attributes of a driver are separated by NUL.
    if (equalsNoCase(textOf(name, nameLength), wanted)) return textOf(description, descriptionLength);
  }
  return {};
}

}  // namespace

std::string driverOf(const Environment& environment, const ConnectionText& text) {
  std::string driver = text.value({"Driver"});
  if (driver.empty()) driver = described(environment, text.value({"DSN"}), SQLDataSourcesW);
  if (driver.empty() || familyOf(driver) != DriverFamily::Other) return driver;
  const std::string library = described(environment, driver, SQLDriversW);
  return familyOf(library) == DriverFamily::Other ? driver : library;
}

std::string informationOf(const Session& session, SQLUSMALLINT what) {
  Buffer buffer{};
  SQLSMALLINT bytes = 0;
  if (!SQL_SUCCEEDED(SQLGetInfoW(session.get(), what, buffer.data(),
                                 static_cast<SQLSMALLINT>(buffer.size() * sizeof(SQLWCHAR)), &bytes))) {
    return {};
  }
  return textOf(buffer, static_cast<SQLSMALLINT>(bytes / static_cast<SQLSMALLINT>(sizeof(SQLWCHAR))));
}

SQLUINTEGER numberOf(const Session& session, SQLUSMALLINT what) {
  SQLUINTEGER number = 0;
  return SQL_SUCCEEDED(SQLGetInfoW(session.get(), what, &number, sizeof number, nullptr)) ? number : 0;
}

bool givesWideTexts(const Session& session) {
  const StatementHandle statement(session.get());
  if (!statement || !SQL_SUCCEEDED(SQLGetTypeInfo(statement.get(), SQL_WVARCHAR))) return false;
  return SQL_SUCCEEDED(SQLFetch(statement.get()));
}

}  // namespace cu::odbc
