#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "sqlite/ast.h"
#include "sqlite/literal.h"

namespace cu::sqlite {

// The stored form of a literal.
using StoredValue = std::variant<std::int64_t, double, std::string>;

// Raises SqlError where the literal has no such form: a text that is no date or number, or an amount of more
// than fifteen significant digits, which the embedded database could not return unchanged. A plain text is
// not copied here; see Literal.
StoredValue convert(const Literal& literal, Conversion conversion);

// Converts 'YYYYMMDD' or 'YYYY-MM-DD', with an optional time after a blank or a T, to "YYYY-MM-DD" or, with a
// time other than midnight, "YYYY-MM-DD HH:MM:SS"; an empty text is the server's day zero, 1 January 1900.
std::string storedDate(const std::string& text);

// As a literal of a stored definition.
std::string writtenOut(const Literal& literal, Conversion conversion);

}  // namespace cu::sqlite
