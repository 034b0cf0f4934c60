#pragma once

#include <QAbstractTableModel>
#include <QHash>
#include <optional>
#include <vector>

#include "controls/grid.h"
#include "desktop/grid_order.h"
#include "desktop/row_reader.h"

namespace cu::desktop {

// Whether the caption has no letter: it is the number of rows that are on.
bool countOnly(const QString& caption);
QString unbroken(const QString& caption);

// The rows of a grid in view, read in place: a cell is read when it is shown. A row of the model is a place
// in the view; the grid's own rows keep their positions, from 0 here.
class GridModel : public QAbstractTableModel {
 public:
  explicit GridModel(Grid& grid, QObject* parent = nullptr);

  // Called when the grid's columns, rows or values have changed.
  void refresh();
  void detach() { grid_ = nullptr; }
  // The rows are being processed (usually filtered to one) without a notification of the grid: the screen is
  // not updated.
  bool held() const;

  // Which rows are in view is determined here, and again for other rows; while the values of the same rows
  // change, each of them keeps its place.
  void arrange(const Arrangement& by);
  const Arrangement& arrangement() const { return by_; }
  bool allInView() const { return inOrder_ || places_.size() == order_.size(); }
  int gridRow(int row) const;      // -1 for a row that does not exist
  int viewRow(int gridRow) const;  // -1 for a row that is not in view
  int gridRows() const { return rows_; }
  // The grid's rows in view by their positions; empty where all are.
  std::vector<bool> inView() const;
  // The number of rows that the filter, applied now, would bring into view or take out of it.
  std::size_t outdated() const;
  // The names of the states that a row is in, and their bits.
  std::uint32_t states(int row) const;
  QStringList stateNames(int row) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  const GridColumn& column(int index) const { return columns_[static_cast<std::size_t>(index)]; }
  bool isFlag(int column) const;
  // A column without field and caption opens the row's menu.
  bool isMenu(int column) const;
  std::optional<int> columnOf(std::string_view field) const;
  QString text(int row, int column) const;
  QString textAt(int gridRow, int column) const;
  // For a table in a file: numbers and days as such, everything else as it is shown.
  Value value(int row, int column) const;
  bool flag(int row, int column) const;  // as drawn
  // The further fields by which a row is found, none while the rows are held; and the text of a field.
  const std::vector<SearchedField>& searched() const;
  QString fieldText(int row, std::string_view field) const;

 private:
  // A cell as drawn; while the rows are held, as last drawn.
  struct Drawn {
    QString text;
    bool flag = false;
    std::uint32_t states = 0;  // in the entry of a whole row
  };
  // These take the grid's rows.
  Drawn drawn(int row, int column) const;
  const Drawn* remembered(qint64 place) const;
  void remember(qint64 place, const Drawn& drawn) const;
  const CellView* cells(int row) const;
  const CellView& cell(int row, int column) const;
  bool readable(int row) const;
  int rowsInView() const;
  Arrangement present() const;
  void order();
  // These take rows in view.
  QVariant foreground(int row, int column) const;
  QVariant rowHeader(int row, int role) const;
  QString meaning(int row, int column) const;

  Grid* grid_;
  std::vector<GridColumn> columns_;
  std::vector<std::size_t> fields_;
  int rows_ = 0;  // of the grid
  std::size_t binding_ = 0;
  Arrangement by_;
  bool inOrder_ = true;               // all rows are in view, in their order
  std::vector<std::uint32_t> order_;  // the grid's row of each row in view
  std::vector<std::int32_t> places_;  // the place in view of each of the grid's rows, or -1
  std::optional<RowReader> reader_;
  mutable std::vector<CellView> cells_;
  mutable int cached_ = -1;
  // The recently drawn cells in two generations, of which the older one is discarded.
  using Places = QHash<qint64, Drawn>;
  mutable Places drawn_;
  mutable Places drawnBefore_;
};

}  // namespace cu::desktop
