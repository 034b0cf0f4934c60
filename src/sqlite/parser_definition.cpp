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
  } else if (accept("INDEX")) {
    statement.body = createIndex();
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
    } else if (!tableConstraint(table, result.name)) {
      return result;
    }
  }
}

// A key; after a column and without a list of columns it is that column's.
bool Parser::tableConstraint(CreateTableStatement& table, const std::string& column) {
  if (accept("CONSTRAINT")) name();
  if (at("CHECK") || at("FOREIGN") || at("REFERENCES") || at("UNIQUE")) refuse(peek().text);
  if (!at("PRIMARY")) return false;
  if (!table.primaryKey.empty()) throw SqlError(peek().position, "due chiavi primarie in una tabella");
  take();
  expect("KEY");
  accept("CLUSTERED");
  if (column.empty() || peek().is("(")) {
    table.primaryKey = keyColumns();
  } else {
    table.primaryKey.push_back(column);
  }
  storageClauses();
  return true;
}

std::vector<std::string> Parser::keyColumns() {
  std::vector<std::string> columns;
  expect("(");
  do {
    columns.push_back(name());
    if (at("DESC")) refuse("DESC in una chiave");
    accept("ASC");
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
  if (peek().is("(")) refuse("elenco di colonne di una vista");
  if (at("WITH")) refuse("CREATE VIEW ... WITH");
  expect("AS");
  result.select = select();
  if (at("WITH")) refuse("WITH CHECK OPTION");
  return result;
}

CreateIndexStatement Parser::createIndex() {
  CreateIndexStatement result;
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
  if (at("IF")) refuse("DROP ... IF EXISTS");
  result.name = objectName();
  if (peek().is(",")) refuse("DROP di più oggetti");
  return result;
}

}  // namespace cu::sqlite
