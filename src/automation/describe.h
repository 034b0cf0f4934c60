#pragma once

#include "automation/json.h"
#include "base/value.h"
#include "controls/control.h"

namespace cu {

class Form;
class Grid;

// The properties of a control, of a form, of all of a form's controls by name.
JsonObject describe(Control& control);
JsonObject describe(const Form& form);
JsonObject describeTree(const Form& form);

// The rows of a grid from `from`, counted from 1: by column, the values as stored and, under "shown", as
// displayed.
JsonObject describeRows(const Grid& grid, std::size_t from, std::size_t count);

// A value as stored: null, a number, a text, a date as "yyyy-mm-dd".
JsonObject describe(const CellView& value);

}  // namespace cu
