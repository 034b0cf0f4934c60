#pragma once

#include <string_view>
#include <vector>

#include "sqlite/ast.h"
#include "sqlite/functions.h"

namespace cu::sqlite {

// Finds out what every expression of a statement is, by the tables of the open database, and notes in the
// tree what its adaptation needs. SqlError for an unknown table or column, and where the kinds of two
// operands do not go together: nothing is guessed.
class Analysis {
 public:
  explicit Analysis(const Catalog& catalog, Dialect dialect = Dialect::Server)
      : catalog_(catalog), dialect_(dialect) {}

  // A query that stands by itself. Of one table with a key, without an order: gets the order of the key.
  void query(Select& select);
  // A query whose columns others compare: of a view.
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
  enum class Use { Top, Compared };  // whether somebody compares the columns of a query by their names

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

// The system's list of its own tables, which the existence test reads.
bool isSystemTable(std::string_view name);

// Whether SQLite compares the value without regard to case by itself.
bool carriesCollation(const Expr& expr);

// Brings the literals of an expression to a kind; what is none stays.
void fit(Expr& expr, ValueKind kind);
// The values among which a CASE or an ISNULL chooses; nothing of any other expression.
std::vector<Expr*> branchesOf(const Expr& expr);
// Makes two operands comparable; SqlError when they are not.
void match(Expr& left, Expr& right, std::string_view what);
// The kind of the branches together, literals fitted to the others.
ValueKind combine(const std::vector<Expr*>& branches, std::string_view what);
bool isNumeric(ValueKind kind);

}  // namespace cu::sqlite
