#pragma once

#include <QLineEdit>
#include <QTimer>

namespace cu::desktop {

class GridView;

// The box beside a grid in which a person looks for a row: typing moves to the nearest one that has the text,
// Enter to the next; Esc empties the box, and from the empty one goes back to the grid.
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
