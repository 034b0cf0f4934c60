#include "desktop/row_marks.h"

#include <QApplication>
#include <QHelpEvent>
#include <QPainter>
#include <QPainterPath>
#include <QToolTip>

#include "desktop/grid_model.h"

namespace cu::desktop {
namespace {

constexpr int kMarkSide = 13;
constexpr int kMarkAround = 2;

// A pencil from the lower left to the upper right.
void paintPencil(QPainter& painter, const QColor& ink) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(ink);
  painter.drawPolygon(QPolygonF({{0.08, 0.92}, {0.16, 0.62}, {0.38, 0.84}}));
  painter.drawPolygon(QPolygonF({{0.22, 0.54}, {0.70, 0.08}, {0.92, 0.30}, {0.46, 0.78}}));
}

void paintBarredCircle(QPainter& painter, const QColor& ink) {
  painter.setPen(QPen(ink, 0.13));
  painter.setBrush(Qt::NoBrush);
  painter.drawEllipse(QRectF(0.1, 0.1, 0.8, 0.8));
  painter.drawLine(QPointF(0.24, 0.76), QPointF(0.76, 0.24));
}

void paintEmptyBox(QPainter& painter, const QColor& ink) {
  painter.setPen(QPen(ink, 0.12, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(QRectF(0.08, 0.22, 0.84, 0.56));
  painter.drawLine(QPointF(0.28, 0.5), QPointF(0.72, 0.5));
}

void paintWarning(QPainter& painter, const QColor& ink) {
  QPainterPath path;
  path.addPolygon(QPolygonF({{0.5, 0.04}, {0.98, 0.94}, {0.02, 0.94}, {0.5, 0.04}}));
  path.addRect(QRectF(0.44, 0.34, 0.12, 0.32));
  path.addRect(QRectF(0.44, 0.74, 0.12, 0.12));
  path.setFillRule(Qt::OddEvenFill);
  painter.fillPath(path, ink);
}

void paintSheets(QPainter& painter, const QColor& ink) {
  painter.setPen(QPen(ink, 0.1, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawPolyline(QPolygonF({{0.32, 0.1}, {0.9, 0.1}, {0.9, 0.7}}));
  painter.drawRect(QRectF(0.1, 0.3, 0.58, 0.6));
}

}  // namespace

void paintRowMark(QPainter& painter, const QRectF& square, RowMark mark, const QColor& ink) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(square.topLeft());
  painter.scale(square.width(), square.height());
  switch (mark) {
    case RowMark::None:
      break;
    case RowMark::Changed:
      paintPencil(painter, ink);
      break;
    case RowMark::LeftOut:
      paintBarredCircle(painter, ink);
      break;
    case RowMark::NoReference:
      paintEmptyBox(painter, ink);
      break;
    case RowMark::Lacking:
      paintWarning(painter, ink);
      break;
    case RowMark::More:
      paintSheets(painter, ink);
      break;
  }
  painter.restore();
}

QIcon rowMarkIcon(RowMark mark) {
  if (mark == RowMark::None) return {};
  constexpr int kMarkScale = 3;
  QPixmap picture(kMarkSide * kMarkScale, kMarkSide * kMarkScale);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  paintRowMark(painter, picture.rect(), mark, QApplication::palette().color(QPalette::ButtonText));
  painter.end();
  return picture;
}

MarkHeader::MarkHeader(const GridModel& model, const Grid& grid, QWidget* parent)
    : QHeaderView(Qt::Vertical, parent), model_(model), grid_(grid) {
  setSectionResizeMode(QHeaderView::Fixed);
  setSectionsClickable(false);
  setHighlightSections(false);
  setAccessibleName(QStringLiteral("Segni delle righe"));
  refresh();
}

void MarkHeader::refresh() {
  std::vector<std::size_t> places;
  for (std::size_t i = 0; i < grid_.states.size(); ++i) {
    const RowState& state = grid_.states[i];
    if (state.mark != RowMark::None && exists(grid_, state)) places.push_back(i);
  }
  if (places != places_) {
    places_ = std::move(places);
    updateGeometry();
    emit geometriesChanged();
  }
  setHidden(places_.empty());
  viewport()->update();
}

QSize MarkHeader::sizeHint() const {
  return {static_cast<int>(places_.size()) * (kMarkSide + kMarkAround) + 2 * kMarkAround,
          QHeaderView::sizeHint().height()};
}

QSize MarkHeader::sectionSizeFromContents(int /*row*/) const {
  return {sizeHint().width(), kMarkSide + kMarkAround};
}

void MarkHeader::paintSection(QPainter* painter, const QRect& place, int row) const {
  painter->fillRect(place, palette().color(QPalette::Base));
  const std::uint32_t on = model_.states(row);
  for (std::size_t i = 0; i < places_.size(); ++i) {
    if ((on >> places_[i] & 1U) == 0) continue;
    const QPoint corner(place.left() + kMarkAround + static_cast<int>(i) * (kMarkSide + kMarkAround),
                        place.center().y() - kMarkSide / 2);
    paintRowMark(*painter, QRect(corner, QSize(kMarkSide, kMarkSide)), grid_.states[places_[i]].mark,
                 palette().color(QPalette::Text));
  }
}

bool MarkHeader::viewportEvent(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QHeaderView::viewportEvent(event);
  const auto* const help = static_cast<QHelpEvent*>(event);
  const int row = logicalIndexAt(help->pos());
  const QString tip = row < 0 ? QString() : model_.headerData(row, Qt::Vertical, Qt::ToolTipRole).toString();
  QToolTip::showText(help->globalPos(), tip, viewport());
  return true;
}

}  // namespace cu::desktop
