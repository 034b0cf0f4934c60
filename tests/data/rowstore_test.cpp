#include "data/rowstore.h"

#include <gtest/gtest.h>

#include <iterator>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "support/table.h"

namespace cu {
namespace {

using test::null;
using test::Table;
using test::whole;

std::shared_ptr<const Columns> columnsOf(std::size_t count) {
  std::vector<Column> list(count);
  for (std::size_t i = 0; i < count; ++i) list[i].name = "C" + std::to_string(i);
  return std::make_shared<const Columns>(std::move(list));
}

std::vector<Value> row(const RowStore& store, std::size_t index) {
  std::vector<CellView> cells(store.columns()->size(), CellView::ofInteger(-99));
  store.read(index, cells.data());
  std::vector<Value> values;
  values.reserve(cells.size());
  for (const CellView& cell : cells) values.push_back(Value::of(cell));
  return values;
}

void fill(RowStore& store, const std::vector<std::vector<Value>>& rows, std::size_t width) {
  Table table;
  table.columns.resize(width);
  table.rows = rows;
  table.fill(store);
}

void expectSame(const std::vector<std::vector<Value>>& rows, std::size_t width) {
  RowStore store;
  fill(store, rows, width);
  ASSERT_EQ(store.size(), rows.size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const std::vector<Value> read = row(store, i);
    for (std::size_t column = 0; column < width; ++column) {
      ASSERT_TRUE(read[column] == rows[i][column]) << "row " << i << " column " << column;
    }
  }
}

TEST(Columns, AreFoundWithoutRegardToCase) {
  const Columns columns({{"IDAnagrafica", ValueType::Integer}, {"Più", ValueType::Text}});
  EXPECT_EQ(columns.size(), 2U);
  EXPECT_EQ(columns.find("idanagrafica"), 0U);
  EXPECT_EQ(columns.find("IDANAGRAFICA"), 0U);
  EXPECT_EQ(columns.find("Più"), 1U);
  EXPECT_EQ(columns.find("Anno"), Columns::kNone);
  EXPECT_EQ(columns.find(""), Columns::kNone);
  EXPECT_EQ(columns[0].type, ValueType::Integer);
}

TEST(Columns, OfTwoWithOneNameTheFirstIsMeant) {
  const Columns columns(
      {{"Codice", ValueType::Text}, {"Anno", ValueType::Integer}, {"CODICE", ValueType::Integer}});
  EXPECT_EQ(columns.size(), 3U);
  EXPECT_EQ(columns.find("Codice"), 0U);
  EXPECT_EQ(columns.find("codice"), 0U);
}

TEST(RowStore, HoldsNothingAtFirst) {
  const RowStore store;
  EXPECT_EQ(store.size(), 0U);
  EXPECT_EQ(store.bytes(), 0U);
  EXPECT_EQ(store.columns(), nullptr);
}

TEST(RowStore, GivesBackEveryTypeAtItsLimits) {
  const std::int64_t max = std::numeric_limits<std::int64_t>::max();
  const std::int64_t min = std::numeric_limits<std::int64_t>::min();
  expectSame(
      {
          {null(), whole(0), whole(1), whole(-1), whole(63), whole(64), whole(-64), whole(-65)},
          {whole(max), whole(min), whole(127), whole(128), whole(16383), whole(16384), null(),
           whole(1LL << 62)},
          {Value::ofDecimal(Decimal()), Value::ofDecimal(Decimal::fromScaled(1)),
           Value::ofDecimal(Decimal::fromScaled(-1)), Value::ofDecimal(Decimal::fromScaled(max)),
           Value::ofDecimal(Decimal::fromScaled(min)), null(), null(), null()},
          {Value::ofDate(Date()), Value::ofDate(Date::fromSerial(Date::kFirst)),
           Value::ofDate(Date::fromSerial(Date::kLast)), Value::ofDate(Date::fromSerial(-1)),
           Value::ofDate(Date::fromSerial(std::numeric_limits<std::int32_t>::min())),
           Value::ofDate(Date::fromSerial(std::numeric_limits<std::int32_t>::max())), null(), null()},
          {Value::ofText(""), Value::ofText("a"), Value::ofText(std::string("\0\xFF\x80", 3)),
           Value::ofText(std::string(62, 'x')), Value::ofText(std::string(63, 'y')),
           Value::ofText(std::string(64, 'z')), Value::ofText(std::string(200, 'q')), Value::ofText("fine")},
      },
      8);
}

TEST(RowStore, AnEmptyTextIsNotNull) {
  RowStore store;
  fill(store, {{Value::ofText(""), null()}}, 2);
  EXPECT_EQ(row(store, 0), (std::vector<Value>{Value::ofText(""), null()}));
}

TEST(RowStore, LongRunsOfNulls) {
  for (const std::size_t width : {std::size_t{1}, std::size_t{126}, std::size_t{127}, std::size_t{128},
                                  std::size_t{129}, std::size_t{254}, std::size_t{255}, std::size_t{1000}}) {
    std::vector<Value> nulls(width);
    std::vector<Value> last = nulls;
    last.back() = whole(7);
    std::vector<Value> first = nulls;
    first.front() = whole(7);
    std::vector<Value> middle = nulls;
    middle[width / 2] = Value::ofText("in mezzo");
    expectSame({nulls, last, first, middle, nulls}, width);
  }
}

TEST(RowStore, LongRunsOfCellsAsInTheFirstRow) {
  for (const std::size_t width : {std::size_t{1}, std::size_t{47}, std::size_t{48}, std::size_t{49},
                                  std::size_t{96}, std::size_t{97}, std::size_t{1000}}) {
    std::vector<Value> first(width);
    for (std::size_t i = 0; i < width; ++i) {
      const auto number = static_cast<std::int64_t>(i);
      const Value kinds[] = {whole(number),
                             Value::ofDecimal(Decimal::fromScaled(number)),
                             Value::ofDate(Date::fromSerial(static_cast<std::int32_t>(i))),
                             Value::ofText("testo " + std::to_string(i)),
                             null(),
                             Value::ofDecimal(Decimal()),
                             Value::ofText("")};
      first[i] = kinds[i % std::size(kinds)];
    }
    std::vector<Value> begins = first;
    begins.front() = Value::ofText("altro");
    std::vector<Value> ends = first;
    ends.back() = null();
    std::vector<Value> middle = first;
    middle[width / 2] = whole(-5);
    expectSame({first, first, begins, ends, middle, std::vector<Value>(width), first}, width);
  }
}

TEST(RowStore, ACellIsOnlyTheSameWithItsType) {
  const std::vector<Value> first = {whole(7), Value::ofDecimal(Decimal::fromScaled(7)),
                                    Value::ofDate(Date::fromSerial(7)), Value::ofText("7"), null()};
  for (const Value& each : std::vector<Value>(first)) {
    expectSame({first, std::vector<Value>(first.size(), each), first}, first.size());
  }
  expectSame({{whole(0), Value::ofText("")},
              {null(), null()},
              {Value::ofDecimal(Decimal()), whole(0)},
              {Value::ofDate(Date()), Value::ofDate(Date())}},
             2);
}

TEST(RowStore, CellsAsInTheFirstRowTakeNoSpace) {
  RowStore store;
  store.setColumns(columnsOf(100));
  constexpr std::size_t kRows = 10'000;
  for (std::size_t i = 0; i < kRows; ++i) {
    store.beginRow();
    store.integer(static_cast<std::int64_t>(i));
    for (int column = 1; column < 100; ++column) {
      if (column % 3 == 0) {
        store.text("via Garibaldi");
      } else if (column % 3 == 1) {
        store.decimal(Decimal::fromScaled(123456789));
      } else {
        store.null();
      }
    }
    store.endRow();
  }
  EXPECT_LT(store.bytes(), kRows * 30);
  EXPECT_EQ(row(store, kRows - 1)[99], Value::ofText("via Garibaldi"));
}

TEST(RowStore, TheFirstRowCountsWhenItIsWhole) {
  RowStore store;
  store.setColumns(columnsOf(2));
  store.beginRow();
  store.text("abbandonata");
  store.beginRow();
  store.text("prima");
  store.integer(1);
  store.endRow();
  for (const char* text : {"abbandonata", "prima"}) {
    store.beginRow();
    store.text(text);
    store.endRow();
  }
  EXPECT_EQ(row(store, 1), (std::vector<Value>{Value::ofText("abbandonata"), null()}));
  EXPECT_EQ(row(store, 2), (std::vector<Value>{Value::ofText("prima"), null()}));
}

TEST(RowStore, RowsAreReordered) {
  RowStore store;
  std::vector<std::vector<Value>> rows;
  for (std::int64_t i = 0; i < 5; ++i) rows.push_back({whole(i), Value::ofText("la stessa via")});
  fill(store, rows, 2);
  store.reorder(1, {3, 0, 2, 1});
  std::vector<std::int64_t> found;
  for (std::size_t i = 0; i < store.size(); ++i) found.push_back(row(store, i)[0].view().integer());
  EXPECT_EQ(found, (std::vector<std::int64_t>{0, 4, 1, 3, 2}));
  EXPECT_EQ(row(store, 1)[1], Value::ofText("la stessa via"));
}

TEST(RowStore, ARowBegunIsCompletedWithNulls) {
  RowStore store;
  store.setColumns(columnsOf(300));
  store.beginRow();
  store.integer(1);
  store.null();
  store.endRow();
  store.beginRow();
  store.endRow();
  store.beginRow();
  for (int i = 0; i < 300; ++i) store.integer(i);
  store.endRow();
  std::vector<Value> expected(300);
  EXPECT_EQ(row(store, 1), expected);
  expected[0] = whole(1);
  EXPECT_EQ(row(store, 0), expected);
  EXPECT_EQ(row(store, 2)[299], whole(299));
}

TEST(RowStore, ARowGivenUpLeavesNoTrace) {
  RowStore store;
  store.setColumns(columnsOf(3));
  store.beginRow();
  store.text("abbandonata");
  store.null();
  store.beginRow();
  store.integer(1);
  store.integer(2);
  store.integer(3);
  store.endRow();
  ASSERT_EQ(store.size(), 1U);
  EXPECT_EQ(row(store, 0), (std::vector<Value>{whole(1), whole(2), whole(3)}));
}

TEST(RowStore, TextsLongerThanAChunkMoveTheRowAndStayReadable) {
  std::vector<std::vector<Value>> rows;
  for (std::size_t size : {std::size_t{4000}, std::size_t{4096}, std::size_t{5000}, std::size_t{70000},
                           std::size_t{1'100'000}, std::size_t{3'000'000}}) {
    rows.push_back({whole(1), Value::ofText(std::string(size, 'a')), null(),
                    Value::ofText(std::string(size, 'b')), Value::ofText(std::string(size + 1, 'a'))});
  }
  expectSame(rows, 5);
}

TEST(RowStore, ATextThatComesAgainIsKeptOnce) {
  const std::string name = "ENTE NAZIONALE DI PREVIDENZA E ASSISTENZA DEI MEDICI E DEGLI ODONTOIATRI";
  RowStore once;
  once.setColumns(columnsOf(2));
  for (int i = 0; i < 10'000; ++i) {
    once.beginRow();
    once.integer(i);
    once.text(name);
    once.endRow();
  }
  EXPECT_LT(once.bytes(), 10'000 * name.size() / 2);
  for (const std::size_t i : {std::size_t{0}, std::size_t{1}, std::size_t{4999}, std::size_t{9999}}) {
    EXPECT_EQ(row(once, i), (std::vector<Value>{whole(static_cast<std::int64_t>(i)), Value::ofText(name)}));
  }
}

TEST(RowStore, SharedTextsSurviveTheMoveOfTheirRow) {
  const std::string shared(3000, 's');
  std::vector<std::vector<Value>> rows;
  for (int i = 0; i < 50; ++i) {
    rows.push_back({Value::ofText(shared), Value::ofText(std::string(static_cast<std::size_t>(i) * 400, 'l')),
                    Value::ofText(i % 7 == 0 ? std::string(3000, 't') : shared)});
  }
  expectSame(rows, 3);
}

TEST(RowStore, ViewsLiveAsLongAsTheStore) {
  RowStore store;
  store.setColumns(columnsOf(1));
  store.beginRow();
  store.text("il primo testo della tabella");
  store.endRow();
  CellView first;
  store.read(0, &first);
  for (int i = 0; i < 100'000; ++i) {
    store.beginRow();
    store.text("un altro testo, il numero " + std::to_string(i));
    store.endRow();
  }
  EXPECT_EQ(first.text(), "il primo testo della tabella");
}

TEST(RowStore, ReadsTheFirstColumnsAndNoMore) {
  RowStore store;
  const std::vector<Value> values = {whole(1), null(), null(), null(), Value::ofText("e"), null(), null()};
  fill(store, {values}, values.size());
  for (std::size_t count = 0; count <= values.size(); ++count) {
    std::vector<CellView> cells(values.size() + 1, CellView::ofInteger(-99));
    store.readFirst(0, count, cells.data());
    for (std::size_t i = 0; i < cells.size(); ++i) {
      EXPECT_EQ(Value::of(cells[i]), i < count ? values[i] : whole(-99)) << i << " of " << count;
    }
  }
}

TEST(RowStore, AResultWithoutColumnsHasEmptyRows) {
  RowStore store;
  store.setColumns(columnsOf(0));
  store.beginRow();
  store.endRow();
  EXPECT_EQ(store.size(), 1U);
  EXPECT_TRUE(row(store, 0).empty());
}

Value anyValue(std::mt19937_64& random) {
  const auto number = static_cast<std::int64_t>(random() >> (random() % 64)) * (random() % 2 == 0 ? 1 : -1);
  switch (random() % 10) {
    case 0:
    case 1:
    case 2:
      return null();
    case 3:
      return whole(number);
    case 4:
      return Value::ofDecimal(Decimal());
    case 5:
      return Value::ofDecimal(Decimal::fromScaled(number));
    case 6:
      return Value::ofDate(Date::fromSerial(static_cast<std::int32_t>(number)));
    case 7:
      return Value::ofText("un testo che torna spesso " + std::to_string(random() % 3));
    default: {
      std::string bytes(random() % 8 == 0 ? random() % 3000 : random() % 40, '\0');
      for (char& c : bytes) c = static_cast<char>(random());
      return Value::ofText(bytes);
    }
  }
}

TEST(RowStore, WhateverGoesInComesOut) {
  std::mt19937_64 random(20160307);
  for (int round = 0; round < 25; ++round) {
    const std::size_t width = 1 + random() % 200;
    std::vector<std::vector<Value>> rows(random() % 60);
    for (auto& each : rows) {
      each.reserve(width);
      for (std::size_t i = 0; i < width; ++i) each.push_back(anyValue(random));
    }
    expectSame(rows, width);
  }
}

}  // namespace
}  // namespace cu
