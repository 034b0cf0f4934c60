#pragma once

#include <QSize>

class QWidget;

namespace cu::desktop {

// In pixels: a length measured with normal letters, with the letters chosen.
int inLetters(int length);

// The size in which a window opens, from the one for normal letters: as much larger as the letters are, as
// far as its screen has room.
QSize firstSize(const QWidget& window, QSize normal);

}  // namespace cu::desktop
