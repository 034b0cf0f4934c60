#pragma once

#include <QTableView>
#include <vector>

#include "desktop/column_memory.h"
#include "desktop/grid_model.h"
#include "desktop/view.h"

namespace cu::desktop {

class GridView;

// The table widget of a grid: converts mouse and keys into the grid's events. The current row is always
// highlighted, and marked where others are highlighted too.
class GridTable : public QTableView {
 public:
  GridTable(GridView& view, QWidget* parent);
  void setCurrent(int row);  // without a user event

 protected:
  QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers held) override;
  void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                       const QEvent* event) const override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void highlightCurrent();

  GridView& view_;
  QPersistentModelIndex pressed_;
  bool setting_ = false;
};

// A grid: its rows in a virtual model, the current row synchronised, the user's widths and order of columns,
// copying, and a search that only changes the current row.
class GridView : public View {
 public:
  GridView(FormWindow& window, Grid& grid, QWidget* parent);
  ~GridView() override;
  QList<QWidget*> focusWidgets() const override { return {table_}; }
  void detach() override {
    View::detach();
    model_.detach();
  }
  bool keyDown(std::int16_t code, std::int16_t shift) override;
  void afterEvent() override;
  GridTable& table() const { return *table_; }
  GridModel& model() { return model_; }

  // User events. goTo() is called before a row is pressed; returns false when the user does not confirm what
  // selecting another row discards.
  bool goTo(int row);
  void rowChosen(int row);
  void cellPressed(int row, int column);
  void headerPressed(int column);
  void doubleClicked(int row);
  // The grid's row, from 1, that is shown `step` rows after the current one; 0 where there is none.
  std::size_t rowBeside(int step) const;
  // The event of a double click on a row of the grid, from 1.
  void openRow(std::size_t row);
  void openRowMenu();
  void copySelection();
  // Moves to a row that contains the text: the nearest one from the current row, or the next match. Returns
  // false when there is none.
  bool search(const QString& text, bool following);

 private:
  void refresh() override;
  std::vector<std::size_t> highlighted() const;
  void placeColumns();
  void rememberOrder();
  void headerMenu(const QPoint& at);
  int widthOf(int column) const;
  bool mayChoose(std::size_t row);
  int searchColumn() const;

  Grid& grid_;
  GridModel model_;
  GridTable* table_;
  ColumnMemory memory_;
  QString placed_;  // the columns placed last
  bool placing_ = false;
};

}  // namespace cu::desktop
