// A change whose statement fails is undone.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

#include "data/recordset.h"
#include "data/recordset_support.h"

namespace cu {
namespace {

using test::line;
using test::lines;
using test::numbers;
using test::OpenRows;
using test::text;
using test::whole;
using ::testing::ElementsAre;

struct Refused : std::runtime_error {
  Refused() : std::runtime_error("refused") {}
};

// Sets the current row's name; the statement then fails.
void fail(Recordset& set, const char* name) {
  EXPECT_THROW(set.Attempt([&] {
    set.Set("Nome", text(name));
    set.Update();
    EXPECT_EQ(set.Get("Nome").text(), name);
    throw Refused();
  }),
               Refused);
}

TEST(RecordsetAttempt, WhatSucceedsStays) {
  OpenRows rows(lines(2));
  rows.set.Attempt([&] {
    rows.set.Set("Nome", text("nuovo"));
    rows.set.Update();
  });
  EXPECT_EQ(rows.set.Get("Nome").text(), "nuovo");
  EXPECT_EQ(rows.set.Status(), RecordStatus::Modified);
}

TEST(RecordsetAttempt, AfterAFailureTheRowIsAsItWasRead) {
  OpenRows rows(lines(2));
  rows.set.MoveNext();
  fail(rows.set, "nuovo");
  EXPECT_EQ(rows.set.Get("Nome").text(), "Nome 2");
  EXPECT_EQ(rows.set.Status(), RecordStatus::Unmodified);
  EXPECT_EQ(rows.set.AbsolutePosition(), 2U);
  rows.set.FilterPending();
  EXPECT_EQ(rows.set.RecordCount(), 0U);
}

TEST(RecordsetAttempt, AfterAFailureAnEarlierChangeIsThere) {
  OpenRows rows(lines(1));
  rows.set.Set("Nome", text("prima"));
  rows.set.Update();
  rows.set.Set("Numero", whole(7));  // not yet updated
  fail(rows.set, "nuovo");
  EXPECT_EQ(rows.set.Get("Nome").text(), "prima");
  EXPECT_EQ(rows.set.Get("Numero").integer(), 7);
  EXPECT_EQ(rows.set.Status(), RecordStatus::Modified);
  EXPECT_EQ(rows.set.OriginalValue("Nome"), text("Nome 1"));
}

TEST(RecordsetAttempt, WhatWasSetAndNotUpdatedIsTakenBackToo) {
  OpenRows rows(lines(2));
  EXPECT_THROW(rows.set.Attempt([&] {
    rows.set.Set("Nome", text("nuovo"));
    throw Refused();
  }),
               Refused);
  EXPECT_EQ(rows.set.Get("Nome").text(), "Nome 1");
  rows.set.MoveNext();
  rows.set.MovePrevious();
  EXPECT_EQ(rows.set.Get("Nome").text(), "Nome 1");
}

TEST(RecordsetAttempt, ClonesSeeTheRowAsItWas) {
  OpenRows rows(lines(1));
  const auto clone = rows.set.Clone();
  fail(rows.set, "nuovo");
  EXPECT_EQ(clone->Get("Nome").text(), "Nome 1");
}

TEST(RecordsetAttempt, ARowThatLeftTheFilterIsTheCurrentOneAgain) {
  OpenRows rows({line(1, "a", "0", 1), line(2, "b", "0", 1), line(3, "c", "0", 0)});
  rows.set.SetFilter("Scelto = 1");
  EXPECT_THROW(rows.set.Attempt([&] {
    rows.set.Set("Scelto", whole(0));
    rows.set.Update();
    EXPECT_EQ(rows.set.Get("Numero").integer(), 2);
    throw Refused();
  }),
               Refused);
  EXPECT_EQ(rows.set.Get("Numero").integer(), 1);
  EXPECT_THAT(numbers(rows.set), ElementsAre(1, 2));
}

TEST(RecordsetAttempt, WithoutACurrentRowNothingIsTried) {
  OpenRows rows({});
  bool tried = false;
  EXPECT_EQ(test::errorOf([&] { rows.set.Attempt([&] { tried = true; }); }), kErrorNoCurrentRow);
  EXPECT_FALSE(tried);
}

}  // namespace
}  // namespace cu
