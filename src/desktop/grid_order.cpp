#include "desktop/grid_order.h"

#include <QStringList>
#include <algorithm>
#include <array>
#include <limits>
#include <string_view>
#include <utility>

#include "desktop/row_reader.h"
#include "desktop/text.h"

namespace cu::desktop {
namespace {

constexpr char kBetween = '\n';  // no word contains it

// Each letter of the Latin alphabets by its number, folded; other ones are folded in their text.
constexpr std::size_t kLetters = 0x250;

const std::array<std::string, kLetters>& foldedLetters() {
  static const std::array<std::string, kLetters> kFolded = [] {
    std::array<std::string, kLetters> made;
    for (std::size_t i = 0; i < made.size(); ++i)
      made.at(i) = utf8(folded(QString(QChar(static_cast<char16_t>(i)))));
    return made;
  }();
  return kFolded;
}

// folded(), in the bytes of UTF-8.
void appendFolded(std::string& to, std::string_view text) {
  const std::size_t before = to.size();
  to.resize(before + text.size());
  char* out = to.data() + before;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if (byte < 0x80U) {
      *out++ = byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : text[i];
      continue;
    }
    const std::size_t letter = i + 1 < text.size()
                                   ? (byte & 0x1FU) << 6U | (static_cast<unsigned char>(text[i + 1]) & 0x3FU)
                                   : kLetters;
    // Never longer than the letter itself, which has two bytes here.
    const bool known = (byte & 0xE0U) == 0xC0U && letter < kLetters && foldedLetters()[letter].size() <= 2;
    if (!known) {
      to.resize(before);
      to += utf8(folded(shown(text)));
      return;
    }
    for (const char c : foldedLetters()[letter]) *out++ = c;
    ++i;
  }
  to.resize(static_cast<std::size_t>(out - to.data()));
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
      words_.push_back(std::move(made));
    }
    // Amounts are written out only where all other words are there.
    std::stable_partition(words_.begin(), words_.end(), [](const Word& word) { return word.amount.empty(); });
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
    bool amountsRead = false;
    return std::all_of(words_.begin(), words_.end(), [&](const Word& word) {
      if (texts_.find(word.text) != std::string::npos) return true;
      if (word.amount.empty()) return false;
      if (!std::exchange(amountsRead, true)) appendAmounts(cells);
      return sums_.find(word.amount) != std::string::npos;
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
    sums_.clear();
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
    if (!field.empty()) keys_.reserve(grid.rowCount());
    for (const GridColumn& column : grid.columns()) {
      if (column.field == field) type_ = column.type;
    }
  }

  void add(std::uint32_t row, const CellView* cells) {
    const CellView& cell = cells[field_];
    Key key{0, 0, 0, 0, row};
    if (type_ != kGridText || cell.type() == ValueType::Date) {
      key.number = cell.isNull() ? std::numeric_limits<std::int64_t>::min() : number(cell);
    } else if (!cell.isNull()) {
      key.begin = static_cast<std::uint32_t>(letters_.size());
      appendText(cell);
      key.length = static_cast<std::uint32_t>(letters_.size()) - key.begin;
      key.number = head(key, 0);
      key.more = head(key, kHead);
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
    std::int64_t more;    // and the next ones
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

  // Bytes of a text as a number that compares as they do; one bit less, which leaves no sign, takes seven.
  static constexpr std::uint32_t kHead = 7;
  std::int64_t head(const Key& key, std::uint32_t from) const {
    std::uint64_t bytes = 0;
    for (std::uint32_t i = from; i < from + kHead; ++i) {
      bytes = bytes << 8U | (i < key.length ? static_cast<unsigned char>(letters_[key.begin + i]) : 0U);
    }
    return static_cast<std::int64_t>(bytes);
  }

  std::string_view text(const Key& key) const {
    return std::string_view(letters_).substr(key.begin, key.length);
  }

  int compare(const Key& a, const Key& b) const {
    if (a.number != b.number) return a.number < b.number ? -1 : 1;
    if (a.more != b.more) return a.more < b.more ? -1 : 1;
    return a.length <= 2 * kHead && b.length <= 2 * kHead ? 0 : text(a).compare(text(b));
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
