#pragma once

#include <QWidget>
#include <functional>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "controls/form.h"
#include "desktop/view.h"

class QScrollArea;

namespace cu::desktop {

class Foot;
class QtFrontEnd;

// The window of a form: creates a view for each control, keeps the focus of window and form equal, and passes
// keys, wheel and close box to the form.
class FormWindow : public QWidget {
 public:
  FormWindow(QtFrontEnd& frontEnd, Form& form, QWidget* parent);
  ~FormWindow() override;

  QtFrontEnd& frontEnd() const { return frontEnd_; }
  Form& form() const { return *form_; }
  bool live() const { return form_ != nullptr; }
  // The form is closed. `alive`: its controls still exist and are notified that they have no view any more.
  void detach(bool alive);

  View* view(const Control& control) const;
  // For the layout: creates the view of a control; its widget is a child of `parent`.
  View& make(Control& control, QWidget* parent);
  // A widget of the view without a control, before `control` in tab order. It handles Enter and Esc itself.
  void addExtra(QWidget* extra, const Control& before);

  void act(Control& control, const Event& event);
  void act(const Event& event);  // an event of the form itself

  // Runs `next` when the running event of this window has ended; an empty one withdraws it.
  void afterwards(std::function<void()> next) { next_ = std::move(next); }

  Foot* foot() const { return foot_; }
  void setFoot(Foot* foot) { foot_ = foot; }
  // Called after each event: shows what belongs to the form and to none of its controls.
  void addRefresher(std::function<void()> refresh) { refreshers_.push_back(std::move(refresh)); }
  // The views refresh what the event may have changed without notification.
  void afterEvent();
  // The visible one of these areas is the form's scroll bar.
  void addScrollArea(QScrollArea* area);

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void closeEvent(QCloseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;

 private:
  void formChanged();
  void syncFocus();
  void syncScroll();
  void takeFocus(View& view, QWidget* widget);
  void keyboardGone(View& left);
  void orderTabs();
  void enterStage();
  void runNext();
  bool key(QKeyEvent* event);
  bool cancel();
  bool isExtra(const QObject* watched) const;
  bool wheel(QWheelEvent* event);
  void barMoved(const QScrollArea* area);

  QtFrontEnd& frontEnd_;
  Form* form_;
  std::vector<std::unique_ptr<View>> views_;
  std::map<const Control*, View*> byControl_;
  std::map<const QObject*, View*> byWidget_;
  std::multimap<const Control*, QWidget*> extras_;
  std::vector<QScrollArea*> scrollAreas_;
  std::vector<std::function<void()>> refreshers_;
  Foot* foot_ = nullptr;
  const Control* focusShown_ = nullptr;
  const Frame* stageShown_ = nullptr;
  bool syncingFocus_ = false;
  bool syncingScroll_ = false;
  int scrollShown_ = -1;
  int wheelRest_ = 0;
  std::function<void()> next_;
  bool runningNext_ = false;
};

}  // namespace cu::desktop
