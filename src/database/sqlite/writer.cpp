#include "database/sqlite/writer.h"

#include <sqlite3.h>

#include <algorithm>
#include <charconv>

#include "database/sqlite/analysis.h"
#include "database/sqlite/conversion.h"
#include "database/sqlite/sql_error.h"
#include "host/text.h"

namespace cu::sqlite {
namespace {

// How closely the embedded engine binds.
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
      return kCollate;
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

std::string upperAscii(std::string_view text) {
  std::string result(text);
  for (char& c : result) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return result;
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

// LEFT, RIGHT, SUBSTRING: the positions stand in the text, from 1 on.
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
      // The engine adds in floating point; over many rows that shows in the fourth place.
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
