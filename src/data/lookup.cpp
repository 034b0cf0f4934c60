#include "data/lookup.h"

#include "base/text.h"
#include "data/recordset.h"

namespace cu {
namespace {

std::optional<LookupRow> find(Connection& connection, const LookupTable& table,
                              const std::string& condition) {
  std::string source = "SELECT " + table.idField + ", " + table.codeField + ", " + table.descriptionField +
                       " FROM " + table.table + " WHERE " + condition;
  if (!table.filter.empty()) source += " AND (" + table.filter + ")";
  Recordset rows;
  rows.Open(connection, source);
  if (rows.Eof()) return std::nullopt;
  return LookupRow{rows.Get(0).integer(), rows.Get(1).toText(), rows.Get(2).toText()};
}

}  // namespace

std::optional<LookupRow> findCode(Connection& connection, const LookupTable& table, const std::string& code) {
  std::string literal = "'";
  for (char c : code) literal += c == '\'' ? std::string("''") : std::string(1, c);
  return find(connection, table, table.codeField + " = " + literal + "'");
}

std::optional<LookupRow> findRecord(Connection& connection, const LookupTable& table, std::int64_t id) {
  return find(connection, table, table.idField + " = " + fromInteger(id));
}

}  // namespace cu
