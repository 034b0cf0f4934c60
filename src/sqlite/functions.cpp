#include "sqlite/functions.h"

#include <array>

namespace cu::sqlite {
namespace {

constexpr std::array<FunctionRule, 11> kFunctions = {{
    {"ISNULL", Function::IsNull, 2, 2},
    {"RTRIM", Function::RTrim, 1, 1},
    {"UPPER", Function::Upper, 1, 1},
    {"YEAR", Function::Year, 1, 1},
    {"SUM", Function::Sum, 1, 1},
    {"COUNT", Function::Count, 1, 1},
    {"MAX", Function::Max, 1, 1},
    {"OBJECT_ID", Function::ObjectId, 1, 1},
    {"IFNULL", Function::IsNull, 2, 2, Dialect::Stored},
    {"ROUND", Function::StoredAmount, 2, 2, Dialect::Stored},
    {"STRFTIME", Function::StoredText, 2, 2, Dialect::Stored},
}};

}  // namespace

const FunctionRule* findFunction(std::string_view upperCaseName, Dialect dialect) {
  for (const FunctionRule& rule : kFunctions) {
    if (rule.name == upperCaseName && (rule.dialect == Dialect::Server || dialect == Dialect::Stored))
      return &rule;
  }
  return nullptr;
}

}  // namespace cu::sqlite
