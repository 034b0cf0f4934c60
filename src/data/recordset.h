#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "base/per_chiamanti.h"
#include "data/database.h"
#include "data/filter.h"
#include "data/rowstore.h"

namespace cu {

enum class RecordStatus { Unmodified, New, Modified };
enum class LockType { ReadOnly = 1, BatchOptimistic = 4 };

// The client-side, static recordset: all rows in memory; moving in it and changing it never touches the
// database. A changed row keeps its values as read; a statement is what brings a change to the database.
//
// A closed recordset raises Error 3704, a field without a current row 3021, an unknown name 3265, an
// unreadable filter 3001, a change of one opened read-only 3251.
//
// A move, a filter and AddNew do the Update of what is pending first. A row that a change takes out of the
// filter gives its place to the next row, to the last one where none follows.
class Recordset : public per_chiamanti::DiRecordset<Recordset> {
 public:
  Recordset() = default;
  Recordset(const Recordset&) = delete;
  Recordset& operator=(const Recordset&) = delete;

  void Open(Connection& connection, std::string_view source, LockType lock = LockType::ReadOnly);
  void Close();
  bool IsOpen() const { return data_ != nullptr; }

  // Of the rows under the filter.
  std::size_t RecordCount() const;
  bool Bof() const;
  bool Eof() const;
  void MoveFirst();
  void MoveNext();
  void MovePrevious();
  // From 1, 0 when there is no current row; and the move to one.
  std::size_t AbsolutePosition() const;
  void MoveTo(std::size_t position);

  // Names the row itself: it holds whatever the filter does, also in a clone.
  using RowMark = std::uint32_t;
  RowMark Bookmark() const;
  void SetBookmark(RowMark mark);  // Error 3021 when the filter hides the row

  // Comparisons of fields with numbers and 'texts', joined by AND and OR; "" shows all rows. Under a new
  // filter the first row becomes the current one; when the filter goes, the current row stays.
  void SetFilter(std::string_view condition);
  void ClearFilter() { SetFilter(""); }
  // The rows with changes not yet brought to the database, in the order of the rows.
  void FilterPending();

  // Shares the rows and their changes; cursor and filter are the clone's own (first row, no filter).
  std::unique_ptr<Recordset> Clone() const;

  const Columns& Fields() const;
  std::size_t Ordinal(std::string_view field) const;
  CellView Get(std::string_view field) const { return Get(Ordinal(field)); }
  CellView Get(std::size_t column) const;
  Value OriginalValue(std::string_view field) const;  // as read from the database; null in a new row
  // The whole current row, one view a column; until the next move or change.
  const CellView* Row() const;
  // Any row under the filter, by its position from 1, without moving there; `cells` has room for a view a
  // column.
  void Peek(std::size_t position, CellView* cells) const;

  void Set(std::string_view field, const Value& value);
  void AddNew();
  void Update();
  RecordStatus Status() const;  // of what is pending too
  // What was changed in the current row so far counts as brought to the database: the row is no longer
  // pending. Rows in sight stay in sight until the next filter; original values stay those that were read.
  void AcceptCurrent();
  // Runs what changes the current row and brings it to the database. Where that raises an error, the row is
  // as it was, and the current one again.
  template <class Store>
  void Attempt(const Store& store);

 private:
  friend per_chiamanti::DiRecordset<Recordset>;

  // What differs from the row as read: a change of one flag costs one value, not the row.
  struct Change {
    std::size_t column;
    Value value;
  };
  using Changes = std::vector<Change>;
  struct Edited {
    Changes changes;
    RecordStatus status = RecordStatus::Modified;
  };
  // What clones share.
  struct Data {
    RowStore store;
    LockType lock = LockType::ReadOnly;
    std::size_t added = 0;
    std::uint64_t version = 0;
    std::unordered_map<RowMark, Edited> edited;  // rows changed, and those added behind the stored ones
    std::size_t rows() const { return store.size() + added; }
  };
  enum class Showing { All, Matching, Pending };

  const Data& data() const;
  Data& data();
  Data& changeable();
  const Edited* edited(RowMark row) const;  // null for a row as read
  bool shows(RowMark row, const Edited& changed) const;
  void rebuild();
  void showAll();
  std::size_t visibleCount() const;
  RowMark rowAt(std::size_t position) const;
  RowMark current() const;
  void read(RowMark row, std::size_t columns, CellView* cells) const;
  static void set(Changes& changes, std::size_t column, Value value);
  static void apply(const Changes& changes, std::size_t columns, CellView* cells);
  void settle(RowMark row, const Edited& changed);
  void takeBack(RowMark row, std::optional<Edited> before);
  std::int64_t placeOf(std::vector<RowMark>::const_iterator leaving) const;
  void move(std::int64_t position);

  std::shared_ptr<Data> data_;
  Showing showing_ = Showing::All;
  std::string filterText_;
  RowFilter filter_;
  std::vector<RowMark> visible_;  // only where not all rows show
  std::int64_t position_ = -1;    // in the visible rows; -1 before the first, count behind the last
  bool editing_ = false;          // between Set or AddNew and Update
  bool adding_ = false;
  Changes pending_;  // of the current row
  mutable std::vector<CellView> cells_;
  mutable RowMark decoded_ = kNothing;
  mutable std::uint64_t decodedVersion_ = 0;
  static constexpr RowMark kNothing = 0xFFFFFFFF;
};

template <class Store>
void Recordset::Attempt(const Store& store) {
  Update();
  const RowMark row = current();
  const Edited* const changed = edited(row);
  std::optional<Edited> before;
  if (changed != nullptr) before = *changed;
  try {
    store();
  } catch (...) {
    takeBack(row, std::move(before));
    throw;
  }
}

}  // namespace cu
