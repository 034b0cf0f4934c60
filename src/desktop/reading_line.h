#pragma once

class QLineEdit;

namespace cu::desktop {

// Shows a line as a text to read: it cannot be changed and has no keyboard focus, but its text can be
// selected with the mouse and copied, also by Ctrl+C while the focus is elsewhere.
void showForReading(QLineEdit& line, bool reading);

}  // namespace cu::desktop
