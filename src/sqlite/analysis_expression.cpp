#include <algorithm>

#include "base/text.h"
#include "sqlite/analysis.h"
#include "sqlite/sql_error.h"
#include "sqlite/types.h"

namespace cu::sqlite {
namespace {

std::string fullName(const Expr& column) {
  return column.qualifier.empty() ? column.name : column.qualifier + "." + column.name;
}

bool isSum(const Expr& expr) {
  return expr.kind == ExprKind::Binary && (expr.name == "+" || expr.name == "-");
}

void needNumeric(const Expr& expr, const std::string& what) {
  if (isNumeric(expr.valueKind) || expr.valueKind == ValueKind::Null) return;
  throw SqlError(expr.position, what + " con " + describe(expr.valueKind) + ": non decidibile");
}

ValueKind arithmeticKind(const Expr& left, const Expr& right) {
  const auto either = [&](ValueKind kind) { return left.valueKind == kind || right.valueKind == kind; };
  for (const ValueKind kind : {ValueKind::Decimal, ValueKind::Number, ValueKind::Integer}) {
    if (either(kind)) return kind;
  }
  return ValueKind::Null;
}

// The left operand's collation applies, or the right one's where only that is a column.
void compareAsText(Expr& left, const Expr& right) {
  if (left.valueKind != ValueKind::Text && right.valueKind != ValueKind::Text) return;
  if (carriesCollation(left) || (right.collated && left.kind != ExprKind::Column)) return;
  left.noCase = true;
}

}  // namespace

void Analysis::value(Expr& expr, const Scope& scope) {
  switch (expr.kind) {
    case ExprKind::Null:
      expr.valueKind = ValueKind::Null;
      return;
    case ExprKind::Number:
      expr.valueKind = ValueKind::Number;
      return;
    case ExprKind::Text:
      expr.valueKind = ValueKind::Text;
      return;
    case ExprKind::Column:
      column(expr, scope);
      return;
    case ExprKind::Negate:
      value(*expr.args[0], scope);
      needNumeric(*expr.args[0], "segno");
      expr.valueKind = expr.args[0]->valueKind;
      return;
    case ExprKind::Binary:
      binary(expr, scope);
      return;
    case ExprKind::Case:
      caseOf(expr, scope);
      return;
    case ExprKind::Call:
      call(expr, scope);
      return;
    case ExprKind::Cast:
      cast(expr, scope);
      return;
    case ExprKind::Subquery:
      select(*expr.select, &scope, Use::Top);
      if (expr.select->output.size() != 1)
        throw SqlError(expr.position, "una query come valore dà una colonna sola");
      expr.valueKind = expr.select->output.front().kind;
      return;
    case ExprKind::Collate:
      value(*expr.args[0], scope);
      expr.valueKind = expr.args[0]->valueKind;
      expr.collated = equalsNoCase(expr.name, "NOCASE");
      return;
    case ExprKind::Compare:
    case ExprKind::And:
    case ExprKind::Or:
    case ExprKind::Not:
    case ExprKind::InList:
    case ExprKind::IsNull:
    case ExprKind::Exists:
      throw SqlError(expr.position, "una condizione dove occorre un valore");
  }
}

void Analysis::test(Expr& expr, const Scope& scope) {
  switch (expr.kind) {
    case ExprKind::And:
    case ExprKind::Or:
    case ExprKind::Not:
      for (const ExprPtr& arg : expr.args) test(*arg, scope);
      break;
    case ExprKind::Compare:
      compare(expr, scope);
      break;
    case ExprKind::InList:
      membership(expr, scope);
      break;
    case ExprKind::IsNull:
      value(*expr.args[0], scope);
      break;
    case ExprKind::Exists:
      select(*expr.select, &scope, Use::Top);
      break;
    case ExprKind::Null:
    case ExprKind::Number:
    case ExprKind::Text:
    case ExprKind::Column:
    case ExprKind::Negate:
    case ExprKind::Binary:
    case ExprKind::Case:
    case ExprKind::Call:
    case ExprKind::Cast:
    case ExprKind::Subquery:
    case ExprKind::Collate:
      throw SqlError(expr.position, "un valore dove occorre una condizione");
  }
  expr.valueKind = ValueKind::Condition;
}

void Analysis::column(Expr& expr, const Scope& scope) const {
  for (const Scope* level = &scope; level != nullptr; level = level->parent) {
    const ColumnInfo* found = nullptr;
    for (const Source* source : level->sources) {
      if (!expr.qualifier.empty() && !equalsNoCase(source->name(), expr.qualifier)) continue;
      const std::size_t index = source->info->find(expr.name);
      if (index == TableInfo::kNone) continue;
      if (found != nullptr) throw SqlError(expr.position, "nome di colonna ambiguo: " + fullName(expr));
      found = &source->info->columns[index];
    }
    if (found == nullptr) continue;
    expr.valueKind = found->kind;
    expr.collated = found->collated;
    return;
  }
  throw SqlError(expr.position, "colonna sconosciuta: " + fullName(expr));
}

void Analysis::binary(Expr& expr, const Scope& scope) {
  Expr& left = *expr.args[0];
  Expr& right = *expr.args[1];
  value(left, scope);
  value(right, scope);
  if (expr.name == "||") {
    expr.valueKind = ValueKind::Text;
    return;
  }
  if (expr.name == "+") {
    sum(expr);
    return;
  }
  needNumeric(left, "«" + expr.name + "»");
  needNumeric(right, "«" + expr.name + "»");
  expr.valueKind = arithmeticKind(left, right);
  if (expr.valueKind == ValueKind::Decimal) {
    expr.rounded = true;
    for (const ExprPtr& arg : expr.args) arg->rounded = arg->rounded && !isSum(*arg);
  }
}

// The server uses the same sign to concatenate texts and to add numbers: the kinds of the operands decide.
void Analysis::sum(Expr& expr) const {
  Expr& left = *expr.args[0];
  Expr& right = *expr.args[1];
  const auto text = [](const Expr& operand) {
    return operand.valueKind == ValueKind::Text || operand.valueKind == ValueKind::Null;
  };
  const auto number = [](const Expr& operand) {
    return isNumeric(operand.valueKind) || operand.valueKind == ValueKind::Null;
  };
  if (number(left) && number(right)) {
    expr.valueKind = arithmeticKind(left, right);
    if (expr.valueKind != ValueKind::Decimal) return;
    expr.rounded = true;
    for (const ExprPtr& arg : expr.args) arg->rounded = arg->rounded && !isSum(*arg);
    return;
  }
  if (text(left) && text(right)) {
    expr.name = "||";
    expr.valueKind = ValueKind::Text;
    return;
  }
  throw SqlError(expr.position, std::string("«+» fra ") + describe(left.valueKind) + " e " +
                                    describe(right.valueKind) + ": somma o concatenazione, non decidibile");
}

void Analysis::compare(Expr& expr, const Scope& scope) {
  value(*expr.args[0], scope);
  value(*expr.args[1], scope);
  match(*expr.args[0], *expr.args[1], "confronto");
  compareAsText(*expr.args[0], *expr.args[1]);
}

void Analysis::membership(Expr& expr, const Scope& scope) {
  for (const ExprPtr& arg : expr.args) value(*arg, scope);
  Expr& wanted = *expr.args[0];
  for (std::size_t i = 1; i < expr.args.size(); ++i) match(wanted, *expr.args[i], "IN");
  wanted.noCase = wanted.valueKind == ValueKind::Text && !carriesCollation(wanted);
}

void Analysis::caseOf(Expr& expr, const Scope& scope) {
  const std::size_t end = expr.args.size() - (expr.hasElse ? 1 : 0);
  std::vector<Expr*> branches;
  for (std::size_t i = 0; i < end; i += 2) {
    test(*expr.args[i], scope);
    value(*expr.args[i + 1], scope);
    branches.push_back(expr.args[i + 1].get());
  }
  if (expr.hasElse) {
    value(*expr.args.back(), scope);
    branches.push_back(expr.args.back().get());
  }
  expr.valueKind = combine(branches, "CASE");
}

void Analysis::cast(Expr& expr, const Scope& scope) {
  Expr& operand = *expr.args[0];
  value(operand, scope);
  const ValueKind kind = kindOfStored(expr.type.name, true);
  expr.valueKind = kind == ValueKind::Unknown ? operand.valueKind : kind;
}

void Analysis::condition(Expr& expr) { test(expr, Scope()); }

void Analysis::constant(Expr& expr, const ColumnInfo& column) {
  value(expr, Scope());
  assign(expr, column, false);
}

}  // namespace cu::sqlite
