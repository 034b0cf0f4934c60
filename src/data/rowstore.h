#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/value.h"

namespace cu {

struct Column {
  std::string name;
  ValueType type = ValueType::Null;  // Null where only the values define it
};

// The columns of a result, in order. Names are compared without case; for a duplicate name the first column
// is found.
class Columns {
 public:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
  explicit Columns(std::vector<Column> columns);
  std::size_t size() const { return columns_.size(); }
  const Column& operator[](std::size_t index) const { return columns_[index]; }
  std::size_t find(std::string_view name) const;  // kNone when there is none

 private:
  std::vector<Column> columns_;
  std::unordered_map<std::string, std::size_t> byName_;
};

// The rows of a result in memory, packed: a null takes a fraction of a byte, as does a cell that is the same
// as in the first row; a text takes its bytes. An engine appends the cells of a row in column order; stored
// rows do not change.
class RowStore {
 public:
  RowStore() = default;
  RowStore(const RowStore&) = delete;
  RowStore& operator=(const RowStore&) = delete;

  void setColumns(std::shared_ptr<const Columns> columns);
  const std::shared_ptr<const Columns>& columns() const { return columns_; }

  void beginRow();
  void null();
  void integer(std::int64_t value);
  void decimal(Decimal value);
  void text(std::string_view value);
  void date(Date value);
  void endRow();  // cells not appended are null

  // Row `first` + i becomes what row `first` + `places`[i] is; each place occurs once.
  void reorder(std::size_t first, const std::vector<std::uint32_t>& places);

  std::size_t size() const { return rows_.size(); }
  // Writes one view per column; `cells` has room for columns()->size(). The views are valid as long as the
  // store exists.
  void read(std::size_t row, CellView* cells) const { readFirst(row, columns_->size(), cells); }
  // Reads only the first `count` columns.
  void readFirst(std::size_t row, std::size_t count, CellView* cells) const;
  std::size_t bytes() const { return chunkBytes_; }

 private:
  void reserve(std::size_t more) {
    if (static_cast<std::size_t>(limit_ - end_) < more) grow(more);
  }
  void grow(std::size_t more);
  void tagged(std::uint8_t tag, std::int64_t value);
  void varint(std::uint64_t value);
  // A cell of the row being written that needs no bytes of its own: it extends the pending run, or begins
  // one.
  enum class Run : std::uint8_t { Nulls, Common };
  void extend(Run kind);
  void flushRun();
  // As in the first row; false while that is the one being written.
  bool isCommon(ValueType type, std::int64_t number) const;

  std::shared_ptr<const Columns> columns_;
  std::vector<std::unique_ptr<unsigned char[]>> chunks_;
  std::size_t chunkSize_ = 0;
  std::size_t chunkBytes_ = 0;
  unsigned char* rowStart_ = nullptr;
  unsigned char* end_ = nullptr;    // after the last byte written
  unsigned char* limit_ = nullptr;  // end of the chunk
  Run run_ = Run::Nulls;            // pending cells
  std::size_t runLength_ = 0;
  std::vector<const unsigned char*> rows_;
  std::vector<std::string_view> lastText_;  // last long text of each column, which an equal text shares
  // The cells of the first row, from the second one on.
  struct Common {
    ValueType type;
    std::int64_t number;  // 0 of a text
  };
  std::vector<Common> common_;
  std::vector<CellView> commonCells_;
  std::size_t column_ = 0;
};

}  // namespace cu
