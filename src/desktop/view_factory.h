#pragma once

#include <memory>

#include "desktop/view.h"

namespace cu::desktop {

// Creates the view for the kind of control; its widget is a child of `parent`.
std::unique_ptr<View> makeView(FormWindow& window, Control& control, QWidget* parent);

}  // namespace cu::desktop
