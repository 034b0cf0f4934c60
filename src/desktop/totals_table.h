#pragma once

#include <QLabel>
#include <QWidget>
#include <array>
#include <vector>

#include "desktop/row_reader.h"

namespace cu::desktop {

// The totals of chosen, highlighted and all rows, below a grid. Columns that are wider together than the
// table continue in a second band below, which has the titles of the rows again.
class TotalsTable : public QWidget {
 public:
  TotalsTable(const Grid& grid, QWidget* parent);
  void setTotals(const GridTotals& totals);
  void setHighlighted(const RowTotals& totals);
  QString text(int row, int column) const;  // from 0: chosen, highlighted, all; rows, subjects, sums
  int bands() const { return bands_; }

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  // The columns that are there, in bands: where each begins, from the left edge of its band.
  struct Placed {
    std::size_t column;
    int band;
    int left;
    int width;
  };
  std::vector<Placed> placed(int width) const;
  int lineHeight() const;
  int titleWidth() const;
  int widthOf(std::size_t column) const;
  void place();
  std::vector<QLabel*> newTitles();
  void showRow(std::size_t row, const RowTotals& totals);

  const Grid& grid_;
  std::vector<QString> names_;                 // of the columns
  std::array<std::vector<QLabel*>, 4> cells_;  // the headings first
  std::vector<std::vector<QLabel*>> titles_;   // of the rows, by bands
  int bands_ = 1;
};

}  // namespace cu::desktop
