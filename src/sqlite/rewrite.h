#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "sqlite/ast.h"
#include "sqlite/literal.h"

namespace cu::sqlite {

// A literal of the text that is handed to the prepared statement: parameter number `literal` + 1.
struct Parameter {
  std::size_t literal = 0;
  Conversion conversion = Conversion::AsIs;
  friend bool operator==(const Parameter&, const Parameter&) = default;
};

// A statement in the embedded engine's own words.
struct Piece {
  enum class Role {
    Run,
    Ambiguous,  // asks for a row matched twice; one that is found is an error
  };
  Role role = Role::Run;
  std::string sql;
  std::vector<Parameter> parameters;
};

struct Rewritten {
  std::vector<Piece> pieces;        // run in order, all or nothing
  std::vector<ColumnInfo> columns;  // of a query
  bool query = false;
  bool definition = false;  // changes the tables
};

// Adapts one statement by the tables of the open database. Literals of queries and changes become parameters;
// those of definitions are written out. For a query, a change or a definition only; the statements that steer
// (IF, EXEC, transactions) are the connection's own.
Rewritten rewrite(Statement& statement, const std::vector<Literal>& literals, const Catalog& catalog);

// The condition of an IF, as a query that yields a row when it holds.
Piece rewriteCondition(Expr& condition, const std::vector<Literal>& literals, const Catalog& catalog);

// The query for a plain table name.
Rewritten rewriteTable(const std::string& table, const Catalog& catalog);

}  // namespace cu::sqlite
