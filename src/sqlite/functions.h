#pragma once

#include <cstddef>
#include <string_view>

#include "sqlite/tokenizer.h"

namespace cu::sqlite {

enum class Function {
  IsNull,
  RTrim,
  Upper,
  Year,
  Sum,
  Count,
  Max,
  ObjectId,
  // What the views of the file are written with.
  StoredAmount,
  StoredText,
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

}  // namespace cu::sqlite
