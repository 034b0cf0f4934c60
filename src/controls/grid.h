#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "controls/control.h"
#include "controls/row_keys.h"
#include "data/recordset.h"

namespace cu {

// Data types of grid columns.
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

// The picture beside a row in a state.
enum class RowMark { None, Changed, LeftOut, NoReference, Lacking, More };

// A state of rows that only a window shows: as a mark, and as a filter of the rows in view.
struct RowState {
  std::string name;     // of the filter
  std::string meaning;  // in a sentence
  RowMark mark = RowMark::None;
  std::vector<std::string> fields;  // whose cells `holds` reads, in this order; null where there is none
  bool (*holds)(std::span<const CellView> cells) = nullptr;
  std::string column = {};  // where it is not empty, the state exists only while the grid has this column
  // The statement that reads the keys of the rows in the state, where other tables determine it: `fields` are
  // the two columns of the grid's rows with the key, and `holds` is null. The state exists once they are
  // read.
  std::function<std::string()> statement = {};
  std::shared_ptr<const RowKeys> keys = {};
};

// A sum that only a window shows: of the fields together, over rows.
struct RowSum {
  std::string name;
  std::vector<std::string> fields;
};

// A field of the rows, shown or not, by whose beginning a window's search finds a row.
struct SearchedField {
  std::string field;
  std::string name;  // in a sentence
};

// A table bound to a recordset; the recordset's current row is the grid's.
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
  // Another number after each bind(), and whenever values of the rows may have changed.
  std::size_t binding() const { return binding_; }
  std::size_t revision() const { return revision_; }
  std::size_t rowCount() const;
  std::size_t row() const;  // current row, from 1; 0 when none

  int state() const { return state_; }  // 0 at rest
  void setState(int state) { state_ = state; }
  void suspendDrawing() { ++suspended_; }
  void resumeDrawing();  // draws what changed meanwhile
  bool drawing() const { return suspended_ == 0; }
  // Redraws the rows and raises the same event as a selection of the current row; so does bind().
  void refresh();

  // Decimal and thousands marks of the amounts; the same for every column of the grid.
  char decimalMark = ',';
  char thousandsMark = '.';
  // Called for each cell before it is shown; may replace the value, which is null for an unbound column.
  std::function<void(const GridColumn& column, Value& value)> paintValue;
  // The text shown for a cell.
  std::string shown(const GridColumn& column, const CellView& value) const;

  // The rows, in order, that the user has highlighted for the next key; empty where only the current row is
  // selected.
  void highlight(std::vector<std::size_t> rows) { highlighted_ = std::move(rows); }
  const std::vector<std::size_t>& highlighted() const { return highlighted_; }

  // What a code in a cell stands for, "" where there is nothing to add; only a window calls it, for a
  // tooltip.
  std::function<std::string(const GridColumn& column, const std::string& code)> meaning;

  // User events; a row that does not exist is ignored.
  void selectRow(std::size_t row);
  bool keyDown(std::int16_t code, std::int16_t shift);
  void press(std::size_t row, std::string_view field);  // row 0 is the header
  void doubleClick(std::size_t row);

  std::function<void(std::int16_t& code, std::int16_t& shift)> onKeyDown;
  std::function<void(std::size_t row, const std::string& field)> onMouseUp;
  Event onDoubleClick;
  Event onRowChange;  // a row has become the current one, or is redrawn
  Event onRowAgain;   // the current row has been selected again
  // Describes in a sentence the unsaved user input that selecting a row discards; empty for none. Only a
  // window asks for confirmation.
  std::function<std::string(std::size_t row)> drops;

  // What only a window shows of the rows: their states and sums, the flag of the rows that are chosen,
  // the field whose distinct values `subjects` names, and what its search reads beside the first column of
  // texts. Nothing in a form depends on them.
  std::vector<RowState> states;
  std::vector<RowSum> sums;
  std::string chosenField;
  std::string subjectField;
  std::string subjects;
  std::vector<SearchedField> searched;
  // What a window has read for a state with a statement; null where it could not.
  void setKeys(std::size_t state, std::shared_ptr<const RowKeys> keys);

 private:
  std::vector<GridColumn> columns_;
  Recordset* rows_ = nullptr;
  std::vector<std::size_t> highlighted_;
  std::size_t binding_ = 0;
  std::size_t revision_ = 0;
  int state_ = 0;
  int suspended_ = 0;
};

// Suspends drawing for its lifetime, also when an error ends the work early.
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
