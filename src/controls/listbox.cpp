#include "controls/listbox.h"

#include "base/error.h"
#include "data/recordset.h"

namespace cu {

void ListBox::clear() {
  entries_.clear();
  setIndex(-1);
  notify();
}

void ListBox::add(const std::string& text, std::optional<std::int64_t> record) {
  entries_.push_back({text, record});
  notify();
}

void ListBox::setIndex(std::int64_t index) { choose(index, std::nullopt); }

void ListBox::choose(std::int64_t index, std::optional<std::int64_t> unlisted) {
  storedIndex_ = index;
  unlisted_ = unlisted;
  const bool listed = index >= 0 && index < static_cast<std::int64_t>(entries_.size());
  const int shown = listed ? static_cast<int>(index) : -1;
  if (shown == index_) return;
  index_ = shown;
  notify();
  if (onChange) onChange();
}

std::string ListBox::text() const {
  return index_ < 0 ? std::string() : entries_[static_cast<std::size_t>(index_)].text;
}

std::optional<std::int64_t> ListBox::record() const {
  return index_ < 0 ? std::nullopt : entries_[static_cast<std::size_t>(index_)].record;
}

int ListBox::indexOf(std::string_view text) const {
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    if (entries_[i].text == text) return static_cast<int>(i);
  }
  return -1;
}

int ListBox::indexOfRecord(std::int64_t record) const {
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    if (entries_[i].record == record) return static_cast<int>(i);
  }
  return -1;
}

void ListBox::setRecord(std::int64_t record) {
  const int index = indexOfRecord(record);
  choose(index, index < 0 ? std::optional(record) : std::nullopt);
}

void ListBox::setSource(const std::string& statement) {
  source_ = statement;
  notify();
}

void ListBox::load() {
  if (connection_ == nullptr)
    throw Error(kErrorObjectNotSet, "L'elenco " + name() + " non ha una connessione.");
  Recordset rows;
  rows.Open(*connection_, source_);
  std::vector<Entry> entries;
  entries.reserve(rows.RecordCount());
  for (; !rows.Eof(); rows.MoveNext()) {
    Entry entry;
    entry.text = rows.Get(displayField_).toText();
    if (!keyField_.empty() && !rows.Get(keyField_).isNull()) entry.record = rows.Get(keyField_).integer();
    entries.push_back(std::move(entry));
  }
  entries_ = std::move(entries);
  const bool chosen = index_ >= 0;
  index_ = -1;
  storedIndex_ = -1;
  unlisted_.reset();
  notify();
  if (chosen && onChange) onChange();
}

void ListBox::setBackground(Background background) {
  if (background_ == background) return;
  background_ = background;
  notify();
}

}  // namespace cu
