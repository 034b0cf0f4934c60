#include "desktop/section.h"

#include <QPainter>
#include <QPainterPath>

namespace cu::desktop {

void Section::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF around = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
  const int bar = contentsRect().top() - 2;
  QColor tint = palette().color(QPalette::Highlight);
  tint.setAlphaF(isEnabled() ? 0.16F : 0.06F);
  QPainterPath shape;
  shape.addRoundedRect(around, 4, 4);
  painter.setClipPath(shape);
  painter.fillRect(QRect(0, 0, width(), bar), tint);
  painter.setClipping(false);
  QColor line = palette().color(QPalette::WindowText);
  line.setAlphaF(0.22F);
  painter.setPen(line);
  painter.drawPath(shape);
  QFont bold = font();
  bold.setBold(true);
  painter.setFont(bold);
  painter.setPen(palette().color(QPalette::WindowText));
  const int flags = Qt::AlignVCenter | Qt::TextShowMnemonic;
  painter.drawText(QRect(10, 0, width() - 20, bar), flags, title());
}

}  // namespace cu::desktop
