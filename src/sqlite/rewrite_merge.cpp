#include <algorithm>

#include "base/text.h"
#include "sqlite/analysis.h"
#include "sqlite/rewrite_pieces.h"
#include "sqlite/sql_error.h"

namespace cu::sqlite {
namespace {

// The target's columns used in a condition.
void columnsOf(const Expr& expr, const Source& target, const Source& source,
               std::vector<std::string>& columns) {
  if (expr.kind == ExprKind::Column) {
    const bool qualified = equalsNoCase(expr.qualifier, target.name());
    const bool bare = expr.qualifier.empty() && source.info->find(expr.name) == TableInfo::kNone;
    if ((qualified || bare) && target.info->find(expr.name) != TableInfo::kNone) columns.push_back(expr.name);
  }
  for (const ExprPtr& arg : expr.args) columnsOf(*arg, target, source, columns);
}

void writeMatch(Writer& writer, const MergeStatement& statement) {
  writer.conjunct(*statement.on);
  if (statement.updateCondition != nullptr) writer.text(" AND ").conjunct(*statement.updateCondition);
}

// The server rejects changing one row twice; a joined update would silently use one of the two source rows.
Piece ambiguity(const MergeStatement& statement, const std::vector<Literal>& literals,
                const std::vector<std::string>& matched) {
  Writer writer(literals, Destination::Run);
  writer.text("SELECT 1 FROM ").source(statement.target).text(" INNER JOIN ").source(statement.source);
  writer.text(" ON ");
  writeMatch(writer, statement);
  const std::vector<std::string>& key =
      statement.target.info->primaryKey.empty() ? matched : statement.target.info->primaryKey;
  for (std::size_t i = 0; i < key.size(); ++i) {
    writer.text(i == 0 ? " GROUP BY " : ", ").name(statement.target.name()).text(".").name(key[i]);
  }
  writer.text(" HAVING count(*) > 1 LIMIT 1");
  return writer.piece(Piece::Role::Ambiguous);
}

Piece update(const MergeStatement& statement, const std::vector<Literal>& literals) {
  Writer writer(literals, Destination::Run);
  writer.text("UPDATE ").source(statement.target).text(" SET ");
  writeAssignments(writer, statement.update);
  writer.text(" FROM ").source(statement.source).text(" WHERE ");
  writeMatch(writer, statement);
  return writer.piece();
}

Piece insert(const MergeStatement& statement, const std::vector<Literal>& literals) {
  Writer writer(literals, Destination::Run);
  writer.text("INSERT INTO ").name(statement.target.table).text(" (");
  for (std::size_t i = 0; i < statement.insertColumns.size(); ++i) {
    if (i > 0) writer.text(", ");
    writer.name(statement.insertColumns[i]);
  }
  writer.text(") SELECT ");
  for (std::size_t i = 0; i < statement.insertValues.size(); ++i) {
    if (i > 0) writer.text(", ");
    writer.expression(*statement.insertValues[i]);
  }
  writer.text(" FROM ").source(statement.source).text(" WHERE NOT EXISTS (SELECT 1 FROM ");
  writer.source(statement.target).text(" WHERE ").expression(*statement.on).text(")");
  if (statement.insertCondition != nullptr) writer.text(" AND ").conjunct(*statement.insertCondition);
  return writer.piece();
}

}  // namespace

// The two branches run in sequence, the update first: it does not change the columns that decide whether a
// row matches, so that the insert finds the same rows missing.
Rewritten rewriteMerge(MergeStatement& statement, const std::vector<Literal>& literals,
                       const Catalog& catalog) {
  Analysis(catalog).merge(statement);
  std::vector<std::string> matched;
  columnsOf(*statement.on, statement.target, statement.source, matched);
  if (matched.empty()) throw SqlError(statement.on->position, "MERGE senza colonne della tabella in ON");
  for (const Assignment& assignment : statement.update) {
    const auto same = [&](const std::string& column) { return equalsNoCase(column, assignment.column); };
    if (std::any_of(matched.begin(), matched.end(), same)) {
      throw SqlError(assignment.position, "MERGE che modifica una colonna di ON: " + assignment.column);
    }
  }
  Rewritten result;
  if (statement.updates) {
    result.pieces.push_back(ambiguity(statement, literals, matched));
    result.pieces.push_back(update(statement, literals));
  }
  if (statement.inserts) result.pieces.push_back(insert(statement, literals));
  return result;
}

}  // namespace cu::sqlite
