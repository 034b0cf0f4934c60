#pragma once

#include <string>
#include <string_view>

#include "sqlite/ast.h"

namespace cu::sqlite {

// What a type of the server, or one of the suite's own, is in the embedded database.
struct StoredType {
  ValueKind kind = ValueKind::Unknown;
  std::string_view declaration;  // behind the column's name
};

// SqlError for a type that has no place here.
StoredType storedType(const TypeName& type);

// The kind of a column of the file by its declared type and whether it carries the collation of text: a text
// without it is a date.
ValueKind kindOfStored(std::string_view declaredType, bool noCase);

}  // namespace cu::sqlite
