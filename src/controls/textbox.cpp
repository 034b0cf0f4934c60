#include "controls/textbox.h"

#include <utility>

#include "base/text.h"

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

bool EditBox::admits(const std::string&, char32_t, const std::string&) const { return true; }
std::optional<std::string> EditBox::pasted(std::string_view text) const { return std::string(text); }
bool EditBox::leaves(const std::string&) const { return true; }

void EditBox::setText(const std::string& text) {
  const std::string_view fitting = maxLength_ > 0 ? leftCodePoints(text, maxLength_) : text;
  longer_ = fitting.size() < text.size() ? text : std::string();
  if (text_ != fitting) change(std::string(fitting));
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

bool EditBox::take(std::string before, char32_t character, const std::string& behind) {
  if (locked_) return false;
  if (keyFilter && !keyFilter(character)) return false;
  if (maxLength_ > 0 && codePoints(before) + codePoints(behind) >= maxLength_) return false;
  if (!admits(before, character, behind)) return false;
  appendUtf8(before, character);
  longer_.clear();
  change(before + behind);  // a typed character is a change also where it replaces an equal one
  return true;
}

bool EditBox::type(char32_t character) { return take(text_, character, {}); }

namespace {

// The text before and after a range of characters.
std::pair<std::string, std::string> around(std::string_view text, std::size_t at, std::size_t count) {
  const std::string_view before = leftCodePoints(text, at);
  const std::string_view rest = text.substr(before.size());
  return {std::string(before), std::string(rest.substr(leftCodePoints(rest, count).size()))};
}

}  // namespace

bool EditBox::typeAt(std::size_t at, std::size_t count, char32_t character) {
  const auto [before, behind] = around(text_, at, count);
  return take(before, character, behind);
}

bool EditBox::pasteAt(std::size_t at, std::size_t count, std::string_view text) {
  if (locked_) return false;
  const auto [before, behind] = around(text_, at, count);
  std::string_view fitting = text;
  if (maxLength_ > 0) {
    const std::size_t kept = codePoints(before) + codePoints(behind);
    fitting = leftCodePoints(text, kept < maxLength_ ? maxLength_ - kept : 0);
    if (fitting.empty() && !text.empty() && count == 0) return false;
  }
  const auto taken = pasted(before + std::string(fitting) + behind);
  if (taken) setText(*taken);
  return taken.has_value();
}

bool EditBox::eraseAt(std::size_t at, std::size_t count) {
  const auto [before, behind] = around(text_, at, count);
  if (locked_ || !leaves(before + behind)) return false;
  setText(before + behind);
  return true;
}

Event EditBox::restorer() {
  return [this, text = stored()] { setText(text); };
}

void EditBox::enter(std::string_view typed) {
  if (locked_) return;
  if (typed.empty()) {
    setText("");
    return;
  }
  bool selected = true;
  for (std::size_t at = 0; at < typed.size();) {
    const char32_t character = nextCodePoint(typed, at);
    if (take(selected ? std::string() : text_, character, {})) selected = false;
  }
}

void EditBox::paste(std::string_view text) {
  if (locked_) return;
  const auto taken = pasted(maxLength_ > 0 ? leftCodePoints(text, maxLength_) : text);
  if (taken) setText(*taken);
}

}  // namespace cu
