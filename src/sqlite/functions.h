#pragma once

#include <cstddef>
#include <string_view>

#include "sqlite/tokenizer.h"

namespace cu::sqlite {

enum class Function {
  IsNull,
  Coalesce,
  NullIf,
  RTrim,
  LTrim,
  Upper,
  Lower,
  Len,
  Left,
  Right,
  Substring,
  Abs,
  Round,
  Year,
  Month,
  Day,
  Sum,
  Count,
  Min,
  Max,
  Avg,
  ObjectId,
  // The functions that the views of the file use.
  StoredText,
  StoredInteger,
};

struct FunctionRule {
  std::string_view name;  // in upper case
  Function function;
  std::size_t least;
  std::size_t most;
  Dialect dialect = Dialect::Server;
};

// Null for a function unknown in the dialect; stored texts know the server's too.
const FunctionRule* findFunction(std::string_view upperCaseName, Dialect dialect);

bool isAggregate(Function function);

}  // namespace cu::sqlite
