#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

#include "controls/grid.h"

namespace cu::desktop {

// The states and sums of a grid's rows, from their cells. It is made for one pass over the rows: it keeps
// the places of the columns.
class RowReader {
 public:
  explicit RowReader(const Grid& grid);  // the grid has rows

  // Bit i is the grid's state i; a state that does not exist at present is never on.
  std::uint32_t states(const CellView* cells) const;
  bool chosen(const CellView* cells) const;
  // 0 for a grid without subjects.
  std::int64_t subject(const CellView* cells) const;
  // One for each of the grid's; empty where no amount can be that large.
  using Sums = std::vector<std::optional<Decimal>>;
  void sum(const CellView* cells, Sums& sums) const;
  std::size_t sums() const { return sums_.size(); }

 private:
  struct State {
    std::vector<std::size_t> fields;
    bool (*holds)(std::span<const CellView>) = nullptr;
    std::shared_ptr<const RowKeys> keys;
  };
  std::vector<State> states_;
  std::vector<std::vector<std::size_t>> sums_;
  std::size_t chosen_;
  std::size_t subject_;
};

// Whether the state exists in the grid as it is configured.
bool exists(const Grid& grid, const RowState& state);

// Sums of some rows. A sum that no amount can have is empty.
struct RowTotals {
  std::size_t rows = 0;
  std::size_t subjects = 0;
  RowReader::Sums sums;
};

struct GridTotals {
  RowTotals chosen;
  RowTotals all;
  std::vector<std::size_t> inState;  // of all rows, by the grid's states
  std::size_t hiddenChosen = 0;      // chosen rows that are not in view
};

// In one pass over all rows. A row in view, by its position from 0, has a true entry; an empty vector means
// that all rows are.
GridTotals totalsOf(const Grid& grid, const std::vector<bool>& inView);
// Of some rows, by their positions from 0.
RowTotals totalsOf(const Grid& grid, const std::vector<std::uint32_t>& rows);

}  // namespace cu::desktop
