#pragma once

#include <QColor>
#include <QString>

class QApplication;

namespace cu::desktop::look {

enum class Colours { Desktop, Light, Dark };

// Style, palette, language of the window system's own texts; before the first window.
void apply(QApplication& application, Colours colours);

bool dark();
QColor bandColor();
QColor bandInk();
QColor warningInk();  // of words that report something wrong, on the ground of a window or of a box

}  // namespace cu::desktop::look
