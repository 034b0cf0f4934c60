#include "controls/grid.h"

#include "base/text.h"
#include "controls/form.h"

namespace cu {

void Grid::clearColumns() {
  columns_.clear();
  notify();
}

void Grid::addColumn(GridColumn column) {
  columns_.push_back(std::move(column));
  notify();
}

GridColumn* Grid::column(std::string_view field) {
  for (GridColumn& column : columns_) {
    if (equalsNoCase(column.field, field)) return &column;
  }
  return nullptr;
}

void Grid::setColumnCaption(std::string_view field, const std::string& caption) {
  GridColumn* const found = column(field);
  if (found == nullptr || found->caption == caption) return;
  found->caption = caption;
  notify();
}

void Grid::bind(Recordset* rows) {
  rows_ = rows;
  ++binding_;
  refresh();
}

std::size_t Grid::rowCount() const { return rows_ == nullptr || !rows_->IsOpen() ? 0 : rows_->RecordCount(); }
std::size_t Grid::row() const { return rows_ == nullptr || !rows_->IsOpen() ? 0 : rows_->AbsolutePosition(); }

void Grid::resumeDrawing() {
  if (suspended_ > 0) --suspended_;
  ++revision_;
  if (suspended_ == 0) notify();
}

void Grid::setKeys(std::size_t state, std::shared_ptr<const RowKeys> keys) {
  if (state >= states.size()) return;
  states[state].keys = std::move(keys);
  ++revision_;
  if (suspended_ == 0) notify();
}

void Grid::refresh() {
  ++revision_;
  if (suspended_ > 0) return;
  notify();
  if (row() > 0 && onRowChange) onRowChange();
}

std::string Grid::shown(const GridColumn& column, const CellView& value) const {
  Value painted = Value::of(value);
  if (paintValue) paintValue(column, painted);
  const CellView cell = painted.view();
  if (cell.isNull()) return {};
  if (column.type == kGridBoolean) return cell.flag() ? "Sì" : "No";
  if (column.type != kGridDouble) return cell.toText();
  std::string digits = cell.decimal().toFixed(2, decimalMark);
  const std::size_t mark = digits.find(decimalMark);
  const std::size_t first = digits.front() == '-' ? 1 : 0;
  for (std::size_t at = mark; at > first + 3;) {
    at -= 3;
    digits.insert(at, 1, thousandsMark);
  }
  return digits;
}

void Grid::selectRow(std::size_t row) {
  if (rows_ == nullptr || !rows_->IsOpen() || row < 1 || row > rowCount()) return;
  if (row == this->row()) {
    if (onRowAgain) onRowAgain();
    return;
  }
  rows_->MoveTo(row);
  notify();
  if (onRowChange) onRowChange();
}

bool Grid::keyDown(std::int16_t code, std::int16_t shift) {
  // The form's key handler runs first.
  std::int16_t left = code;
  if (form().onKeyDown) form().onKeyDown(left, shift);
  if (left != 0 && onKeyDown) onKeyDown(left, shift);
  return code != 0 && left == 0;
}

void Grid::press(std::size_t row, std::string_view field) {
  if (row > rowCount()) return;
  if (row > 0) selectRow(row);
  if (onMouseUp) onMouseUp(row, std::string(field));
}

void Grid::doubleClick(std::size_t row) {
  if (row == 0 || row > rowCount()) return;
  selectRow(row);
  if (onDoubleClick) onDoubleClick();
}

}  // namespace cu
