#include "desktop/clear_style.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QPainter>
#include <QPushButton>
#include <QStyleFactory>
#include <QStyleOption>
#include <algorithm>
#include <optional>
#include <utility>

#include "desktop/icons.h"

namespace cu::desktop {
namespace {

QColor edge(const QStyleOption& option) {
  QColor ink = option.palette.color(QPalette::WindowText);
  ink.setAlphaF((option.state & QStyle::State_Enabled) != 0 ? 0.42F : 0.3F);
  return ink;
}

// Of a mark that is off, which has nothing else to be seen by.
QColor markEdge(const QStyleOption& option) {
  QColor ink = edge(option);
  if (option.state.testFlag(QStyle::State_Enabled)) ink.setAlphaF(0.6F);
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
  painter.setPen(on ? QPen(ground.darker(115)) : QPen(markEdge(option), 1.2));
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

QColor mixed(const QColor& one, const QColor& other, double share) {
  const auto part = [&](int a, int b) { return static_cast<int>(a + (b - a) * share); };
  return {part(one.red(), other.red()), part(one.green(), other.green()), part(one.blue(), other.blue())};
}

// A flat button: lighter under the mouse, darker when it is down, the default one with a stronger edge.
void drawButtonPanel(QPainter& painter, const QStyleOption& option) {
  const bool enabled = option.state.testFlag(QStyle::State_Enabled);
  const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(&option);
  const bool byDefault =
      enabled && button != nullptr && button->features.testFlag(QStyleOptionButton::DefaultButton);
  const QPalette::ColorGroup group = enabled ? QPalette::Active : QPalette::Disabled;
  const QColor ink = option.palette.color(QPalette::Active, QPalette::ButtonText);
  QColor ground = option.palette.color(group, QPalette::Button);
  if (option.state.testFlag(QStyle::State_Sunken) || option.state.testFlag(QStyle::State_On)) {
    ground = mixed(ground, ink, 0.14);
  } else if (enabled && option.state.testFlag(QStyle::State_MouseOver)) {
    ground = mixed(ground, ink, 0.06);
  }
  const QColor highlight = option.palette.color(QPalette::Active, QPalette::Highlight);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(ground);
  painter.setPen(byDefault ? QPen(highlight, 1.6) : QPen(edge(option), 1));
  const double inset = byDefault ? 0.8 : 0.5;
  painter.drawRoundedRect(QRectF(option.rect).adjusted(inset, inset, -inset, -inset), 4, 4);
  painter.restore();
}

// Around the cell of the keyboard: the toolkit fills it, and its text is pale on a highlighted row.
void drawCellFocus(QPainter& painter, const QStyleOption& option) {
  const bool selected = option.state.testFlag(QStyle::State_Selected);
  painter.save();
  painter.setPen(option.palette.color(selected ? QPalette::HighlightedText : QPalette::Highlight));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
  painter.restore();
}

// A slider without arrows on the background of its area.
void drawScrollBar(QPainter& painter, const QStyleOptionSlider& bar, const QRect& slider) {
  const QColor ground = bar.palette.color(QPalette::Window);
  const QColor ink = bar.palette.color(QPalette::WindowText);
  painter.save();
  painter.fillRect(bar.rect, mixed(ground, ink, 0.04));
  const bool held =
      bar.state.testFlag(QStyle::State_Sunken) && bar.activeSubControls.testFlag(QStyle::SC_ScrollBarSlider);
  const double strength = held ? 0.62 : bar.state.testFlag(QStyle::State_MouseOver) ? 0.52 : 0.42;
  if (bar.maximum > bar.minimum) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(mixed(ground, ink, strength));
    const QRectF handle = QRectF(slider).adjusted(2.5, 2.5, -2.5, -2.5);
    const double radius = std::min(handle.width(), handle.height()) / 2;
    painter.drawRoundedRect(handle, radius, radius);
  }
  painter.restore();
}

// The place of the slider in a bar that is groove from end to end.
QRect sliderOf(const QStyleOptionSlider& bar) {
  constexpr int kShortest = 28;
  const bool across = bar.orientation == Qt::Horizontal;
  const int length = across ? bar.rect.width() : bar.rect.height();
  const qint64 range = qint64{bar.maximum} - bar.minimum;
  int size = length;
  if (range > 0) {
    size = static_cast<int>(qint64{length} * bar.pageStep / (range + bar.pageStep));
    size = std::min(length, std::max(kShortest, size));
  }
  const int at = QStyle::sliderPositionFromValue(bar.minimum, bar.maximum, bar.sliderPosition, length - size,
                                                 bar.upsideDown);
  const QRect slider = across ? QRect(bar.rect.left() + at, bar.rect.top(), size, bar.rect.height())
                              : QRect(bar.rect.left(), bar.rect.top() + at, bar.rect.width(), size);
  return slider;
}

void drawProgress(QPainter& painter, const QStyleOptionProgressBar& bar) {
  const QRectF around = QRectF(bar.rect).adjusted(0.5, 0.5, -0.5, -0.5);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(edge(bar));
  painter.setBrush(bar.palette.color(QPalette::Base));
  painter.drawRoundedRect(around, 3, 3);
  const double share = static_cast<double>(bar.progress - bar.minimum) / (bar.maximum - bar.minimum);
  if (share > 0) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(bar.palette.color(QPalette::Highlight));
    QRectF done = around.adjusted(1.5, 1.5, -1.5, -1.5);
    done.setWidth(std::max(4.0, done.width() * std::min(share, 1.0)));
    painter.drawRoundedRect(done, 2, 2);
  }
  painter.restore();
}

std::optional<Picture> pictureOfBox(QStyle::StandardPixmap wanted) {
  switch (wanted) {
    case QStyle::SP_MessageBoxInformation:
      return Picture::Information;
    case QStyle::SP_MessageBoxWarning:
      return Picture::Warning;
    case QStyle::SP_MessageBoxCritical:
      return Picture::Error;
    case QStyle::SP_MessageBoxQuestion:
      return Picture::Question;
    default:
      return std::nullopt;
  }
}

// Of the triangle of a button with a menu, in pixels.
constexpr int kMenuArrow = 8;
constexpr int kMenuEdge = 4;    // to the button's edge
constexpr int kMenuGap = 6;     // to the text
constexpr int kCellMargin = 4;  // on either side of a cell's text, less one

bool busy = false;

bool offWhileBusy(const QWidget* widget) {
  return busy && widget != nullptr && !widget->property(kUsableWhileBusy).toBool();
}

}  // namespace

void showBusy(bool on) {
  if (std::exchange(busy, on) == on) return;
  for (QWidget* const window : QApplication::topLevelWidgets()) {
    if (!window->isVisible()) continue;
    for (auto* const button : window->findChildren<QAbstractButton*>()) button->update();
  }
}

void ClearStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
  const auto* const bar = qstyleoption_cast<const QStyleOptionProgressBar*>(option);
  // A bar without a total moves, and has no text.
  if (element == CE_ProgressBar && bar != nullptr && bar->maximum > bar->minimum && !bar->textVisible) {
    drawProgress(*painter, *bar);
    return;
  }
  const auto* const button = qstyleoption_cast<const QStyleOptionButton*>(option);
  if (element == CE_PushButtonBevel && button != nullptr &&
      button->features.testFlag(QStyleOptionButton::HasMenu)) {
    drawMenuBevel(*button, painter, widget);
    return;
  }
  if (element != CE_PushButton || button == nullptr || !offWhileBusy(widget)) {
    QProxyStyle::drawControl(element, option, painter, widget);
    return;
  }
  QStyleOptionButton off = *button;
  off.state.setFlag(State_Enabled, false);
  off.state.setFlag(State_MouseOver, false);
  off.palette.setCurrentColorGroup(QPalette::Disabled);
  QProxyStyle::drawControl(element, &off, painter, widget);
}

// The triangle keeps its distance from the text.
void ClearStyle::drawMenuBevel(const QStyleOptionButton& button, QPainter* painter,
                               const QWidget* widget) const {
  QStyleOptionButton bare = button;
  bare.features.setFlag(QStyleOptionButton::HasMenu, false);
  QProxyStyle::drawControl(CE_PushButtonBevel, &bare, painter, widget);
  QStyleOptionButton arrow = button;
  arrow.rect = QRect(button.rect.right() - kMenuEdge - kMenuArrow, button.rect.center().y() - kMenuArrow / 2,
                     kMenuArrow, kMenuArrow);
  if (button.direction == Qt::RightToLeft) arrow.rect.moveLeft(button.rect.left() + kMenuEdge);
  drawPrimitive(PE_IndicatorArrowDown, &arrow, painter, widget);
}

ClearStyle::ClearStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

void ClearStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                               const QWidget* widget) const {
  if (element == PE_IndicatorCheckBox || element == PE_IndicatorItemViewItemCheck) {
    drawMark(*painter, *option, false);
  } else if (element == PE_IndicatorRadioButton) {
    drawMark(*painter, *option, true);
  } else if (element == PE_PanelButtonCommand) {
    drawButtonPanel(*painter, *option);
  } else if (element == PE_FrameFocusRect && qobject_cast<const QAbstractItemView*>(widget) != nullptr) {
    drawCellFocus(*painter, *option);
  } else {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element == PE_PanelLineEdit || element == PE_FrameGroupBox) drawEdge(*painter, *option);
  }
}

void ClearStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                    QPainter* painter, const QWidget* widget) const {
  const auto* const bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
  if (control == CC_ScrollBar && bar != nullptr) {
    drawScrollBar(*painter, *bar, sliderOf(*bar));
    return;
  }
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  if (control == CC_ComboBox || control == CC_SpinBox) drawEdge(*painter, *option);
}

QRect ClearStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                                 const QWidget* widget) const {
  const auto* const bar = qstyleoption_cast<const QStyleOptionSlider*>(option);
  if (control != CC_ScrollBar || bar == nullptr)
    return QProxyStyle::subControlRect(control, option, part, widget);
  const QRect slider = sliderOf(*bar);
  const QRect all = bar->rect;
  const bool across = bar->orientation == Qt::Horizontal;
  QRect result;
  switch (part) {
    case SC_ScrollBarGroove:
      result = all;
      break;
    case SC_ScrollBarSlider:
      result = slider;
      break;
    case SC_ScrollBarSubPage:
      result = all;
      across ? result.setRight(slider.left() - 1) : result.setBottom(slider.top() - 1);
      break;
    case SC_ScrollBarAddPage:
      result = all;
      across ? result.setLeft(slider.right() + 1) : result.setTop(slider.bottom() + 1);
      break;
    default:
      return {};  // no arrows
  }
  return visualRect(bar->direction, all, result);
}

int ClearStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const {
  if (metric == PM_ScrollBarExtent) return 14;
  if (metric == PM_ScrollBarSliderMin) return 28;
  // A number at the right of its column and the text of the next one are told apart.
  if (metric == PM_FocusFrameHMargin && qobject_cast<const QAbstractItemView*>(widget) != nullptr)
    return kCellMargin;
  if (metric == PM_MenuButtonIndicator && qobject_cast<const QPushButton*>(widget) != nullptr)
    return kMenuEdge + kMenuArrow + kMenuGap;
  return QProxyStyle::pixelMetric(metric, option, widget);
}

// The pictures of message boxes are the program's own.
QIcon ClearStyle::standardIcon(StandardPixmap wanted, const QStyleOption* option,
                               const QWidget* widget) const {
  const auto own = pictureOfBox(wanted);
  return own ? iconOf(*own) : QProxyStyle::standardIcon(wanted, option, widget);
}

QPixmap ClearStyle::standardPixmap(StandardPixmap wanted, const QStyleOption* option,
                                   const QWidget* widget) const {
  const auto own = pictureOfBox(wanted);
  return own ? pixmapOf(*own, pixelMetric(PM_MessageBoxIconSize, option, widget))
             : QProxyStyle::standardPixmap(wanted, option, widget);
}

int ClearStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                          QStyleHintReturn* returned) const {
  // The focus line would otherwise be clipped at the edge of its parent.
  if (hint == SH_FocusFrame_AboveWidget) return 1;
  if (hint == SH_DialogButtonBox_ButtonsHaveIcons) return 0;
  return QProxyStyle::styleHint(hint, option, widget, returned);
}

}  // namespace cu::desktop
