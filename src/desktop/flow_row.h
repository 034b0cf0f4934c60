#pragma once

#include <QLayout>
#include <vector>

namespace cu::desktop {

// Widgets side by side, in as many lines as the width requires.
class FlowRow : public QLayout {
 public:
  using QLayout::QLayout;
  ~FlowRow() override;

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

  std::vector<QLayoutItem*> items_;
};

}  // namespace cu::desktop
