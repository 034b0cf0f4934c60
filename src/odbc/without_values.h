#pragma once

#include <string>
#include <string_view>

namespace cu::odbc {

// A server's words about a statement, with "…" in the place of every value that the statement holds. A server
// quotes the values that it refuses; errors end up in boxes, logs and mails, where they have no business.
std::string withoutValues(std::string_view message, std::string_view statement);

}  // namespace cu::odbc
