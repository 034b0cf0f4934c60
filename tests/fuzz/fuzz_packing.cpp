// Any bytes as a script of cells: the packed rows return what was stored, whole or in part, at stable
// addresses.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "data/rowstore.h"

namespace {

using cu::CellView;
using cu::RowStore;
using cu::Value;

constexpr std::size_t kMostColumns = 600;
constexpr std::size_t kFewColumns = 16;
constexpr std::size_t kMostCells = 4000;
constexpr std::size_t kMostBytes = 4U << 20;

[[noreturn]] void fault(const char* what) {
  std::fprintf(stderr, "%s\n", what);
  std::abort();
}

// Zeros after the end.
class Script {
 public:
  Script(const std::uint8_t* data, std::size_t size) : at_(data), left_(size) {}
  bool ended() const { return left_ == 0; }
  template <class T>
  T number() {
    T value{};
    const std::size_t count = left_ < sizeof value ? left_ : sizeof value;
    if (count > 0) std::memcpy(&value, at_, count);
    skip(count);
    return value;
  }
  std::string bytes(std::size_t count) {
    if (count > left_) count = left_;
    std::string value(reinterpret_cast<const char*>(at_), count);
    skip(count);
    return value;
  }

 private:
  void skip(std::size_t count) {
    at_ += count;
    left_ -= count;
  }
  const std::uint8_t* at_;
  std::size_t left_;
};

// Writes cells and keeps what was written.
class Rows {
 public:
  explicit Rows(std::size_t width) : width_(width), last_(width) {
    store_.setColumns(std::make_shared<const cu::Columns>(std::vector<cu::Column>(width)));
  }

  void row(Script& script) {
    store_.beginRow();
    std::vector<Value> cells;
    while (cells.size() < width_ && cell(script, cells)) {
    }
    store_.endRow();
    cells.resize(width_);
    written_.push_back(std::move(cells));
    std::vector<CellView>& views = views_.emplace_back(width_);
    store_.read(written_.size() - 1, views.data());
  }
  bool full() const { return bytes_ > kMostBytes || written_.size() * (width_ + 1) > kMostCells; }

  void check(std::size_t part) const {
    if (store_.size() != written_.size()) fault("rows are counted differently");
    for (std::size_t row = 0; row < written_.size(); ++row) {
      compare(written_[row], views_[row], width_);
      std::vector<CellView> cells(width_ + 1, CellView::ofInteger(-99));
      store_.read(row, cells.data());
      compare(written_[row], cells, width_);
      const std::size_t count = part % (width_ + 1);
      std::vector<CellView> first(width_ + 1, CellView::ofInteger(-99));
      store_.readFirst(row, count, first.data());
      compare(written_[row], first, count);
      for (std::size_t column = count; column <= width_; ++column) {
        if (first[column].integer() != -99) fault("a cell behind those asked for was written");
      }
    }
  }

 private:
  static void compare(const std::vector<Value>& written, const std::vector<CellView>& read,
                      std::size_t count) {
    for (std::size_t column = 0; column < count; ++column) {
      if (Value::of(read[column]) != written[column]) fault("a cell comes out differently");
    }
  }

  // Returns false where the row ends before its last column.
  bool cell(Script& script, std::vector<Value>& cells) {
    switch (script.number<std::uint8_t>() % 10) {
      case 0:
        store_.null();
        cells.emplace_back();
        return true;
      case 1:
        cells.push_back(Value::ofInteger(script.number<std::int64_t>()));
        store_.integer(cells.back().view().integer());
        return true;
      case 2:
        cells.push_back(Value::ofInteger(script.number<std::int8_t>()));
        store_.integer(cells.back().view().integer());
        return true;
      case 3:
        cells.push_back(Value::ofDecimal(cu::Decimal::fromScaled(script.number<std::int64_t>())));
        store_.decimal(cells.back().view().decimal());
        return true;
      case 4:
        cells.push_back(Value::ofDate(cu::Date::fromSerial(script.number<std::int32_t>())));
        store_.date(cells.back().view().date());
        return true;
      case 5:
        text(script.bytes(script.number<std::uint8_t>()), cells);
        return true;
      case 6: {
        const auto length = script.number<std::uint16_t>();
        text(std::string(std::size_t{length} * (length % 7 == 0 ? 20 : 1), script.number<char>()), cells);
        return true;
      }
      case 7:  // the column's last text, or nearly
        text(last_[cells.size()], cells);
        return true;
      case 8:
        for (std::size_t run = script.number<std::uint16_t>() % (width_ + 1);
             run > 0 && cells.size() < width_; --run) {
          store_.null();
          cells.emplace_back();
        }
        return true;
      default:
        return false;
    }
  }
  void text(std::string value, std::vector<Value>& cells) {
    bytes_ += value.size();
    store_.text(value);
    last_[cells.size()] = value;
    cells.push_back(Value::ofText(std::move(value)));
  }

  std::size_t width_;
  RowStore store_;
  std::vector<std::vector<Value>> written_;
  std::vector<std::vector<CellView>> views_;  // as read when the row had just been written
  std::vector<std::string> last_;
  std::size_t bytes_ = 0;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  Script script(data, size);
  const auto wide = script.number<std::uint16_t>();
  const std::size_t width = wide % (wide < 0x8000 ? kFewColumns : kMostColumns);
  const auto part = script.number<std::uint16_t>();
  Rows rows(width);
  while (!script.ended() && !rows.full()) {
    rows.row(script);
    if (width == 0) script.number<std::uint8_t>();
  }
  rows.check(part);
  return 0;
}
