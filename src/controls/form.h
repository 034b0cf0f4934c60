#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/control.h"

namespace cu {

class FrontEnd;

// A window of the system: its controls by name, the focus, and its life cycle from load to unload.
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

  // In tab order.
  const std::vector<Control*>& controls() const { return controls_; }
  Control* find(std::string_view name) const;  // null when there is none

  Control* focus() const { return focus_; }
  // Before the new control gets the focus, the control that had it commits its view's text, formats it and
  // runs its lost-focus event. Null: no control has the focus.
  void setFocus(Control* control);
  // The focus rule for every front end. For a user event on a control, the control first gets the focus, if
  // it accepts it. The event then runs, if the control is still available after the lost-focus event and its
  // view permits it. Finally the focus settles. An error in any of these steps is shown in a box, and the
  // next step runs. Without an event only the focus moves.
  void perform(Control& control, const Event& event);
  // A user event on the form itself.
  void perform(const Event& event);
  // The control that gets the focus when the form opens: the first one that accepts it.
  Control* firstFocus() const;
  // Moves the focus away from a control that is no longer available, to the next one in tab order,
  // cyclically.
  void settleFocus();

  bool isOpen() const { return open_; }
  void load();       // runs formLoad, once
  void show();       // loads the form, shows it, returns at once
  void showModal();  // loads the form, shows it, returns when it is unloaded or hidden; does nothing if the
                     // load unloads it
  void hide();       // the focus is lost without an event
  void unload();     // runs formUnload; the form is closed unless that raises an error

  // The close box: unloads the form unless its handler rejects it.
  void close();
  // A key pressed in the form. A handler that consumes the key sets both values to 0; otherwise 13 and 27
  // click the default and the cancel button. Returns true when a handler consumed the key.
  bool keyDown(std::int16_t code, std::int16_t shift) { return keyDown(code, shift, defaultButton); }
  // The same with another button for 13; null for none.
  bool keyDown(std::int16_t code, std::int16_t shift, Button* byEnter);
  void wheel(int delta);

  Button* defaultButton = nullptr;
  Button* cancelButton = nullptr;
  std::function<void(std::int16_t& code, std::int16_t& shift)> onKeyDown;
  std::function<void(int delta)> onWheel;

  // The scroll bar of a form that has one, from 0 to max; and whether the window shows only a part of the
  // form.
  struct Scroll {
    int position = 0;
    int max = 0;
  };
  virtual const Scroll* scroll() const { return nullptr; }
  virtual bool shrunk() const { return false; }
  // The frames of which one at a time is on stage, in order; empty for most forms.
  virtual std::vector<const Frame*> stages() const { return {}; }
  // The control at which the user's work on the present stage begins; null where the focus stays unchanged.
  // Only a window moves the focus there.
  virtual Control* stageStart() { return nullptr; }
  // Describes in a sentence for the user what the close box would discard; empty for nothing. Only a window
  // asks for confirmation.
  virtual std::string unsavedWork() const { return {}; }

  // Where the form shows one row of the grid from which it was opened: describes in a sentence the user's
  // changes that are not confirmed, empty for none. Only a window offers the rows before and after, and asks
  // for confirmation before it discards the changes. nullopt for every other form.
  virtual std::optional<std::string> rowWork() const { return std::nullopt; }

  // A fact of an overview: a name and its present value, marked where it deserves the user's attention.
  struct Fact {
    std::string name;
    std::string text;
    bool attention = false;
    bool operator==(const Fact&) const = default;
  };
  // What the user's work concerns, such as company and year. Only a window shows it, always.
  virtual std::vector<Fact> whereabouts() { return {}; }
  // What the form's main action would do on the present stage; empty on a stage without it. Only a window
  // shows it, and asks again after each event.
  virtual std::vector<Fact> outlook() { return {}; }

  // The heading of the chapter in the user's guide that explains the present screen; empty for the guide's
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
