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

// The client-side, static recordset: all rows are in memory; moves and changes never access the database. A
// changed row keeps its original values; changes are written to the database by statements.
//
// Any use of a closed recordset raises Error 3704, a field without a current row 3021, an unknown name 3265,
// an invalid filter 3001, a change of a read-only one 3251.
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

  // Counts the rows under the filter.
  std::size_t RecordCount() const;
  bool Bof() const;
  bool Eof() const;
  void MoveFirst();
  void MoveNext();
  void MovePrevious();
  // From 1, 0 when there is no current row; and the move to one.
  std::size_t AbsolutePosition() const;
  void MoveTo(std::size_t position);

  // Identifies the row itself: it stays valid under any filter, also in a clone.
  using RowMark = std::uint32_t;
  RowMark Bookmark() const;
  void SetBookmark(RowMark mark);  // raises Error 3021 when the filter hides the row

  // Comparisons of fields with numbers and 'texts', joined by AND and OR; "" shows all rows. A new filter
  // makes the first matching row current; clearing the filter keeps the current row.
  void SetFilter(std::string_view condition);
  void ClearFilter() { SetFilter(""); }
  // The rows with changes not yet brought to the database, in the order of the rows.
  void FilterPending();

  // Shares the rows and their changes; the clone has its own cursor and filter (first row, no filter).
  std::unique_ptr<Recordset> Clone() const;

  const Columns& Fields() const;
  std::size_t Ordinal(std::string_view field) const;
  CellView Get(std::string_view field) const { return Get(Ordinal(field)); }
  CellView Get(std::size_t column) const;
  Value OriginalValue(std::string_view field) const;  // as read from the database; null in a new row
  // The whole current row, one view per column; valid until the next move or change.
  const CellView* Row() const;
  // Reads any row under the filter by its position, from 1, without moving there; `cells` has room for one
  // view per column.
  void Peek(std::size_t position, CellView* cells) const;

  void Set(std::string_view field, const Value& value);
  void AddNew();
  void Update();
  RecordStatus Status() const;  // includes pending changes
  // Marks the changes of the current row as written to the database: the row is no longer pending. Visible
  // rows stay visible until the next filter; original values stay those read.
  void AcceptCurrent();
  // Runs a function that changes the current row and writes it to the database. If it raises an error, the
  // row is restored and becomes current again, and the error propagates.
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
  // State shared by clones.
  struct Data {
    RowStore store;
    LockType lock = LockType::ReadOnly;
    std::size_t added = 0;
    std::uint64_t version = 0;
    std::unordered_map<RowMark, Edited> edited;  // changed rows, and rows added after the stored ones
    std::size_t rows() const { return store.size() + added; }
  };
  enum class Showing { All, Matching, Pending };

  const Data& data() const;
  Data& data();
  Data& changeable();
  const Edited* edited(RowMark row) const;  // null for an unmodified row
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
  std::vector<RowMark> visible_;  // only where not all rows are shown
  std::int64_t position_ = -1;    // index in the visible rows; -1 before the first, count after the last
  bool editing_ = false;          // between Set or AddNew and Update
  bool adding_ = false;
  Changes pending_;  // changes of the current row
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
