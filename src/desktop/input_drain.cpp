#include "desktop/input_drain.h"

#include <QCoreApplication>
#include <QEvent>

namespace cu::desktop {
namespace {

class Swallow : public QObject {
 public:
  explicit Swallow(Keys* pressed) : pressed_(pressed) {
    QCoreApplication::instance()->installEventFilter(this);
  }
  bool eventFilter(QObject*, QEvent* event) override {
    switch (event->type()) {
      case QEvent::KeyPress:
        if (pressed_ != nullptr) pressed_->emplace_back(static_cast<QKeyEvent*>(event)->clone());
        return true;
      case QEvent::KeyRelease:
      case QEvent::ShortcutOverride:
      case QEvent::Shortcut:
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonRelease:
      case QEvent::MouseButtonDblClick:
      case QEvent::Wheel:
      case QEvent::ContextMenu:
      case QEvent::Close:
        return true;
      default:
        return false;
    }
  }

 private:
  Keys* pressed_;
};

}  // namespace

void drainInput() {
  const Swallow swallow(nullptr);
  QCoreApplication::processEvents();
}

Keys drainKeys() {
  Keys pressed;
  const Swallow swallow(&pressed);
  QCoreApplication::processEvents();
  return pressed;
}

}  // namespace cu::desktop
