#include <charconv>

#include "base/ascii.h"
#include "base/text.h"
#include "sqlite/sql_error.h"
#include "sqlite/writer.h"

namespace cu::sqlite {

void Writer::function(std::string_view name, const Expr& call, std::size_t arguments) {
  text(name).text("(");
  if (call.distinct) sql_ += "DISTINCT ";
  for (std::size_t i = 0; i < arguments; ++i) {
    if (i > 0) sql_ += ", ";
    expression(*call.args[i]);
  }
  sql_ += ')';
}

void Writer::datePart(std::string_view format, const Expr& call) {
  text("CAST(strftime('").text(format).text("', ").expression(*call.args[0]).text(") AS INTEGER)");
}

// LEFT, RIGHT, SUBSTRING: the positions count from 1 in the text.
void Writer::part(const Expr& expr, Function function) {
  const int first = positive(*expr.args[1]);
  text("substr(").expression(*expr.args[0]).text(", ");
  if (function == Function::Right) {
    text("-").text(fromInteger(first));
  } else if (function == Function::Left) {
    text("1, ").text(fromInteger(first));
  } else {
    text(fromInteger(first)).text(", ").text(fromInteger(positive(*expr.args[2])));
  }
  sql_ += ')';
}

int Writer::positive(const Expr& expr) const {
  const std::string_view digits = literals_[expr.literal].text;
  int value = 0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (error != std::errc() || end != digits.data() + digits.size() || value < 1) {
    throw SqlError(expr.position, "una posizione è un numero intero da 1 in su");
  }
  return value;
}

void Writer::call(const Expr& expr) {
  const FunctionRule* rule = findFunction(expr.name, Dialect::Server);
  if (rule == nullptr) throw SqlError(expr.position, "funzione non ammessa: " + expr.name);
  switch (rule->function) {
    case Function::IsNull:
      function("ifnull", expr, 2);
      return;
    case Function::Coalesce:
      function("coalesce", expr, expr.args.size());
      return;
    case Function::NullIf:
      function("nullif", expr, 2);
      return;
    case Function::RTrim:
      function("rtrim", expr, 1);
      return;
    case Function::LTrim:
      function("ltrim", expr, 1);
      return;
    case Function::Upper:
      function("upper", expr, 1);
      return;
    case Function::Lower:
      function("lower", expr, 1);
      return;
    case Function::Len:
      text("length(rtrim(").expression(*expr.args[0]).text("))");
      return;
    case Function::Left:
    case Function::Right:
    case Function::Substring:
      part(expr, rule->function);
      return;
    case Function::Abs:
      function("abs", expr, 1);
      return;
    case Function::Round:
      function(destination_ == Destination::Run ? "cu_round" : "round", expr, 2);
      return;
    case Function::Year:
      datePart("%Y", expr);
      return;
    case Function::Month:
      datePart("%m", expr);
      return;
    case Function::Day:
      datePart("%d", expr);
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
    case Function::Min:
      function("min", expr, 1);
      return;
    case Function::Max:
      function("max", expr, 1);
      return;
    case Function::Avg:
      if (expr.valueKind == ValueKind::Integer) sql_ += "CAST(";
      function("avg", expr, 1);
      if (expr.valueKind == ValueKind::Integer) sql_ += " AS INTEGER)";
      return;
    case Function::ObjectId:
      ownFunction(expr, "OBJECT_ID");
      text(
          "(SELECT name COLLATE NOCASE FROM sqlite_schema WHERE type IN ('table', 'view') AND name = "
          "cu_object(");
      expression(*expr.args[0]).text(") COLLATE NOCASE)");
      return;
    case Function::StoredText:
    case Function::StoredInteger:
      throw SqlError(expr.position, "funzione non ammessa: " + expr.name);
  }
}

void Writer::cast(const Expr& expr) {
  const Expr& operand = *expr.args[0];
  switch (expr.valueKind) {
    case ValueKind::Integer:
      text("CAST(").expression(operand).text(" AS INTEGER)");
      return;
    case ValueKind::Decimal: {
      const int scale = expr.type.name == "importo" ? 4 : expr.type.scale.value_or(0);
      text(destination_ == Destination::Run ? "cu_round(" : "round(")
          .expression(operand)
          .text(", ")
          .text(fromInteger(scale))
          .text(")");
      return;
    }
    case ValueKind::Text:
      if (operand.valueKind != ValueKind::Text) {
        text("CAST(").expression(operand).text(" AS TEXT)");
      } else {
        const bool limited = expr.type.length || expr.type.name == "varchar" || expr.type.name == "nvarchar";
        if (limited) sql_ += "substr(";
        expression(operand);
        if (limited) text(", 1, ").text(fromInteger(expr.type.length.value_or(30))).text(")");
      }
      return;
    case ValueKind::Date:
      expression(operand);
      return;
    case ValueKind::Unknown:
    case ValueKind::Null:
    case ValueKind::Number:
    case ValueKind::Condition:
      break;
  }
  throw SqlError(expr.position, "CAST in " + upperAscii(expr.type.name));
}

}  // namespace cu::sqlite
