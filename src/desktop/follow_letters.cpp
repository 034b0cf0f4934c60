#include "desktop/follow_letters.h"

#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <utility>

namespace cu::desktop {
namespace {

// The parts of a widget learn of the letters after it: what is measured by them waits for the end of the
// event.
class LettersFollower : public QObject {
 public:
  LettersFollower(QWidget& widget, std::function<void()> fit) : QObject(&widget), fit_(std::move(fit)) {
    widget.installEventFilter(this);
    fit_();
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::FontChange) QTimer::singleShot(0, this, [this] { fit_(); });
    return QObject::eventFilter(watched, event);
  }

 private:
  std::function<void()> fit_;
};

}  // namespace

QObject* followLetters(QWidget& widget, std::function<void()> fit) {
  return new LettersFollower(widget, std::move(fit));
}

}  // namespace cu::desktop
