#pragma once

#include <string>

#include "odbc/connection_text.h"
#include "odbc/handle.h"

namespace cu::odbc {

// The driver of a connection text: its registered name, its library where that is known, or the driver's name
// of a data source. Used to determine its family, and in messages.
std::string driverOf(const Environment& environment, const ConnectionText& text);

// A property of an open session, such as SQL_DBMS_NAME or SQL_DRIVER_NAME; "" where it is not available.
std::string informationOf(const Session& session, SQLUSMALLINT what);
SQLUINTEGER numberOf(const Session& session, SQLUSMALLINT what);

// Whether the driver supplies texts as wide characters.
bool givesWideTexts(const Session& session);

}  // namespace cu::odbc
