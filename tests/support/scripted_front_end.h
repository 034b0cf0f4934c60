#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "controls/form.h"
#include "controls/frontend.h"

namespace cu::test {

// Records the calls, in order, and answers as prepared by the test: boxes from `answers` (OK or Yes when it
// is empty), modal forms by the scripts in `modals`, dialogs from their queues (cancelled when empty).
class ScriptedFrontEnd : public FrontEnd {
 public:
  struct ErrorBox {
    int number;
    std::string text;
  };
  struct Opened {
    std::string path;
    std::string folder;
  };
  struct Help {
    std::string file;
    int command;
    std::int32_t context;
  };
  struct FolderAsked {
    std::string title;
    std::optional<std::string> start;
  };
  using Script = std::function<void(Form& form)>;

  std::vector<MessageBox> boxes;
  std::deque<Answer> answers;
  std::vector<ErrorBox> errors;
  std::vector<std::string> shown;  // names of the forms, in order of opening
  std::deque<Script> modals;
  std::vector<FolderAsked> foldersAsked;
  std::deque<std::string> folders;
  std::deque<std::optional<PrinterChoice>> printers;
  std::deque<std::optional<std::string>> savedFiles;
  std::vector<LogTable> logs;
  std::vector<std::vector<std::string>> previews;
  int partialPreviews = 0;  // of them
  std::vector<std::string> popups;
  std::vector<Help> helps;
  std::vector<Opened> opened;
  std::vector<std::string> viewed;
  std::vector<PrintNote> prints;
  std::vector<std::string> facts;
  std::vector<std::string> missed;  // names of the empty controls reported
  std::vector<std::string> works;   // long operations reported, each once
  struct Progress {
    std::string what;
    std::size_t done;
    std::size_t total;
  };
  std::vector<Progress> progresses;  // every report
  std::function<bool()> interrupts;  // answers whether the running operation is to end
  int beeps = 0;
  std::vector<int> pointers;  // every setting
  std::vector<std::string>
      seen;  // boxes, modal forms and long operations, each with the pointer at that moment

  void show(Form& form) override { shown.push_back(form.name()); }
  void showModal(Form& form) override {
    shown.push_back(form.name());
    see(form.name());
    if (modals.empty()) {
      form.unload();
      return;
    }
    const Script script = take(modals);
    script(form);
    if (form.isOpen()) form.unload();
  }
  void closed(Form&) override {}
  cu::Answer messageBox(const MessageBox& box) override {
    boxes.push_back(box);
    see("box");
    if (!answers.empty()) return take(answers);
    switch (box.buttons) {
      case BoxButtons::Ok:
      case BoxButtons::OkCancel:
        return cu::Answer::Ok;
      case BoxButtons::YesNo:
      case BoxButtons::YesNoCancel:
        return cu::Answer::Yes;
    }
    return cu::Answer::Ok;
  }
  void error(const Error& error) override { errors.push_back({error.number(), error.description()}); }
  std::string chooseFolder(const std::string& title, const std::optional<std::string>& start) override {
    foldersAsked.push_back({title, start});
    return folders.empty() ? std::string() : take(folders);
  }
  std::optional<PrinterChoice> choosePrinter() override {
    return printers.empty() ? std::nullopt : take(printers);
  }
  std::optional<std::string> chooseFileToSave(const std::string&, const std::string&,
                                              const std::string&) override {
    return savedFiles.empty() ? std::nullopt : take(savedFiles);
  }
  void showLog(const LogTable& log) override { logs.push_back(log); }
  void preview(const Preview& preview) override {
    previews.push_back(preview.pages);
    if (!preview.whole) ++partialPreviews;
  }
  void popup(MenuBar&, const std::string& band) override { popups.push_back(band); }
  void help(const std::string& file, int command, std::int32_t context) override {
    helps.push_back({file, command, context});
  }
  void open(const std::string& path, const std::string& folder) override { opened.push_back({path, folder}); }
  void viewText(const std::string& path) override { viewed.push_back(path); }
  void printed(const PrintNote& note) override { prints.push_back(note); }
  void beep() override { ++beeps; }
  void setPointer(int pointer) override { pointers.push_back(pointer); }
  void progress(const char* what, std::size_t done, std::size_t total) override {
    progresses.push_back({what, done, total});
    if (works.empty() || works.back() != what) works.emplace_back(what);
    see(what);
  }
  bool interrupted() override { return interrupts && interrupts(); }
  void told(const std::string& fact) override { facts.push_back(fact); }
  void missing(Control& control) override { missed.push_back(control.name()); }
  int pointer() const override { return pointers.empty() ? kPointerDefault : pointers.back(); }

  std::vector<std::string> boxTexts() const {
    std::vector<std::string> texts;
    for (const MessageBox& box : boxes) texts.push_back(box.text);
    return texts;
  }

 private:
  void see(const std::string& what) {
    const std::string now = what + " " + std::to_string(pointer());
    if (seen.empty() || seen.back() != now) seen.push_back(now);
  }
  template <class T>
  static T take(std::deque<T>& queue) {
    T front = std::move(queue.front());
    queue.pop_front();
    return front;
  }
};

}  // namespace cu::test
