#include "desktop/input_drain.h"

#include <QCoreApplication>
#include <QEvent>

namespace cu::desktop {
namespace {

class Swallow : public QObject {
 public:
  Swallow() { QCoreApplication::instance()->installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    switch (event->type()) {
      case QEvent::KeyPress:
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
};

}  // namespace

void drainInput() {
  const Swallow swallow;
  QCoreApplication::processEvents();
}

}  // namespace cu::desktop
