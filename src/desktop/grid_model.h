#pragma once

#include <QAbstractTableModel>
#include <QHash>
#include <optional>
#include <vector>

#include "controls/grid.h"

namespace cu::desktop {

// A caption without a letter: the number of rows that are on. It is one word.
bool countOnly(const QString& caption);
QString unbroken(const QString& caption);

// The rows of a grid where they lie: a cell is read when it is shown.
class GridModel : public QAbstractTableModel {
 public:
  explicit GridModel(Grid& grid, QObject* parent = nullptr);

  // The grid has changed: columns, rows, or what stands in them.
  void refresh();
  void detach() { grid_ = nullptr; }
  // The rows are being worked on, filtered to one as likely as not, and the grid has not told of it: what is
  // on the screen stays.
  bool held() const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  const GridColumn& column(int index) const { return columns_[static_cast<std::size_t>(index)]; }
  bool isFlag(int column) const;
  // The row's menu opens from a column without field and caption.
  bool isMenu(int column) const;
  std::optional<int> columnOf(std::string_view field) const;
  QString text(int row, int column) const;
  bool flag(int row, int column) const;  // as drawn
  // The first row from `from` on, going round, whose text in the column has what is looked for; the rows
  // that begin with it come before those that have it further on. -1 when there is none.
  int find(const QString& what, int column, int from) const;
  // The one behind `row`, which has it as a rule: all that begin with it, then all that have it further on,
  // and round again.
  int findNext(const QString& what, int column, int row) const;

 private:
  // A cell as it is drawn; while the rows are held, as it was drawn last.
  struct Drawn {
    QString text;
    bool flag = false;
  };
  Drawn drawn(int row, int column) const;
  const CellView& cell(int row, int column) const;

  Grid* grid_;
  std::vector<GridColumn> columns_;
  std::vector<std::size_t> fields_;
  int rows_ = 0;
  mutable std::vector<CellView> cells_;
  mutable int cached_ = -1;
  // The cells drawn lately; what has not been drawn for long is forgotten with the older ones.
  using Places = QHash<qint64, Drawn>;
  mutable Places drawn_;
  mutable Places drawnBefore_;
};

}  // namespace cu::desktop
