#pragma once

#include <QPalette>
#include <functional>

class QWidget;

namespace cu::desktop {

// The colours that a widget has of its own: `choose` sets them in a copy of the program's palette, now and
// again whenever that palette changes. A later choice replaces the earlier one; an empty one leaves the
// program's palette.
void setOwnColours(QWidget& widget, std::function<void(QPalette&)> choose);

}  // namespace cu::desktop
