#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "host/control.h"

namespace cu {

// A control with an edited text: one character typed is one change; a locked box takes nothing from a person.
class EditBox : public Control {
 public:
  using Control::Control;

  const std::string& text() const { return text_; }
  void setText(const std::string& text);                // raises the change event when it differs
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

  // True lets the character in; the filter itself beeps where it refuses.
  std::function<bool(char32_t)> keyFilter;
  Event onChange;

 protected:
  // Whether the character may follow that content, and what of a pasted text is taken (none: nothing is).
  virtual bool admits(const std::string& content, char32_t character) const;
  virtual std::optional<std::string> pasted(std::string_view text) const;
  virtual void edited() {}      // the text has changed; the event comes next
  void show(std::string text);  // another shape of the same content: no event
  void change(std::string text);

 private:
  bool take(std::string content, char32_t character);

  std::string text_;
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
