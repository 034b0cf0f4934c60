#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "controls/control.h"

namespace cu {

class Form;

// Why the user could not do it. It is raised before any change.
struct Refused {
  std::string reason;
};

// User actions on a form. Each first checks that it is possible and raises Refused otherwise; then the
// control gets the focus, and the event runs as in every front end.

void clickOn(Control& control);
// Selects the whole content and types the text; an empty text deletes the content.
void typeInto(Control& control, const std::string& text);
void pasteInto(Control& control, const std::string& text);
void focusOn(Control& control);
void leave(Control& control);  // the focus moves to no other control

// The choice, by any of the properties that a control supports.
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
// Returns true when a handler consumed the key.
bool pressKey(Control& grid, std::int16_t code, std::int16_t shift);
bool pressKey(Form& form, std::int16_t code, std::int16_t shift);
void turnWheel(Form& form, int delta);
void chooseTool(MenuBar& bar, const std::string& tool);  // the tool is required to exist and to be enabled
void closeBox(Form& form);

// "frmWizard.cmdNav(3)".
std::string fullName(const Control& control);

}  // namespace cu
