#include "automation/describe.h"

#include <algorithm>

#include "controls/band.h"
#include "controls/datebox.h"
#include "controls/form.h"
#include "controls/grid.h"
#include "controls/listbox.h"
#include "controls/menubar.h"
#include "controls/numericbox.h"
#include "controls/picker.h"
#include "controls/print_control.h"
#include "controls/selector.h"
#include "controls/tabs.h"
#include "controls/textbox.h"

namespace cu {
namespace {

const char* nameOf(Background background) {
  switch (background) {
    case Background::Window:
      return "window";
    case Background::Face:
      return "face";
  }
  return "window";
}

JsonObject keyOrNull(std::int64_t key) { return key == 0 ? JsonObject() : JsonObject(key); }

class Describer : public ControlVisitor {
 public:
  JsonObject properties;

  void visit(Frame& control) override { captioned("frame", control); }
  void visit(Label& control) override { captioned("label", control); }
  void visit(Link& control) override { captioned("link", control); }
  void visit(Button& control) override { captioned("button", control); }
  void visit(Option& control) override {
    captioned("option", control);
    properties["value"] = control.value();
  }
  void visit(Check& control) override {
    captioned("check", control);
    properties["value"] = control.value();
  }
  void visit(TextBox& control) override {
    common("text", control);
    properties["text"] = control.text();
    properties["maxLength"] = control.maxLength();
    properties["locked"] = control.locked();
    properties["background"] = nameOf(control.background());
  }
  void visit(DateBox& control) override {
    common("date", control);
    properties["text"] = control.text();
    properties["value"] = control.value();
    properties["background"] = nameOf(control.background());
  }
  void visit(AmountBox& control) override {
    numeric("amount", control);
    properties["value"] = control.value();
    properties["decimals"] = control.CurrencyDecimalPlaces();
    properties["symbol"] = control.CurrencySymbol();
    properties["decimalPoint"] = control.DecimalPoint();
    properties["separator"] = control.Separator();
  }
  void visit(NumberBox& control) override {
    numeric("number", control);
    properties["value"] = control.value();
  }
  void visit(Picker& control) override {
    common("picker", control);
    properties["record"] = keyOrNull(control.record());
    properties["text"] = control.text();
  }
  void visit(Tabs& control) override {
    common("tabs", control);
    JsonObject& tabs = properties["tabs"] = JsonObject::array();
    for (const Tabs::Tab& tab : control.tabs()) {
      tabs.push_back({{"caption", tab.caption}, {"visible", tab.visible}});
    }
    properties["selected"] = control.selected();
  }
  void visit(ListBox& control) override {
    common("list", control);
    properties["index"] = control.index();
    properties["text"] = control.text();
    JsonObject& entries = properties["entries"] = JsonObject::array();
    for (const ListBox::Entry& entry : control.entries()) entries.push_back(entry.text);
    properties["record"] = orNull(control.record());
    properties["source"] = control.source().empty() ? JsonObject() : JsonObject(control.source());
    properties["background"] = nameOf(control.background());
  }
  void visit(Selector& control) override {
    const Selector::Binding& binding = control.binding();
    common("selector", control);
    properties["record"] = keyOrNull(control.record());
    properties["code"] = control.code();
    properties["description"] = control.description();
    properties["table"] = binding.table;
    properties["filter"] = binding.filter;
    properties["codeField"] = binding.codeField;
    properties["descriptionField"] = binding.descriptionField;
    properties["idField"] = binding.idField;
    properties["codeCaption"] = binding.codeCaption;
    properties["descriptionCaption"] = binding.descriptionCaption;
    properties["title"] = binding.title;
    properties["manage"] = binding.manage;
    properties["search"] = binding.search;
  }
  void visit(Grid& control) override {
    common("grid", control);
    JsonObject& columns = properties["columns"] = JsonObject::array();
    for (const GridColumn& column : control.columns()) {
      columns.push_back({{"field", column.field},
                         {"caption", column.caption},
                         {"type", column.type},
                         {"width", column.width},
                         {"alignment", column.alignment},
                         {"visible", column.visible}});
    }
    properties["rows"] = control.rowCount();
    properties["row"] = control.row();
  }
  void visit(SideBand& control) override {
    common("band", control);
    JsonObject& items = properties["items"] = JsonObject::array();
    for (const SideBand::Item& item : control.items()) {
      items.push_back({{"title", item.title}, {"description", item.description}});
    }
    properties["selected"] = control.selected();
  }
  void visit(MenuBar& control) override {
    common("menubar", control);
    properties["style"] = control.style();
    JsonObject& tools = properties["tools"] = JsonObject::object();
    for (const MenuBar::Tool& tool : control.tools()) {
      tools[tool.key] = {{"caption", tool.caption},
                         {"shortcut", tool.shortcut},
                         {"enabled", control.toolAvailable(tool)},
                         {"band", tool.band}};
    }
  }
  void visit(PrintControl& control) override {
    common("print", control);
    JsonObject& reports = properties["reports"] = JsonObject::array();
    for (const ReportInfo& report : control.reports()) reports.push_back(report.name);
    properties["report"] = control.report();
    properties["definition"] = keyOrNull(control.definition());
    properties["objectType"] = keyOrNull(control.objectType());
    properties["output"] = control.output();
    properties["choice"] = control.choice();
    properties["toFile"] = control.toFile();
  }

 private:
  void common(const char* kind, const Control& control) {
    properties["kind"] = kind;
    properties["enabled"] = control.enabled();
    properties["visible"] = control.visible();
    if (!control.caption().empty()) properties["caption"] = control.caption();
  }
  void numeric(const char* kind, const NumericBox& control) {
    common(kind, control);
    properties["text"] = control.text();
    properties["min"] = control.min().toDouble();
    properties["max"] = control.max().toDouble();
    properties["background"] = nameOf(control.background());
  }
  void captioned(const char* kind, const Control& control) {
    common(kind, control);
    properties["caption"] = control.caption();
  }
};

}  // namespace

std::string toLine(const JsonObject& value) {
  return value.dump(-1, ' ', false, JsonObject::error_handler_t::replace);
}

JsonObject orNull(const std::optional<std::int64_t>& number) {
  return number ? JsonObject(*number) : JsonObject();
}

JsonObject describe(Control& control) {
  Describer describer;
  control.accept(describer);
  return std::move(describer.properties);
}

JsonObject describe(const Form& form) {
  JsonObject properties = {
      {"kind", "window"}, {"enabled", true}, {"visible", form.isOpen()}, {"caption", form.caption()}};
  if (const Form::Scroll* const scroll = form.scroll()) {
    properties["scroll"] = {{"position", scroll->position}, {"max", scroll->max}};
  }
  properties["shrunk"] = form.shrunk();
  const auto stages = form.stages();
  if (!stages.empty()) {
    JsonObject& steps = properties["steps"] = JsonObject::array();
    for (const Frame* const stage : stages) steps.push_back(stage->left());
  }
  return properties;
}

JsonObject describeTree(const Form& form) {
  JsonObject tree = JsonObject::object();
  tree[form.name()] = describe(form);
  for (Control* const control : form.controls()) tree[control->name()] = describe(*control);
  return tree;
}

JsonObject describe(const CellView& value) {
  switch (value.type()) {
    case ValueType::Null:
      return {};
    case ValueType::Integer:
      return value.integer();
    case ValueType::Decimal:
      return value.decimal().toDouble();
    case ValueType::Text:
      return std::string(value.text());
    case ValueType::Date:
      return value.date().toIso();
  }
  return {};
}

JsonObject describeRows(const Grid& grid, std::size_t from, std::size_t count) {
  JsonObject rows = JsonObject::array();
  const std::size_t last = grid.rowCount();
  if (from < 1 || from > last) return rows;
  const Recordset& records = *grid.rows();
  std::vector<CellView> cells(records.Fields().size());
  for (std::size_t row = from; row <= last && row - from < count; ++row) {
    records.Peek(row, cells.data());
    JsonObject described = JsonObject::object();
    JsonObject shown = JsonObject::object();
    for (const GridColumn& column : grid.columns()) {
      const std::size_t field = records.Fields().find(column.field);
      const CellView cell = field == Columns::kNone ? CellView() : cells[field];
      described[column.field] = describe(cell);
      shown[column.field] = grid.shown(column, cell);
    }
    described["shown"] = std::move(shown);
    rows.push_back(std::move(described));
  }
  return rows;
}

}  // namespace cu
