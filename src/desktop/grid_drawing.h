#pragma once

#include <QHeaderView>
#include <QStyledItemDelegate>

namespace cu::desktop {

// A header with wrapping captions, as high as the highest of them.
class WrappedHeader : public QHeaderView {
 public:
  explicit WrappedHeader(QWidget* parent);
  void fitHeight();
  // Draws the mark of the order at a column; at none for -1.
  void setSorted(int column, bool descending);
  QSize sizeHint() const override;

 protected:
  QSize sectionSizeFromContents(int column) const override;
  void paintSection(QPainter* painter, const QRect& place, int column) const override;

 private:
  void paintSortMark(QPainter& painter, const QRect& place) const;

  int height_ = 0;
  int sorted_ = -1;
  bool descending_ = false;
};

// For a text of less weight on the background of a box; its contrast is that of a text.
QColor paleInk(const QPalette& palette);

// Lines above and below a cell of the current row, which is so told from other highlighted ones.
void paintCurrentRow(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index);

// Draws flags as marks, the row menu as its arrow, everything else as text; the current row with lines around
// it.
class CellPainter : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 private:
  static void paintArrow(QPainter& painter, const QPoint& middle, const QColor& ink);
  void paintMark(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                 bool menu) const;
};

}  // namespace cu::desktop
