#pragma once

#include <QLineEdit>
#include <QTimer>
#include <QToolButton>
#include <functional>
#include <vector>

#include "controls/grid.h"
#include "desktop/row_reader.h"

namespace cu::desktop {

class GridView;

// The box of the words that a row in view has. Typing filters after a pause, Enter at once and again; Esc
// empties the box, and in an empty box returns to the grid.
class FilterBox : public QLineEdit {
 public:
  FilterBox(GridView& grid, QWidget* parent);
  std::function<void()> onFilter;

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void filter();

  GridView& grid_;
  QTimer* pause_;
};

// A ready filter: the rows in one state, with the state's mark and the number of its rows.
class StateButton : public QToolButton {
 public:
  StateButton(const RowState& state, QWidget* parent);
  void setCount(std::size_t rows);
  std::function<void(int step)> onStep;  // to the neighbour, by an arrow
  std::function<void()> onLeave;         // by Esc

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  QString name_;
  QString meaning_;
  RowMark mark_;
};

// The ready filters in a row, which is one tab stop, and the legend of the marks.
class StateRow : public QWidget {
 public:
  StateRow(GridView& grid, QWidget* parent);
  const std::vector<StateButton*>& buttons() const { return buttons_; }
  void setCounts(const GridTotals& totals);
  std::uint32_t chosen() const;
  std::function<void()> onFilter;

 private:
  void step(std::size_t from, int by);

  GridView& grid_;
  std::vector<StateButton*> buttons_;
};

}  // namespace cu::desktop
