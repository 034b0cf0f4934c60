#include "data/rowstore.h"

#include <algorithm>
#include <cstring>

#include "base/text.h"

namespace cu {
namespace {

// A cell is a tag followed by the data of its type. Tags from kCommon on encode a run of cells that are those
// of the first row, tags from kNulls on a run of nulls.
enum Tag : std::uint8_t {
  kInteger = 1,
  kDecimal = 2,
  kText = 3,
  kDate = 4,
  kSameText = 5,
  kZeroDecimal = 6,
  kShortText = 16,
  kCommon = 80,
  kNulls = 128
};
constexpr std::size_t kShortTextMax = kCommon - kShortText - 1;
constexpr std::size_t kCommonRunMax = kNulls - kCommon;
constexpr std::size_t kNullRunMax = 255 - kNulls;
constexpr std::size_t kRunsMin = std::min(kCommonRunMax, kNullRunMax);
constexpr std::size_t kFirstChunk = 4096;
constexpr std::size_t kLargestChunk = 1U << 20;
constexpr std::size_t kWorthSharing = 12;  // a pointer and a length need about as much space

std::uint64_t zigzag(std::int64_t value) {
  // cppcheck-suppress shiftTooManyBitsSigned ; defined in C++20: the sign bit is replicated
  return (static_cast<std::uint64_t>(value) << 1) ^ static_cast<std::uint64_t>(value >> 63);
}
std::int64_t unzigzag(std::uint64_t value) {
  return static_cast<std::int64_t>((value >> 1) ^ (~(value & 1) + 1));
}

std::uint64_t readVarint(const unsigned char*& at) {
  std::uint64_t value = *at++;
  if (value < 0x80) return value;
  value &= 0x7FU;
  for (unsigned shift = 7;; shift += 7) {
    const std::uint64_t byte = *at++;
    value |= (byte & 0x7FU) << shift;
    if (byte < 0x80) return value;
  }
}

}  // namespace

Columns::Columns(std::vector<Column> columns) : columns_(std::move(columns)) {
  byName_.reserve(columns_.size());
  for (std::size_t i = 0; i < columns_.size(); ++i) byName_.emplace(lowerAscii(columns_[i].name), i);
}

std::size_t Columns::find(std::string_view name) const {
  const auto found = byName_.find(lowerAscii(name));
  return found == byName_.end() ? kNone : found->second;
}

void RowStore::setColumns(std::shared_ptr<const Columns> columns) { columns_ = std::move(columns); }

void RowStore::grow(std::size_t more) {
  // A row is contiguous: its part written so far moves to the new chunk.
  const auto begun = static_cast<std::size_t>(end_ - rowStart_);
  chunkSize_ = chunkSize_ == 0 ? kFirstChunk : std::min(chunkSize_ * 2, kLargestChunk);
  const std::size_t size = std::max(chunkSize_, (begun + more) * 2);
  chunks_.push_back(std::make_unique_for_overwrite<unsigned char[]>(size));
  chunkBytes_ += size;
  unsigned char* chunk = chunks_.back().get();
  if (begun > 0) {
    std::memcpy(chunk, rowStart_, begun);
    // Shared texts of this row may point to the old chunk, which is kept.
  }
  rowStart_ = chunk;
  end_ = chunk + begun;
  limit_ = chunk + size;
}

void RowStore::varint(std::uint64_t value) {
  while (value >= 0x80) {
    *end_++ = static_cast<unsigned char>(value | 0x80U);
    value >>= 7;
  }
  *end_++ = static_cast<unsigned char>(value);
}

void RowStore::flushRun() {
  while (runLength_ > 0) {
    const bool nulls = run_ == Run::Nulls;
    const std::size_t length = std::min(runLength_, nulls ? kNullRunMax : kCommonRunMax);
    *end_++ = static_cast<unsigned char>((nulls ? std::size_t{kNulls} : std::size_t{kCommon} - 1) + length);
    runLength_ -= length;
  }
}

void RowStore::extend(Run kind) {
  ++column_;
  if (kind != run_) {
    reserve(16 + runLength_ / kRunsMin);
    flushRun();
    run_ = kind;
  }
  ++runLength_;
}

bool RowStore::isCommon(ValueType type, std::int64_t number) const {
  return !common_.empty() && common_[column_].type == type && common_[column_].number == number;
}

void RowStore::beginRow() {
  const std::size_t width = columns_->size();
  if (lastText_.empty()) lastText_.resize(width);
  if (rows_.size() == 1 && common_.empty()) {
    commonCells_.resize(width);
    readFirst(0, width, commonCells_.data());
    common_.reserve(width);
    for (const CellView& cell : commonCells_) {
      const std::int64_t decimal = cell.type() == ValueType::Decimal ? cell.decimal().scaled() : 0;
      const std::int64_t day = cell.type() == ValueType::Date ? cell.date().serial() : 0;
      common_.push_back({cell.type(), cell.type() == ValueType::Integer ? cell.integer() : decimal + day});
    }
  }
  rowStart_ = end_;
  column_ = 0;
  runLength_ = 0;
}

void RowStore::null() {
  const bool inCommonRun = runLength_ > 0 && run_ == Run::Common && isCommon(ValueType::Null, 0);
  extend(inCommonRun ? Run::Common : Run::Nulls);
}

void RowStore::tagged(std::uint8_t tag, std::int64_t value) {
  reserve(16 + runLength_ / kRunsMin);
  flushRun();
  *end_++ = tag;
  varint(zigzag(value));
  ++column_;
}

void RowStore::integer(std::int64_t value) {
  if (isCommon(ValueType::Integer, value)) {
    extend(Run::Common);
  } else {
    tagged(kInteger, value);
  }
}

void RowStore::date(Date value) {
  if (isCommon(ValueType::Date, value.serial())) {
    extend(Run::Common);
  } else {
    tagged(kDate, value.serial());
  }
}

void RowStore::decimal(Decimal value) {
  if (isCommon(ValueType::Decimal, value.scaled())) {
    extend(Run::Common);
  } else if (value.isZero()) {
    reserve(16 + runLength_ / kRunsMin);
    flushRun();
    *end_++ = kZeroDecimal;
    ++column_;
  } else {
    tagged(kDecimal, value.scaled());
  }
}

void RowStore::text(std::string_view value) {
  if (isCommon(ValueType::Text, 0) && commonCells_[column_].text() == value) {
    extend(Run::Common);
    return;
  }
  reserve(32 + runLength_ / kRunsMin + value.size());
  flushRun();
  std::string_view& last = lastText_[column_];
  ++column_;
  if (value.size() > kWorthSharing && value == last) {
    *end_++ = kSameText;
    const char* place = last.data();
    std::memcpy(end_, &place, sizeof place);
    end_ += sizeof place;
    varint(value.size());
    return;
  }
  if (value.size() <= kShortTextMax) {
    *end_++ = static_cast<unsigned char>(kShortText + value.size());
  } else {
    *end_++ = kText;
    varint(value.size());
  }
  if (!value.empty()) std::memcpy(end_, value.data(), value.size());
  if (value.size() > kWorthSharing) last = {reinterpret_cast<const char*>(end_), value.size()};
  end_ += value.size();
}

void RowStore::endRow() {
  while (column_ < columns_->size()) null();
  reserve(16 + runLength_ / kRunsMin);
  flushRun();
  rows_.push_back(rowStart_);
}

void RowStore::reorder(std::size_t first, const std::vector<std::uint32_t>& places) {
  const std::vector<const unsigned char*> before(rows_.begin() + static_cast<std::ptrdiff_t>(first),
                                                 rows_.end());
  for (std::size_t i = 0; i < places.size(); ++i) rows_[first + i] = before[places[i]];
}

void RowStore::readFirst(std::size_t row, std::size_t count, CellView* cells) const {
  const unsigned char* at = rows_[row];
  const auto text = [&at](std::size_t length) {
    const CellView cell = CellView::ofText({reinterpret_cast<const char*>(at), length});
    at += length;
    return cell;
  };
  const CellView* const begin = cells;
  CellView* const end = cells + count;
  while (cells < end) {
    const std::uint8_t tag = *at++;
    if (tag > kNulls) {
      CellView* const behind = cells + std::min<std::ptrdiff_t>(tag - kNulls, end - cells);
      while (cells < behind) *cells++ = CellView();
    } else if (tag >= kCommon) {
      const auto length = std::min<std::ptrdiff_t>(tag - kCommon + 1, end - cells);
      cells = std::copy_n(commonCells_.data() + (cells - begin), length, cells);
    } else if (tag >= kShortText) {
      *cells++ = text(tag - std::size_t{kShortText});
    } else {
      switch (tag) {
        case kZeroDecimal:
          *cells++ = CellView::ofDecimal(Decimal());
          break;
        case kInteger:
          *cells++ = CellView::ofInteger(unzigzag(readVarint(at)));
          break;
        case kDecimal:
          *cells++ = CellView::ofDecimal(Decimal::fromScaled(unzigzag(readVarint(at))));
          break;
        case kDate:
          *cells++ = CellView::ofDate(Date::fromSerial(static_cast<std::int32_t>(unzigzag(readVarint(at)))));
          break;
        case kSameText: {
          const char* place = nullptr;
          std::memcpy(&place, at, sizeof place);
          at += sizeof place;
          *cells++ = CellView::ofText({place, readVarint(at)});
          break;
        }
        default:  // kText
          *cells++ = text(readVarint(at));
          break;
      }
    }
  }
}

}  // namespace cu
