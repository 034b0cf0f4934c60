#pragma once

#include <string>

#include "odbc/connection_text.h"
#include "odbc/handle.h"

namespace cu::odbc {

// The driver that a connection text leads to: its registered name, its library where that is known, or the
// name of the driver behind a data source. For telling its family, and for messages.
std::string driverOf(const Environment& environment, const ConnectionText& text);

// What an open session says of itself: SQL_DBMS_NAME, SQL_DRIVER_NAME and the like; "" where it does not.
std::string informationOf(const Session& session, SQLUSMALLINT what);
SQLUINTEGER numberOf(const Session& session, SQLUSMALLINT what);

// Whether the driver gives texts as wide characters.
bool givesWideTexts(const Session& session);

}  // namespace cu::odbc
