#include "data/filter.h"

#include <algorithm>

#include "base/ascii.h"
#include "base/collation.h"
#include "base/error.h"
#include "base/text.h"
#include "data/rowstore.h"

namespace cu {
namespace {

bool isNameStart(char c) { return isLetter(c) || c == '_' || static_cast<unsigned char>(c) >= 0x80; }

template <class T>
int order(const T& a, const T& b) {
  return a < b ? -1 : (b < a ? 1 : 0);
}

// Compares an integer of any size with an amount.
int order(std::int64_t a, Decimal b) {
  std::int64_t whole = b.scaled() / 10000;
  const std::int64_t rest = b.scaled() % 10000;
  if (rest < 0) --whole;  // rounds towards negative infinity
  return a != whole ? order(a, whole) : (rest == 0 ? 0 : -1);
}

// Neither value is null.
int compare(const CellView& cell, const CellView& literal) {
  if (cell.type() == ValueType::Date || literal.type() == ValueType::Date) {
    return order(cell.date(), literal.date());
  }
  if (cell.type() == ValueType::Text) {
    return literal.type() == ValueType::Text ? compareItalian(cell.text(), literal.text())
                                             : compareItalian(cell.text(), literal.toText());
  }
  // A text may contain a number beyond an amount's range that is a valid integer.
  if (literal.type() == ValueType::Text && !Decimal::parse(literal.text())) {
    const std::int64_t number = leadingInteger(literal.text());
    return cell.type() == ValueType::Integer ? order(cell.integer(), number) : -order(number, cell.decimal());
  }
  if (cell.type() == ValueType::Integer) return order(cell.integer(), literal.decimal());
  return order(cell.decimal(), literal.decimal());
}

}  // namespace

class FilterParser {
 public:
  FilterParser(std::string_view text, const Columns& columns) : text_(text), columns_(columns) {}

  RowFilter parse() {
    RowFilter filter;
    filter.anyOfAll_.emplace_back();
    while (true) {
      filter.anyOfAll_.back().push_back(comparison());
      skipBlanks();
      if (at_ == text_.size()) return filter;
      const std::string_view joiner = word();
      if (equalsNoCase(joiner, "OR")) {
        filter.anyOfAll_.emplace_back();
      } else if (!equalsNoCase(joiner, "AND")) {
        fail();
      }
    }
  }

 private:
  [[noreturn]] void fail() const {
    throw Error(kErrorFilter, "Il filtro non è leggibile dalla posizione " +
                                  fromInteger(static_cast<std::int64_t>(at_) + 1) + ": " +
                                  std::string(text_));
  }

  void skipBlanks() {
    while (at_ < text_.size() &&
           (text_[at_] == ' ' || text_[at_] == '\t' || text_[at_] == '\r' || text_[at_] == '\n')) {
      ++at_;
    }
  }

  std::string_view word() {
    skipBlanks();
    const std::size_t start = at_;
    if (at_ < text_.size() && isNameStart(text_[at_])) {
      while (at_ < text_.size() && (isNameStart(text_[at_]) || isDigit(text_[at_]))) ++at_;
    }
    if (at_ == start) fail();
    return text_.substr(start, at_ - start);
  }

  std::string_view fieldName() {
    skipBlanks();
    if (at_ < text_.size() && text_[at_] == '[') {
      const std::size_t close = text_.find(']', at_);
      if (close == std::string_view::npos) fail();
      const std::string_view name = text_.substr(at_ + 1, close - at_ - 1);
      at_ = close + 1;
      return name;
    }
    return word();
  }

  RowFilter::Operator comparator() {
    skipBlanks();
    const auto take = [&](std::string_view sign) {
      if (text_.substr(at_, sign.size()) != sign) return false;
      at_ += sign.size();
      return true;
    };
    if (take("<>")) return RowFilter::Operator::NotEqual;
    if (take("<=")) return RowFilter::Operator::LessEqual;
    if (take(">=")) return RowFilter::Operator::GreaterEqual;
    if (take("=")) return RowFilter::Operator::Equal;
    if (take("<")) return RowFilter::Operator::Less;
    if (take(">")) return RowFilter::Operator::Greater;
    fail();
  }

  Value quoted(char mark) {
    std::string content;
    ++at_;
    while (at_ < text_.size()) {
      if (text_[at_] == mark) {
        if (mark == '\'' && at_ + 1 < text_.size() && text_[at_ + 1] == mark) {
          ++at_;
        } else {
          ++at_;
          return Value::ofText(content);
        }
      }
      content.push_back(text_[at_++]);
    }
    fail();
  }

  Value literal() {
    skipBlanks();
    if (at_ == text_.size()) fail();
    if (text_[at_] == '\'') return quoted('\'');
    if (text_[at_] == '#') {
      const Value day = quoted('#');
      if (const auto date = Date::parseItalian(day.view().text())) return Value::ofDate(*date);
      if (const auto date = Date::parseIso(day.view().text())) return Value::ofDate(*date);
      fail();
    }
    if (isNameStart(text_[at_])) {
      const std::string_view name = word();
      if (equalsNoCase(name, "NULL")) return {};
      if (equalsNoCase(name, "TRUE")) return Value::ofInteger(-1);
      if (equalsNoCase(name, "FALSE")) return Value::ofInteger(0);
      fail();
    }
    const std::size_t start = at_;
    if (text_[at_] == '-' || text_[at_] == '+') ++at_;
    while (at_ < text_.size() && (isDigit(text_[at_]) || text_[at_] == '.')) ++at_;
    const auto number = Decimal::parse(text_.substr(start, at_ - start));
    if (!number) {
      at_ = start;
      fail();
    }
    return Value::ofDecimal(*number);
  }

  RowFilter::Comparison comparison() {
    const std::string_view name = fieldName();
    RowFilter::Comparison result;
    result.column = columns_.find(name);
    if (result.column == Columns::kNone) {
      throw Error(kErrorItemNotFound, "Il campo \"" + std::string(name) + "\" del filtro non esiste.");
    }
    result.op = comparator();
    result.literal = literal();
    return result;
  }

  std::string_view text_;
  const Columns& columns_;
  std::size_t at_ = 0;
};

RowFilter RowFilter::parse(std::string_view text, const Columns& columns) {
  return FilterParser(text, columns).parse();
}

bool RowFilter::holds(const Comparison& comparison, const CellView& cell) {
  const CellView literal = comparison.literal.view();
  if (cell.isNull() || literal.isNull()) {
    const bool both = cell.isNull() && literal.isNull();
    if (comparison.op == Operator::Equal) return both;
    return comparison.op == Operator::NotEqual && literal.isNull() && !both;
  }
  const int order = compare(cell, literal);
  switch (comparison.op) {
    case Operator::Equal:
      return order == 0;
    case Operator::NotEqual:
      return order != 0;
    case Operator::Less:
      return order < 0;
    case Operator::LessEqual:
      return order <= 0;
    case Operator::Greater:
      return order > 0;
    case Operator::GreaterEqual:
      break;
  }
  return order >= 0;
}

std::size_t RowFilter::columns() const {
  std::size_t count = 0;
  for (const auto& all : anyOfAll_) {
    for (const Comparison& comparison : all) count = std::max(count, comparison.column + 1);
  }
  return count;
}

bool RowFilter::matches(const CellView* row) const {
  for (const auto& all : anyOfAll_) {
    bool each = true;
    for (const Comparison& comparison : all) {
      if (!holds(comparison, row[comparison.column])) {
        each = false;
        break;
      }
    }
    if (each) return true;
  }
  return anyOfAll_.empty();
}

}  // namespace cu
