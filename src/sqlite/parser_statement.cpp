#include "base/ascii.h"
#include "sqlite/parser_state.h"
#include "sqlite/sql_error.h"

namespace cu::sqlite {

std::vector<StatementPtr> Parser::statements() {
  std::vector<StatementPtr> result;
  for (;;) {
    while (accept(";")) {
    }
    if (peek().kind == TokenKind::End) return result;
    result.push_back(statement());
  }
}

StatementPtr Parser::statement() {
  const Nesting nesting(*this);
  auto result = std::make_unique<Statement>();
  result->position = peek().position;
  if (peek().kind == TokenKind::Word) result->kind = upperAscii(peek().text);
  body(*result);
  return result;
}

void Parser::body(Statement& statement) {
  if (at("SELECT")) {
    statement.body = select();
  } else if (accept("INSERT")) {
    statement.body = insert();
  } else if (accept("UPDATE")) {
    statement.body = update();
  } else if (accept("DELETE")) {
    statement.body = remove();
  } else if (accept("MERGE")) {
    statement.body = merge();
  } else if (accept("CREATE")) {
    create(statement);
  } else if (accept("DROP")) {
    statement.body = drop();
  } else if (accept("IF")) {
    ifStatement(statement);
  } else if (accept("BEGIN")) {
    begin(statement);
  } else if (accept("COMMIT")) {
    statement.body = transaction(TransactionVerb::Commit);
  } else if (accept("ROLLBACK")) {
    statement.body = transaction(TransactionVerb::Rollback);
  } else if (accept("EXEC") || accept("EXECUTE")) {
    statement.kind = "EXEC";
    statement.body = exec();
  } else if (peek().kind == TokenKind::Word) {
    refuse(upperAscii(peek().text));
  } else {
    unexpected();
  }
}

void Parser::begin(Statement& statement) {
  if (at("TRAN") || at("TRANSACTION")) {
    statement.body = transaction(TransactionVerb::Begin);
    return;
  }
  refuse("BEGIN " + upperAscii(peek().text));
}

void Parser::ifStatement(Statement& statement) {
  IfStatement result;
  result.condition = expression();
  result.then = this->statement();
  if (at("ELSE")) refuse("IF ... ELSE");
  statement.body = std::move(result);
}

TransactionStatement Parser::transaction(TransactionVerb verb) {
  if (verb == TransactionVerb::Begin || at("TRAN") || at("TRANSACTION")) {
    if (!accept("TRAN")) expect("TRANSACTION");
  } else {
    accept("WORK");
  }
  if (atName()) refuse("nome di transazione");
  return {verb};
}

ExecStatement Parser::exec() {
  if (!peek().is("(")) refuse("EXEC di una procedura");
  take();
  if (peek().kind != TokenKind::Text) refuse("EXEC di un'espressione");
  const ExecStatement result{take().ordinal};
  if (peek().is("+")) refuse("EXEC di un'espressione");
  expect(")");
  return result;
}

InsertStatement Parser::insert() {
  InsertStatement result;
  if (at("TOP")) refuse("TOP");
  accept("INTO");
  result.table = objectName();
  if (peek().is("(")) result.columns = nameList();
  if (at("WITH")) refuse("suggerimento WITH (...)");
  if (at("OUTPUT")) refuse("OUTPUT");
  if (at("SELECT")) {
    result.select = select();
    return result;
  }
  if (at("DEFAULT")) refuse("INSERT ... DEFAULT VALUES");
  if (at("EXEC") || at("EXECUTE")) refuse("INSERT ... EXEC");
  expect("VALUES");
  do {
    expect("(");
    std::vector<ExprPtr> row;
    do {
      if (at("DEFAULT")) refuse("DEFAULT fra i valori");
      row.push_back(expression());
    } while (accept(","));
    expect(")");
    result.rows.push_back(std::move(row));
  } while (accept(","));
  return result;
}

std::vector<Assignment> Parser::assignments() {
  std::vector<Assignment> result;
  do {
    Assignment assignment;
    assignment.position = peek().position;
    assignment.column = name();
    while (accept(".")) assignment.column = name();
    expect("=");
    if (at("DEFAULT")) refuse("DEFAULT fra i valori");
    assignment.value = expression();
    result.push_back(std::move(assignment));
  } while (accept(","));
  return result;
}

UpdateStatement Parser::update() {
  UpdateStatement result;
  if (at("TOP")) refuse("TOP");
  result.table = objectName();
  if (at("WITH")) refuse("suggerimento WITH (...)");
  expect("SET");
  result.assignments = assignments();
  if (at("OUTPUT")) refuse("OUTPUT");
  if (accept("FROM")) result.from = from();
  if (accept("WHERE")) {
    if (at("CURRENT")) refuse("WHERE CURRENT OF");
    result.where = expression();
  }
  if (at("OPTION")) refuse("OPTION");
  return result;
}

DeleteStatement Parser::remove() {
  DeleteStatement result;
  if (at("TOP")) refuse("TOP");
  accept("FROM");
  result.table = objectName();
  if (at("WITH")) refuse("suggerimento WITH (...)");
  if (at("OUTPUT")) refuse("OUTPUT");
  if (at("FROM")) refuse("DELETE ... FROM ... JOIN");
  if (accept("WHERE")) {
    if (at("CURRENT")) refuse("WHERE CURRENT OF");
    result.where = expression();
  }
  return result;
}

MergeStatement Parser::merge() {
  MergeStatement result;
  if (at("TOP")) refuse("TOP");
  accept("INTO");
  result.target.position = peek().position;
  result.target.table = objectName();
  if (at("WITH")) refuse("suggerimento WITH (...)");
  if (!at("USING")) result.target.alias = optionalAlias();
  expect("USING");
  result.source = source();
  expect("ON");
  result.on = expression();
  if (!at("WHEN")) expect("WHEN");
  while (accept("WHEN")) mergeBranch(result);
  if (at("OUTPUT")) refuse("OUTPUT");
  if (!peek().is(";")) throw SqlError(peek().position, "MERGE va chiusa da un punto e virgola");
  return result;
}

void Parser::mergeBranch(MergeStatement& statement) {
  const bool matched = !accept("NOT");
  expect("MATCHED");
  if (accept("BY")) {
    if (matched || !accept("TARGET")) refuse("WHEN NOT MATCHED BY SOURCE");
  }
  if (matched ? statement.updates : statement.inserts) refuse("due rami uguali in MERGE");
  ExprPtr condition;
  if (accept("AND")) condition = expression();
  expect("THEN");
  if (matched) {
    if (at("DELETE")) refuse("DELETE in MERGE");
    expect("UPDATE");
    expect("SET");
    statement.updates = true;
    statement.update = assignments();
    statement.updateCondition = std::move(condition);
    return;
  }
  expect("INSERT");
  statement.inserts = true;
  if (!peek().is("(")) refuse("INSERT di MERGE senza elenco di colonne");
  statement.insertColumns = nameList();
  statement.insertCondition = std::move(condition);
  expect("VALUES");
  expect("(");
  do {
    statement.insertValues.push_back(expression());
  } while (accept(","));
  expect(")");
}

}  // namespace cu::sqlite
