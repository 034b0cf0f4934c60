#pragma once

#include <string>

class QWidget;

namespace cu::desktop {
class FormWindow;
}

namespace cu::test {

// The widgets that accept the focus without a role or a name; "" when there are none.
std::string nameless(const desktop::FormWindow& window);

// Texts wider or higher than the widget that shows them; "" when there are none.
std::string cutTexts(const QWidget& window);

}  // namespace cu::test
