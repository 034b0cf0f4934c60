// Any text as a recordset's filter, compared with an independent implementation of the filter rules: rejected
// with the same number, or the same visible rows, before and after changes.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/collation.h"
#include "base/text.h"
#include "data/recordset.h"
#include "support/fake_connection.h"
#include "support/table.h"

namespace {

using cu::CellView;
using cu::Value;
using cu::ValueType;
using cu::test::amount;
using cu::test::day;
using cu::test::null;
using cu::test::text;
using cu::test::whole;

__extension__ using Wide = __int128;

constexpr std::size_t kLongest = 4096;
constexpr std::size_t kMostLiterals = 40;

[[noreturn]] void fault(const char* what) {
  std::fprintf(stderr, "%s\n", what);
  std::abort();
}

const std::vector<cu::Column>& columns() {
  static const std::vector<cu::Column> list = {{"Numero", ValueType::Integer},
                                               {"Nome", ValueType::Text},
                                               {"Importo", ValueType::Decimal},
                                               {"Nota di testo", ValueType::Text},
                                               {"Data", ValueType::Date}};
  return list;
}

struct Comparison {
  std::size_t column = 0;
  std::string op;
  Value literal;
};
using Condition = std::vector<std::vector<Comparison>>;

// Parses the condition by the rules. Raises the number of the error as an int.
class Reading {
 public:
  explicit Reading(std::string_view text) : rest_(text) {}

  Condition condition() {
    Condition result(1);
    for (;;) {
      result.back().push_back(comparison());
      blanks();
      if (rest_.empty()) return result;
      const std::string joiner = cu::lowerAscii(name());
      if (joiner != "and" && joiner != "or") unreadable();
      if (joiner == "or") result.emplace_back();
    }
  }

 private:
  [[noreturn]] static void unreadable() { throw cu::kErrorFilter; }

  static bool among(char c, std::string_view set) { return set.find(c) != std::string_view::npos; }
  static bool letter(char c) {
    return (static_cast<unsigned char>(c) & 0x80U) != 0 ||
           among(c, "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ_");
  }
  static bool digit(char c) { return among(c, "0123456789"); }

  void blanks() {
    while (!rest_.empty() && among(rest_.front(), " \t\r\n")) rest_.remove_prefix(1);
  }
  std::string_view taken(std::size_t count) {
    const std::string_view head = rest_.substr(0, count);
    rest_.remove_prefix(count);
    return head;
  }
  std::string_view name() {
    blanks();
    std::size_t count = 0;
    while (count < rest_.size() && (letter(rest_[count]) || (count > 0 && digit(rest_[count])))) ++count;
    if (count == 0) unreadable();
    return taken(count);
  }
  std::string_view field() {
    blanks();
    if (!rest_.starts_with('[')) return name();
    const std::size_t close = rest_.find(']');
    if (close == std::string_view::npos) unreadable();
    return taken(close + 1).substr(1, close - 1);
  }

  Comparison comparison() {
    Comparison result;
    const std::string wanted = cu::lowerAscii(field());
    while (result.column < columns().size() && cu::lowerAscii(columns()[result.column].name) != wanted) {
      ++result.column;
    }
    if (result.column == columns().size()) throw cu::kErrorItemNotFound;
    blanks();
    while (!rest_.empty() && result.op.size() < 2) {
      const std::string longer = result.op + rest_.front();
      if (!among(rest_.front(), "<=>") || longer == "==" || longer == "=<" || longer == "=>" ||
          longer == "<<" || longer == ">>" || longer == "><") {
        break;
      }
      result.op = longer;
      taken(1);
    }
    if (result.op.empty()) unreadable();
    result.literal = literal();
    return result;
  }

  std::string quoted() {
    std::string content;
    for (taken(1);;) {
      const std::size_t end = rest_.find('\'');
      if (end == std::string_view::npos) unreadable();
      content += taken(end);
      taken(1);
      if (!rest_.starts_with('\'')) return content;
      content += taken(1);
    }
  }
  Value date() {
    const std::size_t end = rest_.find('#', 1);
    if (end == std::string_view::npos) unreadable();
    const std::string_view written = taken(end + 1).substr(1, end - 1);
    if (const auto found = cu::Date::parseItalian(written)) return Value::ofDate(*found);
    if (const auto found = cu::Date::parseIso(written)) return Value::ofDate(*found);
    unreadable();
  }
  Value literal() {
    blanks();
    if (rest_.empty()) unreadable();
    if (rest_.front() == '\'') return text(quoted());
    if (rest_.front() == '#') return date();
    if (letter(rest_.front())) {
      const std::string word = cu::lowerAscii(name());
      if (word == "null") return {};
      if (word == "true") return whole(-1);
      if (word == "false") return whole(0);
      unreadable();
    }
    std::size_t count = among(rest_.front(), "+-") ? 1 : 0;
    while (count < rest_.size() && (digit(rest_[count]) || rest_[count] == '.')) ++count;
    const auto number = cu::Decimal::parse(taken(count));
    if (!number) unreadable();
    return Value::ofDecimal(*number);
  }

  std::string_view rest_;
};

// In ten-thousandths, without a limit.
Wide number(const CellView& value) {
  switch (value.type()) {
    case ValueType::Integer:
      return Wide{value.integer()} * 10000;
    case ValueType::Decimal:
      return value.decimal().scaled();
    case ValueType::Text:
      if (const auto whole = cu::Decimal::parse(value.text())) return whole->scaled();
      return Wide{cu::leadingInteger(value.text())} * 10000;
    case ValueType::Null:
    case ValueType::Date:
      break;
  }
  fault("no number is compared here");
}

template <class T>
bool meets(const T& left, const std::string& op, const T& right) {
  if (op == "=") return left == right;
  if (op == "<>") return !(left == right);
  if (op == "<") return left < right;
  if (op == "<=") return !(right < left);
  if (op == ">") return right < left;
  return !(left < right);
}

bool holds(const Comparison& comparison, const CellView& cell) {
  const CellView literal = comparison.literal.view();
  const bool equal = comparison.op == "=";
  const bool unequal = comparison.op == "<>";
  if (literal.isNull()) return cell.isNull() ? equal : unequal;
  if (cell.isNull()) return false;
  if (cell.type() == ValueType::Date || literal.type() == ValueType::Date) {
    return meets(cell.date(), comparison.op, literal.date());
  }
  if (cell.type() != ValueType::Text) return meets(number(cell), comparison.op, number(literal));
  const std::string right = literal.toText();
  if ((cu::compareItalian(cell.text(), right) < 0) != (cu::compareItalian(right, cell.text()) > 0)) {
    fault("two texts have no order");
  }
  return meets(cu::compareItalian(cell.text(), right), comparison.op, 0);
}

bool matches(const Condition& condition, const std::vector<CellView>& row) {
  for (const auto& all : condition) {
    bool each = true;
    for (const Comparison& comparison : all) each = each && holds(comparison, row[comparison.column]);
    if (each) return true;
  }
  return false;
}

// Rows of all kinds, and rows with the condition's own literals.
std::vector<std::vector<Value>> rowsFor(const Condition& condition) {
  std::vector<std::vector<Value>> rows = {
      {null(), null(), null(), null(), null()},
      {whole(0), text(""), amount("0"), text(" "), Value::ofDate({})},
      {whole(2016), text("Rossi "), amount("100.1234"), text("D'Angelo"), day(2017, 3, 5)},
      {whole(-1), text("12"), amount("-0.0001"), text("012"), day(1, 1, 1)},
      {whole(INT64_MAX), text("\xc3\xa8"), Value::ofDecimal(cu::Decimal::fromScaled(INT64_MAX)), text("e"),
       day(9999, 12, 31)},
      {whole(INT64_MIN), text("\xff"), Value::ofDecimal(cu::Decimal::fromScaled(INT64_MIN)),
       text("05/03/2017"), Value::ofDate(cu::Date::fromSerial(INT32_MAX))}};
  std::size_t literals = 0;
  for (const auto& all : condition) {
    std::vector<Value> meeting(columns().size());
    for (const Comparison& comparison : all) {
      if (++literals > kMostLiterals) return rows;
      meeting[comparison.column] = comparison.literal;
      rows.emplace_back(columns().size(), comparison.literal);
    }
    rows.push_back(meeting);
  }
  return rows;
}

// The visible rows are those that match the condition, in order.
void check(cu::Recordset& set, const Condition& condition) {
  const auto all = set.Clone();
  std::vector<CellView> cells(columns().size());
  std::size_t shown = 0;
  std::vector<CellView> seen(columns().size());
  for (std::size_t row = 1; row <= all->RecordCount(); ++row) {
    all->Peek(row, cells.data());
    if (!matches(condition, cells)) continue;
    if (++shown > set.RecordCount()) fault("a row that meets the condition is not in sight");
    set.Peek(shown, seen.data());
    for (std::size_t column = 0; column < cells.size(); ++column) {
      if (Value::of(cells[column]) != Value::of(seen[column])) fault("another row is in sight");
    }
  }
  if (shown != set.RecordCount()) fault("a row that does not meet the condition is in sight");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  if (size > kLongest) return 0;
  Condition condition;
  int expected = 0;
  try {
    if (!text.empty()) condition = Reading(text).condition();
  } catch (const int number) {
    expected = number;
  }

  cu::test::FakeConnection connection;
  connection.answer("RIGHE", cu::test::Table(columns(), rowsFor(condition)));
  cu::Recordset set;
  set.Open(connection, "RIGHE", cu::LockType::BatchOptimistic);
  const std::size_t count = set.RecordCount();
  int number = 0;
  try {
    set.SetFilter(text);
  } catch (const cu::Error& error) {
    number = error.number();
  }
  if (number != expected) fault("refused otherwise");
  if (number != 0 || text.empty()) {
    if (set.RecordCount() != count || !set.Filter().empty()) fault("a refused filter has left something");
    return 0;
  }
  check(set, condition);

  // Changes the first visible row, one column after the other, until no row is visible.
  const Value changes[] = {null(), whole(7), Value::ofDecimal(cu::Decimal::fromScaled(-70000)),
                           Value::ofText("abc"), day(2018, 1, 31)};
  for (std::size_t step = 0; step < columns().size() && set.RecordCount() > 0; ++step) {
    set.MoveFirst();
    set.Set(columns()[step].name, changes[(step + size) % 5]);
    set.Update();
    check(set, condition);
  }
  set.ClearFilter();
  if (set.RecordCount() != count) fault("rows are lost");
  return 0;
}
