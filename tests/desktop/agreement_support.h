#pragma once

#include <string>

#include "desktop/form_window.h"

namespace cu::test {

// Where model and widgets of a window do not say the same, one line each: enabled, visible, text, value,
// focus.
std::string disagreements(const desktop::FormWindow& window);

}  // namespace cu::test
