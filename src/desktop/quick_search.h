#pragma once

#include <QLineEdit>
#include <QTimer>

namespace cu::desktop {

class GridView;

// The search box of a grid: typing moves to the nearest row that contains the text, Enter to the next one;
// Esc empties the box, and in an empty box returns to the grid.
class QuickSearch : public QLineEdit {
 public:
  QuickSearch(GridView& grid, QWidget* parent);

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void search(bool following);
  void escape();

  GridView& grid_;
  QTimer* pause_;
};

}  // namespace cu::desktop
