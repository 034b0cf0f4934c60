#pragma once

#include <QString>
#include <QStringList>
#include <cstddef>
#include <functional>
#include <vector>

#include "base/decimal.h"
#include "reporting/canvas.h"
#include "reporting/definition.h"
#include "reporting/rows.h"

namespace cu::reporting {

// The value of a column in the current row of its report.
class ColumnValue {
 public:
  ColumnValue(const ReportColumn& column, const Rows& rows);
  QString text(const Rows& rows) const;
  Decimal amount(const Rows& rows) const;  // 0 for a column that is not an amount
  const CellView& cell(const Rows& rows) const { return rows.at(terms_.front().place); }
  bool isTemplate() const { return template_.size() == 1; }

 private:
  struct Place {
    std::size_t place;
    bool negative;
  };
  ColumnFormat format_;
  std::vector<Place> terms_;
  std::vector<Template> template_;  // one where the column is a text with fields in braces
};

// The rows of a report in columns, with the headings and totals of its groups, on as many pages as needed.
class Table {
 public:
  struct Area {
    double x = 0;
    double width = 0;
    double bottom = 0;  // lower limit of the rows
  };
  // The caller handles the groups above `firstGroup`. `newPage` ends the page, begins the next one and
  // returns the y at which the table continues.
  Table(Canvas& canvas, const ReportDefinition& definition, Rows& rows, std::size_t firstGroup, Area area,
        double points, std::function<double()> newPage);

  // Draws the rows from `first` to before `end`, with a head of the columns at `y`. `totalCaption` is the
  // caption of the totals of all rows; empty for none. A row and the totals after it are on one page, for the
  // last row also a space of the height `tail`. Of equal totals that would follow each other only the
  // outermost are drawn. Returns the y below the totals.
  double run(std::size_t first, std::size_t end, double y, const QString& totalCaption, double tail = 0);

 private:
  struct OpenGroup {
    QString title;
    QString note;
    std::size_t below = 0;  // number of groups or rows below it
    std::vector<Decimal> totals;
  };
  double head(double y);
  void need(double height, bool withinGroups);
  std::string keyOf(std::size_t level) const;
  void open(std::size_t level);
  void heading(const OpenGroup& group, std::size_t level, bool again);
  void close(std::size_t level);
  void measureRow();
  void row();
  void amounts(double base, const TextStyle& style, const QColor& zeros, const QStringList& texts);
  void findGroups(std::size_t first, std::size_t end);
  void planTotals(std::size_t before, std::size_t after, bool grand);
  double closingHeight(std::size_t after, bool grand) const;
  double room(std::size_t column) const;
  double totalHeight() const { return rowHeight_ + 0.6; }
  void totals(const QString& caption, const std::vector<Decimal>& values, bool strong);

  Canvas& canvas_;
  const ReportDefinition& definition_;
  Rows& rows_;
  std::size_t firstGroup_;
  Area area_;
  std::function<double()> newPage_;
  TextStyle body_;
  TextStyle strong_;
  TextStyle caption_;
  std::vector<ColumnValue> values_;
  std::vector<double> lefts_;                   // of the columns, and the right edge
  std::vector<std::vector<std::size_t>> keys_;  // column indexes, by group
  std::vector<Template> titles_;
  std::vector<Template> notes_;
  std::vector<QStringList> captions_;
  double headHeight_ = 0;
  double rowHeight_ = 0;
  double y_ = 0;
  std::vector<OpenGroup> groups_;
  std::vector<std::size_t> goOn_;  // by row: how many of the outer groups continue after it
  std::vector<bool> totalled_;     // of the groups that end after the current row: which show totals
  std::vector<Decimal> sums_;
  std::vector<QStringList> texts_;  // of the current row
  double textsHeight_ = 0;
  double behind_ = 0;  // the height required on the current row's page, below it
};

}  // namespace cu::reporting
