#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "base/error.h"

namespace cu::reporting {

// A selection formula that cannot be read. The text is for the user and names the place.
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
  // Of a field what stands between the braces; of a text its content, doubled quotes made single; of anything
  // else its characters.
  std::string text;
};

// Splits a formula; blanks, tabs and line ends are passed over. The last token is End. FormulaError for
// anything that is no token, for text that is not UTF-8 and for control characters in a literal.
std::vector<FormulaToken> tokenizeFormula(std::string_view formula);

}  // namespace cu::reporting
