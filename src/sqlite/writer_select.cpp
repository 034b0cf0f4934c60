#include "sqlite/analysis.h"
#include "sqlite/writer.h"

namespace cu::sqlite {
namespace {

// The server's list of its objects, as far as the existence test uses it.
constexpr std::string_view kSystemTable =
    "(SELECT name COLLATE NOCASE AS name, name COLLATE NOCASE AS id, "
    "CASE type WHEN 'table' THEN 'U' ELSE 'V' END COLLATE NOCASE AS type "
    "FROM sqlite_schema WHERE type IN ('table', 'view'))";

std::string_view joinWord(Source::Join join) {
  switch (join) {
    case Source::Join::First:
      return "";
    case Source::Join::Inner:
      return " INNER JOIN ";
    case Source::Join::Left:
      return " LEFT JOIN ";
  }
  return "";
}

}  // namespace

Writer& Writer::select(const Select& select) {
  core(select);
  for (std::size_t i = 0; i < select.orderBy.size(); ++i) {
    text(i == 0 ? " ORDER BY " : ", ").expression(*select.orderBy[i].expr);
    if (select.orderBy[i].descending) text(" DESC");
  }
  return *this;
}

void Writer::core(const Select& select) {
  text(select.distinct ? "SELECT DISTINCT " : "SELECT ");
  for (std::size_t i = 0; i < select.items.size(); ++i) {
    const SelectItem& item = select.items[i];
    if (i > 0) text(", ");
    if (item.star) {
      if (!item.qualifier.empty()) name(item.qualifier).text(".");
      text("*");
      continue;
    }
    expression(*item.expr);
    if (!item.alias.empty()) {
      text(" AS ").name(item.alias);
    } else if (destination_ == Destination::Schema && item.expr->kind == ExprKind::Column) {
      text(" AS ").name(item.expr->name);
    }
  }
  if (!select.from.empty()) text(" FROM ").from(select.from);
  if (select.where != nullptr) text(" WHERE ").expression(*select.where);
}

Writer& Writer::from(const std::vector<Source>& sources) {
  for (const Source& each : sources) {
    text(joinWord(each.join)).source(each);
    if (each.on != nullptr) text(" ON ").expression(*each.on);
  }
  return *this;
}

Writer& Writer::source(const Source& source) {
  if (source.select != nullptr) return text("(").select(*source.select).text(") AS ").name(source.alias);
  if (isSystemTable(source.table)) return text(kSystemTable).text(" AS ").name(source.name());
  name(source.table);
  if (!source.alias.empty()) text(" AS ").name(source.alias);
  return *this;
}

}  // namespace cu::sqlite
