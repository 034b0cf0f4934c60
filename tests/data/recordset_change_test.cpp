// Changes: set, update, add.

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

#include "data/recordset.h"
#include "data/recordset_support.h"

namespace cu {
namespace {

using test::errorOf;
using test::lines;
using test::null;
using test::numbers;
using test::OpenRows;
using test::text;
using test::whole;

TEST(RecordsetChange, WhatIsSetIsReadBeforeAndAfterUpdate) {
  OpenRows rows(lines(2));
  rows.set.Set("Nome", text("un nome nuovo e piuttosto lungo"));
  EXPECT_EQ(rows.set.Get("Nome").text(), "un nome nuovo e piuttosto lungo");
  rows.set.Set("nome", text("un altro"));
  EXPECT_EQ(rows.set.Get("Nome").text(), "un altro");
  rows.set.Update();
  EXPECT_EQ(rows.set.Get("Nome").text(), "un altro");
  EXPECT_EQ(rows.set.Get("Numero").integer(), 1);
  rows.set.MoveNext();
  EXPECT_EQ(rows.set.Get("Nome").text(), "Nome 2");
  rows.set.MovePrevious();
  EXPECT_EQ(rows.set.Get("Nome").text(), "un altro");
}

TEST(RecordsetChange, TheValueAsReadStays) {
  OpenRows rows(lines(1));
  EXPECT_EQ(rows.set.OriginalValue("Nome"), text("Nome 1"));
  rows.set.Set("Nome", text("x"));
  EXPECT_EQ(rows.set.OriginalValue("Nome"), text("Nome 1"));
  rows.set.Update();
  rows.set.Set("Nome", null());
  rows.set.Update();
  EXPECT_TRUE(rows.set.Get("Nome").isNull());
  EXPECT_EQ(rows.set.OriginalValue("Nome"), text("Nome 1"));
  EXPECT_EQ(rows.set.OriginalValue("Numero"), whole(1));
}

TEST(RecordsetChange, AValueCanBeSetFromTheRowItself) {
  OpenRows rows(lines(1));
  rows.set.Set("Nome", text("breve"));
  rows.set.Set("Nome", Value::of(rows.set.Get("Nome")));
  rows.set.Update();
  rows.set.Set("Nome", Value::ofText(rows.set.Get("Nome").toText() + " e lungo abbastanza per traslocare"));
  EXPECT_EQ(rows.set.Get("Nome").text(), "breve e lungo abbastanza per traslocare");
}

TEST(RecordsetChange, TrueInAnIntegerColumnIsMinusOne) {
  OpenRows rows(lines(1));
  rows.set.Set("Scelto", Value::ofFlag(true));
  EXPECT_EQ(rows.set.Get("Scelto").integer(), -1);
  EXPECT_EQ(rows.set.Get("Scelto").toText(), "-1");
  rows.set.Set("Scelto", Value::ofFlag(false));
  EXPECT_EQ(rows.set.Get("Scelto").toText(), "0");
}

TEST(RecordsetChange, AWholeNumberPutIntoAColumnOfAmountsIsAnAmount) {
  OpenRows rows(lines(1));
  rows.set.Set("Importo", whole(12));
  EXPECT_EQ(rows.set.Get("Importo").type(), ValueType::Decimal);
  EXPECT_EQ(rows.set.Get("Importo").decimal().toText(), "12");
  rows.set.Set("Importo", null());
  EXPECT_TRUE(rows.set.Get("Importo").isNull());
}

TEST(RecordsetChange, StatusFollowsTheRow) {
  OpenRows rows(lines(3));
  EXPECT_EQ(rows.set.Status(), RecordStatus::Unmodified);
  rows.set.Set("Nome", text("x"));
  EXPECT_EQ(rows.set.Status(), RecordStatus::Modified);
  rows.set.Update();
  EXPECT_EQ(rows.set.Status(), RecordStatus::Modified);
  rows.set.MoveNext();
  EXPECT_EQ(rows.set.Status(), RecordStatus::Unmodified);
  rows.set.AddNew();
  EXPECT_EQ(rows.set.Status(), RecordStatus::New);
  rows.set.Update();
  EXPECT_EQ(rows.set.Status(), RecordStatus::New);
  rows.set.Set("Nome", text("y"));
  rows.set.Update();
  EXPECT_EQ(rows.set.Status(), RecordStatus::New);  // it was never in the database
}

TEST(RecordsetChange, UpdateWithoutChangesDoesNothing) {
  OpenRows rows(lines(2));
  rows.set.MoveNext();
  rows.set.Update();
  EXPECT_EQ(rows.set.Status(), RecordStatus::Unmodified);
  EXPECT_EQ(rows.set.AbsolutePosition(), 2U);
}

TEST(RecordsetChange, AMoveUpdatesWhatIsPending) {
  for (const int move : {0, 1, 2, 3, 4}) {
    OpenRows rows(lines(3));
    rows.set.MoveNext();
    rows.set.Set("Nome", text("cambiato"));
    if (move == 0) rows.set.MoveFirst();
    if (move == 1) rows.set.MoveNext();
    if (move == 2) rows.set.MovePrevious();
    if (move == 3) rows.set.MoveTo(1);
    if (move == 4) rows.set.SetBookmark(0);
    EXPECT_NE(rows.set.Get("Numero").integer(), 2);
    EXPECT_EQ(rows.set.Status(), RecordStatus::Unmodified);
    rows.set.MoveTo(2);
    EXPECT_EQ(rows.set.Get("Nome").text(), "cambiato") << move;
    EXPECT_EQ(rows.set.Status(), RecordStatus::Modified);
  }
}

TEST(RecordsetChange, ClosingDropsWhatIsPending) {
  OpenRows rows(lines(1));
  const auto clone = rows.set.Clone();
  rows.set.Set("Nome", text("perduto"));
  rows.set.Close();
  EXPECT_EQ(clone->Get("Nome").text(), "Nome 1");
}

TEST(RecordsetChange, AnAddedRowIsEmptyAndStandsLast) {
  OpenRows rows(lines(2));
  rows.set.AddNew();
  EXPECT_FALSE(rows.set.Eof());
  EXPECT_FALSE(rows.set.Bof());
  EXPECT_TRUE(rows.set.Get("Numero").isNull());
  rows.set.Set("Numero", whole(3));
  EXPECT_EQ(rows.set.RecordCount(), 2U);
  rows.set.Update();
  EXPECT_EQ(rows.set.RecordCount(), 3U);
  EXPECT_EQ(rows.set.AbsolutePosition(), 3U);
  EXPECT_EQ(rows.set.Get("Numero").integer(), 3);
  EXPECT_TRUE(rows.set.Get("Nome").isNull());
  EXPECT_TRUE(rows.set.OriginalValue("Numero").isNull());
  EXPECT_EQ(numbers(rows.set), (std::vector<std::int64_t>{1, 2, 3}));
}

TEST(RecordsetChange, ARowBeingAddedHasNoPlaceYet) {
  OpenRows rows(lines(2));
  rows.set.AddNew();
  EXPECT_EQ(rows.set.AbsolutePosition(), 0U);
  rows.set.Update();
  EXPECT_EQ(rows.set.AbsolutePosition(), 3U);
}

TEST(RecordsetChange, ARowCanBeAddedToNone) {
  OpenRows rows({});
  rows.set.AddNew();
  EXPECT_FALSE(rows.set.Eof());
  rows.set.Set("Numero", whole(1));
  rows.set.Update();
  EXPECT_EQ(rows.set.AbsolutePosition(), 1U);
  EXPECT_EQ(rows.set.Get("Numero").integer(), 1);
}

TEST(RecordsetChange, AMoveFromAnAddedRowStartsFromIt) {
  OpenRows rows(lines(3));
  rows.set.AddNew();
  rows.set.Set("Numero", whole(4));
  rows.set.MovePrevious();
  EXPECT_EQ(rows.set.Get("Numero").integer(), 3);
  rows.set.AddNew();
  rows.set.Set("Numero", whole(5));
  rows.set.MoveNext();
  EXPECT_TRUE(rows.set.Eof());
  EXPECT_EQ(rows.set.RecordCount(), 5U);
}

TEST(RecordsetChange, AddingTwiceUpdatesTheFirst) {
  OpenRows rows({});
  rows.set.AddNew();
  rows.set.Set("Numero", whole(1));
  rows.set.AddNew();
  rows.set.Set("Numero", whole(2));
  rows.set.Update();
  EXPECT_EQ(numbers(rows.set), (std::vector<std::int64_t>{1, 2}));
}

TEST(RecordsetChange, TheBookmarkOfAnAddedRowIsItsOwn) {
  OpenRows rows(lines(2));
  rows.set.AddNew();
  rows.set.Set("Numero", whole(3));
  const auto mark = rows.set.Bookmark();
  rows.set.Update();
  EXPECT_EQ(rows.set.Bookmark(), mark);
  rows.set.MoveFirst();
  rows.set.SetBookmark(mark);
  EXPECT_EQ(rows.set.Get("Numero").integer(), 3);
}

TEST(RecordsetChange, OpenedReadOnlyItRefusesChanges) {
  OpenRows rows(lines(2), LockType::ReadOnly);
  EXPECT_EQ(errorOf([&] { rows.set.Set("Nome", text("x")); }), kErrorReadOnly);
  EXPECT_EQ(errorOf([&] { rows.set.AddNew(); }), kErrorReadOnly);
  EXPECT_EQ(errorOf([&] { rows.set.Clone()->AddNew(); }), kErrorReadOnly);
  rows.set.Update();
  EXPECT_EQ(rows.set.Get("Nome").text(), "Nome 1");
  EXPECT_EQ(rows.set.RecordCount(), 2U);
}

TEST(RecordsetChange, TenThousandRowsSelectedOneByOne) {
  OpenRows rows(lines(10'000));
  for (rows.set.MoveFirst(); !rows.set.Eof(); rows.set.MoveNext()) {
    rows.set.Set("Scelto", Value::ofFlag(true));
    rows.set.Update();
  }
  EXPECT_EQ(rows.set.RecordCount(), 10'000U);
  rows.set.SetFilter("Scelto = -1");
  EXPECT_EQ(rows.set.RecordCount(), 10'000U);
  rows.set.MoveTo(rows.set.RecordCount());
  EXPECT_EQ(rows.set.Get("Numero").integer(), 10'000);
  EXPECT_EQ(rows.set.OriginalValue("Scelto"), whole(0));
}

}  // namespace
}  // namespace cu
