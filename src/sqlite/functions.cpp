#include "sqlite/functions.h"

#include <array>

namespace cu::sqlite {
namespace {

constexpr std::size_t kAny = 64;

constexpr std::array<FunctionRule, 26> kFunctions = {{
    {"ISNULL", Function::IsNull, 2, 2},
    {"COALESCE", Function::Coalesce, 2, kAny},
    {"NULLIF", Function::NullIf, 2, 2},
    {"RTRIM", Function::RTrim, 1, 1},
    {"LTRIM", Function::LTrim, 1, 1},
    {"UPPER", Function::Upper, 1, 1},
    {"LOWER", Function::Lower, 1, 1},
    {"LEN", Function::Len, 1, 1},
    {"LEFT", Function::Left, 2, 2},
    {"RIGHT", Function::Right, 2, 2},
    {"SUBSTRING", Function::Substring, 3, 3},
    {"ABS", Function::Abs, 1, 1},
    {"ROUND", Function::Round, 2, 2},
    {"YEAR", Function::Year, 1, 1},
    {"MONTH", Function::Month, 1, 1},
    {"DAY", Function::Day, 1, 1},
    {"SUM", Function::Sum, 1, 1},
    {"COUNT", Function::Count, 1, 1},
    {"MIN", Function::Min, 1, 1},
    {"MAX", Function::Max, 1, 1},
    {"AVG", Function::Avg, 1, 1},
    {"OBJECT_ID", Function::ObjectId, 1, 1},
    {"IFNULL", Function::IsNull, 2, 2, Dialect::Stored},
    {"STRFTIME", Function::StoredText, 2, 2, Dialect::Stored},
    {"SUBSTR", Function::StoredText, 2, 3, Dialect::Stored},
    {"LENGTH", Function::StoredInteger, 1, 1, Dialect::Stored},
}};

}  // namespace

const FunctionRule* findFunction(std::string_view upperCaseName, Dialect dialect) {
  for (const FunctionRule& rule : kFunctions) {
    if (rule.name == upperCaseName && (rule.dialect == Dialect::Server || dialect == Dialect::Stored))
      return &rule;
  }
  return nullptr;
}

bool isAggregate(Function function) {
  switch (function) {
    case Function::Sum:
    case Function::Count:
    case Function::Min:
    case Function::Max:
    case Function::Avg:
      return true;
    case Function::IsNull:
    case Function::Coalesce:
    case Function::NullIf:
    case Function::RTrim:
    case Function::LTrim:
    case Function::Upper:
    case Function::Lower:
    case Function::Len:
    case Function::Left:
    case Function::Right:
    case Function::Substring:
    case Function::Abs:
    case Function::Round:
    case Function::Year:
    case Function::Month:
    case Function::Day:
    case Function::ObjectId:
    case Function::StoredText:
    case Function::StoredInteger:
      return false;
  }
  return false;
}

}  // namespace cu::sqlite
