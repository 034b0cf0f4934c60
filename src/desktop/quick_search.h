#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QTimer>

namespace cu::desktop {

class GridView;

// The search box of a grid: typing moves to the nearest row that contains the text, Enter to the next one;
// Esc empties the box, and in an empty box returns to the grid. The note beside it reports
// that no row was found, or the field by which one was that is not seen.
class QuickSearch : public QLineEdit {
 public:
  QuickSearch(GridView& grid, QWidget* parent);
  QLabel* note() const { return note_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void search(bool following);
  void escape();
  void tell(const QString& note, bool warns);

  GridView& grid_;
  QTimer* pause_;
  QLabel* note_;
};

}  // namespace cu::desktop
