#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "controls/control.h"

namespace cu {

class Form;

// Why a person could not do it. Whoever raises it has changed nothing.
struct Refused {
  std::string reason;
};

// What a person's hand does to a form. Each of these first makes sure that it can be done and raises Refused
// otherwise; then the control takes the focus, and the event runs as the front end runs events.

void clickOn(Control& control);
// The whole content is selected and the text typed; an empty one deletes the content.
void typeInto(Control& control, const std::string& text);
void pasteInto(Control& control, const std::string& text);
void focusOn(Control& control);
void leave(Control& control);  // nothing else takes the focus

// What is chosen, by whatever the control offers.
struct Choice {
  std::optional<std::int64_t> index;
  std::optional<std::string> text;
  std::optional<std::int64_t> record;
  std::optional<std::string> code;
  std::optional<std::string> description;
  std::optional<std::string> report;
  std::optional<std::int64_t> output;
};
void choose(Control& control, const Choice& choice);

// Rows are counted from 1; row 0 is the grid's header.
void selectRow(Control& grid, std::int64_t row);
void pressCell(Control& grid, std::int64_t row, const std::string& column);
void doubleClickRow(Control& grid, std::int64_t row);
// True when a handler consumed the key.
bool pressKey(Control& grid, std::int16_t code, std::int16_t shift);
bool pressKey(Form& form, std::int16_t code, std::int16_t shift);
void turnWheel(Form& form, int delta);
void chooseTool(MenuBar& bar, const std::string& tool);  // one that the bar has, enabled
void closeBox(Form& form);

// "frmWizard.cmdNav(3)".
std::string fullName(const Control& control);

}  // namespace cu
