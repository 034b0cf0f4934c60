#include "controls/control.h"

#include "base/text.h"
#include "controls/form.h"

namespace cu {

std::string element(const std::string& array, int index) { return array + "(" + fromInteger(index) + ")"; }

Control::Control(Form& form, std::string name, Frame* frame, std::string caption)
    : form_(form), name_(std::move(name)), frame_(frame), caption_(std::move(caption)) {
  form_.add(*this);
}

void Control::notify() {
  if (view_ != nullptr) view_->changed(*this);
}

void Control::commit() const {
  if (view_ != nullptr) view_->commit();
}

void Control::setEnabled(bool value) {
  if (enabled_ == value) return;
  enabled_ = value;
  notify();
}

void Control::setVisible(bool value) {
  if (visible_ == value) return;
  visible_ = value;
  notify();
}

void Control::setCaption(const std::string& value) {
  if (caption_ == value) return;
  caption_ = value;
  notify();
}

void Control::setHint(const std::string& value) {
  if (hint_ == value) return;
  hint_ = value;
  notify();
}

void Control::setNote(const std::string& value) {
  if (note_ == value) return;
  note_ = value;
  notify();
}

bool Control::available() const {
  if (!enabled_ || !visible_) return false;
  for (const Frame* frame = frame_; frame != nullptr; frame = frame->frame()) {
    if (!frame->enabled() || !frame->visible() || !frame->onStage()) return false;
  }
  return true;
}

void Frame::setLeft(int value) {
  if (left_ == value) return;
  left_ = value;
  notify();
}

void Link::click() {
  if (onClick) onClick();
}

void Button::click() {
  if (onClick) onClick();
}

Option::Option(Form& form, std::string name, Frame* frame, std::string caption, bool on)
    : Control(form, std::move(name), frame, std::move(caption)), value_(on) {}

std::vector<Option*> Option::group() const {
  std::vector<Option*> options;
  for (Control* control : form().controls()) {
    auto* const option = dynamic_cast<Option*>(control);
    if (option != nullptr && option->frame() == frame()) options.push_back(option);
  }
  return options;
}

void Option::turnOn() {
  for (Option* option : group()) {
    if (option == this || !option->value_) continue;
    option->value_ = false;
    option->notify();
  }
  value_ = true;
  notify();
}

void Option::setValue(bool value) {
  if (value_ == value) return;
  if (!value) {
    value_ = false;
    notify();
    return;
  }
  turnOn();
  if (onClick) onClick();
}

void Option::click() {
  if (!value_) turnOn();
  if (onClick) onClick();
}

Check::Check(Form& form, std::string name, Frame* frame, std::string caption, bool on)
    : Control(form, std::move(name), frame, std::move(caption)), value_(on) {}

void Check::setValue(bool value) {
  if (value_ == value) return;
  value_ = value;
  notify();
  if (onClick) onClick();
}

}  // namespace cu
