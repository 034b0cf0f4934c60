#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "sqlite/tokenizer.h"

namespace cu::sqlite {

// A statement without its literals: two texts of one shape differ in the values alone, and what was found out
// about the one holds for the other. A text is recognised in one pass: what lies between the literals is
// compared as it stands, and a literal of the same kind must lie where the other text has one. As both are
// cut by the same rules, the rest of the text can then mean nothing else.
class Shape {
 public:
  // `bound`: whether the literal of that ordinal may differ; of the others the value is part of the shape.
  Shape(std::string_view text, const TokenList& tokens, const std::vector<bool>& bound);

  // Leaves the literals of the text, in order, when it is of this shape.
  bool matches(std::string_view text, std::vector<Literal>& literals) const;

 private:
  struct Gap {
    std::size_t start = 0;  // of what lies before the literal
    std::size_t length = 0;
    Literal::Kind kind = Literal::Kind::Number;
    bool bound = true;
    std::string value;  // of a literal that is part of the shape
  };
  std::string text_;
  std::vector<Gap> gaps_;
  std::size_t tail_ = 0;   // start of what lies behind the last literal
  std::size_t fixed_ = 0;  // bytes that every text of the shape has
};

}  // namespace cu::sqlite
