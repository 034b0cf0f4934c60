#pragma once

#include <QApplication>
#include <QTemporaryDir>
#include <QTimer>
#include <QWidget>
#include <deque>
#include <functional>
#include <memory>
#include <string>

#include "apps/comune/impianto.h"
#include "desktop/form_window.h"
#include "desktop/qt_front_end.h"
#include "suite/profilo.h"

namespace cu::test {

// The wizard in its window on a demonstration database of its own: user 12, company 1, 5 March 2017.
class Screen {
 public:
  // `before` is called before any form is shown.
  using Before = std::function<void(desktop::QtFrontEnd& screen, const Profilo& profile)>;
  explicit Screen(std::int32_t mode = 247, Profilo::MotoreStampa engine = Profilo::MotoreStampa::Registro,
                  const Before& before = {});
  ~Screen();
  // Copies the database to the folder; returns its address.
  static QString freshDatabase(const QTemporaryDir& folder);

  FrmWizard& form() { return *impianto_->programma().wizard(); }
  desktop::QtFrontEnd& frontEnd() { return screen_; }
  desktop::FormWindow& window() { return *screen_.window(form()); }
  desktop::FormWindow* top() { return screen_.topmost(); }
  const Profilo& profile() const { return profile_; }
  QString documents() const { return folder_.filePath(QStringLiteral("documenti")); }

  // A widget of the topmost form by the name of its control.
  template <class W = QWidget>
  W* find(const char* name) {
    return top()->findChild<W*>(QString::fromLatin1(name));
  }
  void click(const char* name);
  void type(const char* name, const char* text);  // selects all and types
  void choose(const char* list, const char* text);
  void key(Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier);  // at the focus
  const Control* focus() { return top()->form().focus(); }

  // The actions for the next modal windows, in order; each runs as soon as its window is shown.
  void whenModal(std::function<void(QWidget& modal)> act);
  bool allAnswered() const { return modals_.empty(); }
  void forgetModals() { modals_.clear(); }

  // Goes to the grid of a year, and to the last step.
  void toTelematicFile(const char* year = "2016");
  void toGrid(const char* year = "2016");
  void toEnd();
  // Opens the first line of a year and runs `act` in its editor, which is then closed if it is still open.
  void inEditor(const char* year, const std::function<void()>& act);

 private:
  void watch();

  QTemporaryDir folder_;
  Profilo profile_;
  desktop::QtFrontEnd screen_{QStringLiteral(CU_GUIDA)};
  std::unique_ptr<Impianto> impianto_;
  std::deque<std::function<void(QWidget&)>> modals_;
  std::unique_ptr<QObject> watcher_;  // stops the watch when destroyed
  QWidget* answering_ = nullptr;
};

void pressButton(QWidget& modal, const char* caption);  // by its caption without mnemonic
QString boxText(QWidget& modal);
void typeText(QWidget& widget, const QString& text);  // letters of any alphabet
void settle();                                        // processes queued events

}  // namespace cu::test
