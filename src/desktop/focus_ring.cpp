#include "desktop/focus_ring.h"

#include <QApplication>
#include <QPainter>

namespace cu::desktop {

FocusRing::FocusRing(QWidget* window) : QFocusFrame(window), home_(window) {
  setWidget(nullptr);
  hide();
  connect(qApp, &QApplication::focusChanged, this, [this] { follow(); });
}

void FocusRing::follow() {
  QWidget* const focus = QApplication::focusWidget();
  const bool ours = focus != nullptr && focus->window() == home_;
  setWidget(ours ? focus : nullptr);
}

void FocusRing::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QPen pen(palette().color(QPalette::Highlight), 2);
  painter.setPen(pen);
  painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), 3, 3);
}

}  // namespace cu::desktop
