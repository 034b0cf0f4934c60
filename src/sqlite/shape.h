#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "sqlite/tokenizer.h"

namespace cu::sqlite {

// A statement without its literals: two texts of one shape differ only in their values, and the analysis of
// one is valid for the other. A text is matched in one pass: the parts between the literals are compared byte
// by byte, and each literal has to be of the same kind as in the first text. Because both are tokenized by
// the same rules, the rest of the text cannot have another meaning.
class Shape {
 public:
  // `bound`: whether the literal of that ordinal may differ; the values of the others are part of the shape.
  Shape(std::string_view text, const TokenList& tokens, const std::vector<bool>& bound);

  // If the text is of this shape, stores its literals, in order, in `literals`.
  bool matches(std::string_view text, std::vector<Literal>& literals) const;

 private:
  struct Gap {
    std::size_t start = 0;  // of the part before the literal
    std::size_t length = 0;
    Literal::Kind kind = Literal::Kind::Number;
    bool bound = true;
    std::string value;  // of a literal that belongs to the shape
  };
  std::string text_;
  std::vector<Gap> gaps_;
  std::size_t tail_ = 0;   // start of the part after the last literal
  std::size_t fixed_ = 0;  // number of bytes common to every text of the shape
};

}  // namespace cu::sqlite
