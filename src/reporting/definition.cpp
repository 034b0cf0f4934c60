#include "reporting/definition.h"

#include <algorithm>
#include <array>

#include "base/text.h"
#include "modello/modello.h"
#include "reporting/definition_reader.h"
#include "reporting/form_boxes.h"

namespace cu::reporting {
namespace {

template <class T>
using Word = std::pair<std::string_view, T>;

constexpr auto kLayouts = std::to_array<Word<LayoutKind>>(
    {{"list", LayoutKind::List}, {"certificate", LayoutKind::Certificate}, {"form", LayoutKind::Form}});

constexpr auto kFormats = std::to_array<Word<ColumnFormat>>({{"text", ColumnFormat::Text},
                                                             {"integer", ColumnFormat::Integer},
                                                             {"date", ColumnFormat::Date},
                                                             {"amount", ColumnFormat::Amount}});

constexpr auto kParts =
    std::to_array<Word<FormPart>>({{"identity", FormPart::Identity}, {"amounts", FormPart::Amounts}});

template <class T, std::size_t N>
T choice(const DefinitionReader& reader, std::string_view key, const std::array<Word<T>, N>& words) {
  return reader.choice<T>(key, std::span<const Word<T>>(words));
}

bool isYear(std::string_view text) {
  return text.size() == 4 &&
         std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

std::int32_t yearOf(std::string_view text) { return static_cast<std::int32_t>(leadingInteger(text)); }

// "2015", "2015-", "-2016".
modello::Anni readYears(const DefinitionReader& reader) {
  if (!reader.has("years")) return modello::kTutti;
  const std::string text = reader.text("years");
  const std::size_t dash = text.find('-');
  if (dash == std::string::npos && isYear(text)) return modello::nel(yearOf(text));
  if (dash == 4 && text.size() == 5 && isYear(text.substr(0, 4))) return modello::dal(yearOf(text));
  if (dash != 0 || !isYear(text.substr(1))) {
    reader.refuse("years", "valore \"" + text + "\" non ammesso",
                  "anni come \"2015\", \"2015-\" o \"-2016\"");
  }
  return modello::finoAl(yearOf(text.substr(1)));
}

ReportColumn readColumn(const DefinitionReader& reader) {
  reader.only({"caption", "format", "field", "width", "total"});
  ReportColumn column;
  column.caption = reader.text("caption");
  column.format = choice(reader, "format", kFormats);
  for (const std::string& term : reader.textsOr("field")) {
    const bool negative = term.front() == '-';
    column.terms.push_back({term.substr(negative ? 1 : 0), negative});
    if (column.terms.back().field.empty()) reader.refuse("field", "campo senza nome", "il nome di un campo");
  }
  if (column.terms.empty()) reader.refuse("field", "manca", "il nome di un campo, o un elenco di importi");
  const bool summed = column.terms.size() > 1 || column.terms.front().negative;
  if (summed && column.format != ColumnFormat::Amount) {
    reader.refuse("field", "somma di campi che non sono importi", "un solo campo");
  }
  column.width = reader.number("width");
  column.total = reader.flagOr("total", false);
  if (column.total && column.format != ColumnFormat::Amount) {
    reader.refuse("total", "solo gli importi hanno un totale", "format = \"amount\"");
  }
  return column;
}

ReportGroup readGroup(const DefinitionReader& reader) {
  reader.only({"key", "title", "note", "total", "total_of_one"});
  return {reader.texts("key"), reader.text("title"), reader.textOr("note", ""), reader.textOr("total", ""),
          reader.flagOr("total_of_one", true)};
}

SelectionWords readSelection(const DefinitionReader& reader) {
  reader.only({"field", "all", "one", "from", "to", "range"});
  const auto with = [&](std::string_view key, std::initializer_list<std::string_view> marks) {
    std::string text = reader.text(key);
    for (const std::string_view mark : marks) {
      if (text.find(mark) == std::string::npos)
        reader.refuse(key, "manca il posto di un estremo", "un testo con " + std::string(mark));
    }
    return text;
  };
  SelectionWords words{reader.textsOr("field"), reader.text("all"), with("one", {"%1"}),
                       with("from", {"%1"}),    with("to", {"%1"}), with("range", {"%1", "%2"})};
  if (words.fields.empty()) reader.refuse("field", "manca", "il nome di un campo, o più nomi");
  return words;
}

// Whether the form has a box with that column in the part, in some year.
bool isBox(FormPart part, std::string_view field) {
  return std::any_of(
      modello::kModello.campi.begin(), modello::kModello.campi.end(), [&](const modello::Campo& campo) {
        return record(campo.quadro) == recordOf(part) && inModulo(campo, true) && campo.colonna == field;
      });
}

FormBox readBox(const DefinitionReader& reader, FormPart part) {
  FormBox box;
  box.width = reader.number("width");
  box.years = readYears(reader);
  if (!reader.has("field")) {
    reader.only({"width", "years"});
    return box;
  }
  reader.only({"field", "caption", "years", "width"});
  box.field = reader.text("field");
  if (!isBox(part, box.field)) {
    reader.refuse("field", "valore \"" + box.field + "\" sconosciuto",
                  "la colonna di una casella di questa parte del modello");
  }
  box.caption = reader.text("caption");
  return box;
}

FormSection readSection(const DefinitionReader& reader) {
  reader.only({"part", "title", "years", "rows"});
  FormSection section;
  section.part = choice(reader, "part", kParts);
  section.title = reader.text("title");
  section.years = readYears(reader);
  for (const auto& row : reader.rows("rows")) {
    std::vector<FormBox>& boxes = section.rows.emplace_back();
    for (const DefinitionReader& box : row) boxes.push_back(readBox(box, section.part));
  }
  return section;
}

void check(const ReportDefinition& definition, const DefinitionReader& reader) {
  if (definition.layout == LayoutKind::Form) {
    if (definition.sections.empty()) reader.refuse("section", "manca", "almeno una sezione");
    return;
  }
  if (definition.columns.empty()) reader.refuse("column", "manca", "almeno una colonna");
  if (definition.groups.empty()) reader.refuse("group", "manca", "almeno un gruppo");
  if (definition.layout == LayoutKind::Certificate && definition.introduction.empty()) {
    reader.refuse("introduction", "manca", "il testo della certificazione");
  }
}

}  // namespace

ReportDefinition parseDefinition(std::string_view text, const std::string& file) {
  const toml::parse_result parsed = toml::parse(text);
  if (!parsed) {
    const toml::source_position where = parsed.error().source().begin;
    refuseDefinition(file + ", riga " + fromInteger(where.line) + ", colonna " + fromInteger(where.column) +
                     ": il testo non è TOML valido");
  }
  const DefinitionReader reader(parsed.table(), file);
  reader.only({"name", "object_type", "definition", "view", "title", "layout", "introduction", "joins",
               "order", "grand_total", "computed", "group", "column", "sheet_column", "section",
               "selection"});
  ReportDefinition result;
  result.name = reader.text("name");
  result.objectType = reader.integer("object_type");
  result.number = reader.integer("definition");
  result.view = reader.text("view");
  result.title = reader.text("title");
  result.layout = choice(reader, "layout", kLayouts);
  result.introduction = reader.textOr("introduction", "");
  result.joins = reader.textOr("joins", "");
  result.order = reader.texts("order");
  result.grandTotal = reader.textOr("grand_total", "");
  for (const DefinitionReader& each : reader.tables("computed")) {
    each.only({"name", "sql"});
    result.computed.push_back({each.text("name"), each.text("sql")});
  }
  for (const DefinitionReader& each : reader.tables("group")) result.groups.push_back(readGroup(each));
  for (const DefinitionReader& each : reader.tables("column")) result.columns.push_back(readColumn(each));
  for (const DefinitionReader& each : reader.tables("sheet_column")) {
    result.sheetColumns.push_back(readColumn(each));
  }
  for (const DefinitionReader& each : reader.tables("selection")) {
    result.selection.push_back(readSelection(each));
  }
  for (const DefinitionReader& each : reader.tables("section")) result.sections.push_back(readSection(each));
  check(result, reader);
  return result;
}

std::vector<std::string> fieldsOf(std::string_view text) {
  std::vector<std::string> fields;
  for (std::size_t at = text.find('{'); at != std::string_view::npos; at = text.find('{', at + 1)) {
    const std::size_t end = text.find('}', at);
    if (end == std::string_view::npos) break;
    fields.emplace_back(text.substr(at + 1, end - at - 1));
  }
  return fields;
}

}  // namespace cu::reporting
