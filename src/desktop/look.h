#pragma once

#include <QColor>
#include <QString>

class QApplication;

namespace cu::desktop::look {

enum class Colours { Desktop, Light, Dark };

// Sets style, palette and language of the window system's own texts; to be called before the first window.
void apply(QApplication& application, Colours colours);

bool dark();
QColor bandColor();
QColor bandInk();
QColor changedInk();  // for the mark of a box that was changed, on the same backgrounds
QColor warningInk();  // for error texts, on the background of a window or of a box

}  // namespace cu::desktop::look
