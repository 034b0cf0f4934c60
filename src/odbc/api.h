#pragma once

// The ODBC API of unixODBC or of the platform.
#ifdef _WIN32
#define NOMINMAX
#include <windows.h>
#endif
#include <sql.h>
#include <sqlext.h>

static_assert(sizeof(SQLWCHAR) == 2, "wide characters are UTF-16");
