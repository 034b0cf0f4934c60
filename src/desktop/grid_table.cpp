#include "desktop/grid_table.h"

#include <QHeaderView>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>
#include <cstdlib>
#include <utility>

#include "desktop/frozen_columns.h"
#include "desktop/grid_drawing.h"
#include "desktop/grid_view.h"
#include "desktop/table_style.h"

namespace cu::desktop {

GridTable::GridTable(GridView& view, QWidget* parent) : QTableView(parent), view_(view) {
  styleRows(*this);
  setItemDelegate(new CellPainter(this));
  frozen_ = new FrozenColumns(*this);
}

void GridTable::shareModel() { frozen_->share(); }

void GridTable::mayShrink() {
  shrinks_ = true;
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  fitLetters();
}

void GridTable::fitLetters() {
  if (!shrinks_) return;
  constexpr int kHeaderLines = 3;
  constexpr int kRows = 3;
  constexpr int kBorders = 16;
  setMinimumHeight(kHeaderLines * fontMetrics().height() + kRows * verticalHeader()->defaultSectionSize() +
                   horizontalScrollBar()->sizeHint().height() + kBorders);
}

// The least height, and not none: a page that is scrolled is as high as the hints of what it holds.
QSize GridTable::sizeHint() const {
  const QSize hint = QTableView::sizeHint();
  return shrinks_ ? QSize(hint.width(), minimumHeight()) : hint;
}

void GridTable::updateGeometries() {
  QTableView::updateGeometries();
  if (frozen_ != nullptr) frozen_->place();
}

// The columns over the table are where they are seen, and not below.
QModelIndex GridTable::indexAt(const QPoint& at) const {
  if (frozen_ == nullptr || at.x() < 0 || at.x() >= frozen_->shownWidth()) return QTableView::indexAt(at);
  return model()->index(rowAt(at.y()), frozen_->columnAt(at.x()));
}

QRect GridTable::visualRect(const QModelIndex& index) const {
  const QRect place = QTableView::visualRect(index);
  if (frozen_ == nullptr || !frozen_->shows(index.column())) return place;
  return {frozen_->columnViewportPosition(index.column()), place.top(), place.width(), place.height()};
}

// A column over the table is in sight, another one only beside them.
void GridTable::scrollTo(const QModelIndex& index, ScrollHint hint) {
  QScrollBar& across = *horizontalScrollBar();
  const int before = across.value();
  QTableView::scrollTo(index, hint);
  if (frozen_->has(index.column()) && before > 0) {
    across.setValue(before);
    return;
  }
  const int hidden = frozen_->shownWidth() - columnViewportPosition(index.column());
  if (hidden > 0 && index.isValid()) across.setValue(std::max(0, across.value() - hidden));
}

// The arrows move only from a column that is shown.
void GridTable::setCurrent(int row, int wanted) {
  const int before = wanted >= 0 ? wanted : currentIndex().column();
  const bool seen = before >= 0 && !isColumnHidden(before);
  if (currentIndex().row() == row && (row < 0 || (seen && currentIndex().column() == before))) return;
  setting_ = true;
  if (row < 0) {
    selectionModel()->clear();
  } else {
    int column = seen ? before : 0;
    while (isColumnHidden(column) && column + 1 < model()->columnCount()) ++column;
    selectionModel()->setCurrentIndex(model()->index(row, column),
                                      QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(model()->index(row, horizontalHeader()->logicalIndex(0)));
  }
  setting_ = false;
}

void GridTable::setHighlighted(const QList<int>& rows, int current, int column) {
  setting_ = true;
  QItemSelection wanted;
  const int last = model()->columnCount() - 1;
  for (qsizetype i = 0; i < rows.size();) {
    qsizetype end = i + 1;
    while (end < rows.size() && rows[end] == rows[end - 1] + 1) ++end;
    wanted.append(QItemSelectionRange(model()->index(rows[i], 0), model()->index(rows[end - 1], last)));
    i = end;
  }
  setting_ = false;
  setCurrent(current, column);
  setting_ = true;
  selectionModel()->select(wanted, QItemSelectionModel::Select);
  setting_ = false;
}

void GridTable::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
  QTableView::currentChanged(current, previous);
  // The mark of the current row covers the whole row.
  viewport()->update();
  frozen_->repaintRows();
  if (!setting_ && current.isValid() && current.row() != previous.row()) view_.rowChosen(current.row());
}

// Ctrl with Home or End moves to the first or last row; the toolkit would also move to the last column, and
// scroll the first ones out of view.
QModelIndex GridTable::moveCursor(CursorAction action, Qt::KeyboardModifiers held) {
  const bool far = held.testFlag(Qt::ControlModifier) && (action == MoveHome || action == MoveEnd);
  const QModelIndex current = currentIndex();
  if (!far || !current.isValid()) return QTableView::moveCursor(action, held);
  return model()->index(action == MoveHome ? 0 : model()->rowCount() - 1, current.column());
}

// Ctrl with an arrow, Home or End moves far, and moves the highlight too; with Shift it highlights all rows
// up to there.
QItemSelectionModel::SelectionFlags GridTable::selectionCommand(const QModelIndex& index,
                                                                const QEvent* event) const {
  if (event == nullptr || event->type() != QEvent::KeyPress) {
    return QTableView::selectionCommand(index, event);
  }
  const Qt::KeyboardModifiers held = static_cast<const QKeyEvent*>(event)->modifiers();
  if (!held.testFlag(Qt::ControlModifier)) return QTableView::selectionCommand(index, event);
  return (held.testFlag(Qt::ShiftModifier) ? QItemSelectionModel::SelectCurrent
                                           : QItemSelectionModel::ClearAndSelect) |
         QItemSelectionModel::Rows;
}

// A click with Ctrl may have removed the highlight from the current row: the nearest highlighted row then
// becomes the current one; if there is none, the row is highlighted again.
void GridTable::highlightCurrent() {
  const QModelIndex current = currentIndex();
  if (!current.isValid() || selectionModel()->isRowSelected(current.row())) return;
  const QModelIndexList rows = selectionModel()->selectedRows();
  const auto nearest = std::min_element(rows.begin(), rows.end(), [&](const auto& a, const auto& b) {
    return std::abs(a.row() - current.row()) < std::abs(b.row() - current.row());
  });
  if (nearest == rows.end()) {
    selectionModel()->select(current, QItemSelectionModel::Select | QItemSelectionModel::Rows);
  } else {
    const QModelIndex next = model()->index(nearest->row(), current.column());
    selectionModel()->setCurrentIndex(next, QItemSelectionModel::NoUpdate);
  }
}

// The toolkit would make the first row the current one where none is: the form's own may be out of view.
void GridTable::focusInEvent(QFocusEvent* event) {
  const bool none = !currentIndex().isValid();
  const bool before = std::exchange(setting_, true);
  QTableView::focusInEvent(event);
  if (none) selectionModel()->clear();
  setting_ = before;
}

void GridTable::mousePressEvent(QMouseEvent* event) {
  const QModelIndex at = indexAt(event->pos());
  // Confirmed before the press: otherwise the toolkit would highlight the row in spite of the answer.
  const bool allowed = !at.isValid() || view_.goTo(at.row());
  pressed_ = allowed && event->button() == Qt::LeftButton ? at : QModelIndex();
  if (!allowed) return;
  QTableView::mousePressEvent(event);
  highlightCurrent();
}

void GridTable::mouseMoveEvent(QMouseEvent* event) {
  QTableView::mouseMoveEvent(event);
  highlightCurrent();
}

void GridTable::mouseReleaseEvent(QMouseEvent* event) {
  QTableView::mouseReleaseEvent(event);
  highlightCurrent();
  const QModelIndex released = indexAt(event->pos());
  const bool same = pressed_.isValid() && released == pressed_;
  const bool plain = event->modifiers() == Qt::NoModifier;
  pressed_ = QModelIndex();
  if (same && plain) view_.cellPressed(released.row(), released.column());
}

void GridTable::mouseDoubleClickEvent(QMouseEvent* event) {
  pressed_ = QModelIndex();
  const QModelIndex clicked = indexAt(event->pos());
  if (event->button() == Qt::LeftButton && clicked.isValid()) view_.doubleClicked(clicked.row());
}

void GridTable::contextMenuEvent(QContextMenuEvent* event) {
  const QModelIndex at = event->reason() == QContextMenuEvent::Mouse ? indexAt(event->pos()) : currentIndex();
  if (at.isValid()) setCurrentIndex(at);
  view_.openRowMenu();
}

void GridTable::keyPressEvent(QKeyEvent* event) {
  const Qt::KeyboardModifiers held = event->modifiers();
  const bool shifted = held == (Qt::ControlModifier | Qt::ShiftModifier);
  if (event->matches(QKeySequence::Copy) || (shifted && event->key() == Qt::Key_C)) {
    view_.copySelection(shifted);
    return;
  }
  if (held == Qt::AltModifier && event->key() == Qt::Key_Down) {
    view_.openHeaderMenu(currentIndex().column());
    return;
  }
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && currentIndex().isValid()) {
    view_.doubleClicked(currentIndex().row());
    return;
  }
  // The space bar is a key of the grid; it selects nothing here.
  if (event->key() == Qt::Key_Space) return;
  QTableView::keyPressEvent(event);
  // A key that leads to the columns over the table leads to its left edge.
  const bool left = event->key() == Qt::Key_Left || event->key() == Qt::Key_Home;
  if (left && frozen_->shows(currentIndex().column())) horizontalScrollBar()->setValue(0);
  // The toolkit highlights the target row of the key even where the move was rejected.
  const QModelIndex current = currentIndex();
  if (!current.isValid() || selectionModel()->isRowSelected(current.row())) return;
  selectionModel()->select(current, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

}  // namespace cu::desktop
