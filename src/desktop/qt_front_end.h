#pragma once

#include <QElapsedTimer>
#include <QPointer>
#include <QString>
#include <chrono>
#include <functional>
#include <memory>
#include <vector>

#include "controls/control.h"
#include "controls/frontend.h"
#include "controls/further_columns.h"
#include "controls/row_keys.h"
#include "desktop/input_drain.h"
#include "desktop/interruption.h"
#include "desktop/pace.h"
#include "desktop/status.h"

class QDialog;
class QEventLoop;
class QWidget;

namespace cu::desktop {

class FormWindow;
class HelpWindow;

// The property of an error box that has the error's number.
inline constexpr const char* kErrorNumber = "errorNumber";

// The window system as the wizard's front end. It requires a QApplication and lives as long as forms are
// shown.
class QtFrontEnd : public FrontEnd {
 public:
  // `guide` is the folder of the user's guide, which contains "guida.md".
  explicit QtFrontEnd(QString guide = {});
  ~QtFrontEnd() override;

  // What the window offers beside the form, in a menu of its own: `run` is given the window.
  struct OwnTool {
    QString caption;
    std::function<void(QWidget* window)> run;
  };
  std::vector<OwnTool> ownTools;
  void use(const OwnTool& tool);
  // Makes what is shown below the forecast of the main action; none without it.
  std::function<QWidget*(QWidget* parent)> belowOutlook;

  // Called when the last form has been closed.
  std::function<void()> onAllClosed;
  // Of the search lists; empty where there are none.
  FurtherColumnsOf furtherColumns;
  FurtherColumns further(const LookupTable& table) const {
    return furtherColumns ? furtherColumns(table) : FurtherColumns();
  }
  // Of the states of a grid's rows that other tables determine; empty where there are none.
  RowKeysOf rowKeys;
  // Called after a user event, with the names of its form and control, and the time for which it ran without
  // waiting for the user.
  std::function<void(const std::string& form, const std::string& control, std::chrono::microseconds)>
      onPerformed;
  bool anyOpen() const { return !shown_.empty(); }
  std::size_t formsClosed() const { return closed_; }  // so far
  FormWindow* window(const Form& form) const;
  FormWindow* topmost() const;

  // A user event, processed by the form's focus rule. While it runs, no other event is accepted.
  void perform(Control& control, const Event& event);
  void perform(Form& form, const Event& event);
  // An event is running that does not wait for the user: no other is accepted.
  bool busy() const { return running_ > 0; }

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
  int pointer() const override { return pointer_; }
  void progress(const char* what, std::size_t done, std::size_t total) override;
  bool interrupted() override;
  void told(const std::string& fact) override;
  // Reports a fact that was found after its event.
  void toldAfter(const std::string& fact);
  // The same, of something that the user has just done: in place of all earlier facts.
  void toldAnew(const std::string& fact);
  // What the status line offers to open after the running event, until its facts are replaced.
  void offer(Offer offer);
  void forgetFacts();
  void missing(Control& control) override { missing_ = &control; }
  // Shows a file that was made, or a folder.
  void showMade(const QString& path);
  // Shows the user's guide at a chapter, otherwise at that of the present screen; over a dialog, where one is
  // open.
  void showGuide(QWidget* over = nullptr, QString chapter = {});

  // Another step is on screen: facts reported before the event that led there are cleared.
  void stageEntered();

  // During its lifetime the system waits for the user: events are accepted, the pointer is an arrow.
  class Waiting {
   public:
    explicit Waiting(QtFrontEnd& frontEnd);
    ~Waiting();
    Waiting(const Waiting&) = delete;
    Waiting& operator=(const Waiting&) = delete;

   private:
    QtFrontEnd& frontEnd_;
    int running_;
    bool asked_;  // for the end of the work
    bool questioned_;
    bool begun_;
    std::size_t told_;
    qint64 since_;
    qint64 waited_;
  };
  int run(QDialog& dialog);                      // modal
  int run(QDialog& dialog, QWidget& typedInto);  // the same, with a box that receives typing at once
  // The keys pressed while a window that receives typing at once was being opened.
  Keys typedAhead();
  QWidget* parentForDialog() const;
  // Ask the user for confirmation where closing the form, or an event, would discard data.
  bool mayClose(const Form& form);
  bool mayDrop(const Form& form, const std::string& lost);

 private:
  class Timed;
  struct Shown {
    Form* form;
    FormWindow* window;
    QEventLoop* loop;
  };
  bool mayLose(const Form& form, const std::string& lost, const char* explanation, const char* onCaption);
  void place(FormWindow& window, const FormWindow* over) const;
  void fit(FormWindow& window, const FormWindow* over) const;
  void begin();
  void goToMissing(const Form& form);
  void showPointer();
  void endOfWork();
  bool dropInput();  // returns whether there had been work
  void restFeet();
  void paintMeanwhile();
  bool askedToEnd() const;
  void endInterruption();

  QString guide_;
  QPointer<HelpWindow> helpWindow_;
  std::vector<Shown> shown_;
  std::size_t closed_ = 0;
  int running_ = 0;
  int pointer_ = kPointerDefault;
  bool hourglass_ = false;  // as shown on the screen
  bool worked_ = false;     // the hourglass was on during the running event
  QElapsedTimer shownAt_;
  QElapsedTimer clock_;
  qint64 waited_ = 0;  // nanoseconds in which the system waited for the user
  Pace pace_;
  QString work_;  // as reported last
  std::unique_ptr<Interruption> interruption_;
  bool interruptionAsked_ = false;  // before a box interrupted the work itself
  bool questioned_ = false;         // since the last report of progress
  Status status_;
  std::size_t factsShown_ = 0;
  Control* missing_ = nullptr;  // of the running event
};

}  // namespace cu::desktop
