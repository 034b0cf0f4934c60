#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "odbc/api.h"

namespace cu::odbc {

// A text as the API's wide characters, without an end mark. Bytes that are no UTF-8 become U+FFFD. The buffer
// is the caller's, to be used again.
void toWide(std::string_view text, std::vector<SQLWCHAR>& wide);

// Appends wide characters as UTF-8; half a pair becomes U+FFFD.
void appendFromWide(std::string& text, const SQLWCHAR* wide, std::size_t count);
std::string fromWide(const SQLWCHAR* wide, std::size_t count);

}  // namespace cu::odbc
