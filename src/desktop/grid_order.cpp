#include "desktop/grid_order.h"

#include <QStringList>
#include <algorithm>
#include <array>
#include <limits>
#include <string_view>

#include "desktop/row_reader.h"
#include "desktop/text.h"

namespace cu::desktop {
namespace {

constexpr char kBetween = '\n';  // no word contains it

bool plainText(std::string_view text) {
  return std::all_of(text.begin(), text.end(),
                     [](char c) { return (static_cast<unsigned char>(c) & 0x80U) == 0; });
}

// folded(), in the bytes of UTF-8.
void appendFolded(std::string& to, std::string_view text) {
  if (!plainText(text)) {
    to += utf8(folded(shown(text)));
    return;
  }
  for (const char c : text) to += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

// What a row is searched for: as a text, and as an amount where it can be one.
struct Word {
  std::string text;
  std::string amount;
};

class WordFilter {
 public:
  WordFilter(const Grid& grid, const QString& words) : mark_(grid.decimalMark) {
    for (const QString& word : words.split(u' ', Qt::SkipEmptyParts)) {
      Word made{utf8(folded(word)), {}};
      const bool amount = std::all_of(made.text.begin(), made.text.end(), [&](char c) {
        return (c >= '0' && c <= '9') || c == '-' || c == grid.decimalMark || c == grid.thousandsMark;
      });
      if (amount) {
        made.amount = made.text;
        std::erase(made.amount, grid.thousandsMark);
      }
      amounts_ = amounts_ || !made.amount.empty();
      words_.push_back(std::move(made));
    }
    for (const GridColumn& column : grid.columns()) {
      if (!column.visible || column.type == kGridBoolean) continue;
      const std::size_t field = grid.rows()->Fields().find(column.field);
      if (field == Columns::kNone) continue;
      (column.type == kGridDouble ? amountFields_ : textFields_).push_back(field);
    }
  }

  bool matches(const CellView* cells) {
    if (words_.empty()) return true;
    texts_.clear();
    for (const std::size_t field : textFields_) append(cells[field]);
    sums_.clear();
    if (amounts_) appendAmounts(cells);
    return std::all_of(words_.begin(), words_.end(), [this](const Word& word) {
      return texts_.find(word.text) != std::string::npos ||
             (!word.amount.empty() && sums_.find(word.amount) != std::string::npos);
    });
  }

 private:
  void append(const CellView& cell) {
    if (cell.isNull()) return;
    if (cell.type() == ValueType::Text) {
      appendFolded(texts_, cell.text());
    } else {
      texts_ += cell.toText();
    }
    texts_ += kBetween;
  }

  // Most amounts are zero, and are written once.
  void appendAmounts(const CellView* cells) {
    std::array<char, 24> digits{};
    bool zero = false;
    for (const std::size_t field : amountFields_) {
      if (cells[field].isNull()) continue;
      const Decimal amount = cells[field].decimal();
      if (amount.isZero()) {
        if (zero) continue;
        zero = true;
      }
      sums_.append(digits.data(), amount.toFixed(2, mark_, digits.data()));
      sums_ += kBetween;
    }
  }

  char mark_;
  bool amounts_ = false;
  std::vector<Word> words_;
  std::vector<std::size_t> textFields_;
  std::vector<std::size_t> amountFields_;
  std::string texts_;
  std::string sums_;
};

// The values of the sorted column, as they are compared.
class SortKeys {
 public:
  SortKeys(const Grid& grid, std::string_view field) : field_(grid.rows()->Fields().find(field)) {
    for (const GridColumn& column : grid.columns()) {
      if (column.field == field) type_ = column.type;
    }
  }

  void add(std::uint32_t row, const CellView* cells) {
    const CellView& cell = cells[field_];
    Key key{0, 0, 0, row};
    if (type_ != kGridText || cell.type() == ValueType::Date) {
      key.number = cell.isNull() ? std::numeric_limits<std::int64_t>::min() : number(cell);
    } else if (!cell.isNull()) {
      key.begin = static_cast<std::uint32_t>(letters_.size());
      appendText(cell);
      key.length = static_cast<std::uint32_t>(letters_.size()) - key.begin;
      key.number = head(key);
    }
    keys_.push_back(key);
  }

  std::vector<std::uint32_t> sorted(bool descending) {
    std::sort(keys_.begin(), keys_.end(), [&](const Key& a, const Key& b) {
      const int order = compare(a, b);
      if (order != 0) return descending ? order > 0 : order < 0;
      return a.row < b.row;
    });
    std::vector<std::uint32_t> rows;
    rows.reserve(keys_.size());
    for (const Key& key : keys_) rows.push_back(key.row);
    return rows;
  }

 private:
  struct Key {
    std::int64_t number;  // of a text, its first bytes
    std::uint32_t begin;  // of a text, its letters
    std::uint32_t length;
    std::uint32_t row;
  };

  std::int64_t number(const CellView& cell) const {
    if (cell.type() == ValueType::Date) return cell.date().serial();
    return type_ == kGridDouble ? cell.decimal().scaled() : cell.integer();
  }

  void appendText(const CellView& cell) {
    if (cell.type() == ValueType::Text) {
      appendFolded(letters_, cell.text());
    } else {
      letters_ += cell.toText();
    }
  }

  std::int64_t head(const Key& key) const {
    std::uint64_t bytes = 0;
    for (std::uint32_t i = 0; i < 8; ++i) {
      const auto byte = i < key.length ? static_cast<unsigned char>(letters_[key.begin + i]) : 0U;
      bytes = bytes << 8U | byte;
    }
    return static_cast<std::int64_t>(bytes >> 1U);  // without a sign
  }

  std::string_view text(const Key& key) const {
    return std::string_view(letters_).substr(key.begin, key.length);
  }

  int compare(const Key& a, const Key& b) const {
    if (a.number != b.number) return a.number < b.number ? -1 : 1;
    return a.length == 0 && b.length == 0 ? 0 : text(a).compare(text(b));
  }

  std::size_t field_;
  int type_ = kGridText;
  std::vector<Key> keys_;
  std::string letters_;
};

}  // namespace

bool sortable(const Grid& grid, const GridColumn& column) {
  if (!column.visible || column.caption.empty()) return false;
  return grid.rowCount() > 0 && grid.rows()->Fields().find(column.field) != Columns::kNone;
}

std::vector<std::uint32_t> arranged(const Grid& grid, const Arrangement& by) {
  std::vector<std::uint32_t> rows;
  const std::size_t count = grid.rowCount();
  if (count == 0) return rows;
  rows.reserve(count);
  const bool sorts = by.sorts() && grid.rows()->Fields().find(by.field) != Columns::kNone;
  const RowReader reader(grid);
  WordFilter words(grid, by.words);
  SortKeys keys(grid, by.field);
  std::vector<CellView> cells(grid.rows()->Fields().size());
  for (std::uint32_t row = 0; row < count; ++row) {
    grid.rows()->Peek(row + std::size_t{1}, cells.data());
    if (by.states != 0 && (reader.states(cells.data()) & by.states) != by.states) continue;
    if (!words.matches(cells.data())) continue;
    if (sorts) {
      keys.add(row, cells.data());
    } else {
      rows.push_back(row);
    }
  }
  return sorts ? keys.sorted(by.descending) : rows;
}

}  // namespace cu::desktop
