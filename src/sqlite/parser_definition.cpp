#include <charconv>

#include "base/text.h"
#include "sqlite/parser_state.h"
#include "sqlite/sql_error.h"

namespace cu::sqlite {

void Parser::create(Statement& statement) {
  if (accept("TABLE")) {
    statement.body = createTable();
  } else if (accept("VIEW")) {
    statement.body = createView();
  } else if (accept("TYPE")) {
    createType();
  } else if (at("UNIQUE") || at("CLUSTERED") || at("NONCLUSTERED") || at("INDEX")) {
    const bool unique = accept("UNIQUE");
    if (!accept("CLUSTERED")) accept("NONCLUSTERED");
    expect("INDEX");
    statement.body = createIndex(unique);
  } else if (peek().kind == TokenKind::Word) {
    refuse("CREATE " + std::string(peek().text));
  } else {
    unexpected();
  }
}

TypeName Parser::typeName() {
  TypeName type;
  type.position = peek().position;
  type.name = lowerAscii(objectName());
  const auto number = [&] {
    if (peek().kind != TokenKind::Number) unexpected();
    const std::string_view digits = take().text;
    int value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc() || end != digits.data() + digits.size()) {
      throw SqlError(type.position, "lunghezza di tipo non valida");
    }
    return value;
  };
  if (!peek().is("(")) return type;
  take();
  if (!accept("MAX")) type.length = number();
  if (accept(",")) type.scale = number();
  expect(")");
  return type;
}

CreateTableStatement Parser::createTable() {
  CreateTableStatement result;
  result.table = objectName();
  if (at("AS")) refuse("CREATE TABLE AS");
  expect("(");
  do {
    if (at("CONSTRAINT") || at("PRIMARY") || at("UNIQUE") || at("CHECK") || at("FOREIGN")) {
      if (!tableConstraint(result, std::string())) unexpected();
    } else {
      result.columns.push_back(column(result));
    }
  } while (accept(","));
  expect(")");
  storageClauses();
  return result;
}

ColumnDefinition Parser::column(CreateTableStatement& table) {
  ColumnDefinition result;
  result.position = peek().position;
  result.name = name();
  if (at("AS")) refuse("colonna calcolata");
  result.type = typeName();
  for (;;) {
    if (at("NOT") && at("NULL", 1)) {
      take();
      take();
      result.nullable = false;
    } else if (accept("NULL")) {
      result.nullable = true;
    } else if (at("IDENTITY") || at("COLLATE") || at("ROWGUIDCOL") || at("SPARSE")) {
      refuse(std::string(peek().text) + " in una colonna");
    } else if (accept("DEFAULT")) {
      result.defaultValue = expression();
    } else if (at("CONSTRAINT") && at("DEFAULT", 2)) {
      take();
      name();
    } else if (!tableConstraint(table, result.name)) {
      return result;
    }
  }
}

// A key; after a column and without a list of columns it is that column's.
bool Parser::tableConstraint(CreateTableStatement& table, const std::string& column) {
  if (accept("CONSTRAINT")) name();
  if (at("CHECK") || at("FOREIGN") || at("REFERENCES")) refuse(peek().text);
  const bool primary = at("PRIMARY");
  if (!primary && !at("UNIQUE")) return false;
  if (primary && !table.primaryKey.empty())
    throw SqlError(peek().position, "due chiavi primarie in una tabella");
  take();
  if (primary) expect("KEY");
  if (!accept("CLUSTERED")) accept("NONCLUSTERED");
  std::vector<KeyColumn> columns;
  if (peek().is("(")) {
    columns = keyColumns();
  } else if (!column.empty()) {
    columns.push_back({column, false});
  } else {
    expect("(");
  }
  storageClauses();
  if (primary) {
    table.primaryKey = std::move(columns);
  } else {
    table.unique.push_back(std::move(columns));
  }
  return true;
}

std::vector<KeyColumn> Parser::keyColumns() {
  std::vector<KeyColumn> columns;
  expect("(");
  do {
    KeyColumn column{name(), false};
    if (accept("DESC")) {
      column.descending = true;
    } else {
      accept("ASC");
    }
    columns.push_back(std::move(column));
  } while (accept(","));
  expect(")");
  return columns;
}

// WITH (IGNORE_DUP_KEY = OFF, ...) ON [PRIMARY]: the server's page layout, which does not affect a result,
// except for duplicates that would be ignored.
void Parser::storageClauses() {
  if (accept("WITH")) {
    expect("(");
    do {
      const bool duplicates = at("IGNORE_DUP_KEY");
      name();
      expect("=");
      if (duplicates && at("ON")) refuse("IGNORE_DUP_KEY = ON");
      if (peek().kind == TokenKind::End || peek().is(")")) unexpected();
      take();
    } while (accept(","));
    expect(")");
  }
  while (at("ON") || at("TEXTIMAGE_ON")) {
    take();
    if (!equalsNoCase(peek().text, "PRIMARY")) refuse("gruppo di file diverso da PRIMARY");
    take();
  }
}

CreateViewStatement Parser::createView() {
  CreateViewStatement result;
  result.view = objectName();
  if (peek().is("(")) result.columns = nameList();
  if (at("WITH")) refuse("CREATE VIEW ... WITH");
  expect("AS");
  result.select = select();
  if (at("WITH")) refuse("WITH CHECK OPTION");
  return result;
}

CreateIndexStatement Parser::createIndex(bool unique) {
  CreateIndexStatement result;
  result.unique = unique;
  result.name = name();
  expect("ON");
  result.table = objectName();
  result.columns = keyColumns();
  if (at("INCLUDE") || at("WHERE")) refuse("indice con " + std::string(peek().text));
  storageClauses();
  return result;
}

// The suite's own types are known by name; their definition in a script is skipped.
void Parser::createType() {
  const std::string type = lowerAscii(objectName());
  if (type != "note" && type != "descrizione" && type != "importo" && type != "sino") {
    refuse("CREATE TYPE di un tipo non della suite");
  }
  expect("FROM");
  typeName();
  if (at("NOT")) take();
  accept("NULL");
}

DropStatement Parser::drop() {
  DropStatement result;
  if (accept("VIEW")) {
    result.view = true;
  } else if (!accept("TABLE")) {
    if (peek().kind == TokenKind::Word) refuse("DROP " + std::string(peek().text));
    unexpected();
  }
  if (accept("IF")) {
    expect("EXISTS");
    result.ifExists = true;
  }
  result.name = objectName();
  if (peek().is(",")) refuse("DROP di più oggetti");
  return result;
}

}  // namespace cu::sqlite
