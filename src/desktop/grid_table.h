#pragma once

#include <QList>
#include <QTableView>

namespace cu::desktop {

class FrozenColumns;
class GridView;

// The table widget of a grid: converts mouse and keys into the grid's events. The current row is always
// highlighted, and marked where others are highlighted too.
class GridTable : public QTableView {
 public:
  GridTable(GridView& view, QWidget* parent);
  // Without a user event; row -1 for none.
  // Without a column, in the present one, or the first that is seen.
  void setCurrent(int row, int column = -1);
  // The rows have their model.
  void shareModel();
  FrozenColumns& frozen() const { return *frozen_; }
  void setHighlighted(const QList<int>& rows, int current, int column);  // ascending rows

  // On a page that scrolls: the table takes the height that there is, and at least that of a few rows.
  void mayShrink();
  void fitLetters();

  QSize sizeHint() const override;
  QModelIndex indexAt(const QPoint& at) const override;
  QRect visualRect(const QModelIndex& index) const override;
  void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

 protected:
  void updateGeometries() override;
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers held) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                       const QEvent* event) const override;
  void focusInEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void highlightCurrent();

  GridView& view_;
  FrozenColumns* frozen_ = nullptr;
  QPersistentModelIndex pressed_;
  bool setting_ = false;
  bool shrinks_ = false;
};

}  // namespace cu::desktop
