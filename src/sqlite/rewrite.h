#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "sqlite/ast.h"
#include "sqlite/literal.h"
#include "sqlite/row_order.h"

namespace cu::sqlite {

// A literal of the text bound to the prepared statement as parameter number `literal` + 1.
struct Parameter {
  std::size_t literal = 0;
  Conversion conversion = Conversion::AsIs;
  friend bool operator==(const Parameter&, const Parameter&) = default;
};

// A statement in the embedded engine's dialect.
struct Piece {
  enum class Role {
    Run,
    Ambiguous,  // selects rows matched twice; a result is an error
  };
  Role role = Role::Run;
  std::string sql;
  std::vector<Parameter> parameters;
};

struct Rewritten {
  std::vector<Piece> pieces;        // run in order, atomically
  std::vector<ColumnInfo> columns;  // of a query
  std::vector<OrderColumn> order;   // of its rows, which the caller sorts
  bool query = false;
  bool definition = false;  // changes the tables
};

// Adapts one statement to the tables of the open database. Literals of queries and changes become parameters;
// those of definitions are inlined. Only for queries, changes and definitions; control statements (IF, EXEC,
// transactions) are handled by the connection.
//
// Wide rows may be left to the caller to sort.
enum class Sorting : std::uint8_t { ByEngine, WideByCaller };
Rewritten rewrite(Statement& statement, const std::vector<Literal>& literals, const Catalog& catalog,
                  Sorting sorting = Sorting::ByEngine);

// The condition of an IF, as a query that returns a row when it is true.
Piece rewriteCondition(Expr& condition, const std::vector<Literal>& literals, const Catalog& catalog);

// The query for a plain table name.
Rewritten rewriteTable(const std::string& table, const Catalog& catalog);

}  // namespace cu::sqlite
