#pragma once

#include <QObject>
#include <QTimer>
#include <cstddef>
#include <optional>

class QBoxLayout;

namespace cu::desktop {

class ElidedLine;
class FilterBox;
class FormWindow;
class GridView;
class StateRow;
class TotalsTable;
struct GridTotals;

// What a grid of many rows has around it: above, the search and the filters, below, the totals. It follows
// the grid's rows a moment after each change.
class GridSurround : public QObject {
 public:
  GridSurround(FormWindow& window, GridView& grid, QWidget* parent);
  void addAbove(QBoxLayout& column);
  void addBelow(QBoxLayout& column);

 private:
  // The rows that are chosen, by whether they are in view.
  struct Chosen {
    std::size_t hidden = 0;
    std::size_t inView = 0;
  };
  void filter();
  void follow();
  void tellHidden(const GridTotals& totals);
  QString inView() const;

  FormWindow& window_;
  GridView& grid_;
  QWidget* parent_;
  FilterBox* box_;
  ElidedLine* seen_;
  StateRow* states_;
  TotalsTable* totals_;
  QTimer* pause_;
  std::optional<std::size_t> binding_;  // as totalled last
  std::optional<std::size_t> revision_;
  std::optional<Chosen> chosen_;
  std::size_t outdated_ = 0;  // rows in view, or not, against the filter
};

}  // namespace cu::desktop
