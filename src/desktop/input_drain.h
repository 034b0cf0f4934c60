#pragma once

#include <QKeyEvent>
#include <memory>
#include <vector>

class QDialog;
class QWidget;

namespace cu::desktop {

// Discards pending mouse and keyboard events.
void drainInput();

// Does the same, but returns the pressed keys, for the window for which they were meant.
using Keys = std::vector<std::unique_ptr<QKeyEvent>>;
Keys drainKeys();

// Shows a dialog that blocks the window below it once it has the keyboard focus: until then that window still
// receives the keys, which are redirected into this widget of the dialog. Returns false when the keys have
// closed it.
bool showTakingKeys(QDialog& dialog, QWidget& typedInto);

}  // namespace cu::desktop
