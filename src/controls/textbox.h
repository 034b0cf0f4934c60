#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "controls/control.h"

namespace cu {

// A control with an edited text: each character typed is one change; a locked box rejects user input.
class EditBox : public Control {
 public:
  using Control::Control;

  const std::string& text() const { return text_; }
  // Truncates to the maximum length; raises the change event when the text shown differs.
  void setText(const std::string& text);
  // The value to store: the text, or the longer one set by code until the user types.
  const std::string& stored() const { return longer_.empty() ? text_ : longer_; }
  std::size_t maxLength() const { return maxLength_; }  // in characters, 0 for no limit
  void setMaxLength(std::size_t characters) { maxLength_ = characters; }
  bool locked() const { return locked_; }
  void setLocked(bool locked);
  Background background() const { return background_; }
  void setBackground(Background background);

  // The user selects the whole content and types: the first accepted character replaces it; an empty text
  // deletes it.
  void enter(std::string_view typed);
  void paste(std::string_view text);  // in one step, without the key filter, truncated to the maximum length
  // Appends one character; returns false when it is rejected.
  bool type(char32_t character);
  // Replaces `count` characters from `at` by what is typed or pasted, or deletes them. Returns false, and
  // leaves the content unchanged, when the change is rejected.
  bool typeAt(std::size_t at, std::size_t count, char32_t character);
  bool pasteAt(std::size_t at, std::size_t count, std::string_view text);
  bool eraseAt(std::size_t at, std::size_t count);
  // Returns a function that restores the present content, including the part not shown.
  virtual Event restorer();

  // A text that is often longer than others; a window gives its box what room there is.
  bool longText = false;

  // True accepts the character; the filter itself beeps when it rejects one.
  std::function<bool(char32_t)> keyFilter;
  Event onChange;

 protected:
  // Whether the character is accepted between the two texts; the part of a pasted text that is accepted
  // (nullopt rejects it all); and whether the rest of a content after a deletion is valid.
  virtual bool admits(const std::string& before, char32_t character, const std::string& behind) const;
  virtual std::optional<std::string> pasted(std::string_view text) const;
  virtual bool leaves(const std::string& text) const;
  virtual void edited() {}      // called after the text has changed, before the event
  void show(std::string text);  // another format of the same content: no event
  void change(std::string text);

 private:
  bool take(std::string before, char32_t character, const std::string& behind);

  std::string text_;
  std::string longer_;  // text longer than the box; empty for none
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
