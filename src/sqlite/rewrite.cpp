#include "sqlite/rewrite.h"

#include "base/text.h"
#include "sqlite/analysis.h"
#include "sqlite/rewrite_pieces.h"
#include "sqlite/sql_error.h"

namespace cu::sqlite {
namespace {

template <class... Visitors>
struct Overloaded : Visitors... {
  using Visitors::operator()...;
};
template <class... Visitors>
Overloaded(Visitors...) -> Overloaded<Visitors...>;

[[noreturn]] void steers() {
  throw SqlError(0, "istruzione di controllo dove occorre un'istruzione semplice");
}

}  // namespace

Rewritten single(Piece piece) {
  Rewritten result;
  result.pieces.push_back(std::move(piece));
  return result;
}

Rewritten rewrite(Statement& statement, const std::vector<Literal>& literals, const Catalog& catalog,
                  Sorting sorting) {
  return std::visit(
      Overloaded{
          [&](SelectPtr& select) { return rewriteSelect(*select, literals, catalog, sorting); },
          [&](InsertStatement& insert) { return rewriteInsert(insert, literals, catalog); },
          [&](UpdateStatement& update) { return rewriteUpdate(update, literals, catalog); },
          [&](DeleteStatement& remove) { return rewriteDelete(remove, literals, catalog); },
          [&](MergeStatement& merge) { return rewriteMerge(merge, literals, catalog); },
          [&](CreateTableStatement& create) { return rewriteCreateTable(create, literals, catalog); },
          [&](CreateViewStatement& create) { return rewriteCreateView(create, literals, catalog); },
          [&](CreateIndexStatement& create) { return rewriteCreateIndex(create, catalog); },
          [&](DropStatement& drop) { return rewriteDrop(drop, catalog); },
          [](NothingStatement&) -> Rewritten { steers(); },
          [](IfStatement&) -> Rewritten { steers(); },
          [](ExecStatement&) -> Rewritten { steers(); },
          [](TransactionStatement&) -> Rewritten { steers(); },
      },
      statement.body);
}

Rewritten rewriteSelect(Select& select, const std::vector<Literal>& literals, const Catalog& catalog,
                        Sorting sorting) {
  Analysis(catalog).query(select);
  std::vector<OrderColumn> order;
  if (sorting == Sorting::WideByCaller) order = orderOfRows(select);
  if (!order.empty()) select.orderBy.clear();
  Rewritten result = single(Writer(literals, Destination::Run).select(select).piece());
  result.query = true;
  result.order = std::move(order);
  result.columns = select.output;
  return result;
}

Rewritten rewriteTable(const std::string& table, const Catalog& catalog) {
  Select select;
  SelectItem all;
  all.star = true;
  select.items.push_back(std::move(all));
  Source source;
  source.table = table;
  select.from.push_back(std::move(source));
  return rewriteSelect(select, {}, catalog, Sorting::ByEngine);
}

Piece rewriteCondition(Expr& condition, const std::vector<Literal>& literals, const Catalog& catalog) {
  Analysis(catalog).condition(condition);
  return Writer(literals, Destination::Run).text("SELECT 1 WHERE ").expression(condition).piece();
}

void writeAssignments(Writer& writer, const std::vector<Assignment>& assignments) {
  for (std::size_t i = 0; i < assignments.size(); ++i) {
    if (i > 0) writer.text(", ");
    writer.name(assignments[i].column).text(" = ").expression(*assignments[i].value);
  }
}

Rewritten rewriteInsert(InsertStatement& statement, const std::vector<Literal>& literals,
                        const Catalog& catalog) {
  Analysis(catalog).insert(statement);
  Writer writer(literals, Destination::Run);
  writer.text("INSERT INTO ").name(statement.table);
  for (std::size_t i = 0; i < statement.columns.size(); ++i) {
    writer.text(i == 0 ? " (" : ", ").name(statement.columns[i]);
  }
  if (!statement.columns.empty()) writer.text(")");
  if (statement.select != nullptr) return single(writer.text(" ").select(*statement.select).piece());
  for (std::size_t row = 0; row < statement.rows.size(); ++row) {
    writer.text(row == 0 ? " VALUES (" : ", (");
    for (std::size_t i = 0; i < statement.rows[row].size(); ++i) {
      if (i > 0) writer.text(", ");
      writer.expression(*statement.rows[row][i]);
    }
    writer.text(")");
  }
  return single(writer.piece());
}

// UPDATE t SET ... FROM t a INNER JOIN b ON ... WHERE ...: the updated table is removed from FROM, and the
// join conditions become conditions.
Rewritten rewriteUpdate(UpdateStatement& statement, const std::vector<Literal>& literals,
                        const Catalog& catalog) {
  Analysis(catalog).update(statement);
  Writer writer(literals, Destination::Run);
  writer.text("UPDATE ");
  std::vector<const Expr*> conditions;
  std::vector<const Source*> others;
  if (statement.from.empty()) writer.name(statement.table);
  for (const Source& source : statement.from) {
    if (equalsNoCase(source.name(), statement.table)) {
      writer.source(source);
    } else {
      others.push_back(&source);
    }
    if (source.on != nullptr) conditions.push_back(source.on.get());
  }
  writer.text(" SET ");
  writeAssignments(writer, statement.assignments);
  for (std::size_t i = 0; i < others.size(); ++i) writer.text(i == 0 ? " FROM " : ", ").source(*others[i]);
  if (statement.where != nullptr) conditions.push_back(statement.where.get());
  for (std::size_t i = 0; i < conditions.size(); ++i) {
    writer.text(i == 0 ? " WHERE " : " AND ");
    if (conditions.size() == 1) {
      writer.expression(*conditions[i]);
    } else {
      writer.conjunct(*conditions[i]);
    }
  }
  return single(writer.piece());
}

Rewritten rewriteDelete(DeleteStatement& statement, const std::vector<Literal>& literals,
                        const Catalog& catalog) {
  Analysis(catalog).remove(statement);
  Writer writer(literals, Destination::Run);
  writer.text("DELETE FROM ").name(statement.table);
  if (statement.where != nullptr) writer.text(" WHERE ").expression(*statement.where);
  return single(writer.piece());
}

}  // namespace cu::sqlite
