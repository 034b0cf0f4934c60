#pragma once

#include <string>
#include <vector>

#include "controls/control.h"

namespace cu {

// The side band of a wizard, which lists its steps.
class SideBand : public Control {
 public:
  using Control::Control;
  void accept(ControlVisitor& visitor) override { visitor.visit(*this); }
  bool takesFocus() const override { return false; }

  struct Item {
    std::string title;
    std::string description;
  };
  static constexpr int kWidth = 2400;  // in the form's units

  void clear() {
    items_.clear();
    selected_ = 0;
    notify();
  }
  void add(const std::string& title, const std::string& description) {
    items_.push_back({title, description});
    notify();
  }
  // From 1; a number without an item is ignored.
  void select(int number) {
    if (number < 1 || number > static_cast<int>(items_.size())) return;
    selected_ = number;
    notify();
  }
  const std::vector<Item>& items() const { return items_; }
  int selected() const { return selected_; }

 private:
  std::vector<Item> items_;
  int selected_ = 0;
};

}  // namespace cu
