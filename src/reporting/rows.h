#pragma once

#include <QString>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "data/database.h"
#include "data/rowstore.h"
#include "reporting/definition.h"
#include "reporting/formula.h"

namespace cu::reporting {

// The statement for a report's rows: the fields used by the definition (all fields of the view for a form),
// with the formula as its condition. `columns` are the view's; `ownBoxes`: a form also has the boxes of this
// program's own table. Raises FormulaError; Error (kErrorReportDefinition) for a field that the view does not
// have.
std::string selectionOf(const ReportDefinition& definition, const Formula& formula, const Columns& columns,
                        bool ownBoxes = false);

// The rows of a statement, with one current row.
class Rows {
 public:
  Rows(Connection& connection, std::string_view statement);
  std::size_t size() const { return store_.size(); }
  void move(std::size_t row);
  std::size_t current() const { return current_; }  // the row of the last move
  // The index of a column; raises Error (kErrorReportDefinition) when there is none.
  std::size_t place(std::string_view column) const;
  bool has(std::string_view column) const { return store_.columns()->find(column) != Columns::kNone; }
  const CellView& at(std::size_t place) const { return cells_[place]; }
  const CellView& get(std::string_view column) const { return cells_[place(column)]; }
  QString text(std::string_view column) const;

 private:
  RowStore store_;
  std::vector<CellView> cells_;
  std::size_t current_ = 0;
};

// A text with fields in braces, whose columns are looked up once.
class Template {
 public:
  Template(std::string_view text, const Rows& rows);
  QString of(const Rows& rows) const;  // for the current row; surrounding blanks are removed

 private:
  struct Part {
    QString text;
    std::size_t place = 0;
    bool field = false;
  };
  std::vector<Part> parts_;
};

}  // namespace cu::reporting
