#pragma once

#include <QLabel>
#include <QList>
#include <QWidget>
#include <string>

#include "controls/control.h"

namespace cu::desktop {

class FormWindow;

// What shows one control: its widget follows the control's state, and a person's events go to the control by
// way of the window.
class View : public ControlView {
 public:
  View(FormWindow& window, Control& control) : window_(window), control_(&control) {}
  ~View() override = default;
  View(const View&) = delete;
  View& operator=(const View&) = delete;

  QWidget* widget() const { return widget_; }  // the outermost
  // The widgets that take the keyboard, in the order of tabbing; the first one stands for the control.
  virtual QList<QWidget*> focusWidgets() const { return {}; }
  // The caption that the layout has put beside or above the widget, and how the control is called aloud.
  void setCaptionLabel(QLabel* label);
  // The line below the widget where the layout has room for the control's note.
  void setNoteLabel(QLabel* label);
  virtual void setSpokenName(const QString& name);
  QString spokenName() const { return spokenName_; }

  // The key Esc: what has been typed since the focus came is taken back. False when there is nothing to take
  // back.
  virtual bool takeBack() { return false; }

  // A key in a control that has keys of its own, such as a grid; true when a handler consumed it.
  virtual bool keyDown(std::int16_t /*code*/, std::int16_t /*shift*/) { return false; }

  // An event of the form has ended: what it may have moved without telling is looked at again.
  virtual void afterEvent() {}

  // The control is gone, or no longer shown.
  virtual void detach() { control_ = nullptr; }
  bool live() const { return control_ != nullptr; }

  void changed(Control& control) override;
  // Everything anew from the control.
  void refreshAll();

 protected:
  virtual void refresh() = 0;
  virtual bool shows() const;  // whether the control is to be seen, as far as it says itself
  void setWidget(QWidget* widget) { widget_ = widget; }
  FormWindow& window() const { return window_; }
  Control& control() const { return *control_; }
  // A person's event on the control: focus first, then the event. Afterwards the view shows what has become.
  void act(const Event& event);

 private:
  FormWindow& window_;
  Control* control_;
  QWidget* widget_ = nullptr;
  QLabel* captionLabel_ = nullptr;
  QLabel* noteLabel_ = nullptr;
  QString spokenName_;
};

}  // namespace cu::desktop
