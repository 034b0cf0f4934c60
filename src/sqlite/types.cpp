#include "sqlite/types.h"

#include <array>

#include "base/text.h"
#include "sqlite/sql_error.h"

namespace cu::sqlite {
namespace {

struct TypeRule {
  std::string_view name;
  StoredType stored;
};

constexpr StoredType kText = {ValueKind::Text, "TEXT COLLATE NOCASE"};
constexpr StoredType kDecimal = {ValueKind::Decimal, "NUMERIC"};
constexpr StoredType kInteger = {ValueKind::Integer, "INTEGER"};
constexpr StoredType kDate = {ValueKind::Date, "TEXT"};

constexpr std::array<TypeRule, 20> kTypes = {{
    {"note", kText},       {"descrizione", kText}, {"varchar", kText},     {"nvarchar", kText},
    {"char", kText},       {"nchar", kText},       {"text", kText},        {"ntext", kText},
    {"importo", kDecimal}, {"decimal", kDecimal},  {"numeric", kDecimal},  {"money", kDecimal},
    {"sino", kInteger},    {"int", kInteger},      {"smallint", kInteger}, {"tinyint", kInteger},
    {"bigint", kInteger},  {"bit", kInteger},      {"datetime", kDate},    {"smalldatetime", kDate},
}};

}  // namespace

StoredType storedType(const TypeName& type) {
  for (const TypeRule& rule : kTypes) {
    if (rule.name != type.name) continue;
    if (rule.stored.kind == ValueKind::Decimal && type.scale.value_or(0) > 4) {
      throw SqlError(type.position, "un importo ha al più quattro decimali");
    }
    return rule.stored;
  }
  throw SqlError(type.position, "tipo non ammesso dal database incorporato: " + type.name);
}

ValueKind kindOfStored(std::string_view declaredType, bool noCase) {
  const std::string type = lowerAscii(declaredType);
  const auto holds = [&](std::string_view part) { return type.find(part) != std::string::npos; };
  if (holds("int")) return ValueKind::Integer;
  if (holds("char") || holds("clob") || holds("text")) return noCase ? ValueKind::Text : ValueKind::Date;
  if (holds("num") || holds("dec") || holds("real") || holds("floa") || holds("doub"))
    return ValueKind::Decimal;
  return ValueKind::Unknown;
}

}  // namespace cu::sqlite
