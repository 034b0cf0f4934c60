#include "data/recordset.h"

#include <algorithm>

#include "base/error.h"

namespace cu {
namespace {

[[noreturn]] void noCurrentRow() { throw Error(kErrorNoCurrentRow, "Nessuna riga corrente."); }

}  // namespace

const Recordset::Data& Recordset::data() const {
  if (data_ == nullptr)
    throw Error(kErrorObjectClosed, "L'operazione non è possibile su un recordset chiuso.");
  return *data_;
}

Recordset::Data& Recordset::data() {
  if (data_ == nullptr)
    throw Error(kErrorObjectClosed, "L'operazione non è possibile su un recordset chiuso.");
  return *data_;
}

Recordset::Data& Recordset::changeable() {
  if (data().lock == LockType::ReadOnly)
    throw Error(kErrorReadOnly, "Il recordset è aperto in sola lettura.");
  return *data_;
}

void Recordset::Open(Connection& connection, std::string_view source, LockType lock) {
  if (data_ != nullptr) throw Error(kErrorObjectOpen, "L'operazione non è possibile su un recordset aperto.");
  auto data = std::make_shared<Data>();
  data->lock = lock;
  connection.Query(source, data->store);
  if (data->store.columns() == nullptr) {
    data->store.setColumns(std::make_shared<const Columns>(std::vector<Column>()));
  }
  data_ = std::move(data);
  position_ = 0;
}

void Recordset::Close() {
  data();
  data_.reset();
  pending_.clear();
  editing_ = false;
  adding_ = false;
  visible_.clear();
  filterText_.clear();
  showing_ = Showing::All;
  decoded_ = kNothing;
  position_ = -1;
}

std::size_t Recordset::visibleCount() const {
  return showing_ == Showing::All ? data().rows() : visible_.size();
}

Recordset::RowMark Recordset::rowAt(std::size_t position) const {
  return showing_ == Showing::All ? static_cast<RowMark>(position) : visible_[position];
}

std::size_t Recordset::RecordCount() const {
  data();
  return visibleCount();
}

// Without rows both Bof and Eof are true.
bool Recordset::Bof() const {
  data();
  return !adding_ && (visibleCount() == 0 || position_ < 0);
}

bool Recordset::Eof() const {
  data();
  return !adding_ && (visibleCount() == 0 || position_ >= static_cast<std::int64_t>(visibleCount()));
}

void Recordset::move(std::int64_t position) {
  position_ = std::clamp<std::int64_t>(position, -1, static_cast<std::int64_t>(visibleCount()));
}

void Recordset::MoveFirst() {
  Update();
  if (visibleCount() == 0) noCurrentRow();
  move(0);
}

void Recordset::MoveNext() {
  Update();
  if (Eof()) noCurrentRow();
  move(position_ + 1);
}

void Recordset::MovePrevious() {
  Update();
  if (Bof()) noCurrentRow();
  move(position_ - 1);
}

std::size_t Recordset::AbsolutePosition() const {
  return adding_ || Bof() || Eof() ? 0 : static_cast<std::size_t>(position_) + 1;
}

void Recordset::MoveTo(std::size_t position) {
  Update();
  if (position < 1 || position > visibleCount()) noCurrentRow();
  move(static_cast<std::int64_t>(position) - 1);
}

// A row being added already has its final number.
Recordset::RowMark Recordset::current() const {
  if (adding_) return static_cast<RowMark>(data().rows());
  if (Bof() || Eof()) noCurrentRow();
  return rowAt(static_cast<std::size_t>(position_));
}

Recordset::RowMark Recordset::Bookmark() const { return current(); }

void Recordset::SetBookmark(RowMark mark) {
  Update();
  if (showing_ == Showing::All) {
    if (mark >= data().rows()) noCurrentRow();
    move(mark);
    return;
  }
  const auto found = std::lower_bound(visible_.begin(), visible_.end(), mark);
  if (found == visible_.end() || *found != mark) noCurrentRow();
  move(found - visible_.begin());
}

void Recordset::set(Changes& changes, std::size_t column, Value value) {
  for (Change& change : changes) {
    if (change.column == column) {
      change.value = std::move(value);
      return;
    }
  }
  changes.push_back({column, std::move(value)});
}

void Recordset::apply(const Changes& changes, std::size_t columns, CellView* cells) {
  for (const Change& change : changes) {
    if (change.column < columns) cells[change.column] = change.value.view();
  }
}

const Recordset::Edited* Recordset::edited(RowMark row) const {
  if (data_->edited.empty()) return nullptr;
  const auto found = data_->edited.find(row);
  return found == data_->edited.end() ? nullptr : &found->second;
}

void Recordset::read(RowMark row, std::size_t columns, CellView* cells) const {
  if (row < data_->store.size()) {
    data_->store.readFirst(row, columns, cells);
  } else {
    std::fill_n(cells, columns, CellView());
  }
  if (const Edited* const changed = edited(row)) apply(changed->changes, columns, cells);
}

// Whether an edited row is still among the visible ones.
bool Recordset::shows(RowMark row, const Edited& changed) const {
  if (showing_ == Showing::Pending) return changed.status != RecordStatus::Unmodified;
  const std::size_t columns = filter_.columns();
  std::vector<CellView> cells(columns);
  read(row, columns, cells.data());
  return filter_.matches(cells.data());
}

void Recordset::rebuild() {
  visible_.clear();
  if (showing_ == Showing::Pending) {
    for (const auto& [row, changed] : data_->edited) {
      if (shows(row, changed)) visible_.push_back(row);
    }
    std::sort(visible_.begin(), visible_.end());
    return;
  }
  const std::size_t columns = filter_.columns();
  std::vector<CellView> cells(columns);
  const auto rows = static_cast<RowMark>(data_->rows());
  for (RowMark row = 0; row < rows; ++row) {
    read(row, columns, cells.data());
    if (filter_.matches(cells.data())) visible_.push_back(row);
  }
}

void Recordset::showAll() {
  filterText_.clear();
  filter_ = RowFilter();
  showing_ = Showing::All;
  visible_.clear();
  visible_.shrink_to_fit();
}

// The position that becomes current when a row leaves the visible rows: the next row's, or the last one's.
std::int64_t Recordset::placeOf(std::vector<RowMark>::const_iterator leaving) const {
  if (leaving == visible_.end() && leaving != visible_.begin()) --leaving;
  return leaving - visible_.begin();
}

void Recordset::SetFilter(std::string_view condition) {
  Update();
  if (condition.empty()) {
    const bool keep = !Bof() && !Eof();
    const RowMark row = keep ? current() : 0;
    showAll();
    position_ = row;
    return;
  }
  filter_ = RowFilter::parse(condition, *data().store.columns());
  filterText_ = condition;
  showing_ = Showing::Matching;
  rebuild();
  position_ = 0;
}

void Recordset::FilterPending() {
  Update();
  data();
  showing_ = Showing::Pending;
  filterText_.clear();
  rebuild();
  position_ = 0;
}

std::unique_ptr<Recordset> Recordset::Clone() const {
  data();
  auto clone = std::make_unique<Recordset>();
  clone->data_ = data_;
  clone->showAll();
  clone->position_ = 0;
  return clone;
}

const Columns& Recordset::Fields() const { return *data().store.columns(); }

std::size_t Recordset::Ordinal(std::string_view field) const {
  const std::size_t column = Fields().find(field);
  if (column == Columns::kNone) {
    throw Error(kErrorItemNotFound, "Il campo \"" + std::string(field) + "\" non esiste nel recordset.");
  }
  return column;
}

const CellView* Recordset::Row() const {
  const RowMark row = current();
  if (decoded_ != row || decodedVersion_ != data_->version) {
    const std::size_t columns = Fields().size();
    cells_.resize(columns);
    if (adding_) {
      std::fill(cells_.begin(), cells_.end(), CellView());
    } else {
      read(row, columns, cells_.data());
    }
    apply(pending_, columns, cells_.data());
    decoded_ = row;
    decodedVersion_ = data_->version;
  }
  return cells_.data();
}

void Recordset::Peek(std::size_t position, CellView* cells) const {
  if (position < 1 || position > visibleCount()) noCurrentRow();
  read(rowAt(position - 1), Fields().size(), cells);
}

CellView Recordset::Get(std::size_t column) const { return Row()[column]; }

Value Recordset::OriginalValue(std::string_view field) const {
  const RowMark row = current();
  const std::size_t column = Ordinal(field);
  if (row >= data_->store.size()) return {};
  std::vector<CellView> cells(column + 1);
  data_->store.readFirst(row, column + 1, cells.data());
  return Value::of(cells[column]);
}

void Recordset::Set(std::string_view field, const Value& value) {
  changeable();
  const std::size_t column = Ordinal(field);
  current();
  // Applies the column's type rules, so that an amount stored in a column of amounts reads the same in every
  // representation.
  const bool amount = Fields()[column].type == ValueType::Decimal && value.type() == ValueType::Integer;
  set(pending_, column, amount ? Value::ofDecimal(value.view().decimal()) : value);
  editing_ = true;
  decoded_ = kNothing;
}

void Recordset::AddNew() {
  changeable();
  Update();
  editing_ = true;
  adding_ = true;
  decoded_ = kNothing;
}

void Recordset::Update() {
  if (!editing_) return;
  const RowMark row = current();
  const auto [entry, fresh] = data_->edited.try_emplace(row);
  Edited& changed = entry->second;
  if (adding_) {
    changed.status = RecordStatus::New;
    ++data_->added;
  } else if (changed.status == RecordStatus::Unmodified) {
    changed.status = RecordStatus::Modified;
  }
  if (fresh) {
    changed.changes = std::move(pending_);
  } else {
    for (Change& change : pending_) set(changed.changes, change.column, std::move(change.value));
  }
  pending_.clear();
  editing_ = false;
  adding_ = false;
  ++data_->version;
  settle(row, changed);
}

// After an edit the row is the current one, or another one where it is no longer visible.
void Recordset::settle(RowMark row, const Edited& changed) {
  if (showing_ == Showing::All) {
    position_ = row;
    return;
  }
  const bool visible = shows(row, changed);
  const auto at = std::lower_bound(visible_.begin(), visible_.end(), row);
  const bool listed = at != visible_.end() && *at == row;
  if (visible) {
    position_ = at - visible_.begin();
    if (!listed) visible_.insert(at, row);
  } else if (listed) {
    position_ = placeOf(visible_.erase(at));
  }
}

void Recordset::takeBack(RowMark row, std::optional<Edited> before) {
  if (data_ == nullptr) return;
  pending_.clear();
  editing_ = false;
  adding_ = false;
  decoded_ = kNothing;
  ++data_->version;
  const bool touched = before.has_value();
  Edited& changed = data_->edited[row];
  changed = touched ? std::move(*before) : Edited{{}, RecordStatus::Unmodified};
  settle(row, changed);
  if (!touched) data_->edited.erase(row);
}

void Recordset::AcceptCurrent() {
  Update();
  const auto found = changeable().edited.find(current());
  if (found != data_->edited.end()) found->second.status = RecordStatus::Unmodified;
}

RecordStatus Recordset::Status() const {
  if (adding_) return RecordStatus::New;
  const Edited* const changed = edited(current());
  if (changed != nullptr && changed->status != RecordStatus::Unmodified) return changed->status;
  return editing_ ? RecordStatus::Modified : RecordStatus::Unmodified;
}

}  // namespace cu
