#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "controls/control.h"
#include "data/recordset.h"

namespace cu {

// Data types of a grid's columns.
inline constexpr int kGridDouble = 5;
inline constexpr int kGridBoolean = 11;
inline constexpr int kGridLong = 3;
inline constexpr int kGridBigInteger = 20;
inline constexpr int kGridText = 129;

struct GridColumn {
  std::string field;
  std::string caption;
  int type = kGridText;
  int width = 0;      // in the form's units
  int alignment = 0;  // 0 left, 1 right, 2 centre
  bool visible = true;
  bool editable = false;
};

// A table bound to a recordset, whose current row is the grid's.
class Grid : public Control {
 public:
  using Control::Control;
  void accept(ControlVisitor& visitor) override { visitor.visit(*this); }

  void clearColumns();
  void addColumn(GridColumn column);
  const std::vector<GridColumn>& columns() const { return columns_; }
  GridColumn* column(std::string_view field);  // null when there is none
  void setColumnCaption(std::string_view field, const std::string& caption);

  void bind(Recordset* rows);  // null unbinds
  Recordset* rows() const { return rows_; }
  std::size_t rowCount() const;
  std::size_t row() const;  // current, from 1; 0 when none

  int state() const { return state_; }  // 0 at rest
  void setState(int state) { state_ = state; }
  void suspendDrawing() { ++suspended_; }
  void resumeDrawing();  // what changed meanwhile is drawn
  bool drawing() const { return suspended_ == 0; }
  // Draws the rows anew, which shows the current row as when it is selected; so does binding.
  void refresh();

  // The amounts' marks; the same for every column of the grid.
  char decimalMark = ',';
  char thousandsMark = '.';
  // Called for each cell before it is shown; may replace the value (an unbound column has a null one).
  std::function<void(const GridColumn& column, Value& value)> paintValue;
  // The cell of a row as it is shown.
  std::string shown(const GridColumn& column, const CellView& value) const;

  // The rows, in their order, that a person has highlighted for the key that follows; none where the current
  // row stands alone.
  void highlight(std::vector<std::size_t> rows) { highlighted_ = std::move(rows); }
  const std::vector<std::size_t>& highlighted() const { return highlighted_; }

  // A person's events; a row that does not exist is passed over.
  void selectRow(std::size_t row);
  bool keyDown(std::int16_t code, std::int16_t shift);
  void press(std::size_t row, std::string_view field);  // row 0 is the header
  void doubleClick(std::size_t row);

  std::function<void(std::int16_t& code, std::int16_t& shift)> onKeyDown;
  std::function<void(std::size_t row, const std::string& field)> onMouseUp;
  Event onDoubleClick;
  Event onRowChange;  // a row has become the current one, or is shown anew
  Event onRowAgain;   // the row that is the current one already has been chosen
  // What the choice of a row drops of what a person has written and not saved, in a sentence; empty for
  // nothing. Only a window asks before it.
  std::function<std::string(std::size_t row)> drops;

 private:
  std::vector<GridColumn> columns_;
  Recordset* rows_ = nullptr;
  std::vector<std::size_t> highlighted_;
  int state_ = 0;
  int suspended_ = 0;
};

// No drawing while it stands, also when an error ends the work early.
class DrawingPause {
 public:
  explicit DrawingPause(Grid& grid) : grid_(grid) { grid_.suspendDrawing(); }
  ~DrawingPause() { grid_.resumeDrawing(); }
  DrawingPause(const DrawingPause&) = delete;
  DrawingPause& operator=(const DrawingPause&) = delete;

 private:
  Grid& grid_;
};

}  // namespace cu
