#include "desktop/flow_row.h"

#include <QWidget>
#include <algorithm>
#include <utility>

namespace cu::desktop {

FlowRow::~FlowRow() {
  for (QLayoutItem* item : items_) delete item;
}

void FlowRow::addItem(QLayoutItem* item) { items_.push_back(item); }
int FlowRow::count() const { return static_cast<int>(items_.size()); }

QLayoutItem* FlowRow::itemAt(int index) const {
  return index >= 0 && index < count() ? items_[static_cast<std::size_t>(index)] : nullptr;
}

QLayoutItem* FlowRow::takeAt(int index) {
  QLayoutItem* const item = itemAt(index);
  if (item != nullptr) items_.erase(items_.begin() + index);
  return item;
}

QSize FlowRow::minimumSize() const {
  QSize least;
  for (const QLayoutItem* item : items_) {
    if (!item->isEmpty()) least = least.expandedTo(item->minimumSize());
  }
  return least;
}

QSize FlowRow::sizeHint() const {
  QSize whole;
  for (const QLayoutItem* item : items_) {
    if (item->isEmpty()) continue;
    const QSize size = item->sizeHint();
    whole = {whole.width() + size.width() + gap_, std::max(whole.height(), size.height())};
  }
  return whole;
}

void FlowRow::setGeometry(const QRect& rect) {
  QLayout::setGeometry(rect);
  place(rect, true);
}

int FlowRow::place(const QRect& room, bool move) const {
  int top = room.top();
  std::size_t first = 0;
  while (first < items_.size()) {
    const std::size_t end = endOfLine(first, room.width());
    const int height = placeLine(first, end, QRect(room.left(), top, room.width(), 0), move);
    if (height > 0) top += height + gap_;
    first = end;
  }
  return std::max(0, top - gap_ - room.top());
}

std::size_t FlowRow::endOfLine(std::size_t first, int width) const {
  int taken = 0;
  for (std::size_t at = first; at < items_.size(); ++at) {
    if (items_[at]->isEmpty()) continue;
    const int whole = taken + items_[at]->sizeHint().width();
    if (taken > 0 && whole > width) return at;
    taken = whole + gap_;
  }
  return items_.size();
}

// The height of the line; those at its end are moved to its right edge.
int FlowRow::placeLine(std::size_t first, std::size_t end, const QRect& line, bool move) const {
  int height = 0;
  int width = -gap_;
  for (std::size_t at = first; at < end; ++at) {
    if (items_[at]->isEmpty()) continue;
    const QSize size = items_[at]->sizeHint();
    height = std::max(height, size.height());
    width += size.width() + gap_;
  }
  int left = line.left();
  int rest = std::max(0, line.width() - width);
  for (std::size_t at = first; move && at < end; ++at) {
    if (items_[at]->isEmpty()) continue;
    if (at >= atEnd_) left += std::exchange(rest, 0);
    QSize size = items_[at]->sizeHint().boundedTo(QSize(line.width(), QWIDGETSIZE_MAX));
    if (items_[at]->expandingDirections().testFlag(Qt::Horizontal)) size.rwidth() += std::exchange(rest, 0);
    items_[at]->setGeometry(QRect(QPoint(left, line.top() + (height - size.height()) / 2), size));
    left += size.width() + gap_;
  }
  return height;
}

}  // namespace cu::desktop
