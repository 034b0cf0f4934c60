#include "data/recordset.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "data/recordset_support.h"

namespace cu {
namespace {

using test::amount;
using test::day;
using test::errorOf;
using test::FakeConnection;
using test::lines;
using test::null;
using test::OpenRows;
using test::Table;
using test::text;
using test::whole;

TEST(Recordset, IsClosedAtFirst) {
  const Recordset set;
  EXPECT_EQ(set.State(), 0);
  EXPECT_FALSE(set.IsOpen());
}

TEST(Recordset, OpeningReadsTheSourceOnceAndStandsOnTheFirstRow) {
  OpenRows rows(lines(3));
  EXPECT_EQ(rows.connection.texts(), (std::vector<std::string>{"RIGHE"}));
  EXPECT_EQ(rows.set.State(), 1);
  EXPECT_EQ(rows.set.RecordCount(), 3U);
  EXPECT_FALSE(rows.set.Bof());
  EXPECT_FALSE(rows.set.Eof());
  EXPECT_EQ(rows.set.AbsolutePosition(), 1U);
  EXPECT_EQ(rows.set.Get("Numero").integer(), 1);
  EXPECT_EQ(rows.set.Filter(), "");
}

TEST(Recordset, MovingAndChangingNeverTouchTheDatabase) {
  OpenRows rows(lines(3));
  rows.set.MoveNext();
  rows.set.Set("Nome", text("x"));
  rows.set.Update();
  rows.set.SetFilter("Numero = 2");
  rows.set.ClearFilter();
  rows.set.Clone();
  rows.set.AddNew();
  rows.set.Update();
  rows.set.Close();
  EXPECT_EQ(rows.connection.sent.size(), 1U);
}

TEST(Recordset, AClosedOneRefusesEverything) {
  Recordset set;
  EXPECT_EQ(errorOf([&] { set.Close(); }), kErrorObjectClosed);
  EXPECT_EQ(errorOf([&] { (void)set.RecordCount(); }), kErrorObjectClosed);
  EXPECT_EQ(errorOf([&] { (void)set.Eof(); }), kErrorObjectClosed);
  EXPECT_EQ(errorOf([&] { (void)set.Bof(); }), kErrorObjectClosed);
  EXPECT_EQ(errorOf([&] { set.MoveFirst(); }), kErrorObjectClosed);
  EXPECT_EQ(errorOf([&] { set.MoveNext(); }), kErrorObjectClosed);
  EXPECT_EQ(errorOf([&] { set.MovePrevious(); }), kErrorObjectClosed);
  EXPECT_EQ(errorOf([&] { set.MoveTo(1); }), kErrorObjectClosed);
  EXPECT_EQ(errorOf([&] { (void)set.AbsolutePosition(); }), kErrorObjectClosed);
  EXPECT_EQ(errorOf([&] { (void)set.Bookmark(); }), kErrorObjectClosed);
  EXPECT_EQ(errorOf([&] { set.SetBookmark(0); }), kErrorObjectClosed);
  EXPECT_EQ(errorOf([&] { set.SetFilter("Numero = 1"); }), kErrorObjectClosed);
  EXPECT_EQ(errorOf([&] { set.ClearFilter(); }), kErrorObjectClosed);
  EXPECT_EQ(errorOf([&] { set.FilterPending(); }), kErrorObjectClosed);
  EXPECT_EQ(errorOf([&] { (void)set.Clone(); }), kErrorObjectClosed);
  EXPECT_EQ(errorOf([&] { (void)set.Fields(); }), kErrorObjectClosed);
  EXPECT_EQ(errorOf([&] { (void)set.Get("Numero"); }), kErrorObjectClosed);
  EXPECT_EQ(errorOf([&] { (void)set.Row(); }), kErrorObjectClosed);
  EXPECT_EQ(errorOf([&] { (void)set.OriginalValue("Numero"); }), kErrorObjectClosed);
  EXPECT_EQ(errorOf([&] { set.Set("Numero", whole(1)); }), kErrorObjectClosed);
  EXPECT_EQ(errorOf([&] { set.AddNew(); }), kErrorObjectClosed);
  EXPECT_EQ(errorOf([&] { (void)set.Status(); }), kErrorObjectClosed);
}

TEST(Recordset, AnOpenOneIsNotOpenedAgain) {
  OpenRows rows(lines(2));
  EXPECT_EQ(errorOf([&] { rows.set.Open(rows.connection, "RIGHE"); }), kErrorObjectOpen);
  EXPECT_EQ(rows.connection.sent.size(), 1U);
  EXPECT_EQ(rows.set.RecordCount(), 2U);
}

TEST(Recordset, ClosedItCanBeOpenedOnOtherRows) {
  OpenRows rows(lines(2));
  rows.set.SetFilter("Numero = 2");
  rows.set.Set("Nome", text("x"));
  rows.set.Close();
  EXPECT_EQ(rows.set.State(), 0);
  rows.connection.answer("ALTRE", Table({"Solo"}, {{whole(7)}}));
  rows.set.Open(rows.connection, "ALTRE");
  EXPECT_EQ(rows.set.RecordCount(), 1U);
  EXPECT_EQ(rows.set.Get("Solo").integer(), 7);
  EXPECT_EQ(rows.set.Filter(), "");
  EXPECT_EQ(rows.set.Status(), RecordStatus::Unmodified);
}

TEST(Recordset, AFailedOpeningLeavesItClosed) {
  FakeConnection connection;
  connection.refuseContaining("GUASTA", DatabaseErrorKind::Locked);
  Recordset set;
  EXPECT_THROW(set.Open(connection, "GUASTA"), DatabaseError);
  EXPECT_EQ(set.State(), 0);
  connection.answer("BUONA", Table({"A"}, {}));
  set.Open(connection, "BUONA");
  EXPECT_EQ(set.State(), 1);
}

TEST(Recordset, AResultWithoutColumnsIsEmpty) {
  class Mute : public Connection {
   public:
    std::int64_t Execute(std::string_view) override { return -1; }
    void Query(std::string_view, RowStore&) override {}
  } connection;
  Recordset set;
  set.Open(connection, "niente");
  EXPECT_EQ(set.RecordCount(), 0U);
  EXPECT_TRUE(set.Eof());
  EXPECT_EQ(set.Fields().size(), 0U);
  EXPECT_EQ(errorOf([&] { (void)set.Get("A"); }), kErrorItemNotFound);
}

TEST(Recordset, WithoutRowsBothEndsAreTrueAtOnce) {
  OpenRows rows({});
  EXPECT_TRUE(rows.set.Bof());
  EXPECT_TRUE(rows.set.Eof());
  EXPECT_EQ(rows.set.RecordCount(), 0U);
  EXPECT_EQ(rows.set.AbsolutePosition(), 0U);
  EXPECT_EQ(errorOf([&] { rows.set.MoveFirst(); }), kErrorNoCurrentRow);
  EXPECT_EQ(errorOf([&] { rows.set.MoveNext(); }), kErrorNoCurrentRow);
  EXPECT_EQ(errorOf([&] { rows.set.MovePrevious(); }), kErrorNoCurrentRow);
  EXPECT_EQ(errorOf([&] { (void)rows.set.Get("Numero"); }), kErrorNoCurrentRow);
  EXPECT_EQ(errorOf([&] { (void)rows.set.Bookmark(); }), kErrorNoCurrentRow);
  EXPECT_EQ(errorOf([&] { (void)rows.set.Status(); }), kErrorNoCurrentRow);
  EXPECT_EQ(errorOf([&] { rows.set.Set("Nome", text("x")); }), kErrorNoCurrentRow);
}

TEST(Recordset, MovesOverBothEndsAndBack) {
  OpenRows rows(lines(2));
  rows.set.MoveNext();
  EXPECT_EQ(rows.set.AbsolutePosition(), 2U);
  rows.set.MoveNext();
  EXPECT_TRUE(rows.set.Eof());
  EXPECT_FALSE(rows.set.Bof());
  EXPECT_EQ(rows.set.AbsolutePosition(), 0U);
  EXPECT_EQ(errorOf([&] { (void)rows.set.Get("Numero"); }), kErrorNoCurrentRow);
  EXPECT_EQ(errorOf([&] { rows.set.MoveNext(); }), kErrorNoCurrentRow);
  EXPECT_TRUE(rows.set.Eof());
  rows.set.MovePrevious();  // from the end this is the last row
  EXPECT_EQ(rows.set.Get("Numero").integer(), 2);
  rows.set.MovePrevious();
  rows.set.MovePrevious();
  EXPECT_TRUE(rows.set.Bof());
  EXPECT_FALSE(rows.set.Eof());
  EXPECT_EQ(errorOf([&] { rows.set.MovePrevious(); }), kErrorNoCurrentRow);
  EXPECT_EQ(errorOf([&] { (void)rows.set.Row(); }), kErrorNoCurrentRow);
  rows.set.MoveNext();
  EXPECT_EQ(rows.set.Get("Numero").integer(), 1);
  rows.set.MoveTo(rows.set.RecordCount());
  EXPECT_EQ(rows.set.Get("Numero").integer(), 2);
  rows.set.MoveFirst();
  EXPECT_EQ(rows.set.Get("Numero").integer(), 1);
}

TEST(Recordset, MovesToARowByItsPlace) {
  OpenRows rows(lines(3));
  rows.set.MoveTo(3);
  EXPECT_EQ(rows.set.Get("Numero").integer(), 3);
  EXPECT_EQ(errorOf([&] { rows.set.MoveTo(0); }), kErrorNoCurrentRow);
  EXPECT_EQ(errorOf([&] { rows.set.MoveTo(4); }), kErrorNoCurrentRow);
  EXPECT_EQ(rows.set.AbsolutePosition(), 3U);
}

TEST(Recordset, ReadsEveryTypeByNameAndByPlace) {
  OpenRows rows({{whole(1), text("Nicolò"), amount("12.3456"), whole(-1), day(2017, 3, 5)},
                 {null(), null(), null(), null(), null()}});
  EXPECT_EQ(rows.set.Get("numero").integer(), 1);
  EXPECT_EQ(rows.set.Get("NOME").text(), "Nicolò");
  EXPECT_EQ(rows.set.Get("Importo").decimal().toText(), "12.3456");
  EXPECT_TRUE(rows.set.Get("Scelto").flag());
  EXPECT_EQ(rows.set.Get("Data").toText(), "05/03/2017");
  EXPECT_EQ(rows.set.Get(1).text(), "Nicolò");
  EXPECT_EQ(rows.set.Row()[2].decimal().toText(), "12.3456");
  EXPECT_EQ(rows.set.Ordinal("Data"), 4U);
  rows.set.MoveNext();
  for (std::size_t i = 0; i < 5; ++i) EXPECT_TRUE(rows.set.Get(i).isNull());
}

TEST(Recordset, AFieldThatIsNotThereIsTold) {
  OpenRows rows(lines(1));
  EXPECT_EQ(errorOf([&] { (void)rows.set.Get("Cognome"); }), kErrorItemNotFound);
  EXPECT_EQ(errorOf([&] { (void)rows.set.OriginalValue("Cognome"); }), kErrorItemNotFound);
  EXPECT_EQ(errorOf([&] { rows.set.Set("Cognome", null()); }), kErrorItemNotFound);
  EXPECT_EQ(errorOf([&] { (void)rows.set.Ordinal(""); }), kErrorItemNotFound);
  EXPECT_EQ(rows.set.Status(), RecordStatus::Unmodified);
  try {
    (void)rows.set.Get("Cognome");
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.description(), "Il campo \"Cognome\" non esiste nel recordset.");
  }
}

TEST(Recordset, OfTwoColumnsWithOneNameTheFirstIsRead) {
  FakeConnection connection;
  connection.answer("DOPPIA", Table({"IDAzienda", "Nome", "IDAzienda"}, {{whole(1), text("x"), whole(2)}}));
  Recordset set;
  set.Open(connection, "DOPPIA", LockType::BatchOptimistic);
  EXPECT_EQ(set.Fields().size(), 3U);
  EXPECT_EQ(set.Get("IDAzienda").integer(), 1);
  EXPECT_EQ(set.Get(2).integer(), 2);
  set.Set("IDAzienda", whole(9));
  EXPECT_EQ(set.Get(0).integer(), 9);
  EXPECT_EQ(set.Get(2).integer(), 2);
}

TEST(Recordset, ABookmarkNamesItsRow) {
  OpenRows rows(lines(4));
  rows.set.MoveTo(3);
  const auto mark = rows.set.Bookmark();
  rows.set.MoveTo(rows.set.RecordCount());
  rows.set.MoveNext();
  rows.set.SetBookmark(mark);
  EXPECT_EQ(rows.set.Get("Numero").integer(), 3);
  EXPECT_EQ(errorOf([&] { rows.set.SetBookmark(4); }), kErrorNoCurrentRow);
  EXPECT_EQ(rows.set.Get("Numero").integer(), 3);
}

TEST(Recordset, AnyRowIsReadWithoutMovingThere) {
  OpenRows rows(lines(4));
  rows.set.MoveTo(2);
  rows.set.Set("Nome", text("cambiato"));
  rows.set.Update();
  std::vector<CellView> cells(rows.set.Fields().size());
  rows.set.Peek(4, cells.data());
  EXPECT_EQ(cells[0].integer(), 4);
  rows.set.Peek(2, cells.data());
  EXPECT_EQ(cells[1].text(), "cambiato");
  EXPECT_EQ(rows.set.AbsolutePosition(), 2U);
  rows.set.SetFilter("Numero > 2");
  rows.set.Peek(2, cells.data());
  EXPECT_EQ(cells[0].integer(), 4);
  EXPECT_EQ(errorOf([&] { rows.set.Peek(0, cells.data()); }), kErrorNoCurrentRow);
  EXPECT_EQ(errorOf([&] { rows.set.Peek(3, cells.data()); }), kErrorNoCurrentRow);
}

}  // namespace
}  // namespace cu
