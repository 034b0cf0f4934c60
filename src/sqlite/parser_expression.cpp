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
  static constexpr std::array<std::string_view, 9> kComparisons = {
      "=", "<>", "!=", "<", "<=", ">", ">=", "!<", "!>"};
  for (std::string_view comparison : kComparisons) {
    if (!peek().is(comparison)) continue;
    ExprPtr result = node(ExprKind::Compare);
    take();
    if (at("ALL") || at("ANY") || at("SOME")) refuse(std::string(peek().text) + " in un confronto");
    result->name = comparison == "!="   ? "<>"
                   : comparison == "!<" ? ">="
                   : comparison == "!>" ? "<="
                                        : comparison;
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
  const bool negated = at("NOT") && (at("LIKE", 1) || at("IN", 1) || at("BETWEEN", 1));
  if (negated) take();
  ExprPtr result = node(ExprKind::Like);
  result->negated = negated;
  if (accept("LIKE")) {
    result = adopt(std::move(result), std::move(left));
    result = adopt(std::move(result), additive());
    if (accept("ESCAPE")) result = adopt(std::move(result), additive());
    return result;
  }
  if (accept("BETWEEN")) {
    result->kind = ExprKind::Between;
    result = adopt(std::move(result), std::move(left));
    result = adopt(std::move(result), additive());
    expect("AND");
    return adopt(std::move(result), additive());
  }
  if (!accept("IN")) return left;
  expect("(");
  result = adopt(std::move(result), std::move(left));
  if (at("SELECT")) {
    result->kind = ExprKind::InSelect;
    result->select = select();
  } else {
    result->kind = ExprKind::InList;
    do {
      result = adopt(std::move(result), additive());
    } while (accept(","));
  }
  expect(")");
  return result;
}

ExprPtr Parser::additive() {
  ExprPtr left = multiplicative();
  while (peek().is("+") || peek().is("-")) {
    ExprPtr sum = node(ExprKind::Binary);
    sum->name = take().text;
    sum = adopt(std::move(sum), std::move(left));
    left = adopt(std::move(sum), multiplicative());
  }
  return left;
}

ExprPtr Parser::multiplicative() {
  ExprPtr left = concatenation();
  while (peek().is("*") || peek().is("/") || peek().is("%")) {
    ExprPtr product = node(ExprKind::Binary);
    product->name = take().text;
    product = adopt(std::move(product), std::move(left));
    left = adopt(std::move(product), concatenation());
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
  if (!peek().is("-") && !peek().is("+")) {
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
  ExprPtr sign = node(peek().is("-") ? ExprKind::Negate : ExprKind::Plus);
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
  if ((at("LEFT") || at("RIGHT")) && peek(1).is("(")) return call(take());
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
  if (!at("WHEN")) {
    result->hasBase = true;
    result = adopt(std::move(result), expression());
  }
  if (!at("WHEN")) expect("WHEN");
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
    if (accept("DISTINCT")) {
      result->distinct = true;
    } else {
      accept("ALL");
    }
    do {
      result = adopt(std::move(result), expression());
    } while (accept(","));
  }
  expect(")");
  if (at("OVER")) refuse("OVER");
  return result;
}

}  // namespace cu::sqlite
