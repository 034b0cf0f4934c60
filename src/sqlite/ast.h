#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "sqlite/catalog.h"

namespace cu::sqlite {

struct Expr;
struct Select;
struct Statement;
using ExprPtr = std::unique_ptr<Expr>;
using SelectPtr = std::unique_ptr<Select>;
using StatementPtr = std::unique_ptr<Statement>;

enum class ExprKind {
  Null,
  Number,
  Text,
  Column,
  Negate,   // - operand
  Binary,   // + -, and || for texts: name
  Compare,  // = <> < <= > >=: name
  And,
  Or,
  Not,
  InList,    // value, the list
  IsNull,    // value
  Exists,    // select
  Case,      // pairs of WHEN and THEN; `hasElse`: else
  Call,      // name
  Cast,      // value; type; only in stored texts
  Subquery,  // select
  Collate,   // value; name; only in stored texts
};

// The conversion of a literal into the storage form of the column that it is compared with or assigned to.
enum class Conversion {
  AsIs,
  Date,         // 'YYYYMMDD' or 'YYYY-MM-DD' with an optional time: the stored form
  IntegerText,  // a text compared with an integer
  DecimalText,  // a text compared with an amount
  Amount,       // a number assigned to an amount: four decimal places
  Whole,        // a number assigned to an integer: truncated
  TextNumber,   // a number assigned to a text: as written
};

struct TypeName {
  std::string name;  // in lower case
  std::optional<int> length;
  std::optional<int> scale;
  std::size_t position = 0;
};

struct Expr {
  ExprKind kind = ExprKind::Null;
  std::size_t position = 0;
  std::string name;
  std::string qualifier;    // of a column
  std::size_t literal = 0;  // of a number or text: its ordinal
  std::vector<ExprPtr> args;
  SelectPtr select;
  TypeName type;
  bool negated = false;  // NOT IN, IS NOT NULL
  bool star = false;     // COUNT(*)
  bool hasElse = false;
  int depth = 1;  // height of the subtree, for the limit on nesting

  // Set by the analysis.
  ValueKind valueKind = ValueKind::Unknown;
  Conversion conversion = Conversion::AsIs;
  bool collated = false;  // of a column: carries the collation of text
  bool noCase = false;    // is written with that collation
  bool rounded = false;   // a calculated amount: rounded to four places
  bool cut = false;       // an amount assigned to an integer column
  bool notNull = false;   // assigned to a key that SQLite would number by itself
};

struct Source {
  enum class Join { First, Inner, Left };
  Join join = Join::First;
  std::size_t position = 0;
  std::string table;  // empty for a subquery
  std::string alias;
  SelectPtr select;
  ExprPtr on;
  std::shared_ptr<const TableInfo> info;  // set by the analysis
  const std::string& name() const { return alias.empty() ? table : alias; }
};

struct SelectItem {
  bool star = false;
  std::string qualifier;  // of a star
  ExprPtr expr;
  std::string alias;
  std::size_t position = 0;
  std::size_t width = 0;  // of a star: the number of its columns; set by the analysis
};

struct OrderTerm {
  ExprPtr expr;
  bool descending = false;
};

struct Select {
  std::size_t position = 0;
  bool distinct = false;
  std::vector<SelectItem> items;
  std::vector<Source> from;
  ExprPtr where;
  std::vector<OrderTerm> orderBy;

  // Set by the analysis.
  std::vector<ColumnInfo> output;
  bool aggregated = false;
};

struct Assignment {
  std::string column;
  std::size_t position = 0;
  ExprPtr value;
};

struct InsertStatement {
  std::string table;
  std::vector<std::string> columns;  // empty: all, in order
  std::vector<std::vector<ExprPtr>> rows;
  SelectPtr select;  // instead of rows
};

struct UpdateStatement {
  std::string table;  // or an alias of `from`
  std::vector<Assignment> assignments;
  std::vector<Source> from;
  ExprPtr where;
};

struct DeleteStatement {
  std::string table;
  ExprPtr where;
};

struct MergeStatement {
  Source target;
  Source source;
  ExprPtr on;
  std::vector<Assignment> update;
  ExprPtr updateCondition;
  bool updates = false;
  std::vector<std::string> insertColumns;
  std::vector<ExprPtr> insertValues;
  ExprPtr insertCondition;
  bool inserts = false;
};

struct ColumnDefinition {
  std::string name;
  TypeName type;
  std::optional<bool> nullable;
  ExprPtr defaultValue;
  std::size_t position = 0;
};

struct CreateTableStatement {
  std::string table;
  std::vector<ColumnDefinition> columns;
  std::vector<std::string> primaryKey;
};

struct CreateViewStatement {
  std::string view;
  SelectPtr select;
};

struct CreateIndexStatement {
  std::string name;
  std::string table;
  std::vector<std::string> columns;
};

struct DropStatement {
  bool view = false;
  std::string name;
};

struct IfStatement {
  ExprPtr condition;
  StatementPtr then;
};

struct ExecStatement {
  std::size_t literal = 0;  // the text to run
};

enum class TransactionVerb { Begin, Commit, Rollback };
struct TransactionStatement {
  TransactionVerb verb = TransactionVerb::Begin;
};

struct NothingStatement {};  // accepted without effect

struct Statement {
  std::size_t position = 0;
  std::string kind;  // its first word in upper case
  std::variant<NothingStatement, SelectPtr, InsertStatement, UpdateStatement, DeleteStatement, MergeStatement,
               CreateTableStatement, CreateViewStatement, CreateIndexStatement, DropStatement, IfStatement,
               ExecStatement, TransactionStatement>
      body;
};

}  // namespace cu::sqlite
