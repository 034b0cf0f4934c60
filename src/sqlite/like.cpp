#include "sqlite/like.h"

#include <vector>

#include "base/collation.h"
#include "base/text.h"

namespace cu::sqlite {
namespace {

struct Range {
  std::string first;
  std::string last;
};

struct Element {
  enum class Kind { Character, Any, AnyRun, Set, NotSet };
  Kind kind = Kind::Character;
  std::string character;
  std::vector<Range> ranges;
};

std::vector<std::string> characters(std::string_view text) {
  std::vector<std::string> result;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t start = at;
    nextCodePoint(text, at);
    result.emplace_back(text.substr(start, at - start));
  }
  return result;
}

std::vector<Element> compile(std::string_view pattern, std::string_view escape) {
  const std::vector<std::string> parts = characters(pattern);
  std::vector<Element> elements;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    Element element;
    element.character = parts[i];
    if (!escape.empty() && parts[i] == escape && i + 1 < parts.size()) {
      element.character = parts[++i];
    } else if (parts[i] == "%") {
      element.kind = Element::Kind::AnyRun;
    } else if (parts[i] == "_") {
      element.kind = Element::Kind::Any;
    } else if (parts[i] == "[") {
      element.kind = Element::Kind::Set;
      ++i;
      if (i < parts.size() && parts[i] == "^") {
        element.kind = Element::Kind::NotSet;
        ++i;
      }
      for (; i < parts.size() && parts[i] != "]"; ++i) {
        Range range{parts[i], parts[i]};
        if (i + 2 < parts.size() && parts[i + 1] == "-" && parts[i + 2] != "]") {
          range.last = parts[i + 2];
          i += 2;
        }
        element.ranges.push_back(std::move(range));
      }
    }
    elements.push_back(std::move(element));
  }
  return elements;
}

bool meets(const Element& element, const std::string& character) {
  switch (element.kind) {
    case Element::Kind::Character:
      return compareItalian(element.character, character) == 0;
    case Element::Kind::Any:
    case Element::Kind::AnyRun:
      return true;
    case Element::Kind::Set:
    case Element::Kind::NotSet:
      break;
  }
  for (const Range& range : element.ranges) {
    if (compareItalian(range.first, character) <= 0 && compareItalian(character, range.last) <= 0) {
      return element.kind == Element::Kind::Set;
    }
  }
  return element.kind == Element::Kind::NotSet;
}

// Backtracks only to the last %: the cost is at most the product of the lengths.
bool matches(const std::vector<std::string>& value, const std::vector<Element>& pattern) {
  constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  std::size_t v = 0;
  std::size_t p = 0;
  std::size_t star = kNone;
  std::size_t resume = 0;
  while (v < value.size()) {
    if (p < pattern.size() && pattern[p].kind == Element::Kind::AnyRun) {
      star = p++;
      resume = v;
    } else if (p < pattern.size() && meets(pattern[p], value[v])) {
      ++p;
      ++v;
    } else if (star != kNone) {
      p = star + 1;
      v = ++resume;
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p].kind == Element::Kind::AnyRun) ++p;
  return p == pattern.size();
}

}  // namespace

bool like(std::string_view value, std::string_view pattern, std::string_view escape) {
  const std::vector<Element> elements = compile(pattern, escape);
  if (matches(characters(value), elements)) return true;
  const std::string_view trimmed = trimRight(value);
  return trimmed.size() != value.size() && matches(characters(trimmed), elements);
}

std::string objectOf(std::string_view text) {
  std::string part;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '.') {
      part.clear();
    } else if (text[i] == '[') {
      for (++i; i < text.size(); ++i) {
        if (text[i] == ']') {
          if (i + 1 == text.size() || text[i + 1] != ']') break;
          ++i;
        }
        part += text[i];
      }
    } else {
      part += text[i];
    }
  }
  return part;
}

}  // namespace cu::sqlite
