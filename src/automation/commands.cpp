#include "automation/commands.h"

#include <algorithm>
#include <array>
#include <limits>

#include "automation/conversation.h"
#include "automation/describe.h"
#include "automation/gestures.h"
#include "base/text.h"
#include "controls/grid.h"
#include "controls/menubar.h"

namespace cu {
namespace {

constexpr int kMaxDepth = 64;
constexpr std::int64_t kAnyMin = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t kAnyMax = std::numeric_limits<std::int64_t>::max();

enum class Kind { None, Text, Integer, Answer };

struct Argument {
  std::string_view name;
  Kind kind = Kind::None;
  bool required = true;
  std::int64_t least = kAnyMin;
  std::int64_t most = kAnyMax;
};

// When a command is accepted: Reading at any time; Acting when nothing waits for an answer; Answering
// commands check for themselves.
enum class When { Reading, Acting, Answering };

// The arguments of one command, already checked against its row of the table.
class Given {
 public:
  explicit Given(const Json& command) : command_(command) {}
  std::string text(const char* name) const { return command_[name].get<std::string>(); }
  std::int64_t integer(const char* name) const { return command_[name].get<std::int64_t>(); }
  std::int64_t integer(const char* name, std::int64_t otherwise) const {
    return command_.contains(name) ? integer(name) : otherwise;
  }
  std::optional<std::string> textIfAny(const char* name) const {
    return command_.contains(name) ? std::optional(text(name)) : std::nullopt;
  }
  std::optional<std::int64_t> integerIfAny(const char* name) const {
    return command_.contains(name) ? std::optional(integer(name)) : std::nullopt;
  }
  const Json& value(const char* name) const { return command_[name]; }

 private:
  const Json& command_;
};

using Handler = JsonObject (*)(Conversation& talk, const Given& given);

struct Command {
  std::string_view name;
  When when;
  std::array<Argument, 8> arguments;
  Handler run;
};

bool namesForm(const std::string& name) { return name.find('.') == std::string::npos; }

// The control on which a command acts; a modal form must not be in front of it.
Control& acted(Conversation& talk, const std::string& name) {
  Control& control = talk.control(name);
  talk.requireFront(control.form());
  return control;
}

Form& actedForm(Conversation& talk, const std::string& name) {
  Form& form = talk.form(name);
  talk.requireFront(form);
  return form;
}

JsonObject state(Conversation&, const Given&) { return nullptr; }

JsonObject get(Conversation& talk, const Given& given) {
  const std::string name = given.text("of");
  return namesForm(name) ? describe(talk.form(name)) : describe(talk.control(name));
}

JsonObject tree(Conversation& talk, const Given& given) { return describeTree(talk.form(given.text("of"))); }

JsonObject context(Conversation& talk, const Given&) {
  const RunContext run = talk.runContext();
  return {{"gIDFunzione", run.gIDFunzione},
          {"gAnno", run.gAnno},
          {"gTabellaLavoro", run.gTabellaLavoro},
          {"gTitolo", run.gTitolo},
          {"gChiaveImpostazioni", run.gChiaveImpostazioni},
          {"gDecimaliValuta", run.gDecimaliValuta},
          {"gSimboloValuta", run.gSimboloValuta},
          {"gSeparatoreDecimale", run.gSeparatoreDecimale},
          {"gSeparatoreMigliaia", run.gSeparatoreMigliaia},
          {"IDUtente", orNull(run.IDUtente)},
          {"IDAzienda", orNull(run.IDAzienda)},
          {"IDFiliale", orNull(run.IDFiliale)}};
}

JsonObject click(Conversation& talk, const Given& given) {
  clickOn(acted(talk, given.text("on")));
  return nullptr;
}

JsonObject enter(Conversation& talk, const Given& given) {
  typeInto(acted(talk, given.text("in")), given.text("text"));
  return nullptr;
}

JsonObject paste(Conversation& talk, const Given& given) {
  pasteInto(acted(talk, given.text("in")), given.text("text"));
  return nullptr;
}

JsonObject chooseEntry(Conversation& talk, const Given& given) {
  Choice choice;
  choice.index = given.integerIfAny("index");
  choice.text = given.textIfAny("text");
  choice.record = given.integerIfAny("record");
  choice.code = given.textIfAny("code");
  choice.description = given.textIfAny("description");
  choice.report = given.textIfAny("report");
  choice.output = given.integerIfAny("output");
  choose(acted(talk, given.text("in")), choice);
  return nullptr;
}

JsonObject focus(Conversation& talk, const Given& given) {
  focusOn(acted(talk, given.text("on")));
  return nullptr;
}

JsonObject leaveControl(Conversation& talk, const Given& given) {
  leave(acted(talk, given.text("of")));
  return nullptr;
}

JsonObject key(Conversation& talk, const Given& given) {
  const std::string name = given.text("on");
  const auto code = static_cast<std::int16_t>(given.integer("code"));
  const auto shift = static_cast<std::int16_t>(given.integer("shift", 0));
  const auto told = [](JsonObject consumed) { return JsonObject{{"consumed", std::move(consumed)}}; };
  if (namesForm(name)) {
    Form& form = actedForm(talk, name);
    talk.setResult(told(nullptr));
    return told(pressKey(form, code, shift));
  }
  Control& control = acted(talk, name);
  talk.setResult(told(nullptr));
  return told(pressKey(control, code, shift));
}

JsonObject wheel(Conversation& talk, const Given& given) {
  turnWheel(actedForm(talk, given.text("on")), static_cast<int>(given.integer("delta")));
  return nullptr;
}

JsonObject row(Conversation& talk, const Given& given) {
  selectRow(acted(talk, given.text("in")), given.integer("row"));
  return nullptr;
}

JsonObject press(Conversation& talk, const Given& given) {
  pressCell(acted(talk, given.text("in")), given.integer("row"), given.text("column"));
  return nullptr;
}

JsonObject doubleClick(Conversation& talk, const Given& given) {
  doubleClickRow(acted(talk, given.text("in")), given.integer("row"));
  return nullptr;
}

JsonObject rows(Conversation& talk, const Given& given) {
  const auto* const grid = dynamic_cast<const Grid*>(&talk.control(given.text("in")));
  if (grid == nullptr) throw Refused{given.text("in") + ": il controllo non è una griglia"};
  return describeRows(*grid, static_cast<std::size_t>(given.integer("from")),
                      static_cast<std::size_t>(given.integer("count")));
}

// The menu of an open popup, otherwise the menu bar of the front form.
JsonObject menu(Conversation& talk, const Given& given) {
  const std::string tool = given.text("tool");
  if (talk.modal() != nullptr) {
    if (!talk.modal()->chooseTool) throw Refused{"la finestra aperta non è un menu"};
    talk.chooseInPopup(tool);
    return nullptr;
  }
  Form* const form = talk.topmost();
  if (form == nullptr) throw Refused{"nessuna finestra è aperta"};
  for (Control* const control : form->controls()) {
    auto* const bar = dynamic_cast<MenuBar*>(control);
    if (bar == nullptr) continue;
    requireTool(*bar, tool);
    chooseTool(*bar, tool);
    return nullptr;
  }
  throw Refused{form->name() + " non ha una barra dei menu"};
}

JsonObject answer(Conversation& talk, const Given& given) {
  talk.answerModal(given.value("with"));
  return nullptr;
}

JsonObject close(Conversation& talk, const Given& given) {
  closeBox(actedForm(talk, given.text("window")));
  return nullptr;
}

constexpr std::int64_t kMaxKey = std::numeric_limits<std::int16_t>::max();
constexpr std::int64_t kMaxInt = std::numeric_limits<std::int32_t>::max();

constexpr std::array<Command, 19> kCommands = {{
    {"state", When::Reading, {}, state},
    {"get", When::Reading, {{{"of", Kind::Text}}}, get},
    {"tree", When::Reading, {{{"of", Kind::Text}}}, tree},
    {"context", When::Reading, {}, context},
    {"click", When::Acting, {{{"on", Kind::Text}}}, click},
    {"enter", When::Acting, {{{"in", Kind::Text}, {"text", Kind::Text}}}, enter},
    {"paste", When::Acting, {{{"in", Kind::Text}, {"text", Kind::Text}}}, paste},
    {"choose",
     When::Acting,
     {{{"in", Kind::Text},
       {"index", Kind::Integer, false},
       {"text", Kind::Text, false},
       {"record", Kind::Integer, false},
       {"code", Kind::Text, false},
       {"description", Kind::Text, false},
       {"report", Kind::Text, false},
       {"output", Kind::Integer, false}}},
     chooseEntry},
    {"focus", When::Acting, {{{"on", Kind::Text}}}, focus},
    {"leave", When::Acting, {{{"of", Kind::Text}}}, leaveControl},
    {"key",
     When::Acting,
     {{{"on", Kind::Text}, {"code", Kind::Integer, true, 0, kMaxKey}, {"shift", Kind::Integer, false, 0, 7}}},
     key},
    {"wheel", When::Acting, {{{"on", Kind::Text}, {"delta", Kind::Integer, true, -kMaxInt, kMaxInt}}}, wheel},
    {"row", When::Acting, {{{"in", Kind::Text}, {"row", Kind::Integer}}}, row},
    {"press", When::Acting, {{{"in", Kind::Text}, {"row", Kind::Integer}, {"column", Kind::Text}}}, press},
    {"doubleclick", When::Acting, {{{"in", Kind::Text}, {"row", Kind::Integer}}}, doubleClick},
    {"rows",
     When::Reading,
     {{{"in", Kind::Text}, {"from", Kind::Integer, true, 1}, {"count", Kind::Integer, true, 0}}},
     rows},
    {"menu", When::Answering, {{{"tool", Kind::Text}}}, menu},
    {"answer", When::Answering, {{{"with", Kind::Answer}}}, answer},
    {"close", When::Acting, {{{"window", Kind::Text}}}, close},
}};

const char* nameOfKind(Kind kind) {
  switch (kind) {
    case Kind::Text:
      return "un testo";
    case Kind::Integer:
      return "un numero intero";
    case Kind::None:
    case Kind::Answer:
      return "un valore";
  }
  return "un valore";
}

bool fits(const Json& value, const Argument& argument) {
  if (!value.is_number_integer()) return false;
  if (value.is_number_unsigned() &&
      value.get<std::uint64_t>() > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) {
    return false;
  }
  const auto number = value.get<std::int64_t>();
  return number >= argument.least && number <= argument.most;
}

// No control and no database statement may contain a null character.
bool holdsNull(const Json& value) {
  if (value.is_string()) return value.get_ref<const std::string&>().find('\0') != std::string::npos;
  return value.is_structured() && std::any_of(value.begin(), value.end(), holdsNull);
}

void check(const Argument& argument, const Json& command) {
  const std::string name(argument.name);
  const auto found = command.find(name);
  if (found == command.end()) {
    if (argument.required) throw Refused{"manca \"" + name + "\": atteso " + nameOfKind(argument.kind)};
    return;
  }
  if (holdsNull(*found)) throw Refused{"\"" + name + "\": il carattere nullo non è ammesso"};
  bool good = true;
  if (argument.kind == Kind::Text) good = found->is_string();
  if (argument.kind == Kind::Integer) good = fits(*found, argument);
  if (good) return;
  std::string wanted = nameOfKind(argument.kind);
  if (argument.least != kAnyMin) wanted += " da " + fromInteger(argument.least);
  if (argument.most != kAnyMax) wanted += " a " + fromInteger(argument.most);
  throw Refused{"\"" + name + "\": atteso " + wanted};
}

std::string inQuotes(const std::string& text) {
  constexpr std::size_t kLongest = 60;
  const std::string head(leftCodePoints(text, kLongest));
  return "\"" + head + (head.size() < text.size() ? "..." : "") + "\"";
}

void check(const Command& command, const Json& given) {
  for (const Argument& argument : command.arguments) {
    if (argument.kind != Kind::None) check(argument, given);
  }
  for (const auto& [name, value] : given.items()) {
    bool known = name == "do" || name == "id";
    for (const Argument& argument : command.arguments) known = known || argument.name == name;
    if (!known) throw Refused{std::string(command.name) + " non conosce " + inQuotes(name)};
  }
}

// Whether brackets nest deeper than in any command; the parser checks everything else.
bool tooDeep(std::string_view line) {
  int depth = 0;
  bool inText = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    if (inText) {
      if (c == '\\') ++i;
      if (c == '"') inText = false;
    } else if (c == '"') {
      inText = true;
    } else if (c == '[' || c == '{') {
      if (++depth > kMaxDepth) return true;
    } else if (c == ']' || c == '}') {
      --depth;
    }
  }
  return false;
}

}  // namespace

Json parseCommand(std::string_view line) {
  if (tooDeep(line)) throw Refused{"JSON troppo annidato"};
  Json command = Json::parse(line, nullptr, false);
  if (command.is_discarded()) throw Refused{"la riga non è JSON valido"};
  if (!command.is_object()) throw Refused{"atteso un oggetto JSON, come {\"do\":\"state\"}"};
  return command;
}

JsonObject runCommand(Conversation& conversation, const Json& command) {
  const auto name = command.find("do");
  if (name == command.end() || !name->is_string())
    throw Refused{"manca \"do\": atteso il nome di un comando"};
  for (const Command& known : kCommands) {
    if (*name != known.name) continue;
    check(known, command);
    if (known.when == When::Acting && conversation.modal() != nullptr) {
      const std::string kind = conversation.modal()->description["kind"];
      throw Refused{"una finestra (" + kind + ") attende una risposta: usare answer"};
    }
    return known.run(conversation, Given(command));
  }
  throw Refused{"comando sconosciuto: " + inQuotes(name->get<std::string>())};
}

std::vector<std::string> commandShapes() {
  std::vector<std::string> shapes;
  for (const Command& command : kCommands) {
    std::string shape(command.name);
    for (const Argument& argument : command.arguments) {
      if (argument.kind != Kind::None) shape += " " + std::string(argument.name);
    }
    shapes.push_back(std::move(shape));
  }
  return shapes;
}

}  // namespace cu
