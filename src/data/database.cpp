#include "data/database.h"

#include <vector>

#include "base/error.h"

namespace cu {

void ConnectionRowset::addField(std::string_view name) {
  if (!fields_.empty()) fields_ += ", ";
  fields_ += name;
}

std::string ConnectionRowset::source() const {
  std::string text = "SELECT " + (fields_.empty() ? std::string("*") : fields_) + " FROM " + table_;
  if (!filter_.empty()) text += " WHERE " + filter_;
  return text;
}

void ConnectionRowset::open() {
  rows_ = std::make_unique<RowStore>();
  connection_.Query(source(), *rows_);
}

Value ConnectionRowset::value(std::string_view field) const {
  if (rows_ == nullptr || rows_->size() == 0) throw Error(kErrorNoCurrentRow, "Nessuna riga corrente.");
  const std::size_t column = rows_->columns()->find(field);
  if (column == Columns::kNone) {
    throw Error(kErrorItemNotFound, "Il campo \"" + std::string(field) + "\" non esiste nel risultato.");
  }
  std::vector<CellView> cells(rows_->columns()->size());
  rows_->read(0, cells.data());
  return Value::of(cells[column]);
}

}  // namespace cu
