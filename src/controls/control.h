#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace cu {

class Form;
class Control;
class Frame;
class Label;
class Link;
class Button;
class Option;
class Check;
class TextBox;
class ListBox;
class Selector;
class DateBox;
class AmountBox;
class NumberBox;
class Picker;
class Tabs;
class Grid;
class SideBand;
class MenuBar;
class PrintControl;

using Event = std::function<void()>;

// One function per kind of control; drawing, driving and describing controls are visitors.
class ControlVisitor {
 public:
  virtual ~ControlVisitor() = default;
  virtual void visit(Frame& control) = 0;
  virtual void visit(Label& control) = 0;
  virtual void visit(Link& control) = 0;
  virtual void visit(Button& control) = 0;
  virtual void visit(Option& control) = 0;
  virtual void visit(Check& control) = 0;
  virtual void visit(TextBox& control) = 0;
  virtual void visit(ListBox& control) = 0;
  virtual void visit(Selector& control) = 0;
  virtual void visit(DateBox& control) = 0;
  virtual void visit(AmountBox& control) = 0;
  virtual void visit(NumberBox& control) = 0;
  virtual void visit(Picker& control) = 0;
  virtual void visit(Tabs& control) = 0;
  virtual void visit(Grid& control) = 0;
  virtual void visit(SideBand& control) = 0;
  virtual void visit(MenuBar& control) = 0;
  virtual void visit(PrintControl& control) = 0;
};

// The one view attached to a control.
class ControlView {
 public:
  virtual ~ControlView() = default;
  // Called after the control's state has changed.
  virtual void changed(Control& control) = 0;
  // Passes what the user has typed, and the control has not received yet, to the control. Called when the
  // control loses the focus, before its own events.
  virtual void commit() {}
  // Called before a user event runs on the control, after the control has received the focus. False cancels
  // the event.
  virtual bool allows() { return true; }
};

enum class Background { Window, Face };

// A control of a form: its state, and the events that its form handles. The constructor registers it with the
// form in tab order; `name` includes the index in a control array, "cmdNav(3)".
class Control {
 public:
  Control(Form& form, std::string name, Frame* frame, std::string caption = {});
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  Form& form() const { return form_; }
  const std::string& name() const { return name_; }
  Frame* frame() const { return frame_; }
  virtual void accept(ControlVisitor& visitor) = 0;

  bool enabled() const { return enabled_; }
  bool visible() const { return visible_; }
  const std::string& caption() const { return caption_; }
  void setEnabled(bool value);
  void setVisible(bool value);
  void setCaption(const std::string& value);

  // Help for the user, shown only by a window: a tooltip, and a line below the control about its present
  // content. Empty for none.
  const std::string& hint() const { return hint_; }
  const std::string& note() const { return note_; }
  void setHint(const std::string& value);
  void setNote(const std::string& value);
  // The number of the control's box on a printed form, where the caption lacks it; shown only by a window.
  std::string boxNumber;
  // The value that was loaded for a control: its text, and its entry as by the user, empty where the user
  // could not enter it.
  struct Loaded {
    std::string text;
    Event enter;
  };
  // Returns the value loaded for the control where its content differs; nullopt otherwise. Only a window
  // marks the control, and offers to enter the value again.
  std::function<std::optional<Loaded>()> differs;

  // Whether the user can reach the control: it and all its frames are enabled, visible and on stage.
  bool available() const;
  virtual bool takesFocus() const { return true; }
  // Called when the focus leaves: brings typed text into its final form before the events run.
  virtual void leaving() {}
  // Commits what the view has not passed on yet; returns whether the view permits a user event.
  void commit() const;
  bool allows() const { return view_ == nullptr || view_->allows(); }

  Event onGotFocus;
  Event onLostFocus;

  void attach(ControlView* view) { view_ = view; }

 protected:
  void notify();

 private:
  Form& form_;
  std::string name_;
  Frame* frame_;
  std::string caption_;
  std::string hint_;
  std::string note_;
  bool enabled_ = true;
  bool visible_ = true;
  ControlView* view_ = nullptr;
};

// Name of the element of a control array: "cmdNav(3)".
std::string element(const std::string& array, int index);

class Frame : public Control {
 public:
  using Control::Control;
  void accept(ControlVisitor& visitor) override { visitor.visit(*this); }
  bool takesFocus() const override { return false; }
  // The left position, in the form's units; a frame at kOffStage or further left is off stage.
  static constexpr int kOffStage = -20000;
  int left() const { return left_; }
  void setLeft(int value);
  bool onStage() const { return left_ > kOffStage; }

 private:
  int left_ = 0;
};

class Label : public Control {
 public:
  using Control::Control;
  void accept(ControlVisitor& visitor) override { visitor.visit(*this); }
  bool takesFocus() const override { return false; }
  Control* buddy = nullptr;  // the control for which this label serves as caption
};

// A text that opens something when clicked.
class Link : public Control {
 public:
  using Control::Control;
  void accept(ControlVisitor& visitor) override { visitor.visit(*this); }
  void click();
  Event onClick;
};

class Button : public Control {
 public:
  using Control::Control;
  void accept(ControlVisitor& visitor) override { visitor.visit(*this); }
  void click();
  Event onClick;
  // Describes in a sentence the unsaved user input that a click discards; empty for none. Only a window asks
  // for confirmation.
  std::function<std::string()> drops;
};

// One of several options of a frame, of which exactly one is on. Turning it on, by the user or by code,
// raises onClick; the option that was on is turned off without an event.
class Option : public Control {
 public:
  Option(Form& form, std::string name, Frame* frame, std::string caption, bool on = false);
  void accept(ControlVisitor& visitor) override { visitor.visit(*this); }
  bool value() const { return value_; }
  void setValue(bool value);
  void click();  // a click by the user: raises the event also when the option was on already
  // All options of its frame, including itself, in tab order.
  std::vector<Option*> group() const;
  Event onClick;

 private:
  void turnOn();
  bool value_ = false;
};

class Check : public Control {
 public:
  Check(Form& form, std::string name, Frame* frame, std::string caption, bool on = false);
  void accept(ControlVisitor& visitor) override { visitor.visit(*this); }
  bool value() const { return value_; }
  void setValue(bool value);
  void click() { setValue(!value_); }
  Event onClick;

 private:
  bool value_ = false;
};

}  // namespace cu
