#pragma once

class QAbstractItemView;
class QComboBox;
class QLineEdit;

namespace cu::desktop {

// Shows a read-only text that is wider than its box in a tooltip.
void tellWhole(QLineEdit& line);
void tellWhole(QComboBox& list);
// The same for each truncated cell of a table.
void tellWhole(QAbstractItemView& table);

}  // namespace cu::desktop
