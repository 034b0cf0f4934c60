// Changes that count as written to the database.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::vector<std::int64_t> pending(Recordset& set) {
  set.FilterPending();
  return numbers(set);
}

TEST(RecordsetAccept, AnAcceptedChangeIsNoLongerPending) {
  OpenRows rows(lines(3));
  rows.set.Set("Nome", text("a"));
  rows.set.Update();
  rows.set.AcceptCurrent();
  EXPECT_EQ(rows.set.Status(), RecordStatus::Unmodified);
  rows.set.MoveNext();
  rows.set.Set("Nome", text("b"));
  rows.set.Update();
  EXPECT_THAT(pending(rows.set), ElementsAre(2));
}

TEST(RecordsetAccept, KeepsWhatWasSetAndWhatWasRead) {
  OpenRows rows(lines(1));
  rows.set.Set("Nome", text("a"));
  rows.set.AcceptCurrent();  // includes the pending change
  EXPECT_EQ(rows.set.Get("Nome").text(), "a");
  EXPECT_EQ(rows.set.OriginalValue("Nome"), text("Nome 1"));
}

TEST(RecordsetAccept, ALaterChangeIsPendingAgainAsAModification) {
  OpenRows rows(lines(1));
  rows.set.AddNew();
  rows.set.Set("Numero", whole(9));
  rows.set.Update();
  rows.set.AcceptCurrent();
  EXPECT_THAT(pending(rows.set), IsEmpty());
  rows.set.ClearFilter();
  rows.set.MoveTo(rows.set.RecordCount());
  EXPECT_EQ(rows.set.Get("Numero").integer(), 9);
  rows.set.Set("Nome", text("dopo"));
  rows.set.Update();
  EXPECT_EQ(rows.set.Status(), RecordStatus::Modified);
  EXPECT_THAT(pending(rows.set), ElementsAre(9));
}

TEST(RecordsetAccept, OfAnUnchangedRowChangesNothing) {
  OpenRows rows(lines(2));
  rows.set.AcceptCurrent();
  EXPECT_EQ(rows.set.Status(), RecordStatus::Unmodified);
  EXPECT_EQ(rows.set.RecordCount(), 2U);
}

TEST(RecordsetAccept, RowsInSightStayInSightUntilTheNextFilter) {
  OpenRows rows(lines(3));
  for (; !rows.set.Eof(); rows.set.MoveNext()) {
    rows.set.Set("Scelto", whole(1));
    rows.set.Update();
  }
  rows.set.FilterPending();
  std::vector<std::int64_t> visited;
  for (; !rows.set.Eof(); rows.set.MoveNext()) {
    visited.push_back(rows.set.Get("Numero").integer());
    rows.set.AcceptCurrent();
  }
  EXPECT_THAT(visited, ElementsAre(1, 2, 3));
  EXPECT_EQ(rows.set.RecordCount(), 3U);
  EXPECT_THAT(pending(rows.set), IsEmpty());
}

TEST(RecordsetAccept, IsSeenByAClone) {
  OpenRows rows(lines(1));
  const auto clone = rows.set.Clone();
  rows.set.Set("Nome", text("a"));
  rows.set.Update();
  EXPECT_EQ(clone->Status(), RecordStatus::Modified);
  rows.set.AcceptCurrent();
  EXPECT_EQ(clone->Status(), RecordStatus::Unmodified);
  EXPECT_EQ(clone->Get("Nome").text(), "a");
}

TEST(RecordsetAccept, NeedsACurrentRowOfAnOpenChangeableRecordset) {
  OpenRows rows(lines(1));
  rows.set.MoveNext();
  EXPECT_EQ(errorOf([&] { rows.set.AcceptCurrent(); }), 3021);
  OpenRows readOnly(lines(1), LockType::ReadOnly);
  EXPECT_EQ(errorOf([&] { readOnly.set.AcceptCurrent(); }), 3251);
  Recordset closed;
  EXPECT_EQ(errorOf([&] { closed.AcceptCurrent(); }), 3704);
}

}  // namespace
}  // namespace cu
