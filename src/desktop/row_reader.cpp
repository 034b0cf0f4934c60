#include "desktop/row_reader.h"

#include <algorithm>
#include <array>

#include "base/error.h"

namespace cu::desktop {
namespace {

constexpr std::size_t kMostFields = 8;  // that a state reads

std::vector<std::size_t> placesOf(const Columns& columns, const std::vector<std::string>& fields) {
  std::vector<std::size_t> found;
  found.reserve(fields.size());
  for (const std::string& field : fields) found.push_back(columns.find(field));
  return found;
}

bool amongKeys(const RowKeys& keys, const std::vector<std::size_t>& places, const CellView* cells) {
  if (places[0] == Columns::kNone || places[1] == Columns::kNone) return false;
  return std::binary_search(keys.begin(), keys.end(),
                            RowKey{cells[places[0]].integer(), cells[places[1]].integer()});
}

// Empty beyond what an amount can be.
std::optional<Decimal> plus(const std::optional<Decimal>& a, const std::optional<Decimal>& b) {
  if (!a || !b) return std::nullopt;
  try {
    return *a + *b;
  } catch (const Error&) {
    return std::nullopt;
  }
}

// Adds rows up; equal subjects usually follow each other.
class Adding {
 public:
  Adding(const RowReader& reader, RowTotals& totals) : totals_(totals) {
    totals_.sums.assign(reader.sums(), Decimal());
  }
  void add(const RowReader::Sums& sums, std::int64_t subject) {
    ++totals_.rows;
    if (subjects_.empty() || subjects_.back() != subject) subjects_.push_back(subject);
    for (std::size_t i = 0; i < sums.size(); ++i) {
      std::optional<Decimal>& sum = totals_.sums[i];
      if (sum && (!sums[i] || !sums[i]->isZero())) sum = plus(sum, sums[i]);
    }
  }
  void end() {
    std::sort(subjects_.begin(), subjects_.end());
    totals_.subjects =
        static_cast<std::size_t>(std::unique(subjects_.begin(), subjects_.end()) - subjects_.begin());
  }

 private:
  RowTotals& totals_;
  std::vector<std::int64_t> subjects_;
};

}  // namespace

bool exists(const Grid& grid, const RowState& state) {
  if (state.statement && !state.keys) return false;
  return state.column.empty() ||
         std::any_of(grid.columns().begin(), grid.columns().end(),
                     [&](const GridColumn& column) { return column.field == state.column; });
}

RowReader::RowReader(const Grid& grid)
    : chosen_(grid.rows()->Fields().find(grid.chosenField)),
      subject_(grid.rows()->Fields().find(grid.subjectField)) {
  const Columns& columns = grid.rows()->Fields();
  for (const RowState& state : grid.states) {
    const bool read = exists(grid, state) && state.fields.size() <= kMostFields;
    states_.push_back({placesOf(columns, state.fields), read ? state.holds : nullptr,
                       read && state.fields.size() == 2 ? state.keys : nullptr});
  }
  for (const RowSum& sum : grid.sums) sums_.push_back(placesOf(columns, sum.fields));
}

std::uint32_t RowReader::states(const CellView* cells) const {
  std::uint32_t on = 0;
  std::array<CellView, kMostFields> read;
  for (std::size_t i = 0; i < states_.size(); ++i) {
    const State& state = states_[i];
    if (state.keys != nullptr && amongKeys(*state.keys, state.fields, cells)) on |= 1U << i;
    if (state.holds == nullptr) continue;
    for (std::size_t j = 0; j < state.fields.size(); ++j) {
      read.at(j) = state.fields[j] == Columns::kNone ? CellView() : cells[state.fields[j]];
    }
    if (state.holds({read.data(), state.fields.size()})) on |= 1U << i;
  }
  return on;
}

bool RowReader::chosen(const CellView* cells) const {
  return chosen_ != Columns::kNone && cells[chosen_].flag();
}

std::int64_t RowReader::subject(const CellView* cells) const {
  return subject_ == Columns::kNone ? 0 : cells[subject_].integer();
}

void RowReader::sum(const CellView* cells, Sums& sums) const {
  sums.assign(sums_.size(), Decimal());
  for (std::size_t i = 0; i < sums_.size(); ++i) {
    for (const std::size_t field : sums_[i]) {
      if (field != Columns::kNone && !cells[field].isNull()) sums[i] = plus(sums[i], cells[field].decimal());
    }
  }
}

GridTotals totalsOf(const Grid& grid, const std::vector<bool>& inView) {
  GridTotals totals;
  totals.inState.assign(grid.states.size(), 0);
  const std::size_t rows = grid.rowCount();
  if (rows == 0) return totals;
  const RowReader reader(grid);
  Adding chosen(reader, totals.chosen);
  Adding all(reader, totals.all);
  std::vector<CellView> cells(grid.rows()->Fields().size());
  RowReader::Sums sums;
  for (std::size_t row = 0; row < rows; ++row) {
    grid.rows()->Peek(row + 1, cells.data());
    const std::int64_t subject = reader.subject(cells.data());
    reader.sum(cells.data(), sums);
    all.add(sums, subject);
    if (reader.chosen(cells.data())) {
      chosen.add(sums, subject);
      if (!inView.empty() && !inView[row]) ++totals.hiddenChosen;
    }
    const std::uint32_t states = reader.states(cells.data());
    for (std::size_t i = 0; i < totals.inState.size(); ++i) totals.inState[i] += states >> i & 1U;
  }
  chosen.end();
  all.end();
  return totals;
}

RowTotals totalsOf(const Grid& grid, const std::vector<std::uint32_t>& rows) {
  RowTotals totals;
  if (grid.rowCount() == 0) return totals;
  const RowReader reader(grid);
  Adding adding(reader, totals);
  std::vector<CellView> cells(grid.rows()->Fields().size());
  RowReader::Sums sums;
  for (const std::uint32_t row : rows) {
    grid.rows()->Peek(row + std::size_t{1}, cells.data());
    reader.sum(cells.data(), sums);
    adding.add(sums, reader.subject(cells.data()));
  }
  adding.end();
  return totals;
}

}  // namespace cu::desktop
