#include "data/inserimento.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "support/fake_connection.h"

namespace cu {
namespace {

using test::FakeConnection;

TEST(Inserimento, WritesEachKindOfValueAsALiteral) {
  FakeConnection connection;
  Inserimento insert(connection, "T", {"A", "B", "C", "D", "E", "F"});
  insert.intero(-7).testo("L'Aquila").importo(*Decimal::parse("12.5")).data(*Date::fromYmd(2017, 3, 5));
  insert.flag(true).nullo().riga();
  insert.chiudi();
  ASSERT_EQ(connection.texts().size(), 1u);
  EXPECT_EQ(connection.texts()[0],
            "INSERT INTO T (A, B, C, D, E, F) VALUES (-7, 'L''Aquila', 12.5, '20170305', 1, NULL)");
}

TEST(Inserimento, WritesWhatIsNotThereAsNull) {
  FakeConnection connection;
  Inserimento insert(connection, "T", {"A", "B", "C"});
  insert.id(0).testo("").data(Date()).riga();
  insert.chiudi();
  EXPECT_EQ(connection.texts()[0], "INSERT INTO T (A, B, C) VALUES (NULL, NULL, NULL)");
}

TEST(Inserimento, WritesAmountsWithoutSuperfluousZeros) {
  FakeConnection connection;
  Inserimento insert(connection, "T", {"A", "B", "C", "D"});
  insert.importo({})
      .importo(Decimal::fromInteger(100))
      .importo(*Decimal::parse("-0.0001"))
      .importo(*Decimal::parse("1200.10"));
  insert.riga();
  insert.chiudi();
  EXPECT_EQ(connection.texts()[0], "INSERT INTO T (A, B, C, D) VALUES (0, 100, -0.0001, 1200.1)");
}

TEST(Inserimento, SendsTheRowsInGroupsAndTheRestAtTheEnd) {
  FakeConnection connection;
  Inserimento insert(connection, "T", {"A"});
  for (std::size_t i = 0; i < 2 * Inserimento::kRighePerIstruzione + 1; ++i) insert.intero(1).riga();
  EXPECT_EQ(connection.texts().size(), 2u);
  insert.chiudi();
  insert.chiudi();
  ASSERT_EQ(connection.texts().size(), 3u);
  EXPECT_EQ(connection.texts()[0], connection.texts()[1]);
  EXPECT_EQ(connection.texts()[2], "INSERT INTO T (A) VALUES (1)");
  EXPECT_EQ(insert.righe(), 2 * Inserimento::kRighePerIstruzione + 1);
}

TEST(Inserimento, PutsOnlyRowsWithTheSameNullFieldsIntoOneStatement) {
  FakeConnection connection;
  Inserimento insert(connection, "T", {"A", "B"});
  insert.intero(1).testo("x").riga();
  insert.intero(2).testo("").riga();
  insert.intero(3).testo("y").riga();
  insert.chiudi();
  EXPECT_EQ(connection.texts(), (std::vector<std::string>{"INSERT INTO T (A, B) VALUES (1, 'x'), (3, 'y')",
                                                          "INSERT INTO T (A, B) VALUES (2, NULL)"}));
}

TEST(Inserimento, WithoutRowsSendsNothing) {
  FakeConnection connection;
  Inserimento insert(connection, "T", {"A"});
  insert.chiudi();
  EXPECT_TRUE(connection.texts().empty());
}

TEST(Inserimento, RefusesARowWithTooFewOrTooManyValues) {
  FakeConnection connection;
  Inserimento insert(connection, "T", {"A", "B"});
  insert.intero(1);
  EXPECT_THROW(insert.riga(), std::logic_error);
  insert.intero(2);
  EXPECT_THROW(insert.intero(3), std::logic_error);
}

}  // namespace
}  // namespace cu
