// Clones: shared and separate state.

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <vector>

#include "data/recordset.h"
#include "data/recordset_support.h"

namespace cu {
namespace {

using test::lines;
using test::numbers;
using test::OpenRows;
using test::text;
using test::whole;

using Numbers = std::vector<std::int64_t>;

TEST(RecordsetClone, HasItsOwnCursorAndNoFilter) {
  OpenRows rows(lines(4));
  rows.set.SetFilter("Numero > 2");
  rows.set.MoveTo(rows.set.RecordCount());
  const auto clone = rows.set.Clone();
  EXPECT_EQ(clone->RecordCount(), 4U);
  EXPECT_EQ(clone->Filter(), "");
  EXPECT_EQ(clone->Get("Numero").integer(), 1);
  clone->SetFilter("Numero = 1");
  clone->Close();
  EXPECT_EQ(rows.set.RecordCount(), 2U);
  EXPECT_EQ(rows.set.Get("Numero").integer(), 4);
}

TEST(RecordsetClone, SharesTheRowsAndTheirChanges) {
  OpenRows rows(lines(3));
  const auto clone = rows.set.Clone();
  EXPECT_EQ(clone->Get("Nome").text(), "Nome 1");
  rows.set.Set("Nome", text("cambiato"));
  EXPECT_EQ(clone->Get("Nome").text(), "Nome 1");  // not before the update
  rows.set.Update();
  EXPECT_EQ(clone->Get("Nome").text(), "cambiato");
  clone->AddNew();
  clone->Set("Numero", whole(4));
  clone->Update();
  EXPECT_EQ(rows.set.RecordCount(), 4U);
  EXPECT_EQ(numbers(rows.set), (Numbers{1, 2, 3, 4}));
}

TEST(RecordsetClone, OutlivesTheOriginal) {
  std::unique_ptr<Recordset> clone;
  {
    OpenRows rows(lines(2));
    clone = rows.set.Clone();
    rows.set.Close();
  }
  EXPECT_EQ(numbers(*clone), (Numbers{1, 2}));
}

TEST(RecordsetClone, BookmarksHoldInIt) {
  OpenRows rows(lines(5));
  rows.set.SetFilter("Numero >= 4");
  const auto clone = rows.set.Clone();
  clone->SetBookmark(rows.set.Bookmark());
  EXPECT_EQ(clone->Get("Numero").integer(), 4);
}

TEST(RecordsetClone, ChangesOfTwoToOneRowMeet) {
  OpenRows rows(lines(1));
  const auto clone = rows.set.Clone();
  rows.set.Set("Nome", text("nome"));
  clone->Set("Scelto", whole(1));
  clone->Update();
  rows.set.Update();
  EXPECT_EQ(rows.set.Get("Nome").text(), "nome");
  EXPECT_EQ(rows.set.Get("Scelto").integer(), 1);
}

TEST(RecordsetClone, TwoThatAddEachHaveTheirRow) {
  OpenRows rows(lines(1));
  const auto clone = rows.set.Clone();
  rows.set.AddNew();
  rows.set.Set("Numero", whole(2));
  clone->AddNew();
  clone->Set("Numero", whole(3));
  clone->Update();
  EXPECT_EQ(rows.set.Get("Numero").integer(), 2);
  EXPECT_TRUE(rows.set.Get("Nome").isNull());
  rows.set.Update();
  EXPECT_EQ(numbers(rows.set), (Numbers{1, 3, 2}));
}

}  // namespace
}  // namespace cu
