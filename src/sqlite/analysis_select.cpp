#include <array>

#include "base/text.h"
#include "sqlite/analysis.h"
#include "sqlite/sql_error.h"

namespace cu::sqlite {
namespace {

constexpr int kDeepestQuery = 40;

void collateText(Expr& expr) {
  if (expr.valueKind == ValueKind::Text && !carriesCollation(expr)) expr.noCase = true;
}

std::shared_ptr<const TableInfo> systemTable() {
  TableInfo info;
  info.name = "sysobjects";
  for (const char* column : {"name", "id", "type"}) info.columns.push_back({column, ValueKind::Text});
  return std::make_shared<TableInfo>(std::move(info));
}

}  // namespace

bool isSystemTable(std::string_view name) { return equalsNoCase(name, "sysobjects"); }

std::shared_ptr<const TableInfo> Analysis::table(std::string_view name, std::size_t position) const {
  if (isSystemTable(name) && dialect_ == Dialect::Server) return systemTable();
  std::shared_ptr<const TableInfo> info = catalog_.find(name);
  if (info == nullptr) throw UnknownTable(position, "tabella o vista sconosciuta: " + std::string(name));
  return info;
}

void Analysis::query(Select& query) {
  select(query, nullptr, Use::Top);
  orderByKey(query);
}

void Analysis::view(Select& query) {
  if (!query.orderBy.empty() && dialect_ == Dialect::Server) {
    throw SqlError(query.position, "una vista non ha ORDER BY");
  }
  select(query, nullptr, Use::Compared);
}

void Analysis::select(Select& query, const Scope* parent, Use use) {
  if (++depth_ > kDeepestQuery) throw SqlError(query.position, "query troppo annidata");
  core(query, parent, use);
  --depth_;
}

void Analysis::core(Select& select, const Scope* parent, Use use) {
  Scope scope;
  scope.parent = parent;
  scope.select = &select;
  sources(select.from, scope);
  joinConditions(select.from, scope);
  if (select.where != nullptr) test(*select.where, scope);
  items(select, scope);
  if (use == Use::Compared || select.distinct) {
    for (SelectItem& item : select.items) {
      if (!item.star) collateText(*item.expr);
    }
  }
  std::size_t index = 0;
  for (const SelectItem& item : select.items) {
    if (item.star) {
      index += item.width;
    } else {
      select.output[index++].collated = carriesCollation(*item.expr);
    }
  }
  orderBy(select, scope);
}

void Analysis::sources(std::vector<Source>& from, Scope& scope) {
  for (Source& source : from) {
    if (source.select != nullptr) {
      // A query in FROM cannot refer to its neighbours.
      select(*source.select, scope.parent, Use::Compared);
      TableInfo info;
      info.name = source.alias;
      info.view = true;
      info.columns = source.select->output;
      for (const ColumnInfo& column : info.columns) {
        if (column.name.empty())
          throw SqlError(source.position, "colonna senza nome in una query fra parentesi");
      }
      source.info = std::make_shared<TableInfo>(std::move(info));
    } else {
      source.info = table(source.table, source.position);
    }
    for (const Source* other : scope.sources) {
      if (equalsNoCase(other->name(), source.name())) {
        throw SqlError(source.position, "due tabelle con lo stesso nome: " + source.name());
      }
    }
    scope.sources.push_back(&source);
  }
}

void Analysis::joinConditions(std::vector<Source>& from, const Scope& scope) {
  for (Source& source : from) {
    if (source.on != nullptr) test(*source.on, scope);
  }
}

void Analysis::items(Select& select, const Scope& scope) {
  for (SelectItem& item : select.items) {
    if (item.star) {
      const std::size_t before = select.output.size();
      star(item, select, scope);
      item.width = select.output.size() - before;
      continue;
    }
    value(*item.expr, scope);
    ColumnInfo column;
    column.kind = item.expr->valueKind;
    column.name = item.alias;
    if (column.name.empty() && item.expr->kind == ExprKind::Column) column.name = item.expr->name;
    select.output.push_back(std::move(column));
  }
}

void Analysis::star(const SelectItem& item, Select& select, const Scope& scope) const {
  bool found = false;
  for (const Source* source : scope.sources) {
    if (!item.qualifier.empty() && !equalsNoCase(item.qualifier, source->name())) continue;
    found = true;
    select.output.insert(select.output.end(), source->info->columns.begin(), source->info->columns.end());
  }
  if (!found) throw SqlError(item.position, "«*» senza tabella");
}

void Analysis::orderBy(Select& select, const Scope& scope) {
  for (OrderTerm& term : select.orderBy) orderTerm(select, term, scope);
}

// An unqualified name refers to a column of the result before one of the tables. Returns true when the term
// is resolved; a column that the result takes from a table is qualified instead.
bool Analysis::orderByResult(const Select& select, Expr& expr, const Scope& scope) const {
  const ColumnInfo* result = nullptr;
  for (const ColumnInfo& column : select.output) {
    if (!equalsNoCase(column.name, expr.name)) continue;
    if (result != nullptr) throw SqlError(expr.position, "nome di colonna ambiguo: " + expr.name);
    result = &column;
  }
  if (result == nullptr) return false;
  const SelectItem* named = nullptr;
  for (const SelectItem& item : select.items) {
    if (!item.star && equalsNoCase(item.alias, expr.name)) named = &item;
  }
  if (named != nullptr) {
    expr.valueKind = result->kind;
    expr.noCase = expr.valueKind == ValueKind::Text && !result->collated;
    return true;
  }
  for (const SelectItem& item : select.items) {
    if (!item.star) {
      // With an alias in the result it is not the column referred to.
      if (item.alias.empty() && item.expr->kind == ExprKind::Column &&
          equalsNoCase(item.expr->name, expr.name)) {
        expr.qualifier = item.expr->qualifier;
      }
      continue;
    }
    for (const Source* source : scope.sources) {
      if (!item.qualifier.empty() && !equalsNoCase(item.qualifier, source->name())) continue;
      if (source->info->find(expr.name) != TableInfo::kNone) expr.qualifier = source->name();
    }
  }
  return false;
}

void Analysis::orderTerm(const Select& select, OrderTerm& term, const Scope& scope) {
  Expr& expr = *term.expr;
  if (expr.kind == ExprKind::Number) throw SqlError(expr.position, "ORDER BY di una posizione");
  if (expr.kind == ExprKind::Column && expr.qualifier.empty() && orderByResult(select, expr, scope)) return;
  value(expr, scope);
  collateText(expr);
}

// The rows of a table come in the order of its key, as on the server.
void Analysis::orderByKey(Select& select) const {
  if (!select.orderBy.empty() || select.from.size() != 1 || select.distinct || select.aggregated) return;
  const Source& source = select.from.front();
  if (source.info == nullptr || source.info->view || source.select != nullptr) return;
  for (const std::string& column : source.info->primaryKey) {
    OrderTerm term;
    term.expr = std::make_unique<Expr>();
    term.expr->kind = ExprKind::Column;
    term.expr->qualifier = source.name();
    term.expr->name = column;
    term.expr->valueKind = source.info->columns[source.info->find(column)].kind;
    select.orderBy.push_back(std::move(term));
  }
}

}  // namespace cu::sqlite
