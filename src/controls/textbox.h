#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "controls/control.h"

namespace cu {

// A control with an edited text: one character typed is one change; a locked box takes nothing from a person.
class EditBox : public Control {
 public:
  using Control::Control;

  const std::string& text() const { return text_; }
  // Cut at the length; raises the change event when what is shown differs.
  void setText(const std::string& text);
  // What is to be stored: the text, or the longer one that code has put in, as long as nobody has typed.
  const std::string& stored() const { return longer_.empty() ? text_ : longer_; }
  std::size_t maxLength() const { return maxLength_; }  // in characters, 0 for any
  void setMaxLength(std::size_t characters) { maxLength_ = characters; }
  bool locked() const { return locked_; }
  void setLocked(bool locked);
  Background background() const { return background_; }
  void setBackground(Background background);

  // A person selects the whole content and types: the first accepted character replaces it; nothing typed
  // deletes it.
  void enter(std::string_view typed);
  void paste(std::string_view text);  // in one step, past the key filter, cut at the length
  // One character at the end of the content; false when it is refused.
  bool type(char32_t character);
  // The same at a place: `count` characters from `at` on give way to what is typed, pasted, or nothing. False
  // when it is refused: the content is as it was.
  bool typeAt(std::size_t at, std::size_t count, char32_t character);
  bool pasteAt(std::size_t at, std::size_t count, std::string_view text);
  bool eraseAt(std::size_t at, std::size_t count);
  // What gives the box back the content that it has now, also the part that it does not show.
  virtual Event restorer();

  // True lets the character in; the filter itself beeps where it refuses.
  std::function<bool(char32_t)> keyFilter;
  Event onChange;

 protected:
  // Whether the character may stand between the two, what of a pasted text is taken (none: nothing is), and
  // whether what is left of a content can stay.
  virtual bool admits(const std::string& before, char32_t character, const std::string& behind) const;
  virtual std::optional<std::string> pasted(std::string_view text) const;
  virtual bool leaves(const std::string& text) const;
  virtual void edited() {}      // the text has changed; the event comes next
  void show(std::string text);  // another shape of the same content: no event
  void change(std::string text);

 private:
  bool take(std::string before, char32_t character, const std::string& behind);

  std::string text_;
  std::string longer_;  // than the box; empty for none
  std::size_t maxLength_ = 0;
  bool locked_ = false;
  Background background_ = Background::Window;
};

class TextBox : public EditBox {
 public:
  using EditBox::EditBox;
  void accept(ControlVisitor& visitor) override { visitor.visit(*this); }
};

}  // namespace cu
