#include "controls/form.h"

#include <algorithm>

#include "controls/frontend.h"

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
  notify();
  if (before != nullptr) {
    before->commit();
    before->leaving();
    if (before->onLostFocus) before->onLostFocus();
  }
  if (focus_ != nullptr && focus_ == control && focus_->onGotFocus) focus_->onGotFocus();
}

void Form::perform(Control& control, const Event& event) {
  if (control.takesFocus()) frontEnd_.runEvent([&] { setFocus(&control); });
  if (event && open_ && control.available()) {
    frontEnd_.runEvent([&] {
      if (control.allows()) event();
    });
  }
  if (open_) frontEnd_.runEvent([&] { settleFocus(); });
}

void Form::perform(const Event& event) {
  frontEnd_.runEvent(event);
  if (open_) frontEnd_.runEvent([&] { settleFocus(); });
}

Control* Form::firstFocus() const {
  for (Control* control : controls_) {
    if (control->takesFocus() && control->available()) return control;
  }
  return nullptr;
}

void Form::settleFocus() {
  if (focus_ == nullptr || focus_->available()) return;
  const auto behind = std::find(controls_.begin(), controls_.end(), focus_) + 1;
  const auto reachable = [](const Control* control) { return control->takesFocus() && control->available(); };
  const auto next = std::find_if(behind, controls_.end(), reachable);
  setFocus(next != controls_.end() ? *next : firstFocus());
}

void Form::load() {
  if (loaded_) return;
  loaded_ = true;
  formLoad();
}

// Returns false when the form is open already, or has unloaded itself during its load.
bool Form::open() {
  load();
  if (open_ || !loaded_) return false;
  open_ = true;
  setFocus(firstFocus());
  return true;
}

void Form::show() {
  if (open()) frontEnd_.show(*this);
}

void Form::showModal() {
  if (open()) frontEnd_.showModal(*this);
}

void Form::hide() {
  if (!open_) return;
  open_ = false;
  focus_ = nullptr;
  frontEnd_.closed(*this);
}

void Form::unload() {
  if (!loaded_ || unloading_) return;
  unloading_ = true;
  try {
    formUnload();
  } catch (...) {
    unloading_ = false;
    throw;
  }
  unloading_ = false;
  loaded_ = false;
  hide();
}

void Form::close() {
  if (!refusesClose()) unload();
}

bool Form::keyDown(std::int16_t code, std::int16_t shift, Button* byEnter) {
  std::int16_t left = code;
  if (onKeyDown) onKeyDown(left, shift);
  if (code != 0 && left == 0) return true;
  Button* const pressed = left == 13 ? byEnter : left == 27 ? cancelButton : nullptr;
  if (pressed != nullptr && pressed->available()) perform(*pressed, [pressed] { pressed->click(); });
  return false;
}

void Form::wheel(int delta) {
  if (onWheel) onWheel(delta);
}

}  // namespace cu
