#pragma once

#include <QLabel>
#include <QWidget>
#include <array>
#include <vector>

#include "desktop/row_reader.h"

namespace cu::desktop {

// The totals of chosen, highlighted and all rows, below a grid.
class TotalsTable : public QWidget {
 public:
  TotalsTable(const Grid& grid, QWidget* parent);
  void setTotals(const GridTotals& totals);
  void setHighlighted(const RowTotals& totals);
  QString text(int row, int column) const;  // from 0: chosen, highlighted, all; rows, subjects, sums

 private:
  void showRow(std::size_t row, const RowTotals& totals);

  const Grid& grid_;
  std::vector<QString> names_;                 // of the columns
  std::array<std::vector<QLabel*>, 4> cells_;  // the headings first
};

}  // namespace cu::desktop
