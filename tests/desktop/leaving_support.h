#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "desktop/together_support.h"

namespace cu::test {

// A form, or a page of one, whose fields are typed into and left in every way available to the user: by Tab
// and Shift+Tab, a mnemonic, a click on another field, on the background and on a button, Enter, Esc, and a
// switch to another window.
struct Place {
  std::function<void()> enter;  // queues the steps that bring it to the front from any state
  std::string other;            // a field to click, and a second one for that field itself
  std::string another;
  std::string button;  // a button to press; "" for none
  Qt::Key mnemonic = Qt::Key_unknown;
  std::function<void()> back;  // queues the steps back from the state after the button
  bool enterCloses = true;
};

class Leaving : public ::testing::Test {
 protected:
  explicit Leaving(std::int32_t mode = 247) : screen(mode), together(screen) {}

  // Queues every way for every field of the place that the user can reach when its turn comes.
  void walk(const Place& place);
  // Queue steps: press a button of the front form; press Esc until the wizard is in front; answer the boxes
  // that wait, in both wizards with this word.
  void click(const char* button);
  void closeForms();
  void answerBoxes(const char* caption = "OK", const char* answer = "ok");

  Screen screen;
  Together together;
  std::size_t visited = 0;

 private:
  enum class Way { Tab, ShiftTab, OtherField, Ground, WindowSwitch, Esc, Mnemonic, ButtonClick, Enter };

  std::vector<std::string> fields() const;
  Control& control(const std::string& name) const { return *together.front().find(name); }
  QWidget& keyboard() const;
  desktop::FormWindow& screenTop() const;
  QWidget& widgetOf(const std::string& field) const;
  void visit(const Place& place, const std::string& field, Way way);
  void enter(const std::string& field);
  void change(const std::string& field);
  void changeSelector(const std::string& field);
  std::string textFor(const std::string& field) const;
  void leave(const Place& place, const std::string& field, Way way, const std::string& what);
  void tab(const std::string& field, bool forward);
  void switchWindow();
  void takeBack(const std::string& field, const std::string& what);
  void leaveToField(const Place& place, const std::string& field, const std::string& what);
  void leaveByButton(const Place& place, Way way, const std::string& what);
  void leaveByEnter(const Place& place, const std::string& what);
  void dropModule();
  Together::Commands after(nlohmann::json command);
  Together::Commands pressed(const std::string& button);
  Together::Commands focusNow(const std::string& field);

  int visits_ = 0;
  std::string form_;            // the front form when a step began
  Together::Commands typed_;    // the driver's commands for the text typed,
  Together::Commands pending_;  // and those that follow only when the field is left
  std::string before_;          // the text when the field got the focus
};

}  // namespace cu::test
