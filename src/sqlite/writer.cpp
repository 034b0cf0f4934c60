#include "sqlite/writer.h"

#include <sqlite3.h>

#include <algorithm>

#include "base/text.h"
#include "sqlite/analysis.h"
#include "sqlite/conversion.h"
#include "sqlite/sql_error.h"

namespace cu::sqlite {
namespace {

// Operator precedence of the embedded engine.
enum Binding { kOr = 1, kAnd, kNot, kComparison, kSum, kProduct, kJoin, kCollate, kPrimary };

int bindingOf(const Expr& expr) {
  switch (expr.kind) {
    case ExprKind::Or:
      return kOr;
    case ExprKind::And:
      return kAnd;
    case ExprKind::Not:
      return kNot;
    case ExprKind::Compare:
    case ExprKind::Between:
    case ExprKind::InList:
    case ExprKind::InSelect:
    case ExprKind::IsNull:
      return kComparison;
    case ExprKind::Like:
      return expr.negated ? kNot : kPrimary;
    case ExprKind::Binary:
      if (expr.name == "||") return kJoin;
      if (expr.name == "/" || expr.name == "%") return kPrimary;
      return expr.name == "*" ? kProduct : kSum;
    case ExprKind::Collate:
    case ExprKind::Negate:
    case ExprKind::Plus:
      return kCollate;
    case ExprKind::Null:
    case ExprKind::Number:
    case ExprKind::Text:
    case ExprKind::Column:
    case ExprKind::Exists:
    case ExprKind::Case:
    case ExprKind::Call:
    case ExprKind::Cast:
    case ExprKind::Subquery:
      return kPrimary;
  }
  return kPrimary;
}

bool isPlainWord(std::string_view word) {
  const auto plain = [](char c) {
    return (static_cast<unsigned char>(c) < 0x80 && isWordPart(c) && c != '@' && c != '#' && c != '$');
  };
  return !word.empty() && !isDigit(word.front()) && std::all_of(word.begin(), word.end(), plain) &&
         sqlite3_keyword_check(word.data(), static_cast<int>(word.size())) == 0;
}

}  // namespace

Writer& Writer::name(std::string_view identifier) {
  if (isPlainWord(identifier)) return text(identifier);
  sql_ += '"';
  for (const char c : identifier) {
    sql_ += c;
    if (c == '"') sql_ += c;
  }
  sql_ += '"';
  return *this;
}

Piece Writer::piece(Piece::Role role) {
  Piece result{role, std::move(sql_), std::move(parameters_)};
  sql_.clear();
  parameters_.clear();
  return result;
}

void Writer::ownFunction(const Expr& expr, std::string_view what) const {
  if (destination_ == Destination::Run) return;
  throw SqlError(expr.position, "costruzione non ammessa in una vista: " + std::string(what));
}

Writer& Writer::conjunct(const Expr& expr) { return expression(expr, kAnd); }

Writer& Writer::expression(const Expr& expr, int binding) {
  int own = bindingOf(expr);
  if (expr.noCase) own = kCollate;
  const bool exact = destination_ == Destination::Run && expr.kind == ExprKind::Call && expr.name == "SUM";
  const bool rounded = expr.rounded && !exact;
  if (rounded || expr.cut || expr.notNull) own = kPrimary;
  const bool parenthesised = own < binding;
  if (parenthesised) sql_ += '(';
  if (expr.notNull) sql_ += "cu_required(";
  if (expr.cut) sql_ += "CAST(";
  if (rounded) sql_ += destination_ == Destination::Run ? "cu_amount(" : "round(";
  if (expr.noCase && bindingOf(expr) < kCollate) {
    sql_ += '(';
    bare(expr);
    sql_ += ')';
  } else {
    bare(expr);
  }
  if (rounded) sql_ += destination_ == Destination::Run ? ")" : ", 4)";
  if (expr.cut) sql_ += " AS INTEGER)";
  if (expr.notNull) sql_ += ')';
  if (expr.noCase) sql_ += " COLLATE NOCASE";
  if (parenthesised) sql_ += ')';
  return *this;
}

void Writer::literal(const Expr& expr) {
  if (destination_ == Destination::Schema || expr.pinned) {
    sql_ += writtenOut(literals_[expr.literal], expr.conversion);
    return;
  }
  const Parameter parameter{expr.literal, expr.conversion};
  if (std::find(parameters_.begin(), parameters_.end(), parameter) == parameters_.end()) {
    parameters_.push_back(parameter);
  }
  sql_ += '?';
  sql_ += fromInteger(static_cast<std::int64_t>(expr.literal) + 1);
}

void Writer::list(const std::vector<ExprPtr>& args, std::string_view separator, int binding,
                  std::size_t first) {
  for (std::size_t i = first; i < args.size(); ++i) {
    if (i > first) sql_ += separator;
    expression(*args[i], binding);
  }
}

void Writer::bare(const Expr& expr) {
  switch (expr.kind) {
    case ExprKind::Null:
      sql_ += "NULL";
      return;
    case ExprKind::Number:
    case ExprKind::Text:
      literal(expr);
      return;
    case ExprKind::Column:
      if (!expr.qualifier.empty()) name(expr.qualifier).text(".");
      name(expr.name);
      return;
    case ExprKind::Negate:
      text("-").expression(*expr.args[0], kPrimary);
      return;
    case ExprKind::Plus:
      expression(*expr.args[0], kCollate);
      return;
    case ExprKind::Binary:
      binary(expr);
      return;
    case ExprKind::Compare:
      expression(*expr.args[0], kSum).text(" ").text(expr.name).text(" ").expression(*expr.args[1], kSum);
      return;
    case ExprKind::And:
      list(expr.args, " AND ", kAnd);
      return;
    case ExprKind::Or:
      list(expr.args, " OR ", kOr);
      return;
    case ExprKind::Not:
      text("NOT ").expression(*expr.args[0], kPrimary);
      return;
    case ExprKind::Like:
      ownFunction(expr, "LIKE");
      text(expr.negated ? "NOT cu_like(" : "cu_like(");
      list(expr.args, ", ", 0);
      sql_ += ')';
      return;
    case ExprKind::Between:
      between(expr);
      return;
    case ExprKind::InList:
      expression(*expr.args[0], kSum).text(expr.negated ? " NOT IN (" : " IN (");
      list(expr.args, ", ", 0, 1);
      sql_ += ')';
      return;
    case ExprKind::InSelect:
      expression(*expr.args[0], kSum)
          .text(expr.negated ? " NOT IN (" : " IN (")
          .select(*expr.select)
          .text(")");
      return;
    case ExprKind::IsNull:
      expression(*expr.args[0], kSum).text(expr.negated ? " IS NOT NULL" : " IS NULL");
      return;
    case ExprKind::Exists:
      text("EXISTS (").select(*expr.select).text(")");
      return;
    case ExprKind::Case:
      caseOf(expr);
      return;
    case ExprKind::Call:
      call(expr);
      return;
    case ExprKind::Cast:
      cast(expr);
      return;
    case ExprKind::Subquery:
      text("(").select(*expr.select).text(")");
      return;
    case ExprKind::Collate:
      throw SqlError(expr.position, "COLLATE");
  }
}

void Writer::binary(const Expr& expr) {
  const Expr& left = *expr.args[0];
  const Expr& right = *expr.args[1];
  if (expr.name == "/" || expr.name == "%") {
    // A division by zero is an error on the server and NULL here.
    ownFunction(expr, "divisione");
    const bool amounts = expr.name == "/" && expr.valueKind == ValueKind::Decimal;
    text(expr.name == "/" ? "cu_divide(" : "cu_modulo(");
    if (amounts) sql_ += "CAST(";
    expression(left);
    if (amounts) sql_ += " AS REAL)";
    text(", ").expression(right).text(")");
    return;
  }
  const int own = bindingOf(expr);
  expression(left, own).text(" ").text(expr.name).text(" ").expression(right, own + 1);
}

void Writer::between(const Expr& expr) {
  expression(*expr.args[0], kSum).text(expr.negated ? " NOT BETWEEN " : " BETWEEN ");
  expression(*expr.args[1], kSum).text(" AND ").expression(*expr.args[2], kSum);
}

void Writer::caseOf(const Expr& expr) {
  sql_ += "CASE";
  std::size_t at = 0;
  if (expr.hasBase) text(" ").expression(*expr.args[at++]);
  const std::size_t end = expr.args.size() - (expr.hasElse ? 1 : 0);
  for (; at < end; at += 2)
    text(" WHEN ").expression(*expr.args[at]).text(" THEN ").expression(*expr.args[at + 1]);
  if (expr.hasElse) text(" ELSE ").expression(*expr.args.back());
  sql_ += " END";
}

}  // namespace cu::sqlite
