#pragma once

#include <QAbstractTableModel>
#include <QHash>
#include <optional>
#include <vector>

#include "controls/grid.h"

namespace cu::desktop {

// Whether the caption has no letter: it is the number of rows that are on.
bool countOnly(const QString& caption);
QString unbroken(const QString& caption);

// The rows of a grid, read in place: a cell is read when it is shown.
class GridModel : public QAbstractTableModel {
 public:
  explicit GridModel(Grid& grid, QObject* parent = nullptr);

  // Called when the grid's columns, rows or values have changed.
  void refresh();
  void detach() { grid_ = nullptr; }
  // The rows are being processed (usually filtered to one) without a notification of the grid: the screen is
  // not updated.
  bool held() const;

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
  bool flag(int row, int column) const;  // as drawn
  // Returns the first row from `from`, cyclically, whose text in the column contains `what`; rows that begin
  // with it come before the others. -1 when there is none.
  int find(const QString& what, int column, int from) const;
  // Returns the match after `row`: all rows that begin with the text, then all others that contain it,
  // cyclically.
  int findNext(const QString& what, int column, int row) const;

 private:
  // A cell as drawn; while the rows are held, as last drawn.
  struct Drawn {
    QString text;
    bool flag = false;
  };
  Drawn drawn(int row, int column) const;
  QString meaning(int row, int column) const;
  const CellView& cell(int row, int column) const;

  Grid* grid_;
  std::vector<GridColumn> columns_;
  std::vector<std::size_t> fields_;
  int rows_ = 0;
  mutable std::vector<CellView> cells_;
  mutable int cached_ = -1;
  // The recently drawn cells in two generations, of which the older one is discarded.
  using Places = QHash<qint64, Drawn>;
  mutable Places drawn_;
  mutable Places drawnBefore_;
};

}  // namespace cu::desktop
