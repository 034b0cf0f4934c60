#pragma once

#include <QColor>
#include <QString>

class QApplication;
class QWidget;

namespace cu::desktop::look {

enum class Colours { Desktop, Light, Dark };

// Sets style, palette and language of the window system's own texts; to be called before the first window.
void apply(QApplication& application, Colours colours);

// The colours and the size of the letters of the running program, at once in every window.
void setColours(Colours colours);
Colours colours();
inline constexpr int kNormalLetters = 100;
inline constexpr int kSmallestLetters = 100;
inline constexpr int kLargestLetters = 175;
void setLetters(int percent);  // of the desktop's size
int letters();
// Stores both for the user's next start.
void remember();
Colours rememberedColours();
int rememberedLetters();

// Keeps a button's text in the colour of links, whatever the colours.
void inkAsLink(QWidget& widget);

bool dark();
QColor bandColor();
QColor bandInk();
QColor changedInk();  // for the mark of a box that was changed, on the same backgrounds
QColor warningInk();  // for error texts, on the background of a window or of a box

}  // namespace cu::desktop::look
