#include "sqlite/writer.h"

#include <sqlite3.h>

#include <algorithm>

#include "base/text.h"
#include "sqlite/analysis.h"
#include "sqlite/conversion.h"
#include "sqlite/sql_error.h"

namespace cu::sqlite {
namespace {

// How closely the embedded engine binds.
enum Binding { kOr = 1, kAnd, kNot, kComparison, kSum, kJoin, kCollate, kPrimary };

int bindingOf(const Expr& expr) {
  switch (expr.kind) {
    case ExprKind::Or:
      return kOr;
    case ExprKind::And:
      return kAnd;
    case ExprKind::Not:
      return kNot;
    case ExprKind::Compare:
    case ExprKind::InList:
    case ExprKind::IsNull:
      return kComparison;
    case ExprKind::Binary:
      return expr.name == "||" ? kJoin : kSum;
    case ExprKind::Collate:
    case ExprKind::Negate:
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
  if (destination_ == Destination::Schema) {
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
    case ExprKind::InList:
      expression(*expr.args[0], kSum).text(expr.negated ? " NOT IN (" : " IN (");
      list(expr.args, ", ", 0, 1);
      sql_ += ')';
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
    case ExprKind::Subquery:
      text("(").select(*expr.select).text(")");
      return;
    case ExprKind::Cast:
    case ExprKind::Collate:
      throw SqlError(expr.position, "espressione dei soli testi del file");
  }
}

void Writer::binary(const Expr& expr) {
  const int own = bindingOf(expr);
  expression(*expr.args[0], own).text(" ").text(expr.name).text(" ").expression(*expr.args[1], own + 1);
}

void Writer::caseOf(const Expr& expr) {
  sql_ += "CASE";
  const std::size_t end = expr.args.size() - (expr.hasElse ? 1 : 0);
  for (std::size_t at = 0; at < end; at += 2)
    text(" WHEN ").expression(*expr.args[at]).text(" THEN ").expression(*expr.args[at + 1]);
  if (expr.hasElse) text(" ELSE ").expression(*expr.args.back());
  sql_ += " END";
}

}  // namespace cu::sqlite
