#pragma once

#include <QKeyEvent>
#include <memory>
#include <vector>

class QDialog;
class QWidget;

namespace cu::desktop {

// Takes mouse and keyboard events that wait, and drops them.
void drainInput();

// The same, but the keys that were pressed are given back, for a window that they were meant for.
using Keys = std::vector<std::unique_ptr<QKeyEvent>>;
Keys drainKeys();

// Shows a dialog that blocks the window below it once it has the keyboard itself: until then the keys still
// come to that one, which would lose them, and go into this widget of the dialog. False when they have closed
// it.
bool showTakingKeys(QDialog& dialog, QWidget& typedInto);

}  // namespace cu::desktop
