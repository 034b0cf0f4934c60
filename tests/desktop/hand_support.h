#pragma once

#include <nlohmann/json.hpp>
#include <string>

#include "desktop/screen_support.h"

namespace cu::test {

// Performs a command of a recorded run with mouse and keyboard on the widgets. Returns false when the user
// could not do it: the widget is disabled, hidden, or behind a modal window.
class Hand {
 public:
  explicit Hand(Screen& screen) : screen_(screen) {}
  bool perform(const nlohmann::json& command);

  // The kind of what waits for the user, with the driver's name for it; "" for nothing.
  static std::string waiting();
  static QWidget* modal();

 private:
  desktop::View* view(const std::string& fullName) const;
  desktop::FormWindow* window(const std::string& form) const;
  bool reachable(const QWidget& widget) const;
  bool click(const nlohmann::json& command);
  bool enter(const nlohmann::json& command);
  bool choose(const nlohmann::json& command);
  bool key(const nlohmann::json& command);
  bool press(const nlohmann::json& command, bool twice);
  bool menu(const nlohmann::json& command);
  bool answer(const nlohmann::json& with);

  Screen& screen_;
};

}  // namespace cu::test
