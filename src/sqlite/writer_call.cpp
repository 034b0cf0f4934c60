#include "sqlite/sql_error.h"
#include "sqlite/writer.h"

namespace cu::sqlite {

void Writer::function(std::string_view name, const Expr& call, std::size_t arguments) {
  text(name).text("(");
  for (std::size_t i = 0; i < arguments; ++i) {
    if (i > 0) sql_ += ", ";
    expression(*call.args[i]);
  }
  sql_ += ')';
}

void Writer::call(const Expr& expr) {
  const FunctionRule* rule = findFunction(expr.name, Dialect::Server);
  if (rule == nullptr) throw SqlError(expr.position, "funzione non ammessa: " + expr.name);
  switch (rule->function) {
    case Function::IsNull:
      function("ifnull", expr, 2);
      return;
    case Function::RTrim:
      function("rtrim", expr, 1);
      return;
    case Function::Upper:
      function("upper", expr, 1);
      return;
    case Function::Year:
      text("CAST(strftime('%Y', ").expression(*expr.args[0]).text(") AS INTEGER)");
      return;
    case Function::Sum: {
      // The engine adds in floating point, which over many rows affects the fourth decimal place.
      const bool exact = destination_ == Destination::Run && expr.valueKind == ValueKind::Decimal;
      function(exact ? "cu_sum" : "sum", expr, 1);
      return;
    }
    case Function::Count:
      if (expr.star) {
        text("count(*)");
      } else {
        function("count", expr, 1);
      }
      return;
    case Function::Max:
      function("max", expr, 1);
      return;
    case Function::ObjectId:
      ownFunction(expr, "OBJECT_ID");
      text(
          "(SELECT name COLLATE NOCASE FROM sqlite_schema WHERE type IN ('table', 'view') AND name = "
          "cu_object(");
      expression(*expr.args[0]).text(") COLLATE NOCASE)");
      return;
    case Function::StoredAmount:
    case Function::StoredText:
      throw SqlError(expr.position, "funzione non ammessa: " + expr.name);
  }
}

}  // namespace cu::sqlite
