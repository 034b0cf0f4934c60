// Filters and deletions: the visible rows and the current one.

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <random>
#include <vector>

#include "data/recordset.h"
#include "data/recordset_support.h"

namespace cu {
namespace {

using test::errorOf;
using test::lines;
using test::numbers;
using test::OpenRows;
using test::text;
using test::whole;

using Numbers = std::vector<std::int64_t>;

TEST(RecordsetFilter, ShowsTheRowsThatMatchFromTheFirst) {
  OpenRows rows(lines(5));
  rows.set.MoveTo(rows.set.RecordCount());
  rows.set.SetFilter("Numero >= 3");
  EXPECT_EQ(rows.set.Filter(), "Numero >= 3");
  EXPECT_EQ(rows.set.RecordCount(), 3U);
  EXPECT_EQ(rows.set.AbsolutePosition(), 1U);
  EXPECT_EQ(rows.set.Get("Numero").integer(), 3);
  EXPECT_EQ(numbers(rows.set), (Numbers{3, 4, 5}));
  EXPECT_TRUE(rows.set.Eof());
}

TEST(RecordsetFilter, WithoutAMatchThereIsNoCurrentRow) {
  OpenRows rows(lines(3));
  rows.set.SetFilter("Numero = 99");
  EXPECT_EQ(rows.set.RecordCount(), 0U);
  EXPECT_TRUE(rows.set.Eof());
  EXPECT_TRUE(rows.set.Bof());
  EXPECT_EQ(errorOf([&] { rows.set.MoveFirst(); }), kErrorNoCurrentRow);
  rows.set.ClearFilter();
  EXPECT_EQ(rows.set.AbsolutePosition(), 1U);
}

TEST(RecordsetFilter, ANewFilterReplacesTheOld) {
  OpenRows rows(lines(5));
  rows.set.SetFilter("Numero > 3");
  rows.set.SetFilter("Numero < 3");
  EXPECT_EQ(numbers(rows.set), (Numbers{1, 2}));
}

TEST(RecordsetFilter, AFilterThatCannotBeReadChangesNothing) {
  OpenRows rows(lines(5));
  rows.set.SetFilter("Numero > 3");
  rows.set.MoveNext();
  EXPECT_EQ(errorOf([&] { rows.set.SetFilter("Numero ="); }), kErrorFilter);
  EXPECT_EQ(errorOf([&] { rows.set.SetFilter("Mese = 1"); }), kErrorItemNotFound);
  EXPECT_EQ(rows.set.Filter(), "Numero > 3");
  EXPECT_EQ(rows.set.Get("Numero").integer(), 5);
}

TEST(RecordsetFilter, WhenItGoesTheCurrentRowStays) {
  OpenRows rows(lines(5));
  rows.set.SetFilter("Numero >= 3");
  rows.set.MoveNext();
  rows.set.ClearFilter();
  EXPECT_EQ(rows.set.Filter(), "");
  EXPECT_EQ(rows.set.RecordCount(), 5U);
  EXPECT_EQ(rows.set.Get("Numero").integer(), 4);
  EXPECT_EQ(rows.set.AbsolutePosition(), 4U);
}

TEST(RecordsetFilter, TheRowThatWasEditedStaysTheCurrentOneWhenItsFilterIsCleared) {
  OpenRows rows(lines(5));
  rows.set.SetFilter("Numero = 4");
  rows.set.Set("Nome", text("corretto"));
  rows.set.Set("Scelto", Value::ofFlag(true));
  rows.set.Update();
  EXPECT_EQ(rows.set.RecordCount(), 1U);
  rows.set.ClearFilter();
  EXPECT_EQ(rows.set.Get("Numero").integer(), 4);
  EXPECT_EQ(rows.set.Get("Nome").text(), "corretto");
  rows.set.MoveNext();
  EXPECT_EQ(rows.set.Get("Numero").integer(), 5);
}

TEST(RecordsetFilter, AChangeNotYetUpdatedIsUpdatedByTheFilter) {
  OpenRows rows(lines(3));
  rows.set.Set("Scelto", whole(1));
  rows.set.SetFilter("Scelto = 1");
  EXPECT_EQ(numbers(rows.set), (Numbers{1}));
}

TEST(RecordsetFilter, FromTheEndItsGoingLeadsToTheFirstRow) {
  OpenRows rows(lines(3));
  rows.set.SetFilter("Numero >= 2");
  rows.set.MoveTo(rows.set.RecordCount());
  rows.set.MoveNext();
  rows.set.ClearFilter();
  EXPECT_EQ(rows.set.Get("Numero").integer(), 1);
}

TEST(RecordsetFilter, TheBookmarkOfARowThatDoesNotShowLeadsNowhere) {
  OpenRows rows(lines(5));
  rows.set.MoveTo(5);
  const auto last = rows.set.Bookmark();
  rows.set.MoveTo(2);
  const auto second = rows.set.Bookmark();
  rows.set.SetFilter("Numero < 5 AND Numero <> 2");
  EXPECT_EQ(errorOf([&] { rows.set.SetBookmark(last); }), kErrorNoCurrentRow);
  EXPECT_EQ(errorOf([&] { rows.set.SetBookmark(second); }), kErrorNoCurrentRow);
  EXPECT_EQ(rows.set.Get("Numero").integer(), 1);
}

TEST(RecordsetFilter, ABookmarkHoldsUnderAnotherFilter) {
  OpenRows rows(lines(6));
  rows.set.MoveTo(4);
  const auto fourth = rows.set.Bookmark();
  rows.set.SetFilter("Numero > 2");
  rows.set.SetBookmark(fourth);
  EXPECT_EQ(rows.set.Get("Numero").integer(), 4);
  EXPECT_EQ(rows.set.AbsolutePosition(), 2U);
  rows.set.SetFilter("Numero = 6");
  EXPECT_EQ(errorOf([&] { rows.set.SetBookmark(fourth); }), kErrorNoCurrentRow);
  EXPECT_EQ(rows.set.Get("Numero").integer(), 6);
  rows.set.ClearFilter();
  rows.set.SetBookmark(fourth);
  EXPECT_EQ(rows.set.Get("Numero").integer(), 4);
}

// The soft deletion of a module: the flag is set, the filter hides the row.
TEST(RecordsetFilter, ARowThatLeavesTheFilterYieldsItsPlaceToTheNext) {
  OpenRows rows(lines(4));
  rows.set.SetFilter("Scelto = 0");
  rows.set.MoveTo(2);
  rows.set.Set("Scelto", Value::ofFlag(true));
  EXPECT_EQ(rows.set.RecordCount(), 4U);
  rows.set.Update();
  EXPECT_EQ(rows.set.RecordCount(), 3U);
  EXPECT_EQ(rows.set.Get("Numero").integer(), 3);
  EXPECT_EQ(rows.set.AbsolutePosition(), 2U);
}

TEST(RecordsetFilter, TheLastRowThatLeavesYieldsToTheOneBefore) {
  OpenRows rows(lines(3));
  rows.set.SetFilter("Scelto = 0");
  rows.set.MoveTo(rows.set.RecordCount());
  rows.set.Set("Scelto", whole(1));
  rows.set.Update();
  EXPECT_EQ(rows.set.Get("Numero").integer(), 2);
  rows.set.Set("Scelto", whole(1));
  rows.set.Update();
  EXPECT_EQ(rows.set.Get("Numero").integer(), 1);
  rows.set.Set("Scelto", whole(1));
  rows.set.Update();
  EXPECT_EQ(rows.set.RecordCount(), 0U);
  EXPECT_TRUE(rows.set.Eof());
  EXPECT_TRUE(rows.set.Bof());
  rows.set.ClearFilter();
  EXPECT_EQ(rows.set.RecordCount(), 3U);
}

TEST(RecordsetFilter, ARowAddedUnderAFilterShowsWhenItMatches) {
  OpenRows rows(lines(2));
  rows.set.SetFilter("Scelto = 0");
  rows.set.AddNew();
  rows.set.Set("Numero", whole(3));
  rows.set.Set("Scelto", Value::ofFlag(false));
  rows.set.Update();
  EXPECT_EQ(rows.set.RecordCount(), 3U);
  EXPECT_EQ(rows.set.Get("Numero").integer(), 3);
  EXPECT_EQ(rows.set.AbsolutePosition(), 3U);
}

TEST(RecordsetFilter, ARowAddedThatDoesNotMatchStaysHidden) {
  OpenRows rows(lines(2));
  rows.set.SetFilter("Scelto = 0");
  rows.set.MoveTo(rows.set.RecordCount());
  rows.set.AddNew();
  rows.set.Set("Numero", whole(3));
  rows.set.Set("Scelto", whole(1));
  rows.set.Update();
  EXPECT_EQ(rows.set.RecordCount(), 2U);
  EXPECT_EQ(rows.set.Get("Numero").integer(), 2);
  rows.set.ClearFilter();
  EXPECT_EQ(numbers(rows.set), (Numbers{1, 2, 3}));
}

TEST(RecordsetFilter, PendingRowsInTheirOrderWithTheirStatus) {
  OpenRows rows(lines(5));
  rows.set.MoveTo(4);
  rows.set.Set("Nome", text("x"));
  rows.set.MoveTo(2);
  rows.set.Set("Nome", text("y"));
  rows.set.AddNew();
  rows.set.Set("Numero", whole(6));
  rows.set.FilterPending();
  EXPECT_EQ(rows.set.RecordCount(), 3U);
  EXPECT_EQ(rows.set.Get("Numero").integer(), 2);
  EXPECT_EQ(rows.set.Status(), RecordStatus::Modified);
  EXPECT_EQ(rows.set.OriginalValue("Nome"), text("Nome 2"));
  rows.set.MoveNext();
  EXPECT_EQ(rows.set.Get("Numero").integer(), 4);
  rows.set.MoveNext();
  EXPECT_EQ(rows.set.Get("Numero").integer(), 6);
  EXPECT_EQ(rows.set.Status(), RecordStatus::New);
  rows.set.MoveNext();
  EXPECT_TRUE(rows.set.Eof());
  rows.set.ClearFilter();
  EXPECT_EQ(rows.set.RecordCount(), 6U);
}

TEST(RecordsetFilter, PendingShowsSoftDeletedRowsToo) {
  OpenRows rows(lines(3));
  rows.set.SetFilter("Scelto = 0");
  rows.set.MoveTo(2);
  rows.set.Set("Scelto", Value::ofFlag(true));
  rows.set.Update();
  rows.set.ClearFilter();
  rows.set.FilterPending();
  EXPECT_EQ(numbers(rows.set), (Numbers{2}));
}

TEST(RecordsetFilter, WithoutChangesNothingIsPending) {
  OpenRows rows(lines(3));
  rows.set.FilterPending();
  EXPECT_EQ(rows.set.RecordCount(), 0U);
  EXPECT_TRUE(rows.set.Eof());
}

// Any sequence of operations shows what a plain list of rows would.
TEST(Recordset, BehavesAsAListOfRows) {
  std::mt19937 random(99);
  for (int round = 0; round < 60; ++round) {
    const auto count = static_cast<std::int64_t>(random() % 8);
    OpenRows rows(lines(count));
    std::map<std::int64_t, std::int64_t> chosen;  // number to flag, all rows
    for (std::int64_t i = 1; i <= count; ++i) chosen[i] = 0;
    std::int64_t next = count + 1;
    bool filtered = false;
    for (int step = 0; step < 60; ++step) {
      const auto flag = static_cast<std::int64_t>(random() % 2);
      switch (random() % 5) {
        case 0:
          rows.set.SetFilter("Scelto = 0");
          filtered = true;
          break;
        case 1:
          rows.set.ClearFilter();
          filtered = false;
          break;
        case 2:
          rows.set.AddNew();
          rows.set.Set("Numero", whole(next));
          rows.set.Set("Scelto", whole(flag));
          rows.set.Update();
          chosen[next++] = flag;
          break;
        case 3:
          if (rows.set.RecordCount() > 0) rows.set.MoveTo(1 + random() % rows.set.RecordCount());
          break;
        default:
          if (rows.set.AbsolutePosition() > 0) {
            chosen[rows.set.Get("Numero").integer()] = flag;
            rows.set.Set("Scelto", whole(flag));
            rows.set.Update();
          }
          break;
      }
      Numbers expected;
      for (const auto& [number, value] : chosen) {
        if (!filtered || value == 0) expected.push_back(number);
      }
      const std::size_t place = rows.set.AbsolutePosition();
      ASSERT_EQ(numbers(rows.set), expected) << "round " << round << " step " << step;
      if (place > 0) rows.set.MoveTo(place);
    }
  }
}

}  // namespace
}  // namespace cu
