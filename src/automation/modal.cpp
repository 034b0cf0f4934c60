#include "automation/modal.h"

#include <array>
#include <limits>

#include "automation/describe.h"
#include "automation/gestures.h"

namespace cu {
namespace {

const char* nameInModal(BoxIcon icon) {
  switch (icon) {
    case BoxIcon::None:
      return "none";
    case BoxIcon::Stop:
      return "stop";
    case BoxIcon::Question:
      return "question";
    case BoxIcon::Warning:
      return "warning";
    case BoxIcon::Information:
      return "information";
  }
  return "none";
}

const char* nameInModal(Answer answer) {
  switch (answer) {
    case Answer::Ok:
      return "ok";
    case Answer::Cancel:
      return "cancel";
    case Answer::Yes:
      return "yes";
    case Answer::No:
      return "no";
  }
  return "ok";
}

std::vector<Answer> answersOf(BoxButtons buttons) {
  switch (buttons) {
    case BoxButtons::Ok:
      return {Answer::Ok};
    case BoxButtons::OkCancel:
      return {Answer::Ok, Answer::Cancel};
    case BoxButtons::YesNo:
      return {Answer::Yes, Answer::No};
    case BoxButtons::YesNoCancel:
      return {Answer::Yes, Answer::No, Answer::Cancel};
  }
  return {Answer::Ok};
}

bool isWord(const Json& answer, const char* word) {
  return answer.is_string() && answer.get_ref<const std::string&>() == word;
}

[[noreturn]] void expected(const std::string& what) { throw Refused{"la finestra attende " + what}; }

void takeOk(const Json& answer) {
  if (!isWord(answer, "ok")) expected("\"ok\"");
}

// The text of the only member of an object; nullopt for "cancel".
std::optional<std::string> memberOrCancel(const Json& answer, const char* member, const std::string& what) {
  if (isWord(answer, "cancel")) return std::nullopt;
  if (!answer.is_object() || answer.size() != 1 || !answer.contains(member) || !answer[member].is_string() ||
      answer[member].get_ref<const std::string&>().empty()) {
    expected(what + " oppure \"cancel\"");
  }
  return answer[member].get<std::string>();
}

PrinterChoice printerIn(const Json& answer) {
  const char* const what = "{\"printer\":\"nome\",\"copies\":2} oppure \"cancel\"";
  if (!answer.is_object() || !answer.contains("printer") || !answer["printer"].is_string()) expected(what);
  PrinterChoice choice{answer["printer"].get<std::string>(), 1};
  for (const auto& [name, value] : answer.items()) {
    if (name == "printer") continue;
    if (name != "copies" || !value.is_number_integer()) expected(what);
    const auto copies = value.get<std::int64_t>();
    const bool fits = value.is_number_unsigned() ? value.get<std::uint64_t>() <= 9999 : copies <= 9999;
    if (!fits || copies < 1) expected("un numero di copie da 1 a 9999");
    choice.copies = static_cast<int>(copies);
  }
  return choice;
}

}  // namespace

Modal messageModal(const MessageBox& box, Answer& result) {
  const std::vector<Answer> answers = answersOf(box.buttons);
  JsonObject buttons = JsonObject::array();
  std::string words;
  for (const Answer answer : answers) {
    buttons.push_back(nameInModal(answer));
    words += (words.empty() ? "\"" : ", \"") + std::string(nameInModal(answer)) + "\"";
  }
  return {{{"kind", "message"},
           {"text", box.text},
           {"title", box.title},
           {"icon", nameInModal(box.icon)},
           {"buttons", buttons},
           {"default", nameInModal(box.byDefault)}},
          [answers, words, &result](const Json& given) {
            for (const Answer answer : answers) {
              if (!isWord(given, nameInModal(answer))) continue;
              result = answer;
              return;
            }
            expected("una di queste risposte: " + words);
          },
          {}};
}

Modal errorModal(const Error& error) {
  return {{{"kind", "error"},
           {"number", error.number()},
           {"text", error.description()},
           {"buttons", JsonObject::array({"ok"})}},
          takeOk,
          {}};
}

Modal folderModal(const std::string& title, const std::optional<std::string>& start, std::string& result) {
  return {{{"kind", "folder"}, {"title", title}, {"start", start ? JsonObject(*start) : JsonObject()}},
          [&result](const Json& given) {
            result = memberOrCancel(given, "folder", "{\"folder\":\"/cartella\"}").value_or("");
          },
          {}};
}

Modal printerModal(std::optional<PrinterChoice>& result) {
  return {{{"kind", "printer"}},
          [&result](const Json& given) {
            result = isWord(given, "cancel") ? std::nullopt : std::optional(printerIn(given));
          },
          {}};
}

Modal saveModal(const std::string& title, const std::string& start, const std::string& filter,
                std::optional<std::string>& result) {
  return {{{"kind", "save"}, {"title", title}, {"start", start}, {"filter", filter}},
          [&result](const Json& given) {
            result = memberOrCancel(given, "file", "{\"file\":\"/cartella/nome.pdf\"}");
          },
          {}};
}

Modal logModal(const LogTable& log) {
  JsonObject rows = JsonObject::array();
  for (const auto& row : log.rows) {
    JsonObject values = JsonObject::array();
    for (const Value& value : row) values.push_back(describe(value.view()));
    rows.push_back(std::move(values));
  }
  return {{{"kind", "log"}, {"columns", log.columns}, {"rows", std::move(rows)}}, takeOk, {}};
}

Modal previewModal(const std::string& title, const std::vector<std::string>& pages) {
  return {{{"kind", "preview"}, {"title", title}, {"pages", pages}}, takeOk, {}};
}

void requireTool(const MenuBar& bar, const std::string& tool) {
  const MenuBar::Tool* const found = bar.tool(tool);
  if (found == nullptr) throw Refused{"il menu non ha la voce \"" + tool + "\""};
  if (!bar.toolAvailable(*found)) throw Refused{"la voce \"" + tool + "\" è disabilitata"};
}

Modal popupModal(const MenuBar& bar, const std::string& band, std::string& chosen) {
  JsonObject tools = JsonObject::array();
  for (const MenuBar::Tool& tool : bar.tools()) {
    if (tool.band == band) tools.push_back(tool.key);
  }
  return {{{"kind", "menu"}, {"band", band}, {"tools", std::move(tools)}},
          [](const Json& given) {
            if (!isWord(given, "cancel")) expected("il comando menu oppure \"cancel\"");
          },
          [&bar, band, &chosen](const std::string& tool) {
            requireTool(bar, tool);
            if (bar.tool(tool)->band != band) throw Refused{"il menu aperto non ha la voce \"" + tool + "\""};
            chosen = tool;
          }};
}

}  // namespace cu
