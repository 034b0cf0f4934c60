#pragma once

#include <cstdint>
#include <functional>
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

// One function a kind: what draws, drives or describes controls says here what it does with each.
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
  // The control's state has changed.
  virtual void changed(Control& control) = 0;
  // What a person has typed into the view and the control does not have yet is handed over. Called when the
  // control loses the focus, before its own events.
  virtual void commit() {}
  // Called before a person's event runs on the control, which has the focus by then. False gives the event
  // up.
  virtual bool allows() { return true; }
};

enum class Background { Window, Face };

// A control of a form: its state, and the events that its form handles. It registers itself with the form, in
// the order of tabbing; `name` is its name with the index in its array, "cmdNav(3)".
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

  // Help for a person, which nothing but a window shows: a tooltip, and a line below the control about what
  // it holds at present. Empty for none.
  const std::string& hint() const { return hint_; }
  const std::string& note() const { return note_; }
  void setHint(const std::string& value);
  void setNote(const std::string& value);

  // Whether a person's hand reaches it: it and all its frames are enabled, visible and on stage.
  bool available() const;
  virtual bool takesFocus() const { return true; }
  // The focus goes: what was typed is put into its final shape, before anybody hears of it.
  virtual void leaving() {}
  // What its view has not handed over yet, and whether its view lets a person's event run.
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
  // The left position, in the form's units; a frame far to the left is off stage.
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
  Control* buddy = nullptr;  // the control that it names, where it stands for that one's caption
};

// A text that a click opens something with.
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
  // What a click drops of what a person has written and not saved, in a sentence; empty for nothing. Only a
  // window asks before it.
  std::function<std::string()> drops;
};

// One of several of which one is on; those of one frame belong together. Turned on by a person or by code it
// raises onClick, as the other one goes off silently.
class Option : public Control {
 public:
  Option(Form& form, std::string name, Frame* frame, std::string caption, bool on = false);
  void accept(ControlVisitor& visitor) override { visitor.visit(*this); }
  bool value() const { return value_; }
  void setValue(bool value);
  void click();  // a person's: the event is raised also when it was on already
  // All options of its frame, itself among them, in the order of tabbing.
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
