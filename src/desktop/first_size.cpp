#include "desktop/first_size.h"

#include <QScreen>
#include <QWidget>

#include "desktop/look.h"

namespace cu::desktop {
namespace {

constexpr QSize kAroundWindow(40, 60);  // the frame of the window, and some of what is behind it

}  // namespace

int inLetters(int length) { return length * look::letters() / look::kNormalLetters; }

QSize firstSize(const QWidget& window, QSize normal) {
  const QSize wanted(inLetters(normal.width()), inLetters(normal.height()));
  return wanted.boundedTo(window.screen()->availableSize() - kAroundWindow);
}

}  // namespace cu::desktop
