#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "sqlite/ast.h"
#include "sqlite/tokenizer.h"

namespace cu::sqlite {

// The recursive descent parser; its members are in the parser_*.cpp files by subject.
class Parser {
 public:
  explicit Parser(const TokenList& tokens, Dialect dialect = Dialect::Server)
      : tokens_(tokens.tokens), dialect_(dialect) {}

  std::vector<StatementPtr> statements();
  CreateViewStatement createView();  // after CREATE

 private:
  friend CreateViewStatement parseStoredView(const TokenList& tokens);
  struct Nesting;

  // Tokens.
  const Token& peek(std::size_t ahead = 0) const;
  const Token& take();
  bool at(std::string_view symbolOrWord, std::size_t ahead = 0) const;
  bool accept(std::string_view symbolOrWord);
  void expect(std::string_view symbolOrWord);
  [[noreturn]] void unexpected() const;
  [[noreturn]] void refuse(std::string_view construct) const;
  std::string name();                   // a column, an alias
  std::string objectName();             // [dbo].[name] or name
  bool atName() const;                  // a name that is not a reserved word
  std::vector<std::string> nameList();  // in parentheses

  // Statements.
  StatementPtr statement();
  void body(Statement& statement);
  void begin(Statement& statement);
  void ifStatement(Statement& statement);
  TransactionStatement transaction(TransactionVerb verb);
  ExecStatement exec();
  InsertStatement insert();
  UpdateStatement update();
  DeleteStatement remove();
  MergeStatement merge();
  void mergeBranch(MergeStatement& statement);
  std::vector<Assignment> assignments();

  // Definitions.
  void create(Statement& statement);
  CreateTableStatement createTable();
  ColumnDefinition column(CreateTableStatement& table);
  bool tableConstraint(CreateTableStatement& table, const std::string& column);
  std::vector<std::string> keyColumns();
  void storageClauses();
  CreateIndexStatement createIndex();
  void createType();
  DropStatement drop();
  TypeName typeName();

  // Queries.
  SelectPtr select();
  SelectPtr selectCore();
  SelectItem selectItem();
  std::string optionalAlias();
  std::vector<Source> from();
  void joins(std::vector<Source>& sources);
  Source source();

  // Expressions.
  ExprPtr expression();
  ExprPtr andChain();
  ExprPtr notCondition();
  ExprPtr predicate();
  ExprPtr additive();
  ExprPtr unary();
  ExprPtr concatenation();
  ExprPtr primary();
  ExprPtr parenthesised();
  ExprPtr caseExpression();
  ExprPtr cast();
  ExprPtr columnOrCall();
  ExprPtr call(const Token& name);
  ExprPtr node(ExprKind kind) const;
  ExprPtr adopt(ExprPtr parent, ExprPtr child) const;

  const std::vector<Token>& tokens_;
  Dialect dialect_;
  std::size_t at_ = 0;
  int depth_ = 0;
};

// Words that are names only when quoted.
bool isReserved(const Token& token);

// Counts the nesting levels of a text; raises SqlError when they exceed the limit.
struct Parser::Nesting {
  explicit Nesting(Parser& parser);
  ~Nesting() { --parser_.depth_; }
  Nesting(const Nesting&) = delete;
  Nesting& operator=(const Nesting&) = delete;

 private:
  Parser& parser_;
};

}  // namespace cu::sqlite
