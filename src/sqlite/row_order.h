#pragma once

#include <cstddef>
#include <vector>

#include "data/rowstore.h"
#include "sqlite/ast.h"

namespace cu::sqlite {

// A column of a result by which its rows are sorted.
struct OrderColumn {
  std::size_t column = 0;
  bool descending = false;
  friend bool operator==(const OrderColumn&, const OrderColumn&) = default;
};

// The order of an analysed query as columns of its result. Empty where the engine has to sort: it has no
// order, a term is no column of the result, or is neither text nor a whole number; and where the rows are
// narrow, so that nothing would be gained.
std::vector<OrderColumn> orderOfRows(const Select& select);

// Sorts the rows from `first` on as the engine would: nulls first, then numbers, then texts in the suite's
// order. Equal ones keep their order. The engine itself would keep a second copy of all rows, and not packed.
void sortRows(RowStore& rows, std::size_t first, const std::vector<OrderColumn>& order);

}  // namespace cu::sqlite
