#include "desktop/window_memory.h"

#include <QApplication>
#include <QEvent>
#include <QFileDialog>
#include <QMessageBox>
#include <QScreen>
#include <QSettings>
#include <QWidget>
#include <QWindow>
#include <algorithm>
#include <typeinfo>

#include "desktop/look.h"

namespace cu::desktop {
namespace {

constexpr const char* kSizeRemembered = "dimensioneRicordata";
constexpr int kFrameAbove = 32;  // the title bar of a window, estimated

bool isKept(const QObject* watched) {
  if (!watched->isWidgetType()) return false;
  const auto* const widget = static_cast<const QWidget*>(watched);
  if (!widget->isWindow()) return false;
  const Qt::WindowType type = widget->windowType();
  if (type != Qt::Window && type != Qt::Dialog) return false;
  // As large as their text; the toolkit's own.
  return qobject_cast<const QMessageBox*>(widget) == nullptr &&
         qobject_cast<const QFileDialog*>(widget) == nullptr;
}

// A size fits the letters with which it was chosen.
QString keyOf(const QWidget& window) {
  const QString name =
      window.objectName().isEmpty() ? QString::fromLatin1(typeid(window).name()) : window.objectName();
  return QStringLiteral("finestre/%1/%2").arg(look::letters()).arg(name);
}

QList<QRect> availableScreens() {
  QList<QRect> screens;
  for (const QScreen* const screen : QGuiApplication::screens()) screens += screen->availableGeometry();
  return screens;
}

}  // namespace

QRect onScreen(const QRect& wanted, const QList<QRect>& screens) {
  QRect best = screens.first();
  qint64 most = 0;
  for (const QRect& screen : screens) {
    const QRect common = screen & wanted;
    const qint64 area = common.isEmpty() ? 0 : qint64{common.width()} * common.height();
    if (area <= most) continue;
    most = area;
    best = screen;
  }
  const QSize size = wanted.size().boundedTo(best.size() - QSize(0, kFrameAbove));
  return {
      QPoint(std::clamp(wanted.left(), best.left(), best.left() + best.width() - size.width()),
             std::clamp(wanted.top(), best.top(), best.top() + best.height() - size.height() - kFrameAbove)),
      size};
}

bool sizeRemembered(const QWidget& window) { return window.property(kSizeRemembered).toBool(); }

WindowMemory::WindowMemory() { QCoreApplication::instance()->installEventFilter(this); }

void WindowMemory::forget() { QSettings().remove(QStringLiteral("finestre")); }

bool WindowMemory::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::Show:
      if (!event->spontaneous() && isKept(watched)) restore(*static_cast<QWidget*>(watched));
      break;
    // A change by the user comes from the window system.
    case QEvent::Resize:
      if (event->spontaneous() && isKept(watched)) changed_[watched].size = true;
      break;
    case QEvent::Move:
      if (event->spontaneous() && isKept(watched)) changed_[watched].place = true;
      break;
    case QEvent::Hide:
      if (!event->spontaneous() && changed_.contains(watched) && isKept(watched))
        store(*static_cast<QWidget*>(watched), changed_.take(watched));
      break;
    case QEvent::Destroy:
      changed_.remove(watched);
      break;
    default:
      break;
  }
  return QObject::eventFilter(watched, event);
}

void WindowMemory::restore(QWidget& window) const {
  const QSettings memory;
  const QString key = keyOf(window);
  const QSize size = memory.value(key + QStringLiteral("/dimensione")).toSize();
  const QVariant place = memory.value(key + QStringLiteral("/posto"));
  const bool maximised = memory.value(key + QStringLiteral("/intera")).toBool();
  if (size.isEmpty() && !place.isValid()) return;
  QRect wanted(window.pos(), size.isEmpty() ? window.size() : size.expandedTo(window.minimumSizeHint()));
  if (place.isValid()) {
    wanted.moveTopLeft(place.toPoint());
  } else {
    wanted.moveCenter(QRect(window.pos(), window.size()).center());
  }
  wanted = onScreen(wanted, availableScreens());
  window.setProperty(kSizeRemembered, !size.isEmpty());
  window.resize(wanted.size());
  window.move(wanted.topLeft());
  // A window that exists already, and has no frame yet, would be moved without it: its title above its place.
  if (window.windowHandle() != nullptr) window.windowHandle()->setFramePosition(wanted.topLeft());
  if (maximised) window.setWindowState(window.windowState() | Qt::WindowMaximized);
}

// A dialog opens over its window, wherever that is.
void WindowMemory::store(const QWidget& window, Changed changed) const {
  QSettings memory;
  const QString key = keyOf(window);
  const bool maximised = window.isMaximized();
  memory.setValue(key + QStringLiteral("/intera"), maximised);
  if (maximised) return;
  if (changed.size) memory.setValue(key + QStringLiteral("/dimensione"), window.size());
  if (changed.place && window.parentWidget() == nullptr)
    memory.setValue(key + QStringLiteral("/posto"), window.pos());
}

}  // namespace cu::desktop
