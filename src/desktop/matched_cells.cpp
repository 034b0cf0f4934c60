#include "desktop/matched_cells.h"

#include <QApplication>
#include <QPainter>
#include <QStyle>
#include <QTextLayout>
#include <cmath>
#include <utility>

#include "desktop/grid_drawing.h"

namespace cu::desktop {
namespace {

QList<QTextLayout::FormatRange> emphasised(const std::vector<Stretch>& parts) {
  QList<QTextLayout::FormatRange> formats;
  for (const Stretch& each : parts) {
    QTextLayout::FormatRange range;
    range.start = static_cast<int>(each.from);
    range.length = static_cast<int>(each.length);
    range.format.setFontWeight(QFont::Bold);
    range.format.setFontUnderline(true);
    formats.push_back(range);
  }
  return formats;
}

}  // namespace

MatchedCells::MatchedCells(Matched matched, QObject* parent)
    : QStyledItemDelegate(parent), matched_(std::move(matched)) {}

void MatchedCells::paint(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  QStyleOptionViewItem cell = option;
  initStyleOption(&cell, index);
  const QString text = cell.text;
  const std::vector<Stretch> parts = matched_(text);
  if (parts.empty()) {
    QStyledItemDelegate::paint(painter, option, index);
    paintCurrentRow(painter, option, index);
    return;
  }
  const QStyle& style = cell.widget != nullptr ? *cell.widget->style() : *QApplication::style();
  const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, &cell, cell.widget) + 1;
  const QRect place =
      style.subElementRect(QStyle::SE_ItemViewItemText, &cell, cell.widget).adjusted(margin, 0, -margin, 0);
  cell.text.clear();
  style.drawControl(QStyle::CE_ItemViewItem, &cell, painter, cell.widget);
  QTextLayout layout(text, cell.font);
  QTextOption oneLine;
  oneLine.setWrapMode(QTextOption::NoWrap);
  layout.setTextOption(oneLine);
  layout.setFormats(emphasised(parts));
  layout.beginLayout();
  const QTextLine line = layout.createLine();
  layout.endLayout();
  const bool chosen = cell.state.testFlag(QStyle::State_Selected);
  const bool active = cell.state.testFlag(QStyle::State_Active);
  painter->save();
  painter->setClipRect(place);
  painter->setPen(cell.palette.color(active ? QPalette::Active : QPalette::Inactive,
                                     chosen ? QPalette::HighlightedText : QPalette::Text));
  layout.draw(painter, QPointF(place.left(), std::floor(place.top() + (place.height() - line.height()) / 2)));
  painter->restore();
  paintCurrentRow(painter, option, index);
}

}  // namespace cu::desktop
