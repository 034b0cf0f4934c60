#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "host/control.h"

namespace cu {

// The menu bar: tools by key, in bands.
class MenuBar : public Control {
 public:
  using Control::Control;
  void accept(ControlVisitor& visitor) override { visitor.visit(*this); }
  bool takesFocus() const override { return false; }

  struct Tool {
    std::string key;
    int id = 0;
    std::string band;
    std::string caption;
    std::string shortcut;
    bool enabled = true;
  };

  void addBand(const std::string& band) { bands_.push_back(band); }
  void addTool(Tool tool) {
    tools_.push_back(std::move(tool));
    notify();
  }
  void clear() {
    bands_.clear();
    tools_.clear();
    notify();
  }
  const std::vector<std::string>& bands() const { return bands_; }
  const std::vector<Tool>& tools() const { return tools_; }
  const Tool* tool(std::string_view key) const {
    for (const Tool& tool : tools_) {
      if (tool.key == key) return &tool;
    }
    return nullptr;
  }
  void setToolEnabled(std::string_view key, bool enabled) {
    for (Tool& tool : tools_) {
      if (tool.key == key) tool.enabled = enabled;
    }
    notify();
  }
  int style() const { return style_; }
  void setStyle(int style) {
    style_ = style;
    notify();
  }

  void click(const std::string& key) {
    if (onToolClick) onToolClick(key);
  }
  std::function<void(const std::string& key)> onToolClick;

 private:
  std::vector<std::string> bands_;
  std::vector<Tool> tools_;
  int style_ = 0;
};

}  // namespace cu
