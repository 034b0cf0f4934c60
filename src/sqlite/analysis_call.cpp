#include "sqlite/analysis.h"
#include "sqlite/sql_error.h"

namespace cu::sqlite {
namespace {

// The result of ISNULL has its first operand's kind.
ValueKind isNullKind(Expr& call) {
  Expr& checked = *call.args[0];
  Expr& other = *call.args[1];
  if (checked.valueKind == ValueKind::Integer && other.kind == ExprKind::Number) {
    other.conversion = Conversion::Whole;
    other.valueKind = ValueKind::Integer;
  }
  const ValueKind kind = combine({&checked, &other}, call.name);
  if (checked.valueKind == ValueKind::Integer && kind != ValueKind::Integer) {
    throw SqlError(other.position,
                   call.name + " fra un numero intero e " + describe(other.valueKind) + ": non decidibile");
  }
  return kind;
}

}  // namespace

void Analysis::call(Expr& expr, const Scope& scope) {
  const FunctionRule* rule = findFunction(expr.name, dialect_);
  if (rule == nullptr)
    throw SqlError(expr.position, "funzione non ammessa dal database incorporato: " + expr.name);
  if (expr.args.size() + (expr.star ? 1 : 0) < rule->least || expr.args.size() > rule->most) {
    throw SqlError(expr.position, "numero di argomenti di " + expr.name);
  }
  if (expr.star && rule->function != Function::Count) {
    throw SqlError(expr.position, "argomenti di " + expr.name);
  }
  for (const ExprPtr& arg : expr.args) value(*arg, scope);
  switch (rule->function) {
    case Function::IsNull:
      expr.valueKind = isNullKind(expr);
      return;
    case Function::Year:
      dateCall(expr);
      return;
    case Function::RTrim:
    case Function::Upper:
      textCall(expr);
      return;
    case Function::ObjectId:
      if (expr.args[0]->kind != ExprKind::Text) throw SqlError(expr.position, "OBJECT_ID di un'espressione");
      expr.valueKind = ValueKind::Text;
      return;
    case Function::Sum:
    case Function::Count:
    case Function::Max:
      aggregate(expr, rule->function, scope);
      return;
    case Function::StoredAmount:
      expr.valueKind = expr.args[0]->valueKind;
      return;
    case Function::StoredText:
      expr.valueKind = ValueKind::Text;
      return;
  }
}

void Analysis::dateCall(Expr& expr) const {
  Expr& date = *expr.args[0];
  fit(date, ValueKind::Date);
  if (date.valueKind != ValueKind::Date && date.valueKind != ValueKind::Null) {
    throw SqlError(date.position, expr.name + " di " + describe(date.valueKind));
  }
  expr.valueKind = ValueKind::Integer;
}

void Analysis::textCall(Expr& expr) const {
  const ValueKind operand = expr.args[0]->valueKind;
  if (operand != ValueKind::Text && operand != ValueKind::Null) {
    throw SqlError(expr.position, expr.name + " di " + describe(operand) + ": non decidibile");
  }
  expr.valueKind = ValueKind::Text;
}

void Analysis::aggregate(Expr& expr, Function function, const Scope& scope) const {
  if (scope.select == nullptr) throw SqlError(expr.position, expr.name + " fuori da una query");
  scope.select->aggregated = true;
  if (function == Function::Count) {
    expr.valueKind = ValueKind::Integer;
    return;
  }
  Expr& operand = *expr.args[0];
  if (function == Function::Max) {
    operand.noCase = operand.valueKind == ValueKind::Text && !carriesCollation(operand);
    expr.valueKind = operand.valueKind;
    return;
  }
  if (!isNumeric(operand.valueKind)) {
    throw SqlError(operand.position, expr.name + " di " + describe(operand.valueKind) + ": non decidibile");
  }
  expr.valueKind = operand.valueKind;
  expr.rounded = operand.valueKind == ValueKind::Decimal;
}

}  // namespace cu::sqlite
