// The rows of a run in memory: 100,000 lines of 140 columns, as in the query of the certificates, compared
// with the same values in one flat array of cells.

#include <strings.h>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "base/collation.h"
#include "data/database.h"
#include "data/recordset.h"
#include "misura.h"

namespace cu::bench {
namespace {

constexpr std::size_t kColumns = 140;
constexpr std::size_t kRows = 100'000;
constexpr int kRounds = 5;
constexpr int kCompared = 100'000;

// Keeps the compiler from removing unused results.
volatile std::size_t sink = 0;

std::shared_ptr<const Columns> columns() {
  std::vector<cu::Column> list;
  list.reserve(kColumns);
  for (std::size_t i = 0; i < kColumns; ++i) {
    list.push_back({"PignoramentoTerziColonna" + std::to_string(i), ValueType::Null});
  }
  return std::make_shared<const Columns>(std::move(list));
}

// A minimal store of values: a cell is 16 bytes, texts are contiguous.
class FlatRows {
 public:
  void beginRow() {}
  void null() { cells_.push_back({}); }
  void integer(std::int64_t value) { cells_.push_back({value, 1}); }
  void decimal(Decimal value) { cells_.push_back({value.scaled(), 2}); }
  void date(Date value) { cells_.push_back({value.serial(), 3}); }
  void text(std::string_view value) {
    cells_.push_back({static_cast<std::int64_t>(bytes_.size()), 4 + static_cast<std::int64_t>(value.size())});
    bytes_.insert(bytes_.end(), value.begin(), value.end());
  }
  void endRow() { cells_.resize((cells_.size() + kColumns - 1) / kColumns * kColumns); }
  std::size_t bytes() const { return cells_.size() * sizeof(Cell) + bytes_.size(); }
  std::int64_t integerAt(std::size_t row, std::size_t column) const {
    return cells_[row * kColumns + column].value;
  }
  void read(std::size_t row, CellView* cells) const {
    const Cell* at = &cells_[row * kColumns];
    for (std::size_t i = 0; i < kColumns; ++i, ++at) {
      switch (at->kind) {
        case 0:
          cells[i] = CellView();
          break;
        case 1:
          cells[i] = CellView::ofInteger(at->value);
          break;
        case 2:
          cells[i] = CellView::ofDecimal(Decimal::fromScaled(at->value));
          break;
        case 3:
          cells[i] = CellView::ofDate(Date::fromSerial(static_cast<std::int32_t>(at->value)));
          break;
        default:
          cells[i] = CellView::ofText(
              {&bytes_[static_cast<std::size_t>(at->value)], static_cast<std::size_t>(at->kind - 4)});
          break;
      }
    }
  }

 private:
  struct Cell {
    std::int64_t value = 0;
    std::int64_t kind = 0;
  };
  std::vector<Cell> cells_;
  std::vector<char> bytes_;
};

// Flags, names, sixty amounts of which a few are not zero, ids, codes, four keys, texts mostly empty or null.
template <class Store>
void append(Store& store, std::size_t row) {
  const auto number = static_cast<std::int64_t>(row);
  store.beginRow();
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
  store.integer(number / 3 + 1);
  store.integer(number % 3 + 1);
  store.integer(2016);
  store.integer(1);
  for (int i = 0; i < 20; ++i) store.text("");
  for (int i = 0; i < 26; ++i) store.null();
  store.endRow();
}

std::unique_ptr<RowStore> packed() {
  auto store = std::make_unique<RowStore>();
  store->setColumns(columns());
  for (std::size_t row = 0; row < kRows; ++row) append(*store, row);
  return store;
}

std::unique_ptr<FlatRows> flat() {
  auto store = std::make_unique<FlatRows>();
  for (std::size_t row = 0; row < kRows; ++row) append(*store, row);
  return store;
}

class MemoryConnection : public Connection {
 public:
  explicit MemoryConnection(std::size_t rows = kRows) : rows_(rows) {}
  std::int64_t Execute(std::string_view) override { return -1; }
  void Query(std::string_view, RowStore& rows) override {
    rows.setColumns(columns());
    for (std::size_t row = 0; row < rows_; ++row) append(rows, row);
  }

 private:
  std::size_t rows_;
};

void store() {
  const Pair filling = best(
      kRounds, [] { sink = sink + packed()->size(); }, [] { sink = sink + flat()->bytes(); });
  print({"100,000 rows of 140 columns into memory", filling.ours, filling.limit, "a flat array of cells"});
  const auto ours = packed();
  const auto limit = flat();
  constexpr double kMiB = 1024.0 * 1024.0;
  print({"the memory they take",
         static_cast<double>(ours->bytes()) / kMiB,
         static_cast<double>(limit->bytes()) / kMiB,
         "a flat array of cells",
         {},
         "MiB"});
  std::vector<CellView> cells(kColumns);
  const auto readAll = [&](const auto& rows) {
    for (std::size_t row = 0; row < kRows; ++row) {
      rows.read(row, cells.data());
      sink = sink + static_cast<std::size_t>(cells[row % 2].integer());
    }
  };
  const Pair reading = best(
      kRounds, [&] { readAll(*ours); }, [&] { readAll(*limit); });
  print({"all their cells read", reading.ours, reading.limit, "a flat array of cells"});

  // An editor opens on one line: the filter by its key, then none.
  MemoryConnection connection;
  Recordset rows;
  rows.Open(connection, "RIGHE");
  const Pair filter = best(
      kRounds,
      [&] {
        rows.SetFilter(
            "PignoramentoTerziColonna92 = 2016 AND PignoramentoTerziColonna90 = 20000 AND "
            "PignoramentoTerziColonna91 = 2");
        sink = sink + rows.RecordCount();
        rows.ClearFilter();
      },
      [&] {
        for (std::size_t row = 0; row < kRows; ++row) {
          const bool found = limit->integerAt(row, 92) == 2016 && limit->integerAt(row, 90) == 20000 &&
                             limit->integerAt(row, 91) == 2;
          sink = sink + (found ? 1U : 0U);
        }
      });
  print({"one of them found by its key", filter.ours, filter.limit, "a flat array of cells"});
}

// Sets one column and updates the row, line by line: the cost per line does not grow with the number of
// lines.
void selection() {
  for (const std::size_t count : {20'000U, 40'000U, 80'000U}) {
    MemoryConnection connection(count);
    double least = 1e9;
    double limit = 1e9;
    for (int round = 0; round < kRounds; ++round) {
      Recordset rows;
      rows.Open(connection, "RIGHE", LockType::BatchOptimistic);
      least = std::min(least, seconds([&] {
                         for (std::size_t row = 0; row < count; ++row, rows.MoveNext()) {
                           rows.Set("PignoramentoTerziColonna0", Value::ofFlag(true));
                           rows.Update();
                         }
                       }));
      Recordset walked;
      walked.Open(connection, "RIGHE");
      limit = std::min(limit, seconds([&] {
                         for (; !walked.Eof(); walked.MoveNext()) {
                           sink = sink + static_cast<std::size_t>(walked.Row()[0].integer());
                         }
                       }));
    }
    const std::string name = "a flag set in each row";
    print({name + " of " + grouped(static_cast<long long>(count)),
           least,
           limit,
           "each row only read",
           {},
           "s",
           name,
           static_cast<double>(count)});
  }
}

void names() {
  const std::string a = "PERCIPIENTE DI PROVA NUMERO UNO";
  const std::string b = "Percipiente di prova numero due";
  const Pair times = best(
      kRounds,
      [&] {
        for (int i = 0; i < kCompared; ++i) sink = sink + (compareItalian(a, b) < 0 ? 1U : 0U);
      },
      [&] {
        for (int i = 0; i < kCompared; ++i) sink = sink + (strcasecmp(a.c_str(), b.c_str()) < 0 ? 1U : 0U);
      });
  print({"two names compared", times.ours / kCompared, times.limit / kCompared, "strcasecmp"});
}

}  // namespace
}  // namespace cu::bench

int main() {
  cu::bench::store();
  cu::bench::selection();
  cu::bench::names();
  return 0;
}
