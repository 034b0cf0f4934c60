#include "desktop/form_window.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QKeyEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QTimer>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

#include "controls/grid.h"
#include "desktop/focus_ring.h"
#include "desktop/form_layout.h"
#include "desktop/guide_window.h"
#include "desktop/keys.h"
#include "desktop/qt_front_end.h"
#include "desktop/text.h"
#include "desktop/view_factory.h"

namespace cu::desktop {
namespace {

constexpr int kNotch = 120;  // of a mouse wheel
constexpr int kF1 = 112;
constexpr int kShift = 1;
constexpr int kControl = 2;

QScrollArea* areaAround(const QWidget* widget) {
  for (QWidget* at = widget->parentWidget(); at != nullptr; at = at->parentWidget()) {
    if (auto* area = qobject_cast<QScrollArea*>(at)) return area;
  }
  return nullptr;
}

// Of rows that are higher than what is seen of the page, the first are in view.
void bringIntoView(QScrollArea& area, QWidget& widget) {
  constexpr int kAside = 24;
  constexpr int kAbove = 40;
  area.ensureWidgetVisible(&widget, kAside, kAbove);
  const bool rows = qobject_cast<QAbstractItemView*>(&widget) != nullptr;
  if (!rows || widget.height() <= area.viewport()->height()) return;
  area.verticalScrollBar()->setValue(widget.mapTo(area.widget(), QPoint()).y());
}

const Frame* stageOf(const Form& form) {
  for (const Frame* stage : form.stages()) {
    if (stage->onStage()) return stage;
  }
  return nullptr;
}

// The option that is on, among the options of the focused option's frame; null where there is none.
Control* optionOn(const Form& form) {
  const auto* const focus = dynamic_cast<const Option*>(form.focus());
  if (focus == nullptr) return nullptr;
  const std::vector<Option*> options = focus->group();
  const auto on =
      std::find_if(options.begin(), options.end(), [](const Option* option) { return option->value(); });
  return on == options.end() ? nullptr : *on;
}

}  // namespace

FormWindow::FormWindow(QtFrontEnd& frontEnd, Form& form, QWidget* parent)
    : QWidget(parent, parent == nullptr ? Qt::Window : Qt::Dialog), frontEnd_(frontEnd), form_(&form) {
  setObjectName(shown(form.name()));
  layOut(*this);
  for (const auto& view : views_) view->refreshAll();
  orderTabs();
  new FocusRing(this);
  stageShown_ = stageOf(form);
  form.attach([this] { formChanged(); });
  formChanged();
}

FormWindow::~FormWindow() = default;

void FormWindow::detach(bool alive) {
  if (form_ == nullptr) return;
  if (alive) {
    form_->attach({});
    for (Control* control : form_->controls()) control->attach(nullptr);
  }
  for (const auto& view : views_) view->detach();
  form_ = nullptr;
}

View* FormWindow::view(const Control& control) const {
  const auto found = byControl_.find(&control);
  return found == byControl_.end() ? nullptr : found->second;
}

View& FormWindow::make(Control& control, QWidget* parent) {
  views_.push_back(makeView(*this, control, parent));
  View& made = *views_.back();
  byControl_[&control] = &made;
  control.attach(&made);
  made.widget()->setObjectName(shown(control.name()));
  for (QWidget* taker : made.focusWidgets()) {
    byWidget_[taker] = &made;
    taker->installEventFilter(this);
  }
  return made;
}

void FormWindow::addExtra(QWidget* extra, const Control& before) {
  extras_.emplace(&before, extra);
  extra->installEventFilter(this);
}

void FormWindow::orderTabs() {
  QWidget* last = nullptr;
  const auto append = [&](QWidget* widget) {
    if (last != nullptr) setTabOrder(last, widget);
    last = widget;
  };
  for (const Control* control : form_->controls()) {
    const auto [first, end] = extras_.equal_range(control);
    for (auto extra = first; extra != end; ++extra) append(extra->second);
    const View* const shownBy = view(*control);
    if (shownBy == nullptr) continue;
    for (QWidget* taker : shownBy->focusWidgets()) append(taker);
  }
}

void FormWindow::act(Control& control, const Event& event) {
  if (!live() || frontEnd_.busy()) return;
  frontEnd_.perform(control, event);
  afterEvent();
  runNext();
}

void FormWindow::act(const Event& event) {
  if (!live() || frontEnd_.busy()) return;
  frontEnd_.perform(*form_, event);
  afterEvent();
  runNext();
}

// What runs next may ask for a further one: a loop, so that the number of rows has no limit.
void FormWindow::runNext() {
  if (runningNext_) return;
  runningNext_ = true;
  while (next_ && live() && !frontEnd_.busy()) std::exchange(next_, {})();
  runningNext_ = false;
}

void FormWindow::afterEvent() {
  if (!live()) return;
  for (const auto& view : views_) {
    view->afterEvent();
    view->refreshMark();
  }
  for (const auto& refresh : refreshers_) refresh();
  syncFocus();
  if (!frontEnd_.busy()) enterStage();
}

// On a new stage the focus is where the work begins, and never on an option that is off: the next Space would
// select it.
void FormWindow::enterStage() {
  const Frame* const stage = stageOf(*form_);
  if (std::exchange(stageShown_, stage) == stage) return;
  frontEnd_.stageEntered();
  Control* start = form_->stageStart();
  if (start == nullptr) start = optionOn(*form_);
  if (start != nullptr && start->available() && form_->focus() != start) act(*start, {});
}

void FormWindow::formChanged() {
  if (!live()) return;
  setWindowTitle(titled(form_->caption()));
  if (!frontEnd_.busy()) {
    for (const auto& refresh : refreshers_) refresh();
  }
  syncFocus();
  syncScroll();
  showShrunk(*this);
}

// Sets the window's focus to the form's.
void FormWindow::syncFocus() {
  const Control* const wanted = form_->focus();
  QWidget* const has = focusWidget();
  const auto showing = byWidget_.find(has);
  // A field that belongs to the window only keeps the keyboard until the form's focus changes.
  const bool same = std::exchange(focusShown_, wanted) == wanted;
  if (same && has != nullptr && showing == byWidget_.end()) return;
  if (wanted == nullptr) {
    if (has != nullptr && showing != byWidget_.end()) has->clearFocus();
    return;
  }
  View* const target = view(*wanted);
  if (target == nullptr || (showing != byWidget_.end() && showing->second == target)) return;
  const QList<QWidget*> takers = target->focusWidgets();
  if (takers.isEmpty()) return;
  syncingFocus_ = true;
  takers.first()->setFocus(Qt::OtherFocusReason);
  syncingFocus_ = false;
}

// Sets the form's focus to the window's.
void FormWindow::takeFocus(View& taken, QWidget* widget) {
  if (QScrollArea* const area = areaAround(widget)) bringIntoView(*area, *widget);
  if (syncingFocus_ || !live() || frontEnd_.busy() || !taken.live()) return;
  for (Control* control : form_->controls()) {
    if (view(*control) != &taken || form_->focus() == control) continue;
    act(*control, {});
    return;
  }
}

// Called when the keyboard focus leaves a widget. If it moves to another control, the focus rule commits the
// typed text; otherwise the form's focus does not change, and the text is committed here.
void FormWindow::keyboardGone(View& left) {
  if (frontEnd_.busy()) return;
  const auto next = byWidget_.find(QApplication::focusWidget());
  if (next != byWidget_.end() && next->second != &left) return;
  frontEnd_.perform(*form_, [&left] { left.commit(); });
}

bool FormWindow::key(QKeyEvent* event) {
  const FormKey pressed = formKey(*event);
  if (pressed.code == 0 || pressed.code == 9) return false;
  const auto at = byWidget_.find(focusWidget());
  if (at != byWidget_.end()) takeFocus(*at->second, focusWidget());
  if (!live()) return true;
  const auto showing = byWidget_.find(focusWidget());
  View* const view = showing == byWidget_.end() ? nullptr : showing->second;
  if (pressed.code == 27 && view != nullptr && view->takeBack()) return true;
  // The view handles a key in its own field, except the keys of the whole form.
  Control* const focus = view == nullptr ? nullptr : form_->focus();
  const bool enter = pressed.code == 13;
  if (enter && view != nullptr) act([view] { view->commit(); });
  if (!live()) return true;
  bool consumed = false;
  if (dynamic_cast<Grid*>(focus) != nullptr) {
    consumed = view->keyDown(pressed.code, pressed.shift);
    if (!consumed && pressed.code == 27) return cancel();
  } else {
    // Enter presses the focused button, otherwise the default one.
    Form& form = *form_;
    auto* const button = dynamic_cast<Button*>(focus);
    Button* const byEnter = button != nullptr ? button : form.defaultButton;
    act([&] { consumed = form.keyDown(pressed.code, pressed.shift, byEnter); });
    consumed = consumed || enter || pressed.code == 27;
  }
  if (!consumed && live() && pressed.code == kF1 && (pressed.shift & ~(kShift | kControl)) == 0) {
    const bool keys = (pressed.shift & kControl) != 0;
    frontEnd_.showGuide(nullptr, keys ? QString::fromUtf8(kKeysChapter) : QString());
    return true;
  }
  return consumed || !live();
}

// Esc in a grid, which handles its other keys itself. Returns false where the form has no button for it.
bool FormWindow::cancel() {
  if (!live() || form_->cancelButton == nullptr || !form_->cancelButton->available()) return !live();
  Button& button = *form_->cancelButton;
  act(button, [&button] { button.click(); });
  return true;
}

bool FormWindow::isExtra(const QObject* watched) const {
  return std::any_of(extras_.begin(), extras_.end(),
                     [watched](const auto& extra) { return extra.second == watched; });
}

bool FormWindow::wheel(QWheelEvent* event) {
  if (!live() || form_->scroll() == nullptr) return false;
  wheelRest_ += event->angleDelta().y();
  while (std::abs(wheelRest_) >= kNotch && live()) {
    const int notch = wheelRest_ > 0 ? kNotch : -kNotch;
    wheelRest_ -= notch;
    Form& form = *form_;
    act([&] { form.wheel(notch); });
  }
  event->accept();
  return true;
}

void FormWindow::addScrollArea(QScrollArea* area) {
  scrollAreas_.push_back(area);
  area->viewport()->installEventFilter(this);
  connect(area->verticalScrollBar(), &QScrollBar::actionTriggered, this,
          [this, area] { QTimer::singleShot(0, this, [this, area] { barMoved(area); }); });
  connect(area->verticalScrollBar(), &QScrollBar::rangeChanged, this, [this] {
    scrollShown_ = -1;
    if (live()) syncScroll();
  });
}

// The form's scroll bar has few steps, the one on the screen many: only a change of the form's moves the
// screen's.
void FormWindow::syncScroll() {
  const Form::Scroll* const scroll = form_->scroll();
  if (scroll == nullptr || scroll->position == scrollShown_ || syncingScroll_) return;
  scrollShown_ = scroll->position;
  for (QScrollArea* area : scrollAreas_) {
    QScrollBar* const bar = area->verticalScrollBar();
    if (scroll->max > 0) bar->setValue(bar->maximum() * scroll->position / scroll->max);
  }
}

// The user has moved the bar on the screen: the form's bar follows in steps.
void FormWindow::barMoved(const QScrollArea* area) {
  const QScrollBar* const bar = area->verticalScrollBar();
  if (!live() || bar->maximum() <= 0 || form_->scroll() == nullptr) return;
  Form& form = *form_;
  const int max = form.scroll()->max;
  const int wanted = (bar->value() * max + bar->maximum() / 2) / bar->maximum();
  syncingScroll_ = true;
  for (int step = 0; step <= max && live() && form.scroll()->position != wanted; ++step) {
    const int notch = form.scroll()->position > wanted ? kNotch : -kNotch;
    act([&] { form.wheel(notch); });
  }
  syncingScroll_ = false;
  if (live()) scrollShown_ = form.scroll()->position;
}

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
  if (!live()) return QWidget::eventFilter(watched, event);
  switch (event->type()) {
    case QEvent::FocusIn: {
      const auto found = byWidget_.find(watched);
      if (found != byWidget_.end()) takeFocus(*found->second, static_cast<QWidget*>(watched));
      break;
    }
    case QEvent::FocusOut: {
      // A menu over the window returns the keyboard focus.
      if (static_cast<QFocusEvent*>(event)->reason() == Qt::PopupFocusReason) break;
      const auto found = byWidget_.find(watched);
      if (found != byWidget_.end()) keyboardGone(*found->second);
      break;
    }
    case QEvent::KeyPress: {
      // A key that a control has not taken passes the page around it, where it was seen already.
      if (byWidget_.find(watched) == byWidget_.end() && !isExtra(watched)) break;
      auto* const pressed = static_cast<QKeyEvent*>(event);
      const std::int16_t code = formKey(*pressed).code;
      const bool own = isExtra(watched) && (code == 13 || code == 27);
      if (!own && key(pressed)) return true;
      break;
    }
    case QEvent::Wheel: {
      // The wheel must not change a list's choice while it scrolls the page.
      auto* const turned = static_cast<QWheelEvent*>(event);
      if (wheel(turned)) return true;
      if (qobject_cast<QComboBox*>(watched) != nullptr) {
        event->ignore();
        return true;
      }
      break;
    }
    default:
      break;
  }
  return QWidget::eventFilter(watched, event);
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
  // Only keys that no control has received: nothing has the focus.
  if (live() && byWidget_.find(focusWidget()) == byWidget_.end() && key(event)) return;
  QWidget::keyPressEvent(event);
}

// A click beside the controls removes the focus, which ends typing in a field.
void FormWindow::mousePressEvent(QMouseEvent* event) {
  QWidget::mousePressEvent(event);
  if (!live() || form_->focus() == nullptr) return;
  Form& form = *form_;
  act([&] { form.setFocus(nullptr); });
}

void FormWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  // Some window managers pass the close box on to a window that is blocked by a modal one.
  QWidget* const modal = QApplication::activeModalWidget();
  if (!live() || frontEnd_.busy() || (modal != nullptr && modal != this)) return;
  if (!frontEnd_.mayClose(*form_)) return;
  Form& form = *form_;
  act([&] { form.close(); });
}

}  // namespace cu::desktop
