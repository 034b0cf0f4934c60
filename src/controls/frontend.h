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

// A table to be read and closed: the log of what is missing.
struct LogTable {
  std::vector<std::string> columns;
  std::vector<std::vector<Value>> rows;
};

// A report laid out, to be looked at: the text of each page, and the file that shows them, which goes when
// the preview has been closed.
struct Preview {
  std::string title;
  std::vector<std::string> pages;
  std::string file;  // a PDF; empty where nothing was laid out
};

struct PrinterChoice {
  std::string printer;
  int copies = 1;
};

// A print that was made, that failed, or that the profile has recorded instead of laid out.
struct PrintNote {
  int kind = 0;             // output kind, 1 to 6
  std::optional<int> code;  // of a run; none for the kinds 1 and 2
  std::string report;
  std::string formula;
  std::string file;  // full path; empty for a preview and for a printer
  std::string printer;
  int copies = 0;
  bool written = false;  // the file, or the printer's job, stands as it was asked for
};

// The screen, or what stands for it: a window system, a program that drives the wizard, or a test's script.
// Everything modal returns when it has been closed.
class FrontEnd : public ProgressSink, public TextViewer {
 public:
  virtual void show(Form& form) = 0;
  virtual void showModal(Form& form) = 0;
  // The form has gone, or hides itself; its controls may be gone already.
  virtual void closed(Form& form) = 0;

  virtual Answer messageBox(const MessageBox& box) = 0;
  virtual void error(const Error& error) = 0;  // one that nothing caught
  // The folder chosen, "" for none.
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
  // A fact of the running event in one sentence, such as a number of rows changed. A window shows the facts
  // of an event in its status line when the event has ended.
  virtual void told(const std::string& /*fact*/) {}
  // A step was refused because this control holds nothing. A window gives it the focus when the event has
  // ended.
  virtual void missing(Control& /*control*/) {}

  // Runs a person's event: an error that no handler caught ends here, in one box.
  void runEvent(const std::function<void()>& event);
};

}  // namespace cu
