#pragma once

#include <deque>
#include <functional>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

#include "desktop/screen_support.h"

class QEventLoop;

namespace cu::test {

// Actions performed by hand in the window and then sent to the driver, which runs a wizard of its own on a
// new copy of the same database: after each action both have the same windows, boxes, focus and controls.
class Together {
 public:
  using Commands = std::vector<nlohmann::json>;

  explicit Together(Screen& screen) : screen_(screen) {}

  // `act` runs in the window. `commands` is called afterwards and returns the corresponding commands for the
  // driver.
  void step(std::string what, std::function<void()> act, std::function<Commands()> commands);
  // The same without comparing the state: a later part completes the step.
  void part(std::function<void()> act, std::function<Commands()> commands);
  // For a step that determines the next ones: steps added while `act` runs come before those already queued.
  void then(std::function<void()> decide);

  void run();
  // The window's front form; the driver's commands contain its name.
  Form& front() const { return screen_.top()->form(); }
  std::string named(const std::string& control) const { return front().name() + "." + control; }

 private:
  struct Step {
    enum class Kind { Whole, Part, Decision } kind;
    std::string what;
    std::function<void()> act;
    std::function<Commands()> commands;
  };
  // The state of the window, with its controls in the driver's format, as one line.
  struct State {
    nlohmann::json brief;
    std::string front;
    std::string tree;
  };
  struct Done {
    std::string what;
    Commands commands;
    State state;
  };

  void next();
  void note(const Step& ended);
  void giveUp();
  State state() const;
  std::vector<std::string> drive() const;  // returns the answers
  void compare() const;
  static void compare(const Done& done, std::string answer);

  Screen& screen_;
  std::deque<Step> waiting_;
  std::deque<Step>* adding_ = &waiting_;
  std::optional<Step> running_;
  std::vector<Done> done_;
  Commands parts_;  // of the incomplete step
  QEventLoop* loop_ = nullptr;
  int acts_ = 0;
  int acting_ = 0;            // the number of the act that has not returned yet
  QWidget* modal_ = nullptr;  // at its beginning
  int level_ = 0;             // of the event loops, where no modal window is open
};

}  // namespace cu::test
