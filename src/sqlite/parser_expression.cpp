#include <algorithm>

#include "base/ascii.h"
#include "sqlite/parser_state.h"
#include "sqlite/sql_error.h"

namespace cu::sqlite {
namespace {

// Chains such as a + b + ... form a left-deep tree; recursion over the tree reaches this depth.
constexpr int kDeepestTree = 300;

}  // namespace

ExprPtr Parser::node(ExprKind kind) const {
  auto expr = std::make_unique<Expr>();
  expr->kind = kind;
  expr->position = peek().position;
  return expr;
}

ExprPtr Parser::adopt(ExprPtr parent, ExprPtr child) const {
  parent->depth = std::max(parent->depth, child->depth + 1);
  if (parent->depth > kDeepestTree) throw SqlError(parent->position, "espressione troppo lunga");
  parent->args.push_back(std::move(child));
  return parent;
}

ExprPtr Parser::expression() {
  const Nesting nesting(*this);
  ExprPtr first = andChain();
  if (!at("OR")) return first;
  ExprPtr chain = adopt(node(ExprKind::Or), std::move(first));
  while (accept("OR")) chain = adopt(std::move(chain), andChain());
  return chain;
}

ExprPtr Parser::andChain() {
  ExprPtr first = notCondition();
  if (!at("AND")) return first;
  ExprPtr chain = adopt(node(ExprKind::And), std::move(first));
  while (accept("AND")) chain = adopt(std::move(chain), notCondition());
  return chain;
}

ExprPtr Parser::notCondition() {
  if (!at("NOT")) return predicate();
  const Nesting nesting(*this);
  ExprPtr result = node(ExprKind::Not);
  take();
  return adopt(std::move(result), notCondition());
}

ExprPtr Parser::predicate() {
  ExprPtr left = additive();
  static constexpr std::array<std::string_view, 6> kComparisons = {"=", "<>", "<", "<=", ">", ">="};
  for (std::string_view comparison : kComparisons) {
    if (!peek().is(comparison)) continue;
    ExprPtr result = node(ExprKind::Compare);
    take();
    if (at("ALL") || at("ANY") || at("SOME")) refuse(std::string(peek().text) + " in un confronto");
    result->name = comparison;
    result = adopt(std::move(result), std::move(left));
    return adopt(std::move(result), additive());
  }
  if (at("IS")) {
    ExprPtr result = node(ExprKind::IsNull);
    take();
    result->negated = accept("NOT");
    expect("NULL");
    return adopt(std::move(result), std::move(left));
  }
  const bool negated = at("NOT");
  const std::size_t word = negated ? 1 : 0;
  for (const char* condition : {"LIKE", "BETWEEN"}) {
    if (at(condition, word)) refuse(condition);
  }
  if (!at("IN", word)) return left;
  ExprPtr result = node(ExprKind::InList);
  result->negated = negated;
  if (negated) take();
  take();
  expect("(");
  if (at("SELECT")) refuse("IN con una query");
  result = adopt(std::move(result), std::move(left));
  do {
    result = adopt(std::move(result), additive());
  } while (accept(","));
  expect(")");
  return result;
}

ExprPtr Parser::additive() {
  ExprPtr left = concatenation();
  while (peek().is("+") || peek().is("-")) {
    ExprPtr sum = node(ExprKind::Binary);
    sum->name = take().text;
    sum = adopt(std::move(sum), std::move(left));
    left = adopt(std::move(sum), concatenation());
  }
  for (const char* operation : {"*", "/", "%"}) {
    if (peek().is(operation)) refuse(std::string("«") + operation + "» fra valori");
  }
  return left;
}

ExprPtr Parser::concatenation() {
  ExprPtr left = unary();
  while (dialect_ == Dialect::Stored && peek().is("||")) {
    ExprPtr joined = node(ExprKind::Binary);
    joined->name = take().text;
    joined = adopt(std::move(joined), std::move(left));
    left = adopt(std::move(joined), unary());
  }
  return left;
}

ExprPtr Parser::unary() {
  if (!peek().is("-")) {
    ExprPtr value = primary();
    while (at("COLLATE")) {
      if (dialect_ != Dialect::Stored) refuse("COLLATE");
      ExprPtr collated = node(ExprKind::Collate);
      take();
      collated->name = name();
      value = adopt(std::move(collated), std::move(value));
    }
    return value;
  }
  const Nesting nesting(*this);
  ExprPtr sign = node(ExprKind::Negate);
  take();
  return adopt(std::move(sign), unary());
}

ExprPtr Parser::primary() {
  const Token& token = peek();
  if (token.kind == TokenKind::Number || token.kind == TokenKind::Text) {
    ExprPtr literal = node(token.kind == TokenKind::Number ? ExprKind::Number : ExprKind::Text);
    literal->literal = take().ordinal;
    return literal;
  }
  if (token.is("(")) return parenthesised();
  if (at("NULL")) {
    ExprPtr null = node(ExprKind::Null);
    take();
    return null;
  }
  if (at("CASE")) return caseExpression();
  if (at("CAST")) return cast();
  if (at("EXISTS")) {
    ExprPtr exists = node(ExprKind::Exists);
    take();
    expect("(");
    exists->select = select();
    expect(")");
    return exists;
  }
  if (at("SELECT")) unexpected();
  return columnOrCall();
}

ExprPtr Parser::parenthesised() {
  const Nesting nesting(*this);
  ExprPtr query = node(ExprKind::Subquery);
  expect("(");
  ExprPtr inner;
  if (at("SELECT")) {
    query->select = select();
    inner = std::move(query);
  } else {
    inner = expression();
  }
  expect(")");
  return inner;
}

ExprPtr Parser::caseExpression() {
  const Nesting nesting(*this);
  ExprPtr result = node(ExprKind::Case);
  take();
  if (!at("WHEN")) refuse("CASE con un valore");
  while (accept("WHEN")) {
    result = adopt(std::move(result), expression());
    expect("THEN");
    result = adopt(std::move(result), expression());
  }
  if (accept("ELSE")) {
    result->hasElse = true;
    result = adopt(std::move(result), expression());
  }
  expect("END");
  return result;
}

ExprPtr Parser::cast() {
  if (dialect_ != Dialect::Stored) refuse("CAST");
  const Nesting nesting(*this);
  ExprPtr result = node(ExprKind::Cast);
  take();
  expect("(");
  result = adopt(std::move(result), expression());
  expect("AS");
  result->type = typeName();
  expect(")");
  return result;
}

ExprPtr Parser::columnOrCall() {
  if (!atName()) unexpected();
  if (peek().kind == TokenKind::Word && peek(1).is("(")) return call(take());
  ExprPtr column = node(ExprKind::Column);
  std::vector<std::string> parts{name()};
  while (peek().is(".")) {
    take();
    parts.push_back(name());
  }
  if (peek().is("(")) refuse("funzione con schema");
  if (parts.size() > 3) refuse("nome di colonna con più di tre parti");
  column->name = std::move(parts.back());
  parts.pop_back();
  if (!parts.empty()) column->qualifier = std::move(parts.back());
  return column;
}

ExprPtr Parser::call(const Token& name) {
  const Nesting nesting(*this);
  ExprPtr result = node(ExprKind::Call);
  result->position = name.position;
  result->name = upperAscii(name.text);
  expect("(");
  if (accept("*")) {
    result->star = true;
  } else if (!at(")")) {
    if (at("DISTINCT")) refuse("DISTINCT in una funzione");
    do {
      result = adopt(std::move(result), expression());
    } while (accept(","));
  }
  expect(")");
  if (at("OVER")) refuse("OVER");
  return result;
}

}  // namespace cu::sqlite
