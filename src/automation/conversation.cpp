#include "automation/conversation.h"

#include <algorithm>

#include "automation/commands.h"
#include "automation/describe.h"
#include "automation/gestures.h"

namespace cu {

void Conversation::serve(const std::function<bool()>& done) {
  while (!done()) {
    answer(false);
    const auto line = reader_.next();
    if (!line) throw EndOfInput{};
    execute(*line);
  }
}

void Conversation::wait(Modal modal) {
  // A box opened by an error in another box is answered first.
  Modal* const before = modal_;
  modal_ = &modal;
  modalAnswered_ = false;
  try {
    serve([this] { return modalAnswered_; });
  } catch (...) {
    modal_ = before;
    throw;
  }
  modal_ = before;
  modalAnswered_ = false;
}

void Conversation::end() {
  modal_ = nullptr;
  answer(true);
}

void Conversation::opened(Form& form, bool modal) {
  if (!isOpen(form)) windows_.push_back({&form, modal});
}

void Conversation::closed(Form& form) {
  std::erase_if(windows_, [&](const Window& window) { return window.form == &form; });
}

bool Conversation::isOpen(const Form& form) const {
  return std::any_of(windows_.begin(), windows_.end(),
                     [&](const Window& window) { return window.form == &form; });
}

void Conversation::effect(const char* name, JsonObject what) {
  JsonObject told = JsonObject::object();
  told[name] = std::move(what);
  effects_.push_back(std::move(told));
}

Form& Conversation::form(const std::string& name) const {
  for (auto window = windows_.rbegin(); window != windows_.rend(); ++window) {
    if (window->form->name() == name) return *window->form;
  }
  throw Refused{"la finestra \"" + name + "\" non è aperta"};
}

Control& Conversation::control(const std::string& fullName) const {
  const std::size_t point = fullName.find('.');
  if (point == std::string::npos) throw Refused{"atteso finestra.controllo invece di \"" + fullName + "\""};
  const Form& owner = form(fullName.substr(0, point));
  Control* const found = owner.find(fullName.substr(point + 1));
  if (found == nullptr) {
    throw Refused{owner.name() + " non ha un controllo \"" + fullName.substr(point + 1) + "\""};
  }
  return *found;
}

void Conversation::requireFront(const Form& form) const {
  for (auto window = windows_.rbegin(); window != windows_.rend(); ++window) {
    if (window->form == &form) return;
    if (window->modal) throw Refused{form.name() + " attende che si chiuda " + window->form->name()};
  }
}

void Conversation::answerModal(const Json& answer) {
  if (modal_ == nullptr) throw Refused{"nessuna finestra attende una risposta"};
  modal_->take(answer);
  modalAnswered_ = true;
}

void Conversation::chooseInPopup(const std::string& tool) {
  modal_->chooseTool(tool);
  modalAnswered_ = true;
}

void Conversation::execute(const LineReader::Line& line) {
  const unsigned long turn = ++turn_;
  answer_ = {};
  const auto refuse = [&](const std::string& why) {
    if (turn != turn_) return;
    answer_.refused = true;
    answer_.refusal = why;
    answer_.result = nullptr;
  };
  try {
    if (line.tooLong) throw Refused{"la riga supera 1 MiB"};
    const Json command = parseCommand(line.text);
    const auto id = command.find("id");
    if (id != command.end()) answer_.id = *id;
    JsonObject result = runCommand(*this, command);
    // While this command waited for an answer of the user, other commands may have been answered, and this
    // one before them.
    if (turn == turn_ && !result.is_null()) answer_.result = std::move(result);
  } catch (const Refused& refused) {
    refuse(refused.reason);
  } catch (const std::exception& error) {
    refuse(std::string("errore interno: ") + error.what());
  }
}

void Conversation::answer(bool ended) {
  JsonObject line = {{"id", JsonObject(answer_.id)}, {"ok", !answer_.refused}};
  if (answer_.refused) line["error"] = answer_.refusal;
  line["result"] = std::move(answer_.result);
  JsonObject& windows = line["windows"] = JsonObject::array();
  for (const Window& window : windows_) windows.push_back(window.form->name());
  line["modal"] = modal_ == nullptr ? JsonObject() : modal_->description;
  line["effects"] = std::exchange(effects_, JsonObject::array());
  line["pointer"] = pointer_;
  const Control* const focus = windows_.empty() ? nullptr : windows_.back().form->focus();
  line["focus"] = focus == nullptr ? JsonObject() : JsonObject(fullName(*focus));
  line["ended"] = ended;
  answer_ = {};
  out_ << toLine(line) << '\n' << std::flush;
  if (!out_) throw EndOfInput{};
}

}  // namespace cu
