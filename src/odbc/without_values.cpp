#include "odbc/without_values.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include "base/ascii.h"

namespace cu::odbc {
namespace {

bool isPartOfWord(char c) {
  return isDigit(c) || isLetter(c) || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

// Returns the text literal whose quote is at `at`, and moves `at` after it.
std::string takeText(std::string_view statement, std::size_t& at) {
  std::string value;
  for (++at; at < statement.size(); ++at) {
    if (statement[at] == '\'') {
      ++at;
      if (at >= statement.size() || statement[at] != '\'') break;
    }
    value += statement[at];
  }
  return value;
}

std::vector<std::string> valuesOf(std::string_view statement) {
  std::vector<std::string> values;
  for (std::size_t at = 0; at < statement.size();) {
    const char c = statement[at];
    if (c == '\'') {
      values.push_back(takeText(statement, at));
    } else if (c == '[') {
      at = std::min(statement.find(']', at), statement.size());
    } else if (isPartOfWord(c)) {
      const std::size_t start = at;
      while (at < statement.size() && (isPartOfWord(statement[at]) || statement[at] == '.')) ++at;
      if (isDigit(c)) values.emplace_back(statement.substr(start, at - start));
    } else {
      ++at;
    }
  }
  // A literal may contain a statement with values of its own.
  for (std::size_t i = 0, count = values.size(); i < count; ++i) {
    if (values[i].find('\'') == std::string::npos) continue;
    for (std::string& inner : valuesOf(std::string(values[i]))) values.push_back(std::move(inner));
  }
  std::ranges::sort(values, [](const std::string& a, const std::string& b) { return a.size() > b.size(); });
  std::erase_if(values, [](const std::string& value) { return value.empty(); });
  return values;
}

void hide(std::string& message, const std::string& value) {
  constexpr std::string_view kHidden = "…";
  for (std::size_t at = message.find(value); at != std::string::npos;) {
    const std::size_t end = at + value.size();
    const bool whole = (at == 0 || !isPartOfWord(message[at - 1]) || !isPartOfWord(value.front())) &&
                       (end == message.size() || !isPartOfWord(message[end]) || !isPartOfWord(value.back()));
    if (whole) message.replace(at, value.size(), kHidden);
    at = message.find(value, whole ? at + kHidden.size() : at + 1);
  }
}

// Removes values that SQL Server shows in another form than in the statement: a key as stored, a text
// truncated to the column's length.
void cutShown(std::string& message) {
  for (const std::string_view lead :
       {std::string_view("The duplicate key value is ("), std::string_view("Truncated value: '")}) {
    const std::size_t start = message.find(lead);
    if (start != std::string::npos) message.replace(start + lead.size(), std::string::npos, "…");
  }
}

}  // namespace

std::string withoutValues(std::string_view message, std::string_view statement) {
  std::string text(message);
  cutShown(text);
  for (const std::string& value : valuesOf(statement)) hide(text, value);
  return text;
}

}  // namespace cu::odbc
