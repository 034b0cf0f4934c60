#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "sqlite/ast.h"
#include "sqlite/functions.h"
#include "sqlite/rewrite.h"

namespace cu::sqlite {

// The destination of a text: prepared now, with literals as parameters and the connection's own functions; or
// stored in the schema, with inlined literals and only functions available to other tools.
enum class Destination { Run, Schema };

// Writes analysed trees in the embedded engine's dialect.
class Writer {
 public:
  Writer(std::span<const Literal> literals, Destination destination)
      : literals_(literals), destination_(destination) {}

  Writer& text(std::string_view part) {
    sql_ += part;
    return *this;
  }
  Writer& name(std::string_view identifier);
  Writer& expression(const Expr& expr, int binding = 0);
  Writer& select(const Select& select);
  Writer& from(const std::vector<Source>& sources);
  Writer& source(const Source& source);
  // A condition that is one of several under AND.
  Writer& conjunct(const Expr& expr);

  Piece piece(Piece::Role role = Piece::Role::Run);

 private:
  void bare(const Expr& expr);
  void literal(const Expr& expr);
  void list(const std::vector<ExprPtr>& args, std::string_view separator, int binding, std::size_t first = 0);
  void binary(const Expr& expr);
  void caseOf(const Expr& expr);
  void call(const Expr& expr);
  void function(std::string_view name, const Expr& call, std::size_t arguments);
  void core(const Select& select);
  void ownFunction(const Expr& expr, std::string_view what) const;

  std::span<const Literal> literals_;
  Destination destination_;
  std::string sql_;
  std::vector<Parameter> parameters_;
};

}  // namespace cu::sqlite
