#include "desktop/frozen_columns.h"

#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <algorithm>

#include "desktop/grid_drawing.h"

namespace cu::desktop {
namespace {

constexpr std::size_t kFrozen = 4;
constexpr int kPartOfWidth = 80;  // percent of the table that they may cover

}  // namespace

FrozenColumns::FrozenColumns(QTableView& table) : QTableView(&table), table_(table) {
  setObjectName(QStringLiteral("colonneFerme"));
  setAccessibleName(QStringLiteral("Prime colonne, sempre in vista"));
  setFocusPolicy(Qt::NoFocus);
  setFrameShape(QFrame::NoFrame);
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setAlternatingRowColors(true);
  setWordWrap(false);
  setCornerButtonEnabled(false);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setHorizontalHeader(new WrappedHeader(this));
  horizontalHeader()->setSectionsMovable(false);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  setItemDelegate(new CellPainter(this));
  hide();
}

void FrozenColumns::share() {
  setModel(table_.model());
  setSelectionModel(table_.selectionModel());
  verticalHeader()->setDefaultSectionSize(table_.verticalHeader()->defaultSectionSize());
  connect(table_.horizontalScrollBar(), &QScrollBar::valueChanged, this, [this] { place(); });
  connect(table_.verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { follow(); });
  connect(table_.horizontalHeader(), &QHeaderView::sectionResized, this, [this] { place(); });
  connect(table_.horizontalHeader(), &QHeaderView::sectionMoved, this, [this] { place(); });
  connect(horizontalHeader(), &QHeaderView::sectionResized, this, [this](int column, int, int now) {
    if (!placing_) table_.setColumnWidth(column, now);
  });
}

std::vector<int> FrozenColumns::wanted() const {
  std::vector<int> first;
  const QHeaderView& header = *table_.horizontalHeader();
  int width = 0;
  for (int place = 0; place < header.count() && first.size() < kFrozen; ++place) {
    const int column = header.logicalIndex(place);
    if (table_.isColumnHidden(column)) continue;
    width += table_.columnWidth(column);
    if (width * 100 > table_.viewport()->width() * kPartOfWidth) break;
    first.push_back(column);
  }
  return first;
}

bool FrozenColumns::has(int column) const {
  return std::find(columns_.begin(), columns_.end(), column) != columns_.end();
}

void FrozenColumns::place() {
  if (placing_ || model() == nullptr) return;
  placing_ = true;
  columns_ = wanted();
  const bool over = table_.horizontalScrollBar()->value() > 0 && !columns_.empty();
  if (over) {
    width_ = 0;
    QHeaderView& header = *horizontalHeader();
    for (int column = 0; column < model()->columnCount(); ++column) setColumnHidden(column, !has(column));
    for (std::size_t i = 0; i < columns_.size(); ++i) {
      header.moveSection(header.visualIndex(columns_[i]), static_cast<int>(i));
      setColumnWidth(columns_[i], table_.columnWidth(columns_[i]));
      width_ += table_.columnWidth(columns_[i]);
    }
    if (header.height() != table_.horizontalHeader()->height()) {
      header.setFixedHeight(table_.horizontalHeader()->height());
      updateGeometries();
    }
    const QRect rows = table_.viewport()->geometry();
    setGeometry(rows.left(), table_.horizontalHeader()->y(), width_,
                table_.horizontalHeader()->height() + rows.height());
    raise();
  }
  setVisible(over);
  placing_ = false;
  if (over) follow();
}

void FrozenColumns::follow() { verticalScrollBar()->setValue(table_.verticalScrollBar()->value()); }

// A line beside the last one: what follows has moved.
void FrozenColumns::paintEvent(QPaintEvent* event) {
  QTableView::paintEvent(event);
  QPainter painter(viewport());
  painter.fillRect(QRect(width_ - 2, 0, 2, viewport()->height()), palette().color(QPalette::Mid).darker(140));
}

// The rows begin at the same place as the table's, so that a position is the same in both.
bool FrozenColumns::viewportEvent(QEvent* event) {
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove: {
      const auto* const mouse = static_cast<QMouseEvent*>(event);
      QMouseEvent same(mouse->type(), mouse->position(), mouse->globalPosition(), mouse->button(),
                       mouse->buttons(), mouse->modifiers());
      QApplication::sendEvent(table_.viewport(), &same);
      return true;
    }
    case QEvent::ContextMenu: {
      const auto* const menu = static_cast<QContextMenuEvent*>(event);
      QContextMenuEvent same(menu->reason(), menu->pos(), menu->globalPos(), menu->modifiers());
      QApplication::sendEvent(table_.viewport(), &same);
      return true;
    }
    case QEvent::ToolTip: {
      const auto* const help = static_cast<QHelpEvent*>(event);
      QHelpEvent same(help->type(), help->pos(), help->globalPos());
      QApplication::sendEvent(table_.viewport(), &same);
      return true;
    }
    case QEvent::Wheel:
      QApplication::sendEvent(table_.viewport(), event);
      return true;
    default:
      return QTableView::viewportEvent(event);
  }
}

}  // namespace cu::desktop
