#include "host/form.h"

#include "host/frontend.h"

namespace cu {

Form::Form(FrontEnd& frontEnd, std::string name, std::string caption)
    : frontEnd_(frontEnd), name_(std::move(name)), caption_(std::move(caption)) {}

Form::~Form() {
  if (open_) frontEnd_.closed(*this);
}

void Form::notify() const {
  if (view_) view_();
}

void Form::setCaption(const std::string& caption) {
  if (caption_ == caption) return;
  caption_ = caption;
  notify();
}

Control* Form::find(std::string_view name) const {
  for (Control* control : controls_) {
    if (control->name() == name) return control;
  }
  return nullptr;
}

void Form::setFocus(Control* control) {
  if (control == focus_) return;
  Control* const before = focus_;
  focus_ = control;
  if (before != nullptr && before->onLostFocus) before->onLostFocus();
  if (focus_ != nullptr && focus_ == control && focus_->onGotFocus) focus_->onGotFocus();
  notify();
}

Control* Form::firstFocus() const {
  for (Control* control : controls_) {
    if (control->takesFocus() && control->available()) return control;
  }
  return nullptr;
}

void Form::load() {
  if (loaded_) return;
  loaded_ = true;
  formLoad();
}

void Form::show() {
  load();
  if (!open_) {
    open_ = true;
    setFocus(firstFocus());
    frontEnd_.show(*this);
  }
}

void Form::showModal() {
  load();
  open_ = true;
  setFocus(firstFocus());
  frontEnd_.showModal(*this);
}

void Form::hide() {
  if (!open_) return;
  open_ = false;
  frontEnd_.closed(*this);
}

void Form::unload() {
  if (!loaded_) return;
  loaded_ = false;
  formUnload();
  focus_ = nullptr;
  hide();
}

void Form::close() {
  if (!refusesClose()) unload();
}

bool Form::keyDown(std::int16_t code, std::int16_t shift) {
  std::int16_t left = code;
  if (onKeyDown) onKeyDown(left, shift);
  if (code != 0 && left == 0) return true;
  if (left == 13 && defaultButton != nullptr && defaultButton->available()) defaultButton->click();
  if (left == 27 && cancelButton != nullptr && cancelButton->available()) cancelButton->click();
  return false;
}

void Form::wheel(int delta) {
  if (onWheel) onWheel(delta);
}

}  // namespace cu
