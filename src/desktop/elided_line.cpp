#include "desktop/elided_line.h"

#include "desktop/text.h"

namespace cu::desktop {

ElidedLine::ElidedLine(QWidget* parent) : QLabel(parent) { setTextFormat(Qt::PlainText); }

QSize ElidedLine::minimumSizeHint() const { return {0, QLabel::minimumSizeHint().height()}; }

QSize ElidedLine::sizeHint() const {
  return {fontMetrics().horizontalAdvance(whole_) + 2, QLabel::sizeHint().height()};
}

void ElidedLine::setWhole(const QString& text) {
  if (whole_ == text) return;
  whole_ = text;
  setAccessibleName(text);
  updateGeometry();
  cut();
}

void ElidedLine::resizeEvent(QResizeEvent* event) {
  QLabel::resizeEvent(event);
  cut();
}

void ElidedLine::cut() {
  const QString fitting = fontMetrics().elidedText(whole_, Qt::ElideRight, width());
  setText(fitting);
  setToolTip(fitting == whole_ ? QString() : sentenceTip(whole_));
}

}  // namespace cu::desktop
