#include "desktop/qt_front_end.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QDir>
#include <QEventLoop>
#include <QFileInfo>
#include <QMenu>
#include <QScreen>
#include <QShortcut>
#include <QTimer>
#include <QUrl>
#include <algorithm>
#include <utility>

#include "controls/form.h"
#include "controls/grid.h"
#include "controls/tabs.h"
#include "desktop/clear_style.h"
#include "desktop/first_size.h"
#include "desktop/foot.h"
#include "desktop/form_layout.h"
#include "desktop/form_window.h"
#include "desktop/guide_window.h"
#include "desktop/reading_windows.h"
#include "desktop/shell_views.h"
#include "desktop/text.h"
#include "desktop/window_memory.h"

namespace cu::desktop {
namespace {

constexpr qint64 kTellEvery = 80;  // milliseconds
constexpr int kTitleBar = 32;      // of a window, estimated
constexpr QSize kStagesSize(1040, 700);
constexpr int kSectionsWidth = 1080;
constexpr QSize kListSize(960, 620);

bool hasTabs(const Form& form) {
  return std::any_of(form.controls().begin(), form.controls().end(),
                     [](const Control* control) { return dynamic_cast<const Tabs*>(control) != nullptr; });
}

// A form whose content is a list: the list takes the space that there is.
bool isList(const Form& form) {
  return form.stages().empty() &&
         std::any_of(form.controls().begin(), form.controls().end(), [](const Control* control) {
           return control->frame() == nullptr && dynamic_cast<const Grid*>(control) != nullptr;
         });
}

}  // namespace

// Reports how long an event has run.
class QtFrontEnd::Timed {
 public:
  Timed(QtFrontEnd& frontEnd, const Form& form, const Control* control) : frontEnd_(frontEnd) {
    if (!frontEnd_.onPerformed) return;
    form_ = form.name();
    if (control != nullptr) control_ = control->name();
    since_ = frontEnd_.clock_.nsecsElapsed();
    waited_ = frontEnd_.waited_;
  }
  ~Timed() {
    if (form_.empty()) return;
    const qint64 ran = frontEnd_.clock_.nsecsElapsed() - since_ - (frontEnd_.waited_ - waited_);
    frontEnd_.onPerformed(
        form_, control_,
        std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::nanoseconds(ran)));
  }
  Timed(const Timed&) = delete;
  Timed& operator=(const Timed&) = delete;

 private:
  QtFrontEnd& frontEnd_;
  std::string form_;
  std::string control_;
  qint64 since_ = 0;
  qint64 waited_ = 0;
};

QtFrontEnd::QtFrontEnd(QString guide) : guide_(std::move(guide)) {
  shownAt_.start();
  clock_.start();
}

QtFrontEnd::~QtFrontEnd() {
  for (const Shown& each : shown_) {
    each.window->detach(true);
    delete each.window;
  }
  if (hourglass_) QApplication::restoreOverrideCursor();
}

QtFrontEnd::Waiting::Waiting(QtFrontEnd& frontEnd)
    : frontEnd_(frontEnd),
      running_(std::exchange(frontEnd.running_, 0)),
      asked_(frontEnd.askedToEnd()),
      questioned_(frontEnd.questioned_),
      begun_(frontEnd.status_.begun()),
      told_(frontEnd.status_.told()),
      since_(frontEnd.clock_.nsecsElapsed()),
      waited_(frontEnd.waited_) {
  frontEnd_.interruption_.reset();
  frontEnd_.dropInput();
  frontEnd_.showPointer();
  frontEnd_.restFeet();
}

QtFrontEnd::Waiting::~Waiting() {
  frontEnd_.running_ = running_;
  frontEnd_.interruptionAsked_ = asked_;
  frontEnd_.questioned_ = questioned_;
  // Events during the wait have had waits, and ends of works, of their own.
  frontEnd_.waited_ = waited_ + frontEnd_.clock_.nsecsElapsed() - since_;
  frontEnd_.status_.resume(begun_, told_);
  frontEnd_.showPointer();
}

int QtFrontEnd::run(QDialog& dialog) {
  const Waiting waiting(*this);
  addGuideKeys(&dialog, [&](const QString& chapter) { showGuide(&dialog, chapter); });
  const int result = dialog.exec();
  // A desktop returns the keyboard focus by itself; a system without a window manager does not.
  if (topmost() != nullptr) topmost()->activateWindow();
  return result;
}

// Nothing while an event runs: its state is not one to be looked at.
void QtFrontEnd::use(const OwnTool& tool) {
  if (busy()) return;
  const Waiting waiting(*this);
  tool.run(parentForDialog());
  if (topmost() != nullptr) topmost()->activateWindow();
}

int QtFrontEnd::run(QDialog& dialog, QWidget& typedInto) {
  ++running_;
  const bool open = showTakingKeys(dialog, typedInto);
  --running_;
  return open ? run(dialog) : dialog.result();
}

FormWindow* QtFrontEnd::window(const Form& form) const {
  for (const Shown& each : shown_) {
    if (each.form == &form) return each.window;
  }
  return nullptr;
}

FormWindow* QtFrontEnd::topmost() const { return shown_.empty() ? nullptr : shown_.back().window; }
QWidget* QtFrontEnd::parentForDialog() const { return topmost(); }

void QtFrontEnd::perform(Control& control, const Event& event) {
  Form& form = control.form();
  const Timed timed(*this, form, &control);
  begin();
  form.perform(control, event);
  goToMissing(form);
  --running_;
  endOfWork();
}

void QtFrontEnd::perform(Form& form, const Event& event) {
  const Timed timed(*this, form, nullptr);
  begin();
  form.perform(event);
  goToMissing(form);
  --running_;
  endOfWork();
}

void QtFrontEnd::begin() {
  if (running_++ > 0) return;
  status_.begin();
  missing_ = nullptr;
}

void QtFrontEnd::goToMissing(const Form& form) {
  Control* const missed = std::exchange(missing_, nullptr);
  if (!form.isOpen() || missed == nullptr || !missed->available()) return;
  runEvent([&] { missed->form().setFocus(missed); });
}

void QtFrontEnd::endOfWork() {
  if (running_ > 0) return;
  endInterruption();
  work_.clear();
  showPointer();
  if (dropInput() || factsShown_ != status_.told()) restFeet();
}

// Input during the work was meant for a screen that has changed. A window that opens during the work discards
// it at once: later it would also discard the release of the user's first click.
bool QtFrontEnd::dropInput() {
  if (!std::exchange(worked_, false)) return false;
  ++running_;
  drainInput();
  --running_;
  return true;
}

Keys QtFrontEnd::typedAhead() {
  worked_ = false;
  ++running_;
  Keys pressed = drainKeys();
  --running_;
  return pressed;
}

void QtFrontEnd::restFeet() {
  showBusy(false);
  factsShown_ = status_.told();
  for (const Shown& each : shown_) {
    if (each.window->foot() != nullptr) each.window->foot()->rest(status_);
  }
}

void QtFrontEnd::place(FormWindow& window, const FormWindow* over) const {
  const QScreen* const screen = over != nullptr ? over->screen() : window.screen();
  const QRect room = screen->availableGeometry();
  QSize size = window.sizeHint().expandedTo(window.minimumSizeHint());
  if (!window.form().stages().empty())
    size = {inLetters(kStagesSize.width()), inLetters(kStagesSize.height())};
  // Tabs are pages of sections, which are easier to read in rows of five than from top to bottom.
  if (hasTabs(window.form()) && !window.form().shrunk()) size.setWidth(inLetters(kSectionsWidth));
  if (isList(window.form()))
    size = size.expandedTo({inLetters(kListSize.width()), inLetters(kListSize.height())});
  // A form with many sections is as high as the screen permits, because it is read from top to bottom.
  if (window.form().scroll() != nullptr)
    size = {inLetters(kSectionsWidth), std::max(720, std::min(inLetters(1000), room.height() * 9 / 10))};
  size = size.boundedTo(room.size() - QSize(0, kTitleBar));
  window.resize(size);
  const QRect around = over != nullptr ? over->frameGeometry() : room;
  QRect place(QPoint(), size);
  place.moveCenter(around.center());
  place.moveLeft(std::clamp(place.left(), room.left(), std::max(room.left(), room.right() - size.width())));
  place.moveTop(std::clamp(place.top(), room.top(), std::max(room.top(), room.bottom() - size.height())));
  window.move(place.topLeft());
}

void QtFrontEnd::fit(FormWindow& window, const FormWindow* over) const {
  if (window.form().scroll() != nullptr || !window.form().stages().empty() || isList(window.form())) return;
  if (sizeRemembered(window)) return;
  const QRect room = window.screen()->availableGeometry();
  const int highest = room.height() - kTitleBar;
  const int middle = over == nullptr ? room.center().y() : over->frameGeometry().center().y();
  const auto fitThere = [&window, room, highest, middle] {
    fitHeight(window, highest);
    const int lowest = std::max(room.top(), room.bottom() - window.height());
    window.move(window.x(), std::clamp(middle - window.height() / 2, room.top(), lowest));
  };
  fitThere();
  // Where the content is higher than the screen, more of its fields are placed side by side.
  const int widest = std::min(inLetters(kSectionsWidth), room.width());
  if (window.height() < highest || window.width() >= widest) return;
  const int left = window.x() - (widest - window.width()) / 2;
  window.resize(widest, highest);
  window.move(std::clamp(left, room.left(), std::max(room.left(), room.right() - widest)), window.y());
  // The fields take their new places first.
  QTimer::singleShot(0, &window, fitThere);
}

void QtFrontEnd::show(Form& form) {
  auto* const window = new FormWindow(*this, form, nullptr);
  shown_.push_back({&form, window, nullptr});
  place(*window, nullptr);
  window->show();
}

void QtFrontEnd::showModal(Form& form) {
  FormWindow* const below = topmost();
  auto* const window = new FormWindow(*this, form, below);
  window->setWindowModality(Qt::ApplicationModal);
  QEventLoop loop;
  // cppcheck-suppress danglingLifetime ; reset before the loop is destroyed
  shown_.push_back({&form, window, &loop});
  if (below != nullptr) below->afterEvent();
  place(*window, below);
  window->show();
  fit(*window, below);
  window->activateWindow();
  {
    const Waiting waiting(*this);
    loop.exec();
  }
  // The program may be quitting with the form still open.
  for (Shown& each : shown_) {
    if (each.loop == &loop) each.loop = nullptr;
  }
  if (below != nullptr) below->activateWindow();
}

void QtFrontEnd::closed(Form& form) {
  const auto found =
      std::find_if(shown_.begin(), shown_.end(), [&](const Shown& each) { return each.form == &form; });
  if (found == shown_.end()) return;
  const Shown gone = *found;
  shown_.erase(found);
  ++closed_;
  missing_ = nullptr;
  // A form destroyed while it is open destroys its controls before it reports its closing.
  gone.window->detach(!form.isOpen());
  gone.window->hide();
  gone.window->deleteLater();
  if (gone.loop != nullptr) gone.loop->quit();
  if (shown_.empty() && onAllClosed) onAllClosed();
}

void QtFrontEnd::popup(MenuBar& bar, const std::string& band) {
  QMenu menu(topmost());
  std::string chosen;
  fillMenu(menu, bar, band, [&](const std::string& key) { chosen = key; });
  {
    const Waiting waiting(*this);
    menu.exec(QCursor::pos());
  }
  if (!chosen.empty()) runEvent([&] { bar.click(chosen); });
}

void QtFrontEnd::help(const std::string&, int, std::int32_t) { showGuide(); }

void QtFrontEnd::showGuide(QWidget* over, QString chapter) {
  const FormWindow* const top = topmost();
  if (chapter.isEmpty() && over != nullptr) chapter = over->property(kGuideChapter).toString();
  if (chapter.isEmpty() && top != nullptr && top->live()) chapter = shown(top->form().guideChapter());
  openGuide(helpWindow_, over != nullptr ? over : parentForDialog(), guide_, chapter);
}

void QtFrontEnd::open(const std::string& path, const std::string& folder) {
  const QFileInfo named(shown(path));
  const QString whole = named.isRelative() && !folder.empty() ? QDir(shown(folder)).filePath(shown(path))
                                                              : named.absoluteFilePath();
  QDesktopServices::openUrl(QUrl::fromLocalFile(whole));
}

void QtFrontEnd::viewText(const std::string& path) { (new TextWindow(topmost(), shown(path)))->show(); }
void QtFrontEnd::printed(const PrintNote& note) { status_.print(note); }
void QtFrontEnd::told(const std::string& fact) { status_.tell(shown(fact)); }

void QtFrontEnd::toldAfter(const std::string& fact) {
  told(fact);
  restFeet();
}

void QtFrontEnd::toldAnew(const std::string& fact) {
  status_.begin();
  toldAfter(fact);
}

void QtFrontEnd::offer(Offer offer) { status_.offer(std::move(offer)); }

void QtFrontEnd::forgetFacts() {
  status_.begin();
  stageEntered();
}

void QtFrontEnd::stageEntered() {
  status_.work();
  restFeet();
}

void QtFrontEnd::showMade(const QString& path) {
  // A printed form is a PDF with the extension .cur, for which the desktop has no program.
  if (!path.endsWith(QStringLiteral(".cur"))) {
    open(utf8(path), {});
    return;
  }
  preview({utf8(QFileInfo(path).fileName()), {}, utf8(path)});
}

void QtFrontEnd::beep() { QApplication::beep(); }

void QtFrontEnd::setPointer(int pointer) {
  pointer_ = pointer;
  if (pointer == kPointerHourglass) worked_ = true;
  showPointer();
}

// While the system waits for the user the pointer is an arrow, whatever the running work has set.
void QtFrontEnd::showPointer() {
  const bool wanted = pointer_ == kPointerHourglass && running_ > 0;
  if (wanted == hourglass_) return;
  hourglass_ = wanted;
  if (wanted) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

void QtFrontEnd::progress(const char* what, std::size_t done, std::size_t total) {
  worked_ = true;
  status_.work();
  const QString work = QString::fromUtf8(what);
  pace_.note(work, done, total, clock_.elapsed());
  // The phases of a work that goes on asking have one offer: the button neither blinks nor loses a click.
  if (!std::exchange(questioned_, false)) endInterruption();
  const bool same = std::exchange(work_, work) == work;
  if (same && done > 0 && done < total && shownAt_.elapsed() < kTellEvery) return;
  shownAt_.restart();
  const auto remaining = pace_.remaining();
  showBusy(true);
  for (const Shown& each : shown_) {
    if (each.window->foot() == nullptr) continue;
    each.window->foot()->tell(work, done, total, remaining ? remainingText(*remaining) : QString());
  }
  paintMeanwhile();
}

// Other input than the interruption's waits for the end of the work, which discards it.
void QtFrontEnd::paintMeanwhile() {
  QCoreApplication::processEvents(interruption_ == nullptr ? QEventLoop::ExcludeUserInputEvents
                                                           : QEventLoop::AllEvents);
}

bool QtFrontEnd::askedToEnd() const {
  return interruptionAsked_ || (interruption_ != nullptr && interruption_->asked());
}

void QtFrontEnd::endInterruption() {
  interruption_.reset();
  interruptionAsked_ = false;
  questioned_ = false;
}

bool QtFrontEnd::interrupted() {
  if (running_ == 0) return false;
  questioned_ = true;
  if (askedToEnd()) return true;
  if (interruption_ == nullptr) {
    QPushButton* button = nullptr;
    for (const Shown& each : shown_) {
      if (each.window->foot() != nullptr) button = each.window->foot()->interruption();
    }
    // What was pressed before was not an answer to this offer.
    drainInput();
    interruption_ = std::make_unique<Interruption>(button);
    paintMeanwhile();
  }
  return askedToEnd();
}

}  // namespace cu::desktop
