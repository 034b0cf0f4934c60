// Preloaded into a program with a window: ends it, with code 0, once its first window has been drawn.

#include <unistd.h>

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>

namespace {

class FirstPicture : public QObject {
 public:
  bool eventFilter(QObject* watched, QEvent* event) override {
    const auto* const widget = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::Paint && widget != nullptr && widget->isWindow()) {
      // The picture is complete when the painting function has returned.
      QTimer::singleShot(0, [] { _exit(0); });
    }
    return false;
  }
};

void watch() {
  static FirstPicture picture;
  QCoreApplication::instance()->installEventFilter(&picture);
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(watch)
