#include "host/recordset.h"

#include <algorithm>

#include "host/error.h"

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

void Recordset::Open(Connection& connection, std::string_view source, LockType lock) {
  if (data_ != nullptr) throw Error(kErrorObjectOpen, "L'operazione non è possibile su un recordset aperto.");
  auto data = std::make_shared<Data>();
  data->lock = lock;
  connection.Query(source, data->store);
  data_ = std::move(data);
  showing_ = Showing::All;
  filterText_.clear();
  visible_.clear();
  decoded_ = kNothing;
  position_ = 0;
}

void Recordset::Close() {
  data();
  pending_.reset();
  adding_ = false;
  data_.reset();
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

std::size_t Recordset::RecordCount() const { return visibleCount(); }

// Without rows both ends are true at once.
bool Recordset::Bof() const { return !adding_ && (visibleCount() == 0 || position_ < 0); }
bool Recordset::Eof() const {
  return !adding_ && (visibleCount() == 0 || position_ >= static_cast<std::int64_t>(visibleCount()));
}

void Recordset::move(std::int64_t position) {
  if (pending_ != nullptr) Update();
  const auto count = static_cast<std::int64_t>(visibleCount());
  position_ = std::clamp<std::int64_t>(position, -1, count);
}

void Recordset::MoveFirst() {
  if (pending_ != nullptr) Update();
  if (visibleCount() == 0) noCurrentRow();
  move(0);
}

void Recordset::MoveLast() {
  if (pending_ != nullptr) Update();
  if (visibleCount() == 0) noCurrentRow();
  move(static_cast<std::int64_t>(visibleCount()) - 1);
}

void Recordset::MoveNext() {
  if (Eof()) noCurrentRow();
  move(position_ + 1);
}

void Recordset::MovePrevious() {
  if (Bof()) noCurrentRow();
  move(position_ - 1);
}

std::size_t Recordset::AbsolutePosition() const {
  return Bof() || Eof() ? 0 : static_cast<std::size_t>(position_) + 1;
}

void Recordset::MoveTo(std::size_t position) {
  if (position < 1 || position > visibleCount()) noCurrentRow();
  move(static_cast<std::int64_t>(position) - 1);
}

Recordset::RowMark Recordset::current() const {
  if (adding_) return pendingRow_;
  if (Bof() || Eof()) noCurrentRow();
  return rowAt(static_cast<std::size_t>(position_));
}

Recordset::RowMark Recordset::Bookmark() const { return current(); }

void Recordset::SetBookmark(RowMark mark) {
  if (pending_ != nullptr) Update();
  if (showing_ == Showing::All) {
    if (mark >= data().rows()) noCurrentRow();
    move(mark);
    return;
  }
  const auto found = std::lower_bound(visible_.begin(), visible_.end(), mark);
  if (found == visible_.end() || *found != mark) noCurrentRow();
  move(found - visible_.begin());
}

void Recordset::Edited::set(std::size_t column, Value value) {
  for (auto& [changed, content] : changes) {
    if (changed == column) {
      content = std::move(value);
      return;
    }
  }
  changes.emplace_back(column, std::move(value));
}

void Recordset::apply(const Edited& edited, std::vector<CellView>& cells) {
  for (const auto& [column, value] : edited.changes) cells[column] = value.view();
}

void Recordset::read(RowMark row, std::vector<CellView>& cells) const {
  cells.assign(data_->store.columns()->size(), CellView());
  if (row < data_->store.size()) data_->store.read(row, cells.data());
  const auto edited = data_->edited.find(row);
  if (edited != data_->edited.end()) apply(edited->second, cells);
}

bool Recordset::shows(RowMark row) const {
  const auto edited = data_->edited.find(row);
  switch (showing_) {
    case Showing::All:
      return true;
    case Showing::Pending:
      return edited != data_->edited.end();
    case Showing::Matching: {
      if (edited != data_->edited.end() && edited->second.status == RecordStatus::Deleted) return false;
      std::vector<CellView> cells;
      read(row, cells);
      return filter_.matches(cells.data());
    }
  }
  return false;
}

void Recordset::rebuild() {
  visible_.clear();
  const auto rows = static_cast<RowMark>(data_->rows());
  if (showing_ == Showing::Pending) {
    for (const auto& [row, edited] : data_->edited) visible_.push_back(row);
    std::sort(visible_.begin(), visible_.end());
    return;
  }
  std::vector<CellView> cells;
  for (RowMark row = 0; row < rows; ++row) {
    const auto edited = data_->edited.find(row);
    if (edited != data_->edited.end() && edited->second.status == RecordStatus::Deleted) continue;
    read(row, cells);
    if (filter_.matches(cells.data())) visible_.push_back(row);
  }
}

void Recordset::SetFilter(std::string_view condition) {
  if (pending_ != nullptr) Update();
  if (condition.empty()) {
    const bool keep = !Bof() && !Eof();
    const RowMark row = keep ? current() : 0;
    showing_ = Showing::All;
    filterText_.clear();
    visible_.clear();
    visible_.shrink_to_fit();
    position_ = keep ? static_cast<std::int64_t>(row) : 0;
    return;
  }
  filter_ = RowFilter::parse(condition, *data().store.columns());
  filterText_ = condition;
  showing_ = Showing::Matching;
  rebuild();
  position_ = 0;
}

void Recordset::FilterPending() {
  if (pending_ != nullptr) Update();
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
    read(row, cells_);
    if (pending_ != nullptr) apply(*pending_, cells_);
    decoded_ = row;
    decodedVersion_ = data_->version;
  }
  return cells_.data();
}

CellView Recordset::Get(std::size_t column) const { return Row()[column]; }

Value Recordset::OriginalValue(std::string_view field) const {
  const RowMark row = current();
  const std::size_t column = Ordinal(field);
  if (row >= data_->store.size()) return {};
  std::vector<CellView> buffer(Fields().size());
  data_->store.read(row, buffer.data());
  return Value::of(buffer[column]);
}

void Recordset::Set(std::string_view field, const Value& value) {
  const std::size_t column = Ordinal(field);
  const RowMark row = current();
  if (pending_ == nullptr) {
    const auto before = data_->edited.find(row);
    pending_ = std::make_unique<Edited>(before == data_->edited.end() ? Edited() : before->second);
    pendingRow_ = row;
  }
  // The column's type rules, so that an amount put into a column of amounts reads the same from every side.
  Value stored = value;
  if (Fields()[column].type == ValueType::Decimal && value.type() == ValueType::Integer) {
    stored = Value::ofDecimal(Decimal::fromInteger(value.view().integer()));
  }
  pending_->set(column, std::move(stored));
  decoded_ = kNothing;
}

void Recordset::AddNew() {
  if (pending_ != nullptr) Update();
  pending_ = std::make_unique<Edited>();
  pending_->status = RecordStatus::New;
  pendingRow_ = static_cast<RowMark>(data().rows());
  adding_ = true;
  decoded_ = kNothing;
}

void Recordset::Update() {
  if (pending_ == nullptr) return;
  Data& shared = data();
  const RowMark row = pendingRow_;
  const bool added = adding_;
  if (added) ++shared.added;
  shared.edited[row] = std::move(*pending_);
  pending_.reset();
  adding_ = false;
  ++shared.version;
  if (showing_ == Showing::All) {
    position_ = row;
    return;
  }
  const bool visible = shows(row);
  const auto at = std::lower_bound(visible_.begin(), visible_.end(), row);
  const bool listed = at != visible_.end() && *at == row;
  if (visible && !listed) {
    position_ = visible_.insert(at, row) - visible_.begin();
  } else if (visible) {
    position_ = at - visible_.begin();
  } else if (listed) {
    position_ = visible_.erase(at) - visible_.begin();
  }
}

void Recordset::Delete() {
  if (pending_ != nullptr) Update();
  data().edited[current()].status = RecordStatus::Deleted;
  ++data_->version;
  if (showing_ == Showing::Matching) {
    rebuild();
    position_ = std::min(position_, static_cast<std::int64_t>(visible_.size()));
  }
}

RecordStatus Recordset::Status() const {
  const RowMark row = current();
  if (pending_ != nullptr && pendingRow_ == row) return pending_->status;
  const auto edited = data().edited.find(row);
  return edited == data().edited.end() ? RecordStatus::Unmodified : edited->second.status;
}

}  // namespace cu
