#include "desktop/input_drain.h"

#include <QCoreApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QEvent>
#include <QWindow>

namespace cu::desktop {
namespace {

constexpr qint64 kLongestOpening = 1000;  // milliseconds

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

// Redirects the keys of one window to a widget of another.
class Divert : public QObject {
 public:
  Divert(const QWindow* from, QWidget* to) : from_(from), to_(to) {
    QCoreApplication::instance()->installEventFilter(this);
  }
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched != from_) return false;
    switch (event->type()) {
      case QEvent::KeyPress: {
        const std::unique_ptr<QKeyEvent> key(static_cast<QKeyEvent*>(event)->clone());
        QCoreApplication::sendEvent(to_, key.get());
        return true;
      }
      case QEvent::KeyRelease:
      case QEvent::ShortcutOverride:
      case QEvent::MouseButtonPress:
      case QEvent::MouseButtonRelease:
      case QEvent::MouseButtonDblClick:
      case QEvent::Wheel:
      case QEvent::Close:
        return true;
      default:
        return false;
    }
  }

 private:
  const QWindow* from_;
  QWidget* to_;
};

// The toolkit recomputes which windows a modal one blocks when a window gets its parent.
void setParentOf(QWindow& window, QWindow* parent, QWindow& below) {
  window.setTransientParent(parent);
  below.setTransientParent(below.transientParent());
}

}  // namespace

bool showTakingKeys(QDialog& dialog, QWidget& typedInto) {
  QWindow* const below = dialog.parentWidget()->window()->windowHandle();
  dialog.setWindowModality(Qt::WindowModal);
  dialog.show();
  if (below == nullptr) return true;
  QWindow& window = *dialog.windowHandle();
  setParentOf(window, nullptr, *below);
  {
    QCoreApplication::sendPostedEvents(&typedInto);
    const Divert divert(below, &typedInto);
    QElapsedTimer opening;
    opening.start();
    while (dialog.isVisible() && !dialog.isActiveWindow() && opening.elapsed() < kLongestOpening) {
      QCoreApplication::processEvents(QEventLoop::AllEvents, 10);
    }
  }
  setParentOf(window, below, *below);
  return dialog.isVisible();
}

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
