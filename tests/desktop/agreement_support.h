#pragma once

#include <string>

#include "desktop/form_window.h"

namespace cu::test {

// The differences between model and widgets of a window, one line each: enabled, visible, text, value, focus.
std::string disagreements(const desktop::FormWindow& window);

}  // namespace cu::test
