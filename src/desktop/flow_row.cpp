#include "desktop/flow_row.h"

#include <QWidget>
#include <algorithm>

namespace cu::desktop {
namespace {

constexpr int kFlowGap = 4;

}  // namespace

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
    whole = {whole.width() + size.width() + kFlowGap, std::max(whole.height(), size.height())};
  }
  return whole;
}

void FlowRow::setGeometry(const QRect& rect) {
  QLayout::setGeometry(rect);
  place(rect, true);
}

int FlowRow::place(const QRect& room, bool move) const {
  int left = room.left();
  int top = room.top();
  int line = 0;
  for (QLayoutItem* item : items_) {
    if (item->isEmpty()) continue;
    const QSize size = item->sizeHint();
    if (left > room.left() && left + size.width() > room.right() + 1) {
      left = room.left();
      top += line + kFlowGap;
      line = 0;
    }
    if (move) item->setGeometry(QRect(QPoint(left, top), size));
    left += size.width() + kFlowGap;
    line = std::max(line, size.height());
  }
  return top + line - room.top();
}

}  // namespace cu::desktop
