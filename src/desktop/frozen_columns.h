#pragma once

#include <QTableView>
#include <vector>

namespace cu::desktop {

// The first columns of a table once more, over its left edge while it is scrolled to the right. They share
// its rows and highlight; the mouse on their rows is the table's.
class FrozenColumns : public QTableView {
 public:
  explicit FrozenColumns(QTableView& table);
  // Called when the table's model has been set.
  void share();
  // Follows the table's columns, sizes and scroll bars.
  void place();
  // Whether the column is one of them, also while they are not over the table.
  bool has(int column) const;
  bool shows(int column) const { return !isHidden() && has(column); }
  // Of the columns over the table; 0 while there are none.
  int shownWidth() const { return isHidden() ? 0 : width_; }
  void repaintRows() { viewport()->update(); }

 protected:
  bool viewportEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  std::vector<int> wanted() const;
  void follow();

  QTableView& table_;
  std::vector<int> columns_;  // from left to right
  int width_ = 0;
  bool placing_ = false;
};

}  // namespace cu::desktop
