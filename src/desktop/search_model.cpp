#include "desktop/search_model.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

#include "desktop/text.h"

namespace cu::desktop {
namespace {

constexpr std::size_t kRanks = 5;
constexpr int kOwnColumns = 2;

// The first place where the word begins a word of the text; -1 for none.
qsizetype beginningOfWord(const QString& text, const QString& word) {
  for (qsizetype at = text.indexOf(word); at >= 0; at = text.indexOf(word, at + 1)) {
    if (at == 0 || !text[at - 1].isLetterOrNumber()) return at;
  }
  return -1;
}

}  // namespace

SearchModel::SearchModel(Recordset& rows, QStringList captions, QObject* parent)
    : QAbstractTableModel(parent), rows_(rows), captions_(std::move(captions)), cells_(rows.Fields().size()) {
  keys_.reserve(rows_.RecordCount());
  for (std::size_t at = 1; at <= rows_.RecordCount(); ++at) {
    rows_.Peek(at, cells_.data());
    keys_.push_back({folded(shown(cells_[1].toText())), folded(shown(cells_[2].toText()))});
  }
  passing_.resize(keys_.size());
  std::iota(passing_.begin(), passing_.end(), 0U);
  matching_ = passing_;
}

void SearchModel::addFurther(FurtherRows further) {
  further_ = std::move(further);
  for (std::size_t i = 0; i < keys_.size(); ++i) {
    rows_.Peek(i + 1, cells_.data());
    const auto found = further_.find(cells_[0].integer());
    keys_[i].further = found == further_.end() ? nullptr : &found->second;
  }
  const QString typed = std::exchange(narrowed_, {});
  narrow(typed);
}

std::optional<std::size_t> SearchModel::rank(const Key& key) const {
  static const QStringList kNone;
  const QStringList& further = key.further == nullptr ? kNone : key.further->keys;
  const auto inFurther = [&](const auto& is) { return std::any_of(further.begin(), further.end(), is); };
  const auto has = [&](const QString& word) {
    return key.code.contains(word) || key.description.contains(word) ||
           inFurther([&](const QString& text) { return text.contains(word); });
  };
  if (!std::all_of(words_.begin(), words_.end(), has)) return std::nullopt;
  const bool named = !further.empty() && !further.front().isEmpty();
  const QString whole = named ? key.description + u' ' + further.front() : key.description;
  const QString turned = named ? further.front() + u' ' + key.description : key.description;
  for (const QString& text : {key.code, key.description, whole, turned}) {
    if (text == narrowed_) return 0;
  }
  if (inFurther([&](const QString& text) { return text == narrowed_; })) return 0;
  if (key.code.startsWith(narrowed_) || whole.startsWith(narrowed_)) return 1;
  const auto begins = [&](const QString& text) { return text.startsWith(narrowed_); };
  if (begins(turned) || inFurther(begins)) return 2;
  const auto beginsWord = [&](const QString& word) {
    return key.code.startsWith(word) || beginningOfWord(key.description, word) >= 0 ||
           inFurther([&](const QString& text) { return beginningOfWord(text, word) >= 0; });
  };
  return std::all_of(words_.begin(), words_.end(), beginsWord) ? 3 : 4;
}

void SearchModel::narrow(const QString& typed) {
  const QString wanted = folded(typed.simplified());
  beginResetModel();
  // A text that continues the previous one narrows the result further.
  if (narrowed_.isEmpty() || !wanted.startsWith(narrowed_)) {
    passing_.resize(keys_.size());
    std::iota(passing_.begin(), passing_.end(), 0U);
  }
  narrowed_ = wanted;
  words_ = wanted.split(u' ', Qt::SkipEmptyParts);
  choose();
  endResetModel();
}

void SearchModel::choose() {
  if (narrowed_.isEmpty()) {
    matching_ = passing_;
    return;
  }
  std::array<std::vector<std::uint32_t>, kRanks> ranked;
  std::erase_if(passing_, [&](std::uint32_t at) {
    const auto found = rank(keys_[at]);
    if (found) ranked[*found].push_back(at);
    return !found;
  });
  matching_.clear();
  for (const auto& each : ranked) matching_.insert(matching_.end(), each.begin(), each.end());
}

std::vector<Stretch> SearchModel::matched(const QString& text) const {
  std::vector<Stretch> all;
  for (const QString& word : words_) {
    const std::vector<Stretch> found = matches(text, word);
    const auto first = std::find_if(found.begin(), found.end(), [&](const Stretch& each) {
      return each.from == 0 || !text[each.from - 1].isLetterOrNumber();
    });
    if (!found.empty()) all.push_back(first != found.end() ? *first : found.front());
  }
  return all;
}

int SearchModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(matching_.size());
}

int SearchModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : std::max(kOwnColumns, static_cast<int>(captions_.size()));
}

std::string SearchModel::text(int row, std::size_t field) const {
  rows_.Peek(matching_[static_cast<std::size_t>(row)] + 1, cells_.data());
  return cells_[field].toText();
}

std::int64_t SearchModel::record(int row) const {
  rows_.Peek(matching_[static_cast<std::size_t>(row)] + 1, cells_.data());
  return cells_[0].integer();
}

int SearchModel::rowOf(std::int64_t record) const {
  for (int row = 0; row < rowCount(); ++row) {
    if (this->record(row) == record) return row;
  }
  return -1;
}

QVariant SearchModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || role != Qt::DisplayRole) return {};
  if (index.column() < kOwnColumns)
    return shown(text(index.row(), static_cast<std::size_t>(index.column()) + 1));
  const FurtherRow* const further = keyOf(index.row()).further;
  return further == nullptr ? QString() : further->texts.value(index.column() - kOwnColumns);
}

QVariant SearchModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal) return {};
  if (role == Qt::TextAlignmentRole) return QVariant(Qt::AlignLeft | Qt::AlignVCenter);
  return role == Qt::DisplayRole ? QVariant(captions_.value(section)) : QVariant();
}

}  // namespace cu::desktop
