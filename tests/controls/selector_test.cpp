#include "controls/selector.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/error.h"
#include "controls/controls_support.h"
#include "data/recordset_support.h"

namespace cu {
namespace {

using test::errorOf;
using test::FakeConnection;
using test::Stage;
using test::Table;
using test::text;
using test::whole;

Selector::Binding payees() {
  Selector::Binding binding;
  binding.table = "RepPercipienteCD";
  binding.codeField = "Codice";
  binding.descriptionField = "Anagrafica";
  binding.idField = "IDAnagrafica";
  binding.codeCaption = "Codice";
  binding.descriptionCaption = "Percipiente";
  binding.filter = "IDAzienda = 1";
  return binding;
}

constexpr const char* kHead = "SELECT IDAnagrafica, Codice, Anagrafica FROM RepPercipienteCD WHERE ";

struct BoundSelector {
  Stage stage;
  Selector selector{stage.form, "KrnCDPerc(0)", nullptr};
  FakeConnection connection;
  int changes = 0;
  BoundSelector() {
    selector.onChange = [this] { ++changes; };
    selector.bind(connection, payees());
    connection.answerContaining(kHead, Table({"IDAnagrafica", "Codice", "Anagrafica"}, {}));
    connection.answer(
        std::string(kHead) + "Codice = '007' AND (IDAzienda = 1)",
        Table({"IDAnagrafica", "Codice", "Anagrafica"},
              {{whole(42), text("007"), text("ROSSI")}, {whole(43), text("007"), text("BIANCHI")}}));
    connection.answer(
        std::string(kHead) + "IDAnagrafica = 42 AND (IDAzienda = 1)",
        Table({"IDAnagrafica", "Codice", "Anagrafica"}, {{whole(42), text("007"), text("ROSSI")}}));
    connection.answer(std::string(kHead) + "IDAnagrafica = 44 AND (IDAzienda = 1)",
                      Table({"IDAnagrafica", "Codice", "Anagrafica"}, {{whole(44), Value(), Value()}}));
  }
};

TEST(Selector, IsEmptyWhenBoundAndAsksNothing) {
  BoundSelector on;
  EXPECT_EQ(on.selector.record(), 0);
  EXPECT_EQ(on.selector.code(), "");
  EXPECT_EQ(on.selector.description(), "");
  EXPECT_EQ(on.changes, 0);
  EXPECT_TRUE(on.connection.sent.empty());
  EXPECT_EQ(on.selector.binding().descriptionCaption, "Percipiente");
  EXPECT_FALSE(on.selector.binding().manage);
  EXPECT_TRUE(on.selector.binding().search);
}

TEST(Selector, ACodeOfTheTableIsChosenUnderTheFilter) {
  BoundSelector on;
  EXPECT_TRUE(on.selector.choose(on.selector.findCode("007")));
  EXPECT_EQ(on.connection.texts(),
            (std::vector<std::string>{std::string(kHead) + "Codice = '007' AND (IDAzienda = 1)"}));
  EXPECT_EQ(on.selector.record(), 42);  // the first row
  EXPECT_EQ(on.selector.code(), "007");
  EXPECT_EQ(on.selector.description(), "ROSSI");
  EXPECT_EQ(on.changes, 1);
}

TEST(Selector, ARecordOfTheTableIsChosen) {
  BoundSelector on;
  EXPECT_TRUE(on.selector.chooseRecord(42));
  EXPECT_TRUE(on.selector.chooseRecord(42));
  EXPECT_EQ(on.selector.description(), "ROSSI");
  EXPECT_EQ(on.changes, 1);
  EXPECT_TRUE(on.selector.chooseRecord(44));
  EXPECT_EQ(on.selector.record(), 44);
  EXPECT_EQ(on.selector.code(), "");
  EXPECT_EQ(on.selector.description(), "");
  EXPECT_EQ(on.changes, 2);
}

TEST(Selector, WithoutSuchARowNothingChanges) {
  BoundSelector on;
  on.selector.choose(on.selector.findCode("007"));
  EXPECT_FALSE(on.selector.choose(on.selector.findCode("999")));
  EXPECT_FALSE(on.selector.chooseRecord(5));
  EXPECT_EQ(on.selector.record(), 42);
  EXPECT_EQ(on.changes, 1);
}

TEST(Selector, ARowIsLookedUpWithoutBeingChosen) {
  BoundSelector on;
  const auto row = on.selector.findCode("007");
  ASSERT_TRUE(row.has_value());
  EXPECT_EQ(row->record, 42);
  EXPECT_FALSE(on.selector.findRecord(5).has_value());
  EXPECT_EQ(on.selector.record(), 0);
  EXPECT_EQ(on.changes, 0);
}

TEST(Selector, ACodesQuotesAreDoubled) {
  BoundSelector on;
  on.selector.choose(on.selector.findCode("D'A''"));
  EXPECT_EQ(on.connection.texts().back(), std::string(kHead) + "Codice = 'D''A''''' AND (IDAzienda = 1)");
}

TEST(Selector, WithoutAFilterOnlyTheConditionStands) {
  BoundSelector on;
  Selector::Binding binding = payees();
  binding.filter.clear();
  on.selector.bind(on.connection, binding);
  on.selector.chooseRecord(-3);
  EXPECT_EQ(on.connection.texts().back(), std::string(kHead) + "IDAnagrafica = -3");
}

TEST(Selector, CodeAndDescriptionAreSetAsTheyStand) {
  BoundSelector on;
  on.selector.choose(on.selector.findCode("007"));
  on.connection.sent.clear();
  on.selector.choose("ZZZ", "nessuno");
  EXPECT_TRUE(on.connection.sent.empty());
  EXPECT_EQ(on.selector.record(), 0);
  EXPECT_EQ(on.selector.code(), "ZZZ");
  EXPECT_EQ(on.selector.description(), "nessuno");
  on.selector.choose("", "");
  EXPECT_EQ(on.selector.code(), "");
  EXPECT_EQ(on.changes, 3);
}

TEST(Selector, EmptyingAndBindingAnewRaiseTheEventWhenSomethingWasChosen) {
  BoundSelector on;
  on.selector.empty();
  EXPECT_EQ(on.changes, 0);
  on.selector.choose(on.selector.findCode("007"));
  on.selector.empty();
  EXPECT_EQ(on.changes, 2);
  on.selector.choose(on.selector.findCode("007"));
  on.selector.bind(on.connection, payees());
  EXPECT_EQ(on.selector.record(), 0);
  EXPECT_EQ(on.changes, 4);
}

TEST(Selector, ListsTheRowsOfItsFilterByDescription) {
  BoundSelector on;
  const std::string head = "SELECT IDAnagrafica, Codice, Anagrafica FROM RepPercipienteCD";
  on.connection.answer(
      head + " WHERE IDAzienda = 1 ORDER BY Anagrafica",
      Table({"IDAnagrafica", "Codice", "Anagrafica"},
            {{whole(43), text("008"), text("BIANCHI")}, {whole(42), text("007"), text("ROSSI")}}));
  Recordset rows;
  on.selector.list(rows);
  EXPECT_EQ(rows.RecordCount(), 2U);
  EXPECT_EQ(rows.Get("Anagrafica").text(), "BIANCHI");
  EXPECT_EQ(on.selector.record(), 0);

  Selector::Binding binding = payees();
  binding.filter.clear();
  on.selector.bind(on.connection, binding);
  on.connection.answer(head + " ORDER BY Anagrafica", Table({"IDAnagrafica", "Codice", "Anagrafica"}, {}));
  Recordset all;
  on.selector.list(all);
  EXPECT_TRUE(all.Eof());
  EXPECT_EQ(on.changes, 0);
}

TEST(Selector, UnboundItSaysSo) {
  Stage stage;
  Selector selector(stage.form, "cdPagamento", nullptr);
  EXPECT_EQ(errorOf([&] { selector.choose(selector.findCode("A")); }), kErrorObjectNotSet);
  EXPECT_EQ(errorOf([&] { selector.chooseRecord(1); }), kErrorObjectNotSet);
  Recordset rows;
  EXPECT_EQ(errorOf([&] { selector.list(rows); }), kErrorObjectNotSet);
}

}  // namespace
}  // namespace cu
