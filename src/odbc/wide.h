#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "odbc/api.h"

namespace cu::odbc {

// Converts a text to the API's wide characters, without a terminator. Bytes that are not UTF-8 become U+FFFD.
// The caller's buffer is reused.
void toWide(std::string_view text, std::vector<SQLWCHAR>& wide);

// Appends wide characters as UTF-8; an unpaired surrogate becomes U+FFFD.
void appendFromWide(std::string& text, const SQLWCHAR* wide, std::size_t count);
std::string fromWide(const SQLWCHAR* wide, std::size_t count);

}  // namespace cu::odbc
