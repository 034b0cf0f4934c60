#include "host/listbox.h"

#include "host/error.h"
#include "host/recordset.h"

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

void ListBox::setIndex(int index) {
  if (index < 0 || index >= static_cast<int>(entries_.size())) index = -1;
  if (index == index_) return;
  index_ = index;
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

void ListBox::setRecord(std::int64_t record) { setIndex(indexOfRecord(record)); }

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
  notify();
  if (chosen && onChange) onChange();
}

void ListBox::setBackground(Background background) {
  if (background_ == background) return;
  background_ = background;
  notify();
}

}  // namespace cu
