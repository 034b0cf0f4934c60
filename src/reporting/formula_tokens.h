#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"

namespace cu::reporting {

// An invalid selection formula. The text is for the user and contains the position.
class FormulaError : public Error {
 public:
  FormulaError(std::size_t position, const std::string& what);
  std::size_t position() const { return position_; }  // in characters, from 1

 private:
  std::size_t position_;
};

enum class FormulaTokenKind { Field, Text, Number, Operator, Word, Open, Close, End };

struct FormulaToken {
  FormulaTokenKind kind = FormulaTokenKind::End;
  std::size_t position = 1;  // in characters, from 1
  // Of a field the part between the braces; of a text its content, with doubled quotes undoubled; of anything
  // else its characters.
  std::string text;
};

// Splits a formula; blanks, tabs and line ends are skipped. The last token is End. Raises FormulaError for an
// invalid token, for text that is not UTF-8 and for control characters in a literal.
std::vector<FormulaToken> tokenizeFormula(std::string_view formula);

}  // namespace cu::reporting
