#pragma once

#include <QHeaderView>
#include <QIcon>

#include "controls/grid.h"

namespace cu::desktop {

class GridModel;

// Draws a mark into a square. Each differs from the others in its shape.
void paintRowMark(QPainter& painter, const QRectF& square, RowMark mark, const QColor& ink);
// The mark beside the name of its state, in the colour of a button's text; no icon for none.
QIcon rowMarkIcon(RowMark mark);

// The marks of the rows' states, each state in its own place, at the left of the rows; it does not move with
// the columns, and nothing in it can be pressed.
class MarkHeader : public QHeaderView {
 public:
  MarkHeader(const GridModel& model, const Grid& grid, QWidget* parent);
  // The states may be other ones.
  void refresh();
  QSize sizeHint() const override;

 protected:
  QSize sectionSizeFromContents(int row) const override;
  void paintSection(QPainter* painter, const QRect& place, int row) const override;
  bool viewportEvent(QEvent* event) override;

 private:
  const GridModel& model_;
  const Grid& grid_;
  std::vector<std::size_t> places_;  // the state of each place
};

}  // namespace cu::desktop
