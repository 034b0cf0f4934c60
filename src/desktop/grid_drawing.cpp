#include "desktop/grid_drawing.h"

#include <QApplication>
#include <QPainter>
#include <QTableView>
#include <algorithm>

#include "desktop/grid_model.h"

namespace cu::desktop {
namespace {

constexpr int kPadding = 6;      // above and below a heading, together
constexpr int kHeadingSide = 5;  // as much as beside a cell's text
constexpr int kWrap = Qt::TextWordWrap | Qt::AlignVCenter;

QString drawnCaption(const QAbstractItemModel& model, int column) {
  const QString caption = model.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
  return countOnly(caption) ? unbroken(caption) : caption;
}

}  // namespace

WrappedHeader::WrappedHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
  setSectionsMovable(true);
  setSectionsClickable(true);
  setHighlightSections(false);
  setMinimumSectionSize(22);
  connect(this, &QHeaderView::sectionResized, this, [this] { fitHeight(); });
  connect(this, &QHeaderView::sortIndicatorChanged, this,
          [this](int column, Qt::SortOrder order) { setSorted(column, order == Qt::DescendingOrder); });
}

// Rows can end before their table, which then has no model.
QSize WrappedHeader::sectionSizeFromContents(int column) const {
  if (model() == nullptr) return QHeaderView::sectionSizeFromContents(column);
  const QString caption = drawnCaption(*model(), column);
  const QRect room(0, 0, std::max(20, sectionSize(column) - 2 * kHeadingSide), 1000);
  return fontMetrics().boundingRect(room, kWrap, caption).size() + QSize(2 * kHeadingSide, kPadding);
}

void WrappedHeader::fitHeight() {
  int height = fontMetrics().height() + kPadding;
  for (int column = 0; column < count(); ++column) {
    if (!isSectionHidden(column)) height = std::max(height, sectionSizeFromContents(column).height());
  }
  if (height == height_) return;
  height_ = height;
  updateGeometry();
  emit geometriesChanged();
}

QSize WrappedHeader::sizeHint() const { return {QHeaderView::sizeHint().width(), std::max(height_, 24)}; }

void WrappedHeader::paintSection(QPainter* painter, const QRect& place, int column) const {
  QStyleOptionHeader option;
  initStyleOption(&option);
  option.rect = place;
  option.section = column;
  style()->drawControl(QStyle::CE_HeaderSection, &option, painter, this);
  const QString caption = drawnCaption(*model(), column);
  const int align =
      model()->headerData(column, orientation(), Qt::TextAlignmentRole).toInt() & Qt::AlignHorizontal_Mask;
  painter->setPen(palette().color(QPalette::ButtonText));
  painter->drawText(place.adjusted(kHeadingSide, 0, -kHeadingSide, 0), kWrap | align, caption);
  if (column == sorted_) paintSortMark(*painter, place);
}

void WrappedHeader::setSorted(int column, bool descending) {
  sorted_ = column;
  descending_ = descending;
  viewport()->update();
}

// A line on the side of the smallest value, and an arrow in its middle, which no caption reaches.
void WrappedHeader::paintSortMark(QPainter& painter, const QRect& place) const {
  constexpr int kThick = 3;
  constexpr int kHalf = 5;
  const QColor ink = palette().color(QPalette::Highlight);
  const int edge = descending_ ? place.bottom() - kThick + 1 : place.top();
  painter.fillRect(QRect(place.left(), edge, place.width(), kThick), ink);
  const int base = descending_ ? place.bottom() - kThick - kHalf + 1 : place.top() + kThick + kHalf;
  const int tip = descending_ ? base + kHalf : base - kHalf;
  const int middle = place.center().x();
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ink);
  painter.drawPolygon(QPolygon({{middle - kHalf, base}, {middle + kHalf, base}, {middle, tip}}));
  painter.restore();
}

QColor paleInk(const QPalette& palette) {
  const QColor text = palette.color(QPalette::Text);
  const QColor base = palette.color(QPalette::Base);
  constexpr float kWeight = 0.66F;
  const auto mix = [](float a, float b) { return a * kWeight + b * (1 - kWeight); };
  return QColor::fromRgbF(mix(text.redF(), base.redF()), mix(text.greenF(), base.greenF()),
                          mix(text.blueF(), base.blueF()));
}

void CellPainter::paint(QPainter* painter, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const {
  const auto* const model = static_cast<const GridModel*>(index.model());
  const bool menu = model->isMenu(index.column());
  if (menu || model->isFlag(index.column())) {
    paintMark(painter, option, index, menu);
  } else {
    QStyledItemDelegate::paint(painter, option, index);
  }
  paintCurrentRow(painter, option, index);
}

void paintCurrentRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) {
  const auto* const table = qobject_cast<const QTableView*>(option.widget);
  if (table == nullptr || table->currentIndex().row() != index.row()) return;
  constexpr int kThick = 2;
  const QRect& cell = option.rect;
  const QColor ink = option.palette.color(QPalette::Text);
  painter->fillRect(QRect(cell.left(), cell.top(), cell.width(), kThick), ink);
  painter->fillRect(QRect(cell.left(), cell.bottom() - kThick + 1, cell.width(), kThick), ink);
}

// The toolkit's is drawn with a part of the ink.
void CellPainter::paintArrow(QPainter& painter, const QPoint& middle, const QColor& ink) {
  constexpr int kHalf = 4;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ink);
  painter.drawPolygon(
      QPolygon({middle + QPoint(-kHalf, -2), middle + QPoint(kHalf, -2), middle + QPoint(0, kHalf - 2)}));
  painter.restore();
}

void CellPainter::paintMark(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                            bool menu) const {
  const auto* const model = static_cast<const GridModel*>(index.model());
  QStyleOptionViewItem cell = option;
  initStyleOption(&cell, index);
  cell.text.clear();
  const QWidget* const widget = option.widget;
  const QStyle* const style = widget != nullptr ? widget->style() : QApplication::style();
  style->drawControl(QStyle::CE_ItemViewItem, &cell, painter, widget);
  const int side = std::min(style->pixelMetric(QStyle::PM_IndicatorWidth), option.rect.height() - 4);
  QStyleOption mark;
  mark.initFrom(widget);
  mark.rect = QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, {side, side}, option.rect);
  mark.state = QStyle::State_Enabled;
  // On the selection colour, arrow and mark have the colour of selected text.
  const bool selected = option.state.testFlag(QStyle::State_Selected);
  if (menu) {
    paintArrow(*painter, mark.rect.center(),
               cell.palette.color(selected ? QPalette::HighlightedText : QPalette::Text));
    return;
  }
  if (selected) {
    mark.palette.setColor(QPalette::Base, cell.palette.color(QPalette::HighlightedText));
    mark.palette.setColor(QPalette::Highlight, cell.palette.color(QPalette::HighlightedText));
    mark.palette.setColor(QPalette::HighlightedText, cell.palette.color(QPalette::Highlight));
  }
  mark.state |= model->flag(index.row(), index.column()) ? QStyle::State_On : QStyle::State_Off;
  style->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &mark, painter, widget);
}

}  // namespace cu::desktop
