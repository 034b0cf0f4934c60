#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/control.h"

namespace cu {

class FrontEnd;

// A window of the system: its controls by name, the focus, and its life from load to unload.
class Form {
 public:
  Form(FrontEnd& frontEnd, std::string name, std::string caption = {});
  virtual ~Form();
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;

  FrontEnd& frontEnd() const { return frontEnd_; }
  const std::string& name() const { return name_; }
  const std::string& caption() const { return caption_; }
  void setCaption(const std::string& caption);

  // In the order of tabbing.
  const std::vector<Control*>& controls() const { return controls_; }
  Control* find(std::string_view name) const;  // null when there is none

  Control* focus() const { return focus_; }
  // The control that had the focus takes what its view still holds, takes its final shape and sees the focus
  // lost before the new one gets it. Null: nothing has it.
  void setFocus(Control* control);
  // The focus rule, for every front end. A person's event on a control: the control gets the focus, if it
  // takes it; the event runs, if the loss of the focus has left the control within reach and its view allows
  // it; the focus settles. An error in one of these is shown in its box and the next goes on. Without an
  // event only the focus moves.
  void perform(Control& control, const Event& event);
  // A person's event on the form itself.
  void perform(const Event& event);
  // Where the focus goes when the form opens: the first control that can take it.
  Control* firstFocus() const;
  // A control that a person can no longer reach yields the focus to the next one in the order of tabbing, the
  // last to the first.
  void settleFocus();

  bool isOpen() const { return open_; }
  void load();  // once; runs formLoad
  void show();  // loads it, shows it, returns at once
  void
  showModal();    // loads it, shows it, returns when it is unloaded or hidden; nothing if its load unloads it
  void hide();    // the focus goes without an event
  void unload();  // runs formUnload; the form goes, unless that raises an error

  // The close box: unloads, unless the form refuses.
  void close();
  // A key pressed in the form. A handler that has consumed the key sets both to 0; otherwise 13 and 27 are
  // events of the default and of the cancel button. True when a handler consumed it.
  bool keyDown(std::int16_t code, std::int16_t shift) { return keyDown(code, shift, defaultButton); }
  // The same with another button for 13; null for none.
  bool keyDown(std::int16_t code, std::int16_t shift, Button* byEnter);
  void wheel(int delta);

  Button* defaultButton = nullptr;
  Button* cancelButton = nullptr;
  std::function<void(std::int16_t& code, std::int16_t& shift)> onKeyDown;
  std::function<void(int delta)> onWheel;

  // Where the form has one: a scrolling bar, from 0 to max; and whether only a part of the window is left.
  struct Scroll {
    int position = 0;
    int max = 0;
  };
  virtual const Scroll* scroll() const { return nullptr; }
  virtual bool shrunk() const { return false; }
  // Frames that take turns on the stage, in order; empty for most forms.
  virtual std::vector<const Frame*> stages() const { return {}; }
  // Where a person's work on the present stage begins; null where the focus stays as it is. Only a window
  // goes there by itself.
  virtual Control* stageStart() { return nullptr; }
  // What the close box would lose, in a sentence for the person; empty when nothing. Only a window asks.
  virtual std::string unsavedWork() const { return {}; }

  // The heading of the chapter in the user's guide that explains what is on screen; empty for the guide's
  // first page.
  virtual std::string guideChapter() const { return {}; }

  void attach(std::function<void()> view) { view_ = std::move(view); }
  void notify() const;

 protected:
  virtual void formLoad() {}
  virtual void formUnload() {}
  virtual bool refusesClose() { return false; }

 private:
  friend class Control;
  void add(Control& control) { controls_.push_back(&control); }

  bool open();

  FrontEnd& frontEnd_;
  std::string name_;
  std::string caption_;
  std::vector<Control*> controls_;
  Control* focus_ = nullptr;
  bool loaded_ = false;
  bool unloading_ = false;
  bool open_ = false;
  std::function<void()> view_;
};

}  // namespace cu
