#pragma once

#include <QPointer>
#include <functional>
#include <vector>

#include "desktop/column_memory.h"
#include "desktop/grid_model.h"
#include "desktop/grid_search.h"
#include "desktop/grid_table.h"
#include "desktop/key_states.h"
#include "desktop/view.h"

class QMenu;

namespace cu::desktop {

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
    keys_.detach();
  }
  bool keyDown(std::int16_t code, std::int16_t shift) override;
  void afterEvent() override;
  GridTable& table() const { return *table_; }
  GridModel& model() { return model_; }

  // Changes which rows are in view, and their order: the current row and the highlighted rows in view stay.
  void arrange(const Arrangement& by);
  const Arrangement& arrangement() const { return model_.arrangement(); }
  // The form's current row is not in view: no key acts on it.
  bool currentHidden() const;
  // The grid's highlighted rows, ascending from 0; the current one alone is one of them.
  std::vector<std::uint32_t> highlightedRows() const;
  const Grid& grid() const { return grid_; }
  FormWindow& formWindow() const { return window(); }
  // Called when rows, values, arrangement or highlight may have changed.
  std::function<void()> onChange;

  // User events; rows are those in view. goTo() is called before a row is pressed; returns false when the
  // user does not confirm what selecting another row discards.
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
  void copySelection(bool headings = false);
  // The menu of a column's heading, below it.
  void openHeaderMenu(int column);
  // The columns as they are seen, from left to right, without the menus of the rows.
  QList<int> columnsSeen() const;
  // Writes rows and columns as they are seen to a file that the user names.
  void exportTable();
  // Moves to a row that is found by the text: the nearest one from the current row, or the next match.
  RowFound search(const QString& text, bool following);

 private:
  void refresh() override;
  std::vector<std::size_t> highlighted() const;
  std::size_t formRow(int row) const;  // the form's number, from 1, of a row in view; 0 for none
  void showCurrent();
  void report();
  void sortBy(int column);
  void markOrder();
  void placeColumns();
  void fitLetters();
  void rememberOrder();
  void headerMenu(int column, const QPoint& at);
  void addOrder(QMenu& menu, int column);
  void addColumns(QMenu& menu);
  bool mayHide(int column) const;
  void hideColumn(int column, bool hidden);
  void forgetColumns();
  int widthOf(int column) const;
  bool mayChoose(std::size_t row);
  int searchColumn() const;
  void keysRead(bool anew);

  Grid& grid_;
  GridModel model_;
  GridTable* table_;
  KeyStates keys_;
  std::size_t closed_ = 0;  // forms of the front end, as counted last
  ColumnMemory memory_;
  QPointer<QObject> letters_;
  QString placed_;  // the columns placed last
  bool placing_ = false;
};

}  // namespace cu::desktop
