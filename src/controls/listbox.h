#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/control.h"
#include "data/database.h"

namespace cu {

// A drop-down list without free text; it can be filled from a statement.
class ListBox : public Control {
 public:
  using Control::Control;
  void accept(ControlVisitor& visitor) override { visitor.visit(*this); }

  struct Entry {
    std::string text;
    std::optional<std::int64_t> record;
  };

  void clear();
  void add(const std::string& text, std::optional<std::int64_t> record = {});
  const std::vector<Entry>& entries() const { return entries_; }

  int index() const { return index_; }  // -1 when none is chosen
  void setIndex(
      std::int64_t index);  // out of range selects none; raises the change event when the index differs
  std::string text() const;
  std::optional<std::int64_t> record() const;
  void setRecord(std::int64_t record);  // selects the entry with that key, or none
  // The value to store: the index or key last set, also where the list has no such entry.
  std::int64_t storedIndex() const { return storedIndex_; }
  std::optional<std::int64_t> storedRecord() const { return unlisted_ ? unlisted_ : record(); }
  int indexOf(std::string_view text) const;
  int indexOfRecord(std::int64_t record) const;

  // The source of the list: the statement, the field shown, and the key field ("" for none). A new source
  // takes effect at load().
  void setConnection(Connection& connection) { connection_ = &connection; }
  void setSource(const std::string& statement);
  const std::string& source() const { return source_; }
  void setDisplayField(const std::string& field) { displayField_ = field; }
  void setKeyField(const std::string& field) { keyField_ = field; }
  void addColumn(const std::string& field) { columns_.push_back(field); }
  const std::vector<std::string>& columns() const { return columns_; }
  void load();  // leaves no entry selected

  Background background() const { return background_; }
  void setBackground(Background background);
  Event onChange;

 private:
  void choose(std::int64_t index, std::optional<std::int64_t> unlisted);

  std::vector<Entry> entries_;
  int index_ = -1;
  std::int64_t storedIndex_ = -1;
  std::optional<std::int64_t> unlisted_;  // the key last set, where no entry has it
  Connection* connection_ = nullptr;
  std::string source_;
  std::string displayField_;
  std::string keyField_;
  std::vector<std::string> columns_;
  Background background_ = Background::Window;
};

}  // namespace cu
