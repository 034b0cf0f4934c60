#pragma once

#include <memory>

#include "desktop/view.h"

namespace cu::desktop {

// The view of a control, by its kind; its widget a child of `parent`.
std::unique_ptr<View> makeView(FormWindow& window, Control& control, QWidget* parent);

}  // namespace cu::desktop
