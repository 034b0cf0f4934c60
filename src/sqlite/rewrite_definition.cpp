#include <algorithm>

#include "base/text.h"
#include "sqlite/analysis.h"
#include "sqlite/rewrite_pieces.h"
#include "sqlite/sql_error.h"
#include "sqlite/types.h"

namespace cu::sqlite {
namespace {

// An index is stored in the text order of the program that wrote it; programs order texts differently,
// therefore no index contains a text.
void refuseText(ValueKind kind, const std::string& column, std::size_t position) {
  if (kind == ValueKind::Text)
    throw SqlError(position, "una chiave o un indice su una colonna di testo: " + column);
}

const ColumnDefinition& definitionOf(const CreateTableStatement& statement, const std::string& column) {
  for (const ColumnDefinition& definition : statement.columns) {
    if (equalsNoCase(definition.name, column)) return definition;
  }
  throw SqlError(0, "colonna sconosciuta: " + statement.table + "." + column);
}

void writeKey(Writer& writer, const std::vector<std::string>& columns) {
  for (std::size_t i = 0; i < columns.size(); ++i) writer.text(i == 0 ? "(" : ", ").name(columns[i]);
  writer.text(")");
}

bool isConstant(const Expr& expr) {
  if (expr.kind == ExprKind::Negate) return isConstant(*expr.args[0]);
  return expr.kind == ExprKind::Number || expr.kind == ExprKind::Text || expr.kind == ExprKind::Null;
}

void writeColumn(Writer& writer, ColumnDefinition& column, bool key, const Catalog& catalog) {
  const StoredType type = storedType(column.type);
  writer.name(column.name).text(" ").text(type.declaration);
  if (key && column.nullable.value_or(false)) {
    throw SqlError(column.position, "una colonna della chiave primaria ammette NULL: " + column.name);
  }
  if (key || !column.nullable.value_or(true)) writer.text(" NOT NULL");
  if (column.defaultValue == nullptr) return;
  if (!isConstant(*column.defaultValue)) {
    throw SqlError(column.defaultValue->position, "DEFAULT vuole un valore scritto per esteso");
  }
  Analysis(catalog).constant(*column.defaultValue, {column.name, type.kind, false});
  writer.text(" DEFAULT ").expression(*column.defaultValue);
}

Rewritten definition(Piece piece) {
  Rewritten result = single(std::move(piece));
  result.definition = true;
  return result;
}

}  // namespace

// A table with a key of several columns is stored in the order of its key, as on the server.
Rewritten rewriteCreateTable(CreateTableStatement& statement, const std::vector<Literal>& literals,
                             const Catalog& catalog) {
  Writer writer(literals, Destination::Schema);
  writer.text("CREATE TABLE ").name(statement.table).text(" (");
  if (statement.columns.empty()) throw SqlError(0, "tabella senza colonne: " + statement.table);
  for (std::size_t i = 0; i < statement.columns.size(); ++i) {
    ColumnDefinition& column = statement.columns[i];
    if (&definitionOf(statement, column.name) != &column) {
      throw SqlError(column.position, "colonna ripetuta: " + column.name);
    }
    const bool key = std::any_of(statement.primaryKey.begin(), statement.primaryKey.end(),
                                 [&](const std::string& part) { return equalsNoCase(part, column.name); });
    if (i > 0) writer.text(", ");
    writeColumn(writer, column, key, catalog);
  }
  if (statement.primaryKey.empty()) return definition(writer.text(")").piece());
  for (const std::string& part : statement.primaryKey) {
    refuseText(storedType(definitionOf(statement, part).type).kind, part, 0);
  }
  writer.text(", PRIMARY KEY ");
  writeKey(writer, statement.primaryKey);
  writer.text(statement.primaryKey.size() > 1 ? ") WITHOUT ROWID" : ")");
  return definition(writer.piece());
}

Rewritten rewriteCreateView(CreateViewStatement& statement, const std::vector<Literal>& literals,
                            const Catalog& catalog) {
  Analysis(catalog).view(*statement.select);
  const std::vector<ColumnInfo>& output = statement.select->output;
  for (std::size_t i = 0; i < output.size(); ++i) {
    const std::string& name = output[i].name;
    if (name.empty()) throw SqlError(0, "vista " + statement.view + ": colonna senza nome");
    for (std::size_t j = 0; j < i; ++j) {
      if (equalsNoCase(output[j].name, name)) {
        throw SqlError(0, "vista " + statement.view + ": colonna ripetuta " + name);
      }
    }
  }
  Writer writer(literals, Destination::Schema);
  writer.text("CREATE VIEW ").name(statement.view);
  return definition(writer.text(" AS ").select(*statement.select).piece());
}

Rewritten rewriteCreateIndex(CreateIndexStatement& statement, const Catalog& catalog) {
  const std::shared_ptr<const TableInfo> table = catalog.find(statement.table);
  if (table == nullptr || table->view) throw UnknownTable(0, "tabella sconosciuta: " + statement.table);
  for (const std::string& part : statement.columns) {
    const std::size_t index = table->find(part);
    if (index == TableInfo::kNone) throw SqlError(0, "colonna sconosciuta: " + table->name + "." + part);
    refuseText(table->columns[index].kind, part, 0);
  }
  Writer writer({}, Destination::Schema);
  writer.text("CREATE INDEX ").name(statement.name);
  writer.text(" ON ").name(statement.table).text(" ");
  writeKey(writer, statement.columns);
  return definition(writer.piece());
}

Rewritten rewriteDrop(const DropStatement& statement, const Catalog& catalog) {
  const std::shared_ptr<const TableInfo> found = catalog.find(statement.name);
  const bool there = found != nullptr && found->view == statement.view;
  if (!there) {
    throw UnknownTable(0,
                       (statement.view ? "vista sconosciuta: " : "tabella sconosciuta: ") + statement.name);
  }
  Writer writer({}, Destination::Schema);
  writer.text(statement.view ? "DROP VIEW " : "DROP TABLE ");
  return definition(writer.name(statement.name).piece());
}

}  // namespace cu::sqlite
