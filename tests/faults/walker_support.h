#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "controls/frontend.h"

namespace cu::test {

// Operates the wizard: boxes are answered by a rule, each modal form by the steps set for its name, and all
// messages are kept.
class Walker : public FrontEnd {
 public:
  using Steps = std::function<void(Form& form)>;

  // A warning (a box with OK and Cancel) is confirmed only if this is set.
  bool passWarnings = false;
  std::string folder;                    // the answer of the folder dialog
  std::optional<std::string> savedFile;  // the answer of the file name dialog
  void onForm(const std::string& name, Steps steps) { steps_[name] = std::move(steps); }

  struct Warning {
    std::string text;
    bool passed;
  };
  std::vector<std::string> messages;  // rejections, and errors that no handler caught
  std::vector<Warning> warnings;
  std::vector<LogTable> logs;
  std::vector<PrintNote> prints;
  Form* shown = nullptr;  // the last form opened without being modal

  void show(Form& form) override { shown = &form; }
  // A form without steps, or still open after them, is closed.
  void showModal(Form& form) override;
  void closed(Form& form) override;
  Answer messageBox(const MessageBox& box) override;
  void error(const Error& error) override { messages.push_back(error.description()); }
  std::string chooseFolder(const std::string& title, const std::optional<std::string>& start) override;
  std::optional<PrinterChoice> choosePrinter() override { return std::nullopt; }
  std::optional<std::string> chooseFileToSave(const std::string& title, const std::string& start,
                                              const std::string& filter) override;
  void showLog(const LogTable& log) override { logs.push_back(log); }
  void preview(const Preview&) override {}
  void popup(MenuBar&, const std::string&) override {}
  void help(const std::string&, int, std::int32_t) override {}
  void open(const std::string&, const std::string&) override {}
  void viewText(const std::string&) override {}
  void printed(const PrintNote& note) override { prints.push_back(note); }
  void beep() override {}
  void setPointer(int pointer) override { pointer_ = pointer; }
  int pointer() const override { return pointer_; }

 private:
  std::map<std::string, Steps> steps_;
  int pointer_ = kPointerDefault;
};

}  // namespace cu::test
