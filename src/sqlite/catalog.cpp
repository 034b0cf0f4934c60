#include "sqlite/catalog.h"

#include "base/text.h"

namespace cu::sqlite {

std::size_t TableInfo::find(std::string_view column) const {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (equalsNoCase(columns[i].name, column)) return i;
  }
  return kNone;
}

const char* describe(ValueKind kind) {
  switch (kind) {
    case ValueKind::Unknown:
      return "un valore di tipo sconosciuto";
    case ValueKind::Null:
      return "NULL";
    case ValueKind::Integer:
      return "un numero intero";
    case ValueKind::Number:
      return "un numero";
    case ValueKind::Decimal:
      return "un importo";
    case ValueKind::Text:
      return "un testo";
    case ValueKind::Date:
      return "una data";
    case ValueKind::Condition:
      return "una condizione";
  }
  return "";
}

}  // namespace cu::sqlite
