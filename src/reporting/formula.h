#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace cu {
class Columns;
}

namespace cu::reporting {

// The parsed selection formula of a report:
//
//   formula    = [ comparison { "AND" comparison } ]
//   comparison = operand ( "=" | "<>" | "<" | "<=" | ">" | ">=" ) operand
//   operand    = field | "Year" "(" field ")" | text | number
//   field      = "{" view "." column "}"       view: __ViewName, or the name of the report's own view
//   text       = "'" characters "'" | '"' characters '"'       a doubled mark is one mark
//   number     = [ "-" ] digits [ "." digits ]
//
// Words and names are compared without case.
struct FormulaOperand {
  enum class Kind { Field, YearOf, Text, Number };
  Kind kind = Kind::Number;
  std::size_t position = 1;
  std::string view;  // of a field, as written
  std::string text;  // the column of a field, the content of a literal
};

struct FormulaComparison {
  FormulaOperand left;
  std::string op;
  FormulaOperand right;
};

using Formula = std::vector<FormulaComparison>;  // all of them must be true

// Raises FormulaError for anything else.
Formula parseFormula(std::string_view formula);

// The formula as the condition of a statement on the view, in the server's dialect, with its columns
// qualified by the view's name and the quotes of literals doubled; "" for an empty formula. Raises
// FormulaError for another view and for a column that the view does not have.
std::string conditionOf(const Formula& formula, std::string_view view, const Columns& columns);

}  // namespace cu::reporting
