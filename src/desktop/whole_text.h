#pragma once

class QComboBox;
class QLineEdit;

namespace cu::desktop {

// A text that cannot be typed into and is wider than its box is told whole by a tooltip.
void tellWhole(QLineEdit& line);
void tellWhole(QComboBox& list);

}  // namespace cu::desktop
