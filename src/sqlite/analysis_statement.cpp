#include <algorithm>

#include "base/text.h"
#include "sqlite/analysis.h"
#include "sqlite/sql_error.h"

namespace cu::sqlite {
namespace {

bool isLiteral(const Expr& expr) { return expr.kind == ExprKind::Number || expr.kind == ExprKind::Text; }

// A signed number is a number.
Expr& unsignedOf(Expr& expr) {
  Expr* inner = &expr;
  while (inner->kind == ExprKind::Negate) inner = inner->args[0].get();
  return *inner;
}

// Applies to numbers that are the whole value, also as a branch of a CASE or an ISNULL.
void convertNumbers(Expr& expr, Conversion conversion) {
  Expr& literal = unsignedOf(expr);
  if (literal.kind == ExprKind::Number) literal.conversion = conversion;
  for (Expr* branch : branchesOf(expr)) convertNumbers(*branch, conversion);
}

bool calculates(const Expr& expr) {
  if (expr.kind == ExprKind::Binary) return true;
  return std::any_of(expr.args.begin(), expr.args.end(), [](const ExprPtr& arg) { return calculates(*arg); });
}

std::string columnName(const TableInfo& table, std::size_t column) {
  return table.name + "." + table.columns[column].name;
}

}  // namespace

void Analysis::target(Source& source) {
  source.info = table(source.table, source.position);
  if (source.info->view || isSystemTable(source.table)) {
    throw SqlError(source.position, "una vista non si modifica: " + source.table);
  }
}

void Analysis::assign(Expr& expr, const ColumnInfo& column, bool rowNumber) const {
  if (rowNumber) {
    if (expr.valueKind == ValueKind::Null) {
      throw SqlError(expr.position, "la colonna " + column.name + " non ammette il valore nullo");
    }
    expr.notNull = !isLiteral(expr);
  }
  fit(expr, column.kind);
  const bool number = unsignedOf(expr).kind == ExprKind::Number;
  bool fits = true;
  switch (column.kind) {
    case ValueKind::Text:
      fits = expr.valueKind == ValueKind::Text || expr.valueKind == ValueKind::Integer || number;
      convertNumbers(expr, Conversion::TextNumber);
      break;
    case ValueKind::Integer:
      fits = isNumeric(expr.valueKind);
      convertNumbers(expr, Conversion::Whole);
      expr.cut =
          expr.valueKind == ValueKind::Decimal || (expr.valueKind == ValueKind::Number && calculates(expr));
      break;
    case ValueKind::Decimal:
      fits = isNumeric(expr.valueKind);
      convertNumbers(expr, Conversion::Amount);
      expr.rounded = expr.rounded || (expr.valueKind != ValueKind::Integer && calculates(expr));
      break;
    case ValueKind::Date:
      fits = expr.valueKind == ValueKind::Date;
      break;
    case ValueKind::Unknown:
    case ValueKind::Null:
    case ValueKind::Number:
    case ValueKind::Condition:
      break;
  }
  if (fits || expr.valueKind == ValueKind::Null || expr.valueKind == ValueKind::Unknown) return;
  throw SqlError(expr.position, "nella colonna " + column.name + " va " + describe(column.kind) + ", non " +
                                    describe(expr.valueKind));
}

std::vector<std::size_t> Analysis::insertColumns(const TableInfo& table,
                                                 const std::vector<std::string>& names) const {
  std::vector<std::size_t> columns;
  if (names.empty()) {
    for (std::size_t i = 0; i < table.columns.size(); ++i) columns.push_back(i);
    return columns;
  }
  for (const std::string& name : names) {
    const std::size_t index = table.find(name);
    if (index == TableInfo::kNone) throw SqlError(0, "colonna sconosciuta: " + table.name + "." + name);
    if (std::find(columns.begin(), columns.end(), index) != columns.end()) {
      throw SqlError(0, "colonna ripetuta: " + columnName(table, index));
    }
    columns.push_back(index);
  }
  const std::size_t key = table.rowNumber;
  if (key != TableInfo::kNone && std::find(columns.begin(), columns.end(), key) == columns.end()) {
    throw SqlError(0, "la colonna " + columnName(table, key) + " non ammette il valore nullo");
  }
  return columns;
}

void Analysis::insert(InsertStatement& statement) {
  Source into;
  into.table = statement.table;
  target(into);
  const std::vector<std::size_t> columns = insertColumns(*into.info, statement.columns);
  if (statement.select != nullptr) {
    assignSelect(*statement.select, *into.info, columns);
    return;
  }
  for (std::vector<ExprPtr>& row : statement.rows) {
    if (row.size() != columns.size()) {
      throw SqlError(row.front()->position, "INSERT in " + into.info->name + ": tante colonne quanti valori");
    }
    for (std::size_t i = 0; i < row.size(); ++i) {
      value(*row[i], Scope());
      assign(*row[i], into.info->columns[columns[i]], columns[i] == into.info->rowNumber);
    }
  }
}

void Analysis::assignSelect(Select& query, const TableInfo& table, const std::vector<std::size_t>& columns) {
  select(query, nullptr, Use::Top);
  if (query.output.size() != columns.size()) {
    throw SqlError(query.position, "INSERT in " + table.name + ": tante colonne quanti valori");
  }
  const bool starred =
      std::any_of(query.items.begin(), query.items.end(), [](const SelectItem& item) { return item.star; });
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const ColumnInfo& column = table.columns[columns[i]];
    if (!starred) {
      assign(*query.items[i].expr, column, columns[i] == table.rowNumber);
      continue;
    }
    // A column behind a star cannot be changed on its way.
    const ValueKind kind = query.output[i].kind;
    const bool same = kind == column.kind ||
                      (kind == ValueKind::Integer && column.kind == ValueKind::Decimal) ||
                      kind == ValueKind::Unknown || kind == ValueKind::Null;
    if (!same)
      throw SqlError(query.position, "INSERT con «*»: la colonna " + column.name + " è di altro tipo");
  }
}

void Analysis::assignments(std::vector<Assignment>& list, const TableInfo& table, const Scope& scope) {
  for (Assignment& assignment : list) {
    const std::size_t index = table.find(assignment.column);
    if (index == TableInfo::kNone) {
      throw SqlError(assignment.position, "colonna sconosciuta: " + table.name + "." + assignment.column);
    }
    value(*assignment.value, scope);
    assign(*assignment.value, table.columns[index], index == table.rowNumber);
  }
}

void Analysis::update(UpdateStatement& statement) {
  Scope scope;
  Source alone;
  alone.table = statement.table;
  if (statement.from.empty()) {
    target(alone);
    scope.sources.push_back(&alone);
    assignments(statement.assignments, *alone.info, scope);
  } else {
    sources(statement.from, scope);
    joinConditions(statement.from, scope);
    // The target is identified by its alias in FROM, or by its table.
    const Source* updated = nullptr;
    for (const Source* source : scope.sources) {
      if (equalsNoCase(source->name(), statement.table)) updated = source;
    }
    for (const Source* source : scope.sources) {
      if (updated == nullptr && equalsNoCase(source->table, statement.table)) updated = source;
    }
    if (updated == nullptr)
      throw SqlError(0, "UPDATE ... FROM senza la tabella " + statement.table + " in FROM");
    if (updated->info->view || updated->select != nullptr) {
      throw SqlError(updated->position, "una vista non si modifica: " + statement.table);
    }
    for (const Source& source : statement.from) {
      if (source.join == Source::Join::Left)
        throw SqlError(source.position, "UPDATE ... FROM con JOIN non interna");
    }
    statement.table = updated->name();
    assignments(statement.assignments, *updated->info, scope);
  }
  if (statement.where != nullptr) test(*statement.where, scope);
}

void Analysis::remove(DeleteStatement& statement) {
  Source from;
  from.table = statement.table;
  target(from);
  Scope scope;
  scope.sources.push_back(&from);
  if (statement.where != nullptr) test(*statement.where, scope);
}

void Analysis::merge(MergeStatement& statement) {
  target(statement.target);
  std::vector<Source> read;
  read.push_back(std::move(statement.source));
  Scope from;
  sources(read, from);
  statement.source = std::move(read.front());
  from.sources = {&statement.source};
  Scope both;
  both.sources = {&statement.target, &statement.source};
  const TableInfo& table = *statement.target.info;
  test(*statement.on, both);
  if (statement.updateCondition != nullptr) test(*statement.updateCondition, both);
  assignments(statement.update, table, both);
  if (!statement.inserts) return;
  if (statement.insertCondition != nullptr) test(*statement.insertCondition, from);
  const std::vector<std::size_t> columns = insertColumns(table, statement.insertColumns);
  if (columns.size() != statement.insertValues.size()) {
    throw SqlError(statement.target.position, "MERGE in " + table.name + ": tante colonne quanti valori");
  }
  for (std::size_t i = 0; i < columns.size(); ++i) {
    value(*statement.insertValues[i], from);
    assign(*statement.insertValues[i], table.columns[columns[i]], columns[i] == table.rowNumber);
  }
}

}  // namespace cu::sqlite
