#pragma once

#include <functional>
#include <istream>
#include <memory>
#include <ostream>

#include "automation/run_context.h"
#include "controls/frontend.h"

namespace cu {

class Conversation;

// The wizard without a screen: another program sends the user's actions as lines of JSON, and receives what
// the user would see.
class Driver : public FrontEnd {
 public:
  Driver(std::istream& in, std::ostream& out);
  ~Driver() override;
  void setRunContext(ReadRunContext read);

  enum class Outcome { Ended, EntryFailed, InputEnded };
  // Runs the entry, then commands until no form is open, and writes the last line. An error that leaves the
  // entry is shown in a box, which ends the run. The end of the input unloads all open forms, at any point.
  Outcome drive(const std::function<void()>& entry);

  void show(Form& form) override;
  void showModal(Form& form) override;
  void closed(Form& form) override;
  Answer messageBox(const MessageBox& box) override;
  void error(const Error& error) override;
  std::string chooseFolder(const std::string& title, const std::optional<std::string>& start) override;
  std::optional<PrinterChoice> choosePrinter() override;
  std::optional<std::string> chooseFileToSave(const std::string& title, const std::string& start,
                                              const std::string& filter) override;
  void showLog(const LogTable& log) override;
  void preview(const Preview& preview) override;
  void popup(MenuBar& bar, const std::string& band) override;
  void help(const std::string& file, int command, std::int32_t context) override;
  void open(const std::string& path, const std::string& folder) override;
  void viewText(const std::string& path) override;
  void printed(const PrintNote& note) override;
  void beep() override;
  void setPointer(int pointer) override;
  int pointer() const override;

 private:
  Outcome enter(const std::function<void()>& entry);
  void unloadAll();

  std::unique_ptr<Conversation> conversation_;
};

}  // namespace cu
