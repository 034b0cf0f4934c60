#include "controls/selector.h"

#include "base/error.h"
#include "base/text.h"

namespace cu {

void Selector::bind(Connection& connection, Binding binding) {
  connection_ = &connection;
  binding_ = std::move(binding);
  notify();
  empty();
}

void Selector::set(std::int64_t record, const std::string& code, const std::string& description) {
  if (record_ == record && code_ == code && description_ == description) return;
  record_ = record;
  code_ = code;
  description_ = description;
  notify();
  if (onChange) onChange();
}

void Selector::choose(const std::string& code, const std::string& description) { set(0, code, description); }

bool Selector::choose(const std::optional<Row>& row) {
  if (!row) return false;
  set(row->record, row->code, row->description);
  return true;
}

Connection& Selector::connection() const {
  if (connection_ == nullptr)
    throw Error(kErrorObjectNotSet, "Il campo " + name() + " non è collegato a una tabella.");
  return *connection_;
}

void Selector::list(Recordset& rows) const {
  const LookupTable& table = binding_;
  std::string source = "SELECT " + table.idField + ", " + table.codeField + ", " + table.descriptionField +
                       " FROM " + table.table;
  if (!table.filter.empty()) source += " WHERE " + table.filter;
  rows.Open(connection(), source + " ORDER BY " + table.descriptionField);
}

std::optional<Selector::Row> Selector::findCode(const std::string& code) const {
  return cu::findCode(connection(), binding_, code);
}

std::optional<Selector::Row> Selector::findRecord(std::int64_t id) const {
  return cu::findRecord(connection(), binding_, id);
}

}  // namespace cu
