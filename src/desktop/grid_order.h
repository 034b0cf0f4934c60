#pragma once

#include <QString>
#include <cstdint>
#include <string>
#include <vector>

#include "controls/grid.h"

namespace cu::desktop {

// Which of a grid's rows are in view, and in which order.
struct Arrangement {
  std::string field;  // sorted by; "" for the order of the rows
  bool descending = false;
  QString words;             // a row has each of them in one of its columns
  std::uint32_t states = 0;  // of the grid, all of which a row has

  bool any() const { return sorts() || filters(); }
  bool sorts() const { return !field.empty(); }
  bool filters() const { return !words.trimmed().isEmpty() || states != 0; }
};

// Whether the rows can be sorted by the column.
bool sortable(const Grid& grid, const GridColumn& column);

// The positions, from 0, of the rows in view. Rows with equal values keep their order in both directions.
// Numbers and days are compared as such, texts by their letters without case and accents; a row without a
// value comes before the others. Words are compared with the texts of all columns but flags; in an amount
// the thousands mark makes no difference.
std::vector<std::uint32_t> arranged(const Grid& grid, const Arrangement& by);

}  // namespace cu::desktop
