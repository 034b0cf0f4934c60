#pragma once

#include <string>
#include <string_view>

#include "sqlite/ast.h"

namespace cu::sqlite {

// The storage of a type of the server, or of the suite, in the embedded database.
struct StoredType {
  ValueKind kind = ValueKind::Unknown;
  std::string_view declaration;  // after the column's name
};

// Raises SqlError for an unsupported type.
StoredType storedType(const TypeName& type);

// The kind of a column of the file, from its declared type and whether it has the text collation: a text
// without it is a date.
ValueKind kindOfStored(std::string_view declaredType, bool noCase);

}  // namespace cu::sqlite
