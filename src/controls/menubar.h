#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "controls/control.h"

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
    bool enabled = true;  // its own state; the band may disable it too
    bool inert = false;   // kept for its key, without effect: a window does not show it
  };

  // The tools of a popup band are enabled only while `opens` returns true.
  void addBand(const std::string& band, std::function<bool()> opens = {}) {
    bands_.push_back(band);
    opens_[band] = std::move(opens);
  }
  void addTool(Tool tool) {
    tools_.push_back(std::move(tool));
    notify();
  }
  void clear() {
    bands_.clear();
    opens_.clear();
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
  // Whether the user can choose the tool now.
  bool toolAvailable(const Tool& tool) const {
    const auto band = opens_.find(tool.band);
    return tool.enabled && (band == opens_.end() || !band->second || band->second());
  }
  int style() const { return style_; }
  void setStyle(int style) {
    style_ = style;
    notify();
  }

  // A command without a tool runs; a tool that cannot be chosen is ignored.
  void click(const std::string& key) {
    const Tool* const chosen = tool(key);
    if (chosen != nullptr && !toolAvailable(*chosen)) return;
    if (onToolClick) onToolClick(key);
  }
  std::function<void(const std::string& key)> onToolClick;

 private:
  std::vector<std::string> bands_;
  std::map<std::string, std::function<bool()>, std::less<>> opens_;
  std::vector<Tool> tools_;
  int style_ = 0;
};

}  // namespace cu
