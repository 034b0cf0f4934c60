#pragma once

#include <string>
#include <string_view>

namespace cu::odbc {

// A server's message on a statement, with "…" in place of every value of the statement. A server quotes the
// values that it rejects; errors are shown in boxes, logs and mails, which must not contain them.
std::string withoutValues(std::string_view message, std::string_view statement);

}  // namespace cu::odbc
