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

// Actions done by hand in the window and then given to the driver, which walks a wizard of its own on a fresh
// copy of the same database: after each action both have the same windows, boxes, focus and controls.
class Together {
 public:
  using Commands = std::vector<nlohmann::json>;

  explicit Together(Screen& screen) : screen_(screen) {}

  // `act` is done in the window. `commands` are asked for when it has ended: what the driver is given for it.
  void step(std::string what, std::function<void()> act, std::function<Commands()> commands);
  // The same without a look at the state: something follows that belongs to it.
  void part(std::function<void()> act, std::function<Commands()> commands);
  // For a step that decides what comes next: steps added while `act` runs come before those that wait.
  void then(std::function<void()> decide);

  void run();
  // The window's form in front; the driver's commands name it.
  Form& front() const { return screen_.top()->form(); }
  std::string named(const std::string& control) const { return front().name() + "." + control; }

 private:
  struct Step {
    enum class Kind { Whole, Part, Decision } kind;
    std::string what;
    std::function<void()> act;
    std::function<Commands()> commands;
  };
  // What the window was like, its controls as the driver writes them in a line.
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
  std::vector<std::string> drive() const;  // its answers
  void compare() const;
  static void compare(const Done& done, std::string answer);

  Screen& screen_;
  std::deque<Step> waiting_;
  std::deque<Step>* adding_ = &waiting_;
  std::optional<Step> running_;
  std::vector<Done> done_;
  Commands parts_;  // of what is not done yet
  QEventLoop* loop_ = nullptr;
  int acts_ = 0;
  int acting_ = 0;            // the number of the act that has not come back
  QWidget* modal_ = nullptr;  // when it began
};

}  // namespace cu::test
