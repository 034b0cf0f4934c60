#pragma once

class QAbstractItemView;
class QComboBox;
class QLineEdit;

namespace cu::desktop {

// A text that cannot be typed into and is wider than its box is told whole by a tooltip.
void tellWhole(QLineEdit& line);
void tellWhole(QComboBox& list);
// Each cell of a table that is cut.
void tellWhole(QAbstractItemView& table);

}  // namespace cu::desktop
