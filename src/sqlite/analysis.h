#pragma once

#include <string_view>
#include <vector>

#include "sqlite/ast.h"
#include "sqlite/functions.h"

namespace cu::sqlite {

// Determines the kind of every expression of a statement from the tables of the open database, and notes in
// the tree what the adaptation requires. Raises SqlError for an unknown table or column, and for incompatible
// kinds of two operands: nothing is guessed.
class Analysis {
 public:
  explicit Analysis(const Catalog& catalog, Dialect dialect = Dialect::Server)
      : catalog_(catalog), dialect_(dialect) {}

  // A top-level query. If it reads one table that has a key, without an order, it gets the order of the key.
  void query(Select& select);
  // A query whose columns others compare: that of a view.
  void view(Select& select);
  void insert(InsertStatement& statement);
  void update(UpdateStatement& statement);
  void remove(DeleteStatement& statement);
  void merge(MergeStatement& statement);
  // A condition without tables.
  void condition(Expr& expr);
  // A default value of a column.
  void constant(Expr& expr, const ColumnInfo& column);

 private:
  struct Scope {
    std::vector<const Source*> sources;
    const Scope* parent = nullptr;
    Select* select = nullptr;
  };
  enum class Use { Top, Compared };  // whether the query's columns are compared by name

  std::shared_ptr<const TableInfo> table(std::string_view name, std::size_t position) const;

  // Queries.
  void select(Select& select, const Scope* parent, Use use);
  void core(Select& select, const Scope* parent, Use use);
  void sources(std::vector<Source>& from, Scope& scope);
  void joinConditions(std::vector<Source>& from, const Scope& scope);
  void items(Select& select, const Scope& scope);
  void star(const SelectItem& item, Select& select, const Scope& scope) const;
  void orderBy(Select& select, const Scope& scope);
  void orderTerm(const Select& select, OrderTerm& term, const Scope& scope);
  bool orderByResult(const Select& select, Expr& expr, const Scope& scope) const;
  void orderByKey(Select& select) const;

  // Expressions.
  void value(Expr& expr, const Scope& scope);
  void test(Expr& expr, const Scope& scope);
  void column(Expr& expr, const Scope& scope) const;
  void binary(Expr& expr, const Scope& scope);
  void sum(Expr& expr) const;
  void compare(Expr& expr, const Scope& scope);
  void membership(Expr& expr, const Scope& scope);
  void caseOf(Expr& expr, const Scope& scope);
  void cast(Expr& expr, const Scope& scope);
  void call(Expr& expr, const Scope& scope);
  void dateCall(Expr& expr) const;
  void textCall(Expr& expr) const;
  void aggregate(Expr& expr, Function function, const Scope& scope) const;

  // Statements.
  void target(Source& source);
  void assign(Expr& expr, const ColumnInfo& column, bool rowNumber) const;
  void assignments(std::vector<Assignment>& list, const TableInfo& table, const Scope& scope);
  std::vector<std::size_t> insertColumns(const TableInfo& table, const std::vector<std::string>& names) const;
  void assignSelect(Select& query, const TableInfo& table, const std::vector<std::size_t>& columns);

  const Catalog& catalog_;
  Dialect dialect_;
  int depth_ = 0;
};

// The system's list of its tables, which the existence test reads.
bool isSystemTable(std::string_view name);

// Whether SQLite by itself compares the value without case.
bool carriesCollation(const Expr& expr);

// Converts the literals of an expression to a kind; anything else is unchanged.
void fit(Expr& expr, ValueKind kind);
// The possible values of a CASE or an ISNULL; empty for any other expression.
std::vector<Expr*> branchesOf(const Expr& expr);
// Makes two operands comparable; raises SqlError when they are not.
void match(Expr& left, Expr& right, std::string_view what);
// The common kind of the branches; literals are fitted to the others.
ValueKind combine(const std::vector<Expr*>& branches, std::string_view what);
bool isNumeric(ValueKind kind);

}  // namespace cu::sqlite
