#include "desktop/interruption.h"

#include <QCoreApplication>
#include <QEvent>
#include <QKeyEvent>

namespace cu::desktop {

Interruption::Interruption(QPushButton* button) : button_(button) {
  QCoreApplication::instance()->installEventFilter(this);
  if (button_ == nullptr) return;
  connect(button_, &QPushButton::clicked, this, [this] { ask(); });
  button_->setEnabled(true);
  button_->show();
}

Interruption::~Interruption() {
  if (button_ == nullptr) return;
  button_->disconnect(this);
  button_->hide();
}

void Interruption::ask() {
  asked_ = true;
  if (button_ != nullptr) button_->setEnabled(false);
}

bool Interruption::concernsButton(const QObject* watched) const {
  return button_ != nullptr && watched == button_;
}

// A window receives an event of the mouse before its widget does, and passes it on.
bool Interruption::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::KeyPress:
      if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) ask();
      return true;
    case QEvent::KeyRelease:
    case QEvent::InputMethod:
    case QEvent::Close:
      return true;
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
      return !concernsButton(watched);
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::Drop:
      return !watched->isWindowType() && !concernsButton(watched);
    default:
      return false;
  }
}

}  // namespace cu::desktop
