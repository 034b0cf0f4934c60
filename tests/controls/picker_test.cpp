#include "controls/picker.h"

#include <gtest/gtest.h>

#include "controls/controls_support.h"
#include "data/recordset_support.h"

namespace cu {
namespace {

using test::errorOf;
using test::FakeConnection;
using test::Table;
using test::text;

struct PickerTest : testing::Test {
  test::ScriptedFrontEnd screen;
  Form form{screen, "frm"};
  FakeConnection connection;
  Picker picker{form, "TownComune", nullptr};
  int changes = 0;

  PickerTest() {
    connection.answer("SELECT Comune FROM Comune WHERE IDComune = 58", Table({"Comune"}, {{text("Roma")}}));
    connection.answer("SELECT Comune FROM Comune WHERE IDComune = 59", Table({"Comune"}, {{text("Milano")}}));
    connection.answer("SELECT Comune FROM Comune WHERE IDComune = 7", Table({"Comune"}, {}));
    picker.onChange = [this] { ++changes; };
    picker.bind(connection, "Quadrivio", 100);
  }
};

TEST_F(PickerTest, IsEmptyWhenBoundAndAsksNothing) {
  EXPECT_EQ(picker.record(), 0);
  EXPECT_EQ(picker.text(), "");
  EXPECT_EQ(picker.title(), "Quadrivio");
  EXPECT_EQ(picker.helpContext(), 100);
  EXPECT_EQ(picker.connection(), &connection);
  EXPECT_TRUE(connection.sent.empty());
  EXPECT_EQ(changes, 0);
}

TEST_F(PickerTest, AnIdBringsItsName) {
  picker.setRecord(58);
  EXPECT_EQ(picker.record(), 58);
  EXPECT_EQ(picker.text(), "Roma");
  EXPECT_EQ(changes, 1);
  picker.setRecord(59);
  EXPECT_EQ(picker.text(), "Milano");
  EXPECT_EQ(changes, 2);
}

TEST_F(PickerTest, TheSameIdIsNoChange) {
  picker.setRecord(58);
  picker.setRecord(58);
  EXPECT_EQ(changes, 1);
}

TEST_F(PickerTest, ZeroAndBelowEmptyItWithoutAQuery) {
  for (const int id : {0, -1}) {
    picker.setRecord(58);
    connection.sent.clear();
    picker.setRecord(id);
    EXPECT_EQ(picker.record(), 0);
    EXPECT_EQ(picker.text(), "");
    EXPECT_TRUE(connection.sent.empty());
  }
  EXPECT_EQ(changes, 4);
}

TEST_F(PickerTest, AnIdThatNoRowHasEmptiesIt) {
  picker.setRecord(58);
  picker.setRecord(7);
  EXPECT_EQ(picker.record(), 0);
  EXPECT_EQ(picker.text(), "");
  EXPECT_EQ(picker.nameOf(7), "");
}

TEST_F(PickerTest, AnIdThatNoRowHasIsStoredUntilAnotherIsSet) {
  picker.setRecord(7);
  EXPECT_EQ(picker.storedRecord(), 7);
  EXPECT_EQ(changes, 0);
  picker.setRecord(0);
  EXPECT_EQ(picker.storedRecord(), 0);
  picker.setRecord(58);
  EXPECT_EQ(picker.storedRecord(), 58);
}

TEST_F(PickerTest, BindingAgainEmptiesIt) {
  picker.setRecord(58);
  picker.bind(connection, "Altro", 5);
  EXPECT_EQ(picker.record(), 0);
  EXPECT_EQ(picker.text(), "");
  EXPECT_EQ(changes, 2);
}

TEST_F(PickerTest, ARefusedQueryLeavesItAsItWas) {
  picker.setRecord(58);
  connection.refuseContaining("IDComune = 59");
  EXPECT_NE(errorOf([&] { picker.setRecord(59); }), 0);
  EXPECT_EQ(picker.record(), 58);
  EXPECT_EQ(picker.text(), "Roma");
  EXPECT_EQ(changes, 1);
}

TEST_F(PickerTest, UnboundItKnowsNoNames) {
  Picker other(form, "TownAltro", nullptr);
  EXPECT_EQ(errorOf([&] { other.setRecord(58); }), kErrorObjectNotSet);
  other.setRecord(0);
  EXPECT_EQ(other.record(), 0);
}

TEST_F(PickerTest, TellsItsViewWhatChanges) {
  test::CountingView view;
  picker.attach(&view);
  picker.setRecord(58);
  EXPECT_EQ(view.changes, 1);
  picker.setRecord(58);
  EXPECT_EQ(view.changes, 1);
}

TEST_F(PickerTest, ListsTheMunicipalitiesWithTheirProvincesByName) {
  connection.answer(
      "SELECT Comune.IDComune, Provincia.Provincia, Comune.Comune FROM Comune LEFT JOIN Provincia ON "
      "Comune.IDProvincia = Provincia.IDProvincia ORDER BY Comune.Comune",
      Table({"IDComune", "Provincia", "Comune"},
            {{test::whole(59), text("MI"), text("Milano")}, {test::whole(58), text("RM"), text("Roma")}}));
  Recordset rows;
  picker.list(rows);
  EXPECT_EQ(rows.RecordCount(), 2U);
  EXPECT_EQ(rows.Get("Comune").text(), "Milano");
  EXPECT_EQ(picker.record(), 0);
  EXPECT_EQ(changes, 0);
}

TEST_F(PickerTest, UnboundItHasNoList) {
  Picker other(form, "TownAltro", nullptr);
  Recordset rows;
  EXPECT_EQ(errorOf([&] { other.list(rows); }), kErrorObjectNotSet);
}

TEST_F(PickerTest, TheSameIdUnderAnotherNameIsAChange) {
  picker.setRecord(58);
  connection.answer("SELECT Comune FROM Comune WHERE IDComune = 58", Table({"Comune"}, {{text("ROMA")}}));
  picker.setRecord(58);
  EXPECT_EQ(picker.text(), "ROMA");
  EXPECT_EQ(changes, 2);
}

}  // namespace
}  // namespace cu
