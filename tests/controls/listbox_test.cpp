#include "controls/listbox.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/error.h"
#include "controls/controls_support.h"
#include "data/recordset_support.h"

namespace cu {
namespace {

using test::CountingView;
using test::errorOf;
using test::FakeConnection;
using test::Stage;
using test::Table;
using test::text;
using test::whole;

struct Lists {
  Stage stage;
  ListBox list{stage.form, "KRNCboEsCont(0)", nullptr};
  FakeConnection connection;
  std::vector<int> changes;
  Lists() {
    list.onChange = [this] { changes.push_back(list.index()); };
    connection.answer("ANNI", Table({"Anno"}, {{whole(2017)}, {whole(2016)}, {whole(2014)}}));
    connection.answer("CODICI", Table({"IDCodice", "Descrizione"}, {{whole(7), text("sette")},
                                                                    {Value(), text("senza chiave")},
                                                                    {whole(0), text("zero")},
                                                                    {whole(9), Value()}}));
  }
  void loadYears() {
    list.setConnection(connection);
    list.setSource("ANNI");
    list.setDisplayField("Anno");
    list.addColumn("Anno");
    list.load();
  }
};

TEST(ListBox, IsEmptyWithoutAChoice) {
  Lists on;
  EXPECT_TRUE(on.list.entries().empty());
  EXPECT_EQ(on.list.index(), -1);
  EXPECT_EQ(on.list.text(), "");
  EXPECT_EQ(on.list.record(), std::nullopt);
}

TEST(ListBox, AChoiceRaisesTheEventWhenItDiffers) {
  Lists on;
  on.list.add("primo");
  on.list.add("secondo", 5);
  EXPECT_EQ(on.list.index(), -1);
  on.list.setIndex(1);
  on.list.setIndex(1);
  EXPECT_EQ(on.list.text(), "secondo");
  EXPECT_EQ(on.list.record(), 5);
  on.list.setIndex(0);
  EXPECT_EQ(on.list.record(), std::nullopt);
  EXPECT_EQ(on.changes, (std::vector<int>{1, 0}));
}

TEST(ListBox, AnIndexOutOfRangeMeansNone) {
  Lists on;
  on.list.add("primo");
  on.list.setIndex(0);
  on.list.setIndex(1);
  EXPECT_EQ(on.list.index(), -1);
  on.list.setIndex(-7);
  EXPECT_EQ(on.changes, (std::vector<int>{0, -1}));
}

TEST(ListBox, ClearingDropsEntriesAndChoice) {
  Lists on;
  on.list.add("primo");
  on.list.clear();
  EXPECT_TRUE(on.changes.empty());
  on.list.add("primo");
  on.list.setIndex(0);
  on.list.clear();
  EXPECT_TRUE(on.list.entries().empty());
  EXPECT_EQ(on.changes, (std::vector<int>{0, -1}));
}

TEST(ListBox, FindsEntriesByTextAndKey) {
  Lists on;
  on.list.add("a", 3);
  on.list.add("b", 4);
  on.list.add("b", 4);
  on.list.add("c");
  EXPECT_EQ(on.list.indexOf("b"), 1);
  EXPECT_EQ(on.list.indexOf("B"), -1);
  EXPECT_EQ(on.list.indexOfRecord(4), 1);
  EXPECT_EQ(on.list.indexOfRecord(0), -1);
  on.list.setRecord(3);
  EXPECT_EQ(on.list.index(), 0);
  on.list.setRecord(99);
  EXPECT_EQ(on.list.index(), -1);
}

TEST(ListBox, WhatItCannotShowIsStoredUntilAnEntryOrNoneIsChosen) {
  Lists on;
  on.list.add("a", 3);
  on.list.add("b", 4);
  EXPECT_EQ(on.list.storedIndex(), -1);
  on.list.setIndex(7);
  EXPECT_EQ(on.list.index(), -1);
  EXPECT_EQ(on.list.storedIndex(), 7);
  EXPECT_TRUE(on.changes.empty());
  on.list.setIndex(-1);
  EXPECT_EQ(on.list.storedIndex(), -1);
  on.list.setRecord(99);
  EXPECT_EQ(on.list.record(), std::nullopt);
  EXPECT_EQ(on.list.storedRecord(), 99);
  on.list.setIndex(1);
  EXPECT_EQ(on.list.storedIndex(), 1);
  EXPECT_EQ(on.list.storedRecord(), 4);
  on.list.setRecord(99);
  on.list.setIndex(-1);
  EXPECT_EQ(on.list.storedRecord(), std::nullopt);
  on.list.setRecord(99);
  on.loadYears();
  EXPECT_EQ(on.list.storedRecord(), std::nullopt);
  EXPECT_EQ(on.list.storedIndex(), -1);
}

TEST(ListBox, FillsItselfFromAStatementAndChoosesNothing) {
  Lists on;
  on.loadYears();
  ASSERT_EQ(on.list.entries().size(), 3U);
  EXPECT_EQ(on.list.entries()[0].text, "2017");
  EXPECT_EQ(on.list.entries()[0].record, std::nullopt);
  EXPECT_EQ(on.list.index(), -1);
  EXPECT_TRUE(on.changes.empty());
  EXPECT_EQ(on.list.columns(), (std::vector<std::string>{"Anno"}));
  EXPECT_EQ(on.connection.texts(), (std::vector<std::string>{"ANNI"}));
}

TEST(ListBox, KeyedEntriesBearTheirKeyAndNullsAreNone) {
  Lists on;
  on.list.setConnection(on.connection);
  on.list.setSource("CODICI");
  on.list.setDisplayField("descrizione");
  on.list.setKeyField("IDCodice");
  on.list.load();
  ASSERT_EQ(on.list.entries().size(), 4U);
  EXPECT_EQ(on.list.entries()[0].record, 7);
  EXPECT_EQ(on.list.entries()[1].record, std::nullopt);
  EXPECT_EQ(on.list.entries()[2].record, 0);
  EXPECT_EQ(on.list.entries()[3].text, "");
}

TEST(ListBox, ANewSourceChangesNothingOfWhatIsShownBeforeItLoads) {
  Lists on;
  on.loadYears();
  on.list.setIndex(1);
  on.changes.clear();
  on.list.setSource("ALTRI");
  EXPECT_EQ(on.list.source(), "ALTRI");
  EXPECT_EQ(on.list.entries().size(), 3U);
  EXPECT_EQ(on.list.text(), "2016");
  EXPECT_TRUE(on.changes.empty());
  EXPECT_EQ(on.connection.sent.size(), 1U);
}

TEST(ListBox, LoadingAgainDropsTheChoice) {
  Lists on;
  on.loadYears();
  on.list.setIndex(2);
  on.list.load();
  EXPECT_EQ(on.changes, (std::vector<int>{2, -1}));
  EXPECT_EQ(on.list.entries().size(), 3U);
}

TEST(ListBox, WithoutAHandlerLoadingAgainDropsTheChoiceToo) {
  Lists on;
  on.loadYears();
  on.list.setIndex(2);
  on.list.onChange = nullptr;
  on.list.load();
  EXPECT_EQ(on.list.index(), -1);
  EXPECT_EQ(on.changes, (std::vector<int>{2}));
}

TEST(ListBox, ALoadThatFailsLeavesTheListAsItWas) {
  Lists on;
  EXPECT_EQ(errorOf([&] { on.list.load(); }), kErrorObjectNotSet);
  on.loadYears();
  on.list.setIndex(0);
  on.list.setDisplayField("Mese");
  EXPECT_EQ(errorOf([&] { on.list.load(); }), kErrorItemNotFound);
  EXPECT_EQ(on.list.entries().size(), 3U);
  EXPECT_EQ(on.list.index(), 0);
}

TEST(ListBox, ItsBackgroundIsToldToTheView) {
  Lists on;
  CountingView view;
  on.list.attach(&view);
  on.list.setBackground(Background::Window);
  on.list.setBackground(Background::Face);
  EXPECT_EQ(on.list.background(), Background::Face);
  EXPECT_EQ(view.changes, 1);
}

}  // namespace
}  // namespace cu
