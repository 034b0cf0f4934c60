#include "host/textbox.h"

#include <utility>

#include "host/text.h"

namespace cu {

void EditBox::change(std::string text) {
  text_ = std::move(text);
  edited();
  notify();
  if (onChange) onChange();
}

void EditBox::show(std::string text) {
  if (text_ == text) return;
  text_ = std::move(text);
  notify();
}

bool EditBox::admits(const std::string& /*content*/, char32_t /*character*/) const { return true; }
std::optional<std::string> EditBox::pasted(std::string_view text) const { return std::string(text); }

void EditBox::setText(const std::string& text) {
  if (text_ != text) change(text);
}

void EditBox::setLocked(bool locked) {
  if (locked_ == locked) return;
  locked_ = locked;
  notify();
}

void EditBox::setBackground(Background background) {
  if (background_ == background) return;
  background_ = background;
  notify();
}

bool EditBox::take(std::string content, char32_t character) {
  if (locked_) return false;
  if (keyFilter && !keyFilter(character)) return false;
  if (maxLength_ > 0 && codePoints(content) >= maxLength_) return false;
  if (!admits(content, character)) return false;
  appendUtf8(content, character);
  change(std::move(content));  // a character typed is a change, also where it replaces its like
  return true;
}

bool EditBox::type(char32_t character) { return take(text_, character); }

void EditBox::enter(std::string_view typed) {
  if (locked_) return;
  if (typed.empty()) {
    setText("");
    return;
  }
  bool selected = true;
  for (std::size_t at = 0; at < typed.size();) {
    const char32_t character = nextCodePoint(typed, at);
    if (take(selected ? std::string() : text_, character)) selected = false;
  }
}

void EditBox::paste(std::string_view text) {
  if (locked_) return;
  const auto taken = pasted(maxLength_ > 0 ? leftCodePoints(text, maxLength_) : text);
  if (taken) setText(*taken);
}

}  // namespace cu
