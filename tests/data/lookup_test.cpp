#include "data/lookup.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/fake_connection.h"
#include "support/table.h"

namespace cu::test {
namespace {

using testing::ElementsAre;

class Lookup : public testing::Test {
 protected:
  Lookup() { connection.answerContaining("FROM Reparti", Table({"IDReparto", "Codice", "Reparto"}, {})); }
  LookupTable table{.table = "Reparti",
                    .codeField = "Codice",
                    .descriptionField = "Reparto",
                    .idField = "IDReparto",
                    .filter = "IDAzienda = 1 OR IDAzienda = 2"};
  FakeConnection connection;
};

TEST_F(Lookup, ACodeIsALiteralAndTheFilterOneCondition) {
  EXPECT_EQ(findCode(connection, table, "D'A"), std::nullopt);
  EXPECT_THAT(connection.texts(), ElementsAre("SELECT IDReparto, Codice, Reparto FROM Reparti WHERE Codice = "
                                              "'D''A' AND (IDAzienda = 1 OR IDAzienda = 2)"));
}

TEST_F(Lookup, WithoutAFilterTheTableIsSearchedWhole) {
  table.filter.clear();
  EXPECT_EQ(findRecord(connection, table, 7), std::nullopt);
  EXPECT_THAT(connection.texts(),
              ElementsAre("SELECT IDReparto, Codice, Reparto FROM Reparti WHERE IDReparto = 7"));
}

TEST_F(Lookup, TheFirstRowIsReturnedAsItIsStored) {
  connection.answerContaining(
      "FROM Reparti", Table({"IDReparto", "Codice", "Reparto"},
                            {{whole(7), text("B"), text("Bravo")}, {whole(8), text("b"), text("Altro")}}));
  const auto row = findCode(connection, table, "b");
  ASSERT_TRUE(row.has_value());
  EXPECT_EQ(row->record, 7);
  EXPECT_EQ(row->code, "B");
  EXPECT_EQ(row->description, "Bravo");
}

}  // namespace
}  // namespace cu::test
