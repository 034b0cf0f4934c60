#include "automation/reach.h"
#include "base/text.h"
#include "controls/listbox.h"
#include "controls/picker.h"
#include "controls/print_control.h"
#include "controls/selector.h"
#include "controls/tabs.h"

namespace cu {
namespace {

struct Criterion {
  const char* name;
  bool present;
};

// Rejects every kind of choice except those that the control supports.
void onlyThese(const Control& control, const Choice& choice, std::initializer_list<std::string_view> names) {
  const Criterion criteria[] = {{"index", choice.index.has_value()},
                                {"text", choice.text.has_value()},
                                {"record", choice.record.has_value()},
                                {"code", choice.code.has_value()},
                                {"description", choice.description.has_value()},
                                {"report", choice.report.has_value()},
                                {"output", choice.output.has_value()}};
  for (const Criterion& each : criteria) {
    bool allowed = !each.present;
    for (const std::string_view name : names) allowed = allowed || name == each.name;
    if (!allowed) refuse(control, "\"" + std::string(each.name) + "\" non serve a scegliere qui");
  }
}

struct Choosing : RefusingVisitor {
  explicit Choosing(const Choice& what) : RefusingVisitor("qui non c'è nulla da scegliere"), choice(what) {}
  using RefusingVisitor::visit;

  void visit(ListBox& control) override {
    onlyThese(control, choice, {"index", "text", "record"});
    const int given =
        int(choice.index.has_value()) + int(choice.text.has_value()) + int(choice.record.has_value());
    if (given != 1) refuse(control, "indicare una sola fra index, text e record");
    requireReach(control);
    const int index = entryOf(control);
    event = [&control, index] { control.setIndex(index); };
  }

  void visit(Selector& control) override {
    onlyThese(control, choice, {"code", "record", "description"});
    const bool pair = choice.code.has_value() && choice.description.has_value() && !choice.record.has_value();
    const bool one = choice.code.has_value() != choice.record.has_value() && !choice.description.has_value();
    if (!pair && !one) refuse(control, "indicare code, oppure record, oppure code e description insieme");
    requireReach(control);
    if (pair) {
      event = [&control, code = *choice.code, description = *choice.description] {
        control.choose(code, description);
      };
      return;
    }
    lookUp(control);
  }

  void visit(Picker& control) override {
    onlyThese(control, choice, {"record"});
    if (!choice.record) refuse(control, "indicare record");
    requireReach(control);
    const std::int64_t id = *choice.record;
    if (id != 0) {
      bool known = false;
      bool asked = false;
      control.form().frontEnd().runEvent([&] {
        known = !control.nameOf(id).empty();
        asked = true;
      });
      if (!asked) return;
      if (!known) refuse(control, "nessun comune ha la chiave " + fromInteger(id));
    }
    event = [&control, id] { control.setRecord(id); };
  }

  void visit(Tabs& control) override {
    onlyThese(control, choice, {"index", "text"});
    if (choice.index.has_value() == choice.text.has_value()) refuse(control, "indicare index oppure text");
    requireReach(control);
    const int tab = tabOf(control);
    event = [&control, tab] { control.select(tab); };
  }

  void visit(PrintControl& control) override {
    onlyThese(control, choice, {"report", "output"});
    if (!choice.report && !choice.output) refuse(control, "indicare report, output o entrambi");
    requireReach(control);
    if (!control.choice()) refuse(control, "stampa e destinazione qui non si scelgono");
    if (choice.output && (*choice.output < 1 || *choice.output > 6)) {
      refuse(control, "output va da 1 a 6");
    }
    if (choice.report && !has(control, *choice.report)) {
      refuse(control, "la stampa \"" + *choice.report + "\" non esiste");
    }
    event = [&control, wanted = choice] {
      if (wanted.report) control.chooseReport(*wanted.report);
      if (wanted.output) control.setOutput(static_cast<int>(*wanted.output));
    };
  }

  const Choice& choice;
  Event event;

 private:
  int tabOf(const Tabs& tabs) const {
    const auto count = static_cast<std::int64_t>(tabs.tabs().size());
    const std::int64_t tab = choice.text ? tabs.indexOf(*choice.text) : *choice.index;
    if (choice.text && tab == 0) refuse(tabs, "la scheda \"" + *choice.text + "\" non esiste");
    if (tab < 1 || tab > count) {
      refuse(tabs, "la scheda " + fromInteger(tab) + " non esiste: le schede sono " + fromInteger(count));
    }
    if (!tabs.tabs()[static_cast<std::size_t>(tab - 1)].visible) refuse(tabs, "la scheda è nascosta");
    return static_cast<int>(tab);
  }

  int entryOf(const ListBox& list) const {
    if (choice.text) {
      const int index = list.indexOf(*choice.text);
      if (index < 0) refuse(list, "la voce \"" + *choice.text + "\" non è nell'elenco");
      return index;
    }
    if (choice.record) {
      const int index = list.indexOfRecord(*choice.record);
      if (index < 0) refuse(list, "nessuna voce ha la chiave " + fromInteger(*choice.record));
      return index;
    }
    const auto count = static_cast<std::int64_t>(list.entries().size());
    if (*choice.index < -1 || *choice.index >= count) {
      refuse(list,
             "la voce " + fromInteger(*choice.index) + " non esiste: le voci sono " + fromInteger(count));
    }
    return static_cast<int>(*choice.index);
  }

  // Reads the table before anything changes. A database error is reported with its own text.
  void lookUp(Selector& control) {
    std::optional<Selector::Row> row;
    bool asked = false;
    control.form().frontEnd().runEvent([&] {
      row = choice.code ? control.findCode(*choice.code) : control.findRecord(*choice.record);
      asked = true;
    });
    if (!asked) return;
    if (!row) {
      refuse(control, choice.code ? "nessuna riga ha il codice \"" + *choice.code + "\""
                                  : "nessuna riga ha la chiave " + fromInteger(*choice.record));
    }
    event = [&control, row] { control.choose(row); };
  }

  static bool has(const PrintControl& control, const std::string& name) {
    for (const ReportInfo& report : control.reports()) {
      if (report.name == name) return true;
    }
    return false;
  }
};

}  // namespace

void choose(Control& control, const Choice& choice) {
  Choosing choosing(choice);
  control.accept(choosing);
  if (choosing.event) control.form().perform(control, choosing.event);
}

}  // namespace cu
