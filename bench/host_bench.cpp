// The rows of a run in memory: 100,000 lines of 140 columns, as the query of the certificates yields them.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <vector>

#include "host/collation.h"
#include "host/database.h"
#include "host/recordset.h"

namespace {

struct Memory {
  std::size_t held = 0;
  std::size_t peak = 0;
} memory;

constexpr std::size_t kHeader = alignof(std::max_align_t);

}  // namespace

// Every block bears its size before it, so that the peak of what was held can be told.
void* operator new(std::size_t size) {
  auto* const block = static_cast<unsigned char*>(std::malloc(size + kHeader));
  if (block == nullptr) throw std::bad_alloc();
  std::memcpy(block, &size, sizeof size);
  memory.held += size;
  memory.peak = std::max(memory.peak, memory.held);
  return block + kHeader;
}

void operator delete(void* pointer) noexcept {
  if (pointer == nullptr) return;
  auto* const block = static_cast<unsigned char*>(pointer) - kHeader;
  std::size_t size = 0;
  std::memcpy(&size, block, sizeof size);
  memory.held -= size;
  std::free(block);
}

void operator delete(void* pointer, std::size_t) noexcept { operator delete(pointer); }

namespace {

using cu::Columns;
using cu::Date;
using cu::Decimal;
using cu::RowStore;
using cu::ValueType;

constexpr std::size_t kColumns = 140;
constexpr std::size_t kRows = 100'000;

std::shared_ptr<const Columns> columns() {
  std::vector<cu::Column> list;
  list.reserve(kColumns);
  for (std::size_t i = 0; i < kColumns; ++i) {
    list.push_back({"PignoramentoTerziColonna" + std::to_string(i), ValueType::Null});
  }
  return std::make_shared<const Columns>(std::move(list));
}

// Four keys, flags, sixty amounts of which a few are not zero, ids, names, codes, texts mostly empty or null.
void append(RowStore& store, std::size_t row) {
  const auto number = static_cast<std::int64_t>(row);
  store.beginRow();
  store.integer(number / 3 + 1);
  store.integer(number % 3 + 1);
  store.integer(2016);
  store.integer(1);
  store.integer(-1);
  store.integer(0);
  store.text("PERCIPIENTE DI PROVA " + std::to_string(row / 3));
  store.text("GIOVANNI");
  store.text("RSSMRA80A01L78" + std::to_string(row % 10) + "Z");
  store.text("A");
  for (int i = 0; i < 60; ++i) {
    if (i % 8 == 0) {
      store.decimal(Decimal::fromScaled((number * 7919 + i * 104729) % 500'000'000 * 100));
    } else {
      store.decimal(Decimal());
    }
  }
  for (int i = 0; i < 15; ++i) store.integer(i % 5 == 0 ? number % 8000 : 0);
  store.date(Date::fromSerial(static_cast<std::int32_t>(20000 + row % 9000)));
  store.text("Verona");
  store.text("VR");
  store.text("L781");
  store.text("VIA DELLE MIMOSE " + std::to_string(row % 200));
  store.text("37100");
  store.text("ENTE NAZIONALE DI PREVIDENZA E ASSISTENZA DEI MEDICI");
  store.text("AZIENDA DI PROVA S.R.L.");
  store.text("01234567890");
  for (int i = 0; i < 20; ++i) store.text("");
  for (int i = 0; i < 26; ++i) store.null();
  store.endRow();
}

std::unique_ptr<RowStore> filled() {
  auto store = std::make_unique<RowStore>();
  store->setColumns(columns());
  for (std::size_t row = 0; row < kRows; ++row) append(*store, row);
  return store;
}

class MemoryConnection : public cu::Connection {
 public:
  void Execute(std::string_view) override {}
  void Query(std::string_view, RowStore& rows) override {
    rows.setColumns(columns());
    for (std::size_t row = 0; row < kRows; ++row) append(rows, row);
  }
};

// Shown as seconds a row: "200n".
void perRow(benchmark::State& state, std::size_t rows) {
  state.counters["row"] = benchmark::Counter(
      static_cast<double>(rows), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void Append(benchmark::State& state) {
  const std::size_t before = memory.held;
  memory.peak = before;
  for (auto unused : state) {
    auto store = filled();
    benchmark::DoNotOptimize(store);
  }
  perRow(state, kRows);
  state.counters["peak_bytes_row"] = static_cast<double>(memory.peak - before) / static_cast<double>(kRows);
}
BENCHMARK(Append)->Unit(benchmark::kMillisecond);

void Read(benchmark::State& state) {
  const auto store = filled();
  std::vector<cu::CellView> cells(kColumns);
  for (auto unused : state) {
    for (std::size_t row = 0; row < kRows; ++row) {
      store->read(row, cells.data());
      benchmark::DoNotOptimize(cells.data());
      benchmark::ClobberMemory();
    }
  }
  perRow(state, kRows);
}
BENCHMARK(Read)->Unit(benchmark::kMillisecond);

void Walk(benchmark::State& state) {
  MemoryConnection connection;
  cu::Recordset rows;
  rows.Open(connection, "RIGHE");
  for (auto unused : state) {
    std::int64_t sum = 0;
    for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext()) sum += rows.Row()[0].integer();
    benchmark::DoNotOptimize(sum);
  }
  perRow(state, kRows);
}
BENCHMARK(Walk)->Unit(benchmark::kMillisecond);

// An editor opens on one line: the filter by its key, then none.
void FilterOneRow(benchmark::State& state) {
  MemoryConnection connection;
  cu::Recordset rows;
  rows.Open(connection, "RIGHE");
  for (auto unused : state) {
    rows.SetFilter(
        "PignoramentoTerziColonna2 = 2016 AND PignoramentoTerziColonna0 = 20000 AND "
        "PignoramentoTerziColonna1 = 2");
    benchmark::DoNotOptimize(rows.RecordCount());
    rows.ClearFilter();
  }
}
BENCHMARK(FilterOneRow)->Unit(benchmark::kMillisecond);

// "Select all" of so many lines: one column set and the row updated, line by line.
void SelectAll(benchmark::State& state) {
  const auto count = static_cast<std::size_t>(state.range(0));
  MemoryConnection connection;
  for (auto unused : state) {
    state.PauseTiming();
    cu::Recordset rows;
    rows.Open(connection, "RIGHE", cu::LockType::BatchOptimistic);
    state.ResumeTiming();
    for (std::size_t row = 0; row < count; ++row, rows.MoveNext()) {
      rows.Set("PignoramentoTerziColonna4", cu::Value::ofFlag(true));
      rows.Update();
      benchmark::DoNotOptimize(rows.Get("PignoramentoTerziColonna0").integer());
    }
    state.PauseTiming();
    rows.Close();
    state.ResumeTiming();
  }
  perRow(state, count);
}
BENCHMARK(SelectAll)->Arg(20'000)->Arg(40'000)->Arg(80'000)->Unit(benchmark::kMillisecond);

void FindColumn(benchmark::State& state) {
  const auto names = columns();
  for (auto unused : state) benchmark::DoNotOptimize(names->find("pignoramentoterzicolonna77"));
}
BENCHMARK(FindColumn);

void CompareNames(benchmark::State& state) {
  const std::string a = "PERCIPIENTE DI PROVA NUMERO UNO";
  const std::string b = "Percipiente di prova numero dué";
  for (auto unused : state) benchmark::DoNotOptimize(cu::compareItalian(a, b));
}
BENCHMARK(CompareNames);

}  // namespace
