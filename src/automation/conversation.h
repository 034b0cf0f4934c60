#pragma once

#include <functional>
#include <istream>
#include <ostream>
#include <string_view>
#include <vector>

#include "automation/json.h"
#include "automation/line_reader.h"
#include "automation/modal.h"
#include "automation/run_context.h"
#include "controls/form.h"

namespace cu {

// Raised through all running code when the driving program is gone: the input has ended, or the output is
// closed.
struct EndOfInput {};

// The dialogue with the driving program: what is open, what waits, one answer for each command. It is
// re-entered wherever the system waits for the user: in a box, a dialog, a modal form.
class Conversation {
 public:
  Conversation(std::istream& in, std::ostream& out) : reader_(in), out_(out) {}

  // Answers and reads commands until `done`; raises EndOfInput.
  void serve(const std::function<bool()>& done);
  // Does the same until the modal has accepted an answer.
  void wait(Modal modal);
  // Writes the last line.
  void end();

  // The open forms, the topmost is last.
  void opened(Form& form, bool modal);
  void closed(Form& form);
  bool isOpen(const Form& form) const;
  bool anyOpen() const { return !windows_.empty(); }
  Form* topmost() const { return windows_.empty() ? nullptr : windows_.back().form; }
  void forgetWindows() { windows_.clear(); }

  void effect(const char* name, JsonObject what);
  void setPointer(int pointer) { pointer_ = pointer; }
  int pointer() const { return pointer_; }
  void setRunContext(ReadRunContext read) { runContext_ = std::move(read); }

  // For the commands. An unknown name is Refused, and so is a form behind a modal one.
  Form& form(const std::string& name) const;
  Control& control(const std::string& fullName) const;
  void requireFront(const Form& form) const;
  const Modal* modal() const { return modal_; }
  void answerModal(const Json& answer);
  void chooseInPopup(const std::string& tool);
  RunContext runContext() const { return runContext_ ? runContext_() : RunContext(); }
  // Sets the result of the running command, in case its answer is due before it has ended.
  void setResult(JsonObject result) { answer_.result = std::move(result); }

 private:
  struct Window {
    Form* form;
    bool modal;
  };
  struct PendingAnswer {
    Json id;
    std::string refusal;
    bool refused = false;
    JsonObject result;
  };

  void execute(const LineReader::Line& line);
  void answer(bool ended);

  LineReader reader_;
  std::ostream& out_;
  std::vector<Window> windows_;
  JsonObject effects_ = JsonObject::array();
  int pointer_ = 0;
  ReadRunContext runContext_;
  Modal* modal_ = nullptr;
  bool modalAnswered_ = false;
  PendingAnswer answer_;
  unsigned long turn_ = 0;  // counts the commands
};

}  // namespace cu
