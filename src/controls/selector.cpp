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

std::optional<Selector::Row> Selector::find(const std::string& condition) const {
  if (connection_ == nullptr)
    throw Error(kErrorObjectNotSet, "Il campo " + name() + " non è collegato a una tabella.");
  std::string source = "SELECT " + binding_.idField + ", " + binding_.codeField + ", " +
                       binding_.descriptionField + " FROM " + binding_.table + " WHERE " + condition;
  if (!binding_.filter.empty()) source += " AND (" + binding_.filter + ")";
  Recordset rows;
  rows.Open(*connection_, source);
  if (rows.Eof()) return std::nullopt;
  return Row{rows.Get(0).integer(), rows.Get(1).toText(), rows.Get(2).toText()};
}

void Selector::list(Recordset& rows) const {
  if (connection_ == nullptr)
    throw Error(kErrorObjectNotSet, "Il campo " + name() + " non è collegato a una tabella.");
  std::string source = "SELECT " + binding_.idField + ", " + binding_.codeField + ", " +
                       binding_.descriptionField + " FROM " + binding_.table;
  if (!binding_.filter.empty()) source += " WHERE " + binding_.filter;
  rows.Open(*connection_, source + " ORDER BY " + binding_.descriptionField);
}

std::optional<Selector::Row> Selector::findCode(const std::string& code) const {
  std::string literal = "'";
  for (char c : code) literal += c == '\'' ? std::string("''") : std::string(1, c);
  return find(binding_.codeField + " = " + literal + "'");
}

std::optional<Selector::Row> Selector::findRecord(std::int64_t id) const {
  return find(binding_.idField + " = " + fromInteger(id));
}

}  // namespace cu
