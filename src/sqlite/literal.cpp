#include "sqlite/literal.h"

#include <cstring>

namespace cu::sqlite {

LiteralSpan scanText(std::string_view text) {
  LiteralSpan span;
  if (text.empty() || text.front() != '\'') return span;
  span.literal.kind = Literal::Kind::Text;
  std::size_t at = 1;
  while (at < text.size()) {
    const void* quote = std::memchr(text.data() + at, '\'', text.size() - at);
    if (quote == nullptr) return {};
    at = static_cast<std::size_t>(static_cast<const char*>(quote) - text.data()) + 1;
    if (at == text.size() || text[at] != '\'') {
      span.literal.text = text.substr(1, at - 2);
      span.length = at;
      if (span.literal.text.find('\0') != std::string_view::npos) return {};
      return span;
    }
    span.literal.doubled = true;
    ++at;
  }
  return {};
}

LiteralSpan scanNumber(std::string_view text) {
  std::size_t at = 0;
  const auto digits = [&] {
    const std::size_t from = at;
    while (at < text.size() && isDigit(text[at])) ++at;
    return at - from;
  };
  std::size_t count = digits();
  if (at < text.size() && text[at] == '.') {
    ++at;
    count += digits();
  }
  if (count == 0) return {};
  if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
    ++at;
    if (at < text.size() && (text[at] == '+' || text[at] == '-')) ++at;
    if (digits() == 0) return {};
  }
  if (at < text.size() && (isWordPart(text[at]) || text[at] == '.')) return {};
  LiteralSpan span;
  span.literal.text = text.substr(0, at);
  span.length = at;
  return span;
}

std::string plainText(const Literal& literal) {
  std::string plain;
  plain.reserve(literal.text.size());
  for (std::size_t i = 0; i < literal.text.size(); ++i) {
    plain += literal.text[i];
    if (literal.text[i] == '\'') ++i;
  }
  return plain;
}

}  // namespace cu::sqlite
