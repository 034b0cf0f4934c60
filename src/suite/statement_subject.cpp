#include <algorithm>
#include <array>
#include <cstddef>

#include "base/ascii.h"
#include "base/text.h"
#include "suite/log_text.h"

namespace cu {
namespace {

constexpr std::string_view kOther = "altro";
constexpr std::array<std::string_view, 18> kKinds = {
    "SELECT", "INSERT", "UPDATE", "DELETE", "CREATE",   "ALTER", "DROP",     "EXEC",    "IF",
    "BEGIN",  "COMMIT", "MERGE",  "SET",    "ROLLBACK", "WITH",  "TRUNCATE", "DECLARE", "USE"};
// A table's name follows these words.
constexpr std::array<std::string_view, 6> kBeforeTable = {"FROM", "INTO", "UPDATE", "TABLE", "VIEW", "ON"};

bool isNamePart(char c) { return isLetter(c) || isDigit(c) || c == '_' || c == '#'; }

// Reads a statement's words, one by one. Quoted texts, comments and marks are skipped.
class Words {
 public:
  explicit Words(std::string_view text) : text_(text) {}

  // The next word, or name in brackets; empty at the end.
  std::string_view next() {
    bracketed_ = false;
    while (at_ < text_.size()) {
      const char c = text_[at_];
      if (c == '\'' || c == '"') {
        skipQuoted(c);
      } else if (text_.substr(at_, 2) == "--") {
        at_ = std::min(text_.find('\n', at_), text_.size());
      } else if (text_.substr(at_, 2) == "/*") {
        const std::size_t end = text_.find("*/", at_ + 2);
        at_ = end == std::string_view::npos ? text_.size() : end + 2;
      } else if (c == '[') {
        return inBrackets();
      } else if (isNamePart(c)) {
        const std::size_t start = at_;
        while (at_ < text_.size() && isNamePart(text_[at_])) ++at_;
        return text_.substr(start, at_ - start);
      } else {
        ++at_;
      }
    }
    return {};
  }
  bool bracketed() const { return bracketed_; }
  // The word just read is a part of a longer name.
  bool continues() const { return at_ < text_.size() && text_[at_] == '.'; }

 private:
  void skipQuoted(char quote) {
    const std::size_t end = text_.find(quote, at_ + 1);
    at_ = end == std::string_view::npos ? text_.size() : end + 1;
  }
  std::string_view inBrackets() {
    const std::size_t start = at_ + 1;
    const std::size_t end = std::min(text_.find(']', start), text_.size());
    at_ = std::min(end + 1, text_.size());
    bracketed_ = true;
    return text_.substr(start, end - start);
  }

  std::string_view text_;
  std::size_t at_ = 0;
  bool bracketed_ = false;
};

// A name as it may be shown; empty for what is none, such as a number.
std::string shownName(std::string_view name) {
  if (name.empty() || isDigit(name.front()) || !std::all_of(name.begin(), name.end(), isNamePart)) return {};
  std::string shown(name);
  std::replace_if(shown.begin(), shown.end(), isDigit, '#');
  return shown;
}

std::string lastPart(Words& words) {
  std::string_view name = words.next();
  while (words.continues()) name = words.next();
  return shownName(name);
}

template <std::size_t N>
std::string_view among(const std::array<std::string_view, N>& words, std::string_view word) {
  const auto* const found =
      std::find_if(words.begin(), words.end(), [&](std::string_view one) { return equalsNoCase(one, word); });
  return found == words.end() ? std::string_view() : *found;
}

}  // namespace

StatementSubject statementSubject(std::string_view statement) {
  Words words(statement);
  std::string_view word = words.next();
  const std::string_view kind = words.bracketed() ? std::string_view() : among(kKinds, word);
  if (kind.empty()) {
    Words name(statement);
    std::string table = lastPart(name);
    const bool whole = !table.empty() && name.next().empty();
    return whole ? StatementSubject{"SELECT", std::move(table)} : StatementSubject{kOther, {}};
  }
  for (; !word.empty() || words.bracketed(); word = words.next()) {
    if (words.bracketed()) continue;
    const std::string_view before = among(kBeforeTable, word);
    if (before.empty()) continue;
    if (before == "ON" && kind != "CREATE") continue;
    std::string table = lastPart(words);
    // "FROM (SELECT ..." goes on inside.
    if (!table.empty() && among(kKinds, table).empty()) return {kind, std::move(table)};
  }
  return {kind, {}};
}

}  // namespace cu
