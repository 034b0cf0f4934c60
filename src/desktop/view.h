#pragma once

#include <QLabel>
#include <QList>
#include <QWidget>
#include <string>

#include "controls/control.h"

namespace cu::desktop {

class ChangeMark;
class FormWindow;

// The view of one control: its widget shows the control's state, and user events are passed to the control
// through the window.
class View : public ControlView {
 public:
  View(FormWindow& window, Control& control) : window_(window), control_(&control) {}
  ~View() override = default;
  View(const View&) = delete;
  View& operator=(const View&) = delete;

  QWidget* widget() const { return widget_; }  // the outermost
  // The widgets that accept the focus, in tab order; the first one represents the control.
  virtual QList<QWidget*> focusWidgets() const { return {}; }
  // Sets the caption placed next to or above the widget, which is also the control's accessible name.
  void setCaptionLabel(QLabel* label);
  // The line below the widget where the layout has room for the control's note.
  void setNoteLabel(QLabel* label);
  // The mark of a box that differs from what was loaded for it.
  void setChangeMark(ChangeMark* mark);
  const ChangeMark* changeMark() const { return changeMark_; }
  virtual void setSpokenName(const QString& name);
  QString spokenName() const { return spokenName_; }

  // The key Esc: undoes what was typed since the control got the focus. Returns false when there is nothing
  // to undo.
  virtual bool takeBack() { return false; }

  // A key in a control that handles keys itself, such as a grid; returns true when a handler consumed it.
  virtual bool keyDown(std::int16_t /*code*/, std::int16_t /*shift*/) { return false; }

  // An event of the form has ended: refreshes what it may have changed without notification.
  virtual void afterEvent() {}

  // The control is destroyed, or no longer shown.
  virtual void detach() { control_ = nullptr; }
  bool live() const { return control_ != nullptr; }
  // The control is disabled, and shown as a text that can be read and copied.
  virtual bool reads() const { return false; }

  void changed(Control& control) override;
  // Refreshes everything from the control.
  void refreshAll();
  void refreshMark();

 protected:
  virtual void refresh() = 0;
  virtual bool shows() const;  // whether the control itself is visible, regardless of its frames
  void setWidget(QWidget* widget) { widget_ = widget; }
  FormWindow& window() const { return window_; }
  Control& control() const { return *control_; }
  // A user event on the control: focus first, then the event. The view is refreshed afterwards.
  void act(const Event& event);

 private:
  void describe();
  FormWindow& window_;
  Control* control_;
  QWidget* widget_ = nullptr;
  QLabel* captionLabel_ = nullptr;
  QLabel* noteLabel_ = nullptr;
  ChangeMark* changeMark_ = nullptr;
  QString described_;
  QString spokenName_;
};

}  // namespace cu::desktop
