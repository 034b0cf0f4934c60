#include "sqlite/analysis.h"
#include "sqlite/sql_error.h"

namespace cu::sqlite {
namespace {

enum class Family { Any, Numeric, Text, Date, Condition };

Family family(ValueKind kind) {
  switch (kind) {
    case ValueKind::Unknown:
    case ValueKind::Null:
      return Family::Any;
    case ValueKind::Integer:
    case ValueKind::Number:
    case ValueKind::Decimal:
      return Family::Numeric;
    case ValueKind::Text:
      return Family::Text;
    case ValueKind::Date:
      return Family::Date;
    case ValueKind::Condition:
      return Family::Condition;
  }
  return Family::Any;
}

// The server's precedence of types.
int rank(ValueKind kind) {
  switch (kind) {
    case ValueKind::Null:
      return 0;
    case ValueKind::Text:
      return 1;
    case ValueKind::Integer:
      return 2;
    case ValueKind::Number:
      return 3;
    case ValueKind::Decimal:
      return 4;
    case ValueKind::Date:
      return 5;
    case ValueKind::Unknown:
      return 6;
    case ValueKind::Condition:
      return 7;
  }
  return 0;
}

void fitText(Expr& literal, ValueKind kind) {
  switch (kind) {
    case ValueKind::Date:
      literal.conversion = Conversion::Date;
      break;
    case ValueKind::Integer:
      literal.conversion = Conversion::IntegerText;
      break;
    case ValueKind::Number:
    case ValueKind::Decimal:
      literal.conversion = Conversion::DecimalText;
      break;
    case ValueKind::Unknown:
    case ValueKind::Null:
    case ValueKind::Text:
    case ValueKind::Condition:
      return;
  }
  literal.valueKind = kind;
}

bool isChoice(const Expr& expr) {
  return expr.kind == ExprKind::Call && (expr.name == "ISNULL" || expr.name == "IFNULL");
}

}  // namespace

std::vector<Expr*> branchesOf(const Expr& expr) {
  std::vector<Expr*> branches;
  if (isChoice(expr)) {
    for (const ExprPtr& arg : expr.args) branches.push_back(arg.get());
  } else if (expr.kind == ExprKind::Case) {
    const std::size_t end = expr.args.size() - (expr.hasElse ? 1 : 0);
    for (std::size_t i = 1; i < end; i += 2) branches.push_back(expr.args[i].get());
    if (expr.hasElse) branches.push_back(expr.args.back().get());
  }
  return branches;
}

bool isNumeric(ValueKind kind) { return family(kind) == Family::Numeric; }

bool carriesCollation(const Expr& expr) { return expr.collated || expr.noCase; }

void fit(Expr& expr, ValueKind kind) {
  if (expr.kind == ExprKind::Text) {
    if (expr.conversion == Conversion::AsIs) fitText(expr, kind);
    return;
  }
  const std::vector<Expr*> branches = branchesOf(expr);
  if (branches.empty() || expr.valueKind != ValueKind::Text) return;
  for (Expr* branch : branches) fit(*branch, kind);
  expr.valueKind = combine(branches, expr.kind == ExprKind::Case ? "CASE" : expr.name);
}

void match(Expr& left, Expr& right, std::string_view what) {
  if (family(left.valueKind) == Family::Text) fit(left, right.valueKind);
  if (family(right.valueKind) == Family::Text) fit(right, left.valueKind);
  const Family a = family(left.valueKind);
  const Family b = family(right.valueKind);
  if (a == b || a == Family::Any || b == Family::Any) return;
  throw SqlError(right.position, std::string(what) + " fra " + describe(left.valueKind) + " e " +
                                     describe(right.valueKind) + ": non decidibile");
}

ValueKind combine(const std::vector<Expr*>& branches, std::string_view what) {
  Expr* strongest = branches.front();
  for (Expr* branch : branches) {
    if (rank(branch->valueKind) > rank(strongest->valueKind)) strongest = branch;
  }
  for (Expr* branch : branches) {
    if (branch != strongest) match(*strongest, *branch, what);
  }
  return strongest->valueKind;
}

}  // namespace cu::sqlite
