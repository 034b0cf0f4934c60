#include "reporting/rows.h"

#include <algorithm>

#include "base/text.h"
#include "modello/restituzioni.h"
#include "reporting/definition_reader.h"
#include "reporting/italian.h"

namespace cu::reporting {
namespace {

// Unique names, compared without case, in insertion order.
class Names {
 public:
  void add(const std::string& name) {
    const auto same = [&](const std::string& each) { return equalsNoCase(each, name); };
    if (std::none_of(names_.begin(), names_.end(), same)) names_.push_back(name);
  }
  void addFieldsOf(std::string_view text) {
    for (const std::string& field : fieldsOf(text)) add(field);
  }
  const std::vector<std::string>& names() const { return names_; }

 private:
  std::vector<std::string> names_;
};

Names usedFields(const ReportDefinition& definition) {
  Names names;
  for (const ReportGroup& group : definition.groups) {
    for (const std::string& key : group.key) names.add(key);
    names.addFieldsOf(group.title);
    names.addFieldsOf(group.note);
  }
  names.addFieldsOf(definition.introduction);
  for (const auto* columns : {&definition.columns, &definition.sheetColumns}) {
    for (const ReportColumn& column : *columns) {
      for (const Term& term : column.terms) {
        if (term.field.find('{') == std::string::npos) {
          names.add(term.field);
        } else {
          names.addFieldsOf(term.field);
        }
      }
    }
  }
  for (const ComputedField& field : definition.computed) names.add(field.name);
  return names;
}

// All fields of the form's view, with the boxes that it does not have.
std::string formFields(const std::string& view, bool ownBoxes) {
  std::string list = view + ".*";
  if (!ownBoxes) return list;
  for (const modello::Campo& campo : modello::kModelloPubblicato.campi) {
    if (campo.riscrittura != modello::Riscrittura::Propria) continue;
    list += ", " + modello::fnColonnaPropria(campo.colonna, view, true);
  }
  return list;
}

std::string fieldList(const ReportDefinition& definition, const Columns& columns, bool ownBoxes) {
  std::string list;
  if (definition.layout == LayoutKind::Form) return formFields(definition.view, ownBoxes);
  const Names used = usedFields(definition);
  for (const std::string& name : used.names()) {
    if (!list.empty()) list += ", ";
    const auto computed =
        std::find_if(definition.computed.begin(), definition.computed.end(),
                     [&](const ComputedField& each) { return equalsNoCase(each.name, name); });
    if (computed != definition.computed.end()) {
      list += computed->sql + " AS " + computed->name;
    } else if (columns.find(name) == Columns::kNone) {
      refuseDefinition(definition.name + ": la vista " + definition.view + " non ha il campo \"" + name +
                       "\"");
    } else {
      list += definition.view + "." + name;
    }
  }
  return list;
}

}  // namespace

std::string selectionOf(const ReportDefinition& definition, const Formula& formula, const Columns& columns,
                        bool ownBoxes) {
  const std::string condition = conditionOf(formula, definition.view, columns);

  std::string statement = "SELECT " + fieldList(definition, columns, ownBoxes) + " FROM " + definition.view;
  if (!definition.joins.empty()) statement += " " + definition.joins;
  if (!condition.empty()) statement += " WHERE " + condition;
  std::string order;
  for (const std::string& field : definition.order) {
    if (columns.find(field) == Columns::kNone) {
      refuseDefinition(definition.name + ": order: la vista " + definition.view + " non ha il campo \"" +
                       field + "\"");
    }
    order += (order.empty() ? "" : ", ") + definition.view + "." + field;
  }
  return statement + " ORDER BY " + order;
}

Rows::Rows(Connection& connection, std::string_view statement) {
  connection.Query(statement, store_);
  cells_.resize(store_.columns()->size());
}

void Rows::move(std::size_t row) {
  store_.read(row, cells_.data());
  current_ = row;
}

std::size_t Rows::place(std::string_view column) const {
  const std::size_t found = store_.columns()->find(column);
  if (found == Columns::kNone)
    refuseDefinition("il campo \"" + std::string(column) + "\" non è tra quelli letti");
  return found;
}

QString Rows::text(std::string_view column) const { return fromUtf8(get(column).toText()); }

Template::Template(std::string_view text, const Rows& rows) {
  while (!text.empty()) {
    const std::size_t open = text.find('{');
    const std::size_t close = open == std::string_view::npos ? open : text.find('}', open);
    if (close == std::string_view::npos) {
      parts_.push_back({fromUtf8(text)});
      return;
    }
    if (open > 0) parts_.push_back({fromUtf8(text.substr(0, open))});
    parts_.push_back({{}, rows.place(text.substr(open + 1, close - open - 1)), true});
    text.remove_prefix(close + 1);
  }
}

QString Template::of(const Rows& rows) const {
  QString result;
  for (const Part& part : parts_) result += part.field ? fromUtf8(rows.at(part.place).toText()) : part.text;
  return result.trimmed();
}

}  // namespace cu::reporting
