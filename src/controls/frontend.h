#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/error.h"
#include "base/value.h"
#include "controls/utility.h"
#include "host/filesystem.h"
#include "host/progress.h"

namespace cu {

class Control;
class Form;
class MenuBar;

enum class BoxButtons { Ok, OkCancel, YesNo, YesNoCancel };
enum class Answer { Ok = 1, Cancel = 2, Yes = 6, No = 7 };

struct MessageBox {
  std::string text;  // lines joined by "\r\n"
  std::string title;
  BoxIcon icon = BoxIcon::None;
  BoxButtons buttons = BoxButtons::Ok;
  Answer byDefault = Answer::Ok;
};

// A read-only table for the user: the log of missing data, or another one with a title and a sentence above.
struct LogTable {
  std::vector<std::string> columns;
  std::vector<std::vector<Value>> rows;
  std::string title = {};
  std::string head = {};
};

// A preview of a report: the text of each page, and the file with the pages, which is deleted when the
// preview has been closed.
struct Preview {
  std::string title;
  std::vector<std::string> pages;
  std::string file;   // a PDF; empty where no layout was made
  bool whole = true;  // false where the user has interrupted the layout: these are its first pages
};

struct PrinterChoice {
  std::string printer;
  int copies = 1;
};

// A print that was made, that failed, or that was only recorded because the profile requires it.
struct PrintNote {
  int kind = 0;             // output kind, 1 to 6
  std::optional<int> code;  // code of run(); none for the kinds 1 and 2
  std::string report;
  std::string formula;
  std::string file;  // full path; empty for a preview and for a printer
  std::string printer;
  int copies = 0;
  bool written = false;      // the file, or the printer's job, is complete
  bool interrupted = false;  // by the user, who knows why it is not written
};

// The user interface: a window system, a program that drives the wizard, or a script of a test. Every modal
// call returns when the box or form has been closed.
class FrontEnd : public ProgressSink, public TextViewer {
 public:
  virtual void show(Form& form) = 0;
  virtual void showModal(Form& form) = 0;
  // The form has been closed, or is hidden; its controls may have been destroyed already.
  virtual void closed(Form& form) = 0;

  virtual Answer messageBox(const MessageBox& box) = 0;
  virtual void error(const Error& error) = 0;  // an error that no handler caught
  // Returns the folder chosen, "" for none.
  virtual std::string chooseFolder(const std::string& title, const std::optional<std::string>& start) = 0;
  virtual std::optional<PrinterChoice> choosePrinter() = 0;
  virtual std::optional<std::string> chooseFileToSave(const std::string& title, const std::string& start,
                                                      const std::string& filter) = 0;
  virtual void showLog(const LogTable& log) = 0;
  virtual void preview(const Preview& preview) = 0;
  virtual void popup(MenuBar& bar, const std::string& band) = 0;

  virtual void help(const std::string& file, int command, std::int32_t context) = 0;
  virtual void open(const std::string& path, const std::string& folder) = 0;  // the desktop's "open"
  virtual void printed(const PrintNote& note) = 0;
  virtual void beep() = 0;
  virtual int pointer() const = 0;
  // Reports a fact of the running event in one sentence, such as a number of rows changed. A window shows the
  // facts of an event in its status line when the event has ended.
  virtual void told(const std::string& /*fact*/) {}
  // Reports that a step was rejected because this control is empty. A window gives it the focus when the
  // event has ended.
  virtual void missing(Control& /*control*/) {}

  // Runs a user event; an error that no handler caught is shown in one box.
  void runEvent(const std::function<void()>& event);
};

}  // namespace cu
