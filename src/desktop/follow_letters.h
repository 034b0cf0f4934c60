#pragma once

#include <functional>

class QObject;
class QWidget;

namespace cu::desktop {

// For sizes that are measured in letters: runs `fit` now, and again when the letters of the widget have
// changed. What is returned belongs to the widget; without it nothing runs any more.
QObject* followLetters(QWidget& widget, std::function<void()> fit);

}  // namespace cu::desktop
