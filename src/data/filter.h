#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/value.h"

namespace cu {

class Columns;

// The condition of a recordset's filter: comparisons "field op literal" (=, <>, <, <=, >, >=), joined by AND
// and OR; AND has precedence. Literals are numbers, 'texts' with doubled quotes, #dates#, TRUE (-1), FALSE
// (0) and NULL. Texts compare as in the database. A null field matches only "= NULL"; any other field matches
// only "<> NULL" of the two. Without a comparison every row matches.
class RowFilter {
 public:
  RowFilter() = default;
  // Raises Error 3001 for an invalid condition, 3265 for an unknown field.
  static RowFilter parse(std::string_view text, const Columns& columns);
  bool matches(const CellView* row) const;
  // The number of leading columns of a row that matches() reads.
  std::size_t columns() const;

 private:
  enum class Operator { Equal, NotEqual, Less, LessEqual, Greater, GreaterEqual };
  struct Comparison {
    std::size_t column = 0;
    Operator op = Operator::Equal;
    Value literal;
  };
  static bool holds(const Comparison& comparison, const CellView& cell);
  friend class FilterParser;
  std::vector<std::vector<Comparison>> anyOfAll_;
};

}  // namespace cu
