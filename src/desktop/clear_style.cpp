#include "desktop/clear_style.h"

#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>
#include <algorithm>

namespace cu::desktop {
namespace {

QColor edge(const QStyleOption& option) {
  QColor ink = option.palette.color(QPalette::WindowText);
  ink.setAlphaF((option.state & QStyle::State_Enabled) != 0 ? 0.42F : 0.3F);
  return ink;
}

void drawEdge(QPainter& painter, const QStyleOption& option) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(edge(option));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(QRectF(option.rect).adjusted(0.5, 0.5, -0.5, -0.5), 2.5, 2.5);
  painter.restore();
}

// A square or a circle, filled where it is on.
void drawMark(QPainter& painter, const QStyleOption& option, bool round) {
  const bool enabled = (option.state & QStyle::State_Enabled) != 0;
  const bool on = (option.state & QStyle::State_On) != 0;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  const double side = std::min(option.rect.width(), option.rect.height());
  QRectF place(0, 0, side, side);
  place.moveCenter(QRectF(option.rect).center());
  place.adjust(1, 1, -1, -1);
  const QPalette::ColorGroup group = enabled ? QPalette::Active : QPalette::Disabled;
  const QColor ground =
      on ? option.palette.color(group, QPalette::Highlight) : option.palette.color(group, QPalette::Base);
  painter.setBrush(ground);
  painter.setPen(on ? QPen(ground.darker(115)) : QPen(edge(option), 1.2));
  if (round) {
    painter.drawEllipse(place);
  } else {
    painter.drawRoundedRect(place, 2.5, 2.5);
  }
  if (on) {
    painter.setPen(Qt::NoPen);
    const QColor ink = option.palette.color(QPalette::HighlightedText);
    if (round) {
      painter.setBrush(ink);
      const double inner = side * 0.29;
      painter.drawEllipse(place.adjusted(inner, inner, -inner, -inner));
    } else {
      painter.setBrush(Qt::NoBrush);
      painter.setPen(QPen(ink, 1.8, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
      const auto at = [&](double x, double y) {
        return place.topLeft() + QPointF(x * place.width(), y * place.height());
      };
      painter.drawPolyline(QPolygonF({at(0.22, 0.52), at(0.43, 0.73), at(0.78, 0.29)}));
    }
  }
  painter.restore();
}

}  // namespace

ClearStyle::ClearStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void ClearStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
  if (element == PE_IndicatorCheckBox || element == PE_IndicatorItemViewItemCheck) {
    drawMark(*painter, *option, false);
  } else if (element == PE_IndicatorRadioButton) {
    drawMark(*painter, *option, true);
  } else {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element == PE_PanelLineEdit || element == PE_FrameGroupBox) drawEdge(*painter, *option);
  }
}

void ClearStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  if (control == CC_ComboBox || control == CC_SpinBox) drawEdge(*painter, *option);
}

int ClearStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* returned) const {
  // The focus line would otherwise be clipped at the edge of its parent.
  if (hint == SH_FocusFrame_AboveWidget) return 1;
  if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
  return QProxyStyle::styleHint(hint, option, widget, returned);
}

}  // namespace cu::desktop
