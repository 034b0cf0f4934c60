#include "sqlite/shape.h"

#include <cstring>

namespace cu::sqlite {

Shape::Shape(std::string_view text, const TokenList& tokens, const std::vector<bool>& bound) : text_(text) {
  for (std::size_t i = 0; i < tokens.literals.size(); ++i) {
    Gap gap;
    gap.start = tail_;
    gap.length = tokens.literalStarts[i] - tail_;
    gap.kind = tokens.literals[i].kind;
    gap.bound = bound[i];
    if (!gap.bound) gap.value = tokens.literals[i].text;
    fixed_ += gap.length;
    gaps_.push_back(std::move(gap));
    tail_ = tokens.literalEnds[i];
  }
  fixed_ += text_.size() - tail_;
}

bool Shape::matches(std::string_view text, std::vector<Literal>& literals) const {
  if (text.size() < fixed_) return false;
  literals.clear();
  std::size_t at = 0;
  for (const Gap& gap : gaps_) {
    if (text.size() - at < gap.length) return false;
    if (std::memcmp(text.data() + at, text_.data() + gap.start, gap.length) != 0) return false;
    at += gap.length;
    const std::string_view rest = text.substr(at);
    const LiteralSpan span = gap.kind == Literal::Kind::Text ? scanText(rest) : scanNumber(rest);
    if (span.length == 0 || (!gap.bound && span.literal.text != gap.value)) return false;
    literals.push_back(span.literal);
    at += span.length;
  }
  const std::string_view tail = std::string_view(text_).substr(tail_);
  return text.substr(at) == tail;
}

}  // namespace cu::sqlite
