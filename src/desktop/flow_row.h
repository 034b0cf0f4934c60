#pragma once

#include <QLayout>
#include <cstddef>
#include <limits>
#include <vector>

namespace cu::desktop {

// Widgets side by side, in as many lines as the width requires, each in the middle of its line's height. The
// first of a line that expands gets the width that is left.
class FlowRow : public QLayout {
 public:
  using QLayout::QLayout;
  ~FlowRow() override;
  void setGap(int pixels) { gap_ = pixels; }
  // The items added from now on are at the right edge of their line.
  void beginEnd() { atEnd_ = items_.size(); }

  void addItem(QLayoutItem* item) override;
  int count() const override;
  QLayoutItem* itemAt(int index) const override;
  QLayoutItem* takeAt(int index) override;
  Qt::Orientations expandingDirections() const override { return {}; }
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override { return place(QRect(0, 0, width, 0), false); }
  QSize minimumSize() const override;
  QSize sizeHint() const override;
  void setGeometry(const QRect& rect) override;

 private:
  int place(const QRect& room, bool move) const;  // returns the height
  std::size_t endOfLine(std::size_t first, int width) const;
  int placeLine(std::size_t first, std::size_t end, const QRect& line, bool move) const;

  std::vector<QLayoutItem*> items_;
  int gap_ = 4;
  std::size_t atEnd_ = std::numeric_limits<std::size_t>::max();
};

}  // namespace cu::desktop
