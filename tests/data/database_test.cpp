#include "data/database.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "base/error.h"
#include "data/recordset_support.h"

namespace cu {
namespace {

using test::errorOf;
using test::FakeConnection;
using test::Table;
using test::text;
using test::whole;

TEST(ConnectionRowset, IsOneStatementOnOneTable) {
  FakeConnection connection;
  connection.answerContaining("Anagrafica", Table({"IDAnagrafica", "Nome"}, {{whole(7), text("MARIO")}}));
  ConnectionRowset rowset(connection);
  rowset.addField("IDAnagrafica");
  rowset.addField("Nome");
  rowset.setTable("Anagrafica");
  rowset.setFilter("IDAnagrafica = 7");
  EXPECT_TRUE(connection.sent.empty());
  rowset.open();
  EXPECT_EQ(connection.texts(),
            (std::vector<std::string>{"SELECT IDAnagrafica, Nome FROM Anagrafica WHERE IDAnagrafica = 7"}));
  EXPECT_FALSE(rowset.eof());
  EXPECT_EQ(rowset.value("nome"), text("MARIO"));
  EXPECT_EQ(rowset.value("IDAnagrafica"), whole(7));
}

TEST(ConnectionRowset, KeepsTheFiltersTextAsItWasGiven) {
  FakeConnection connection;
  ConnectionRowset rowset(connection);
  rowset.addField("IDDefaultFilialePerTipoOggetto");
  rowset.setTable("DefaultFilialePerTipoOggetto");
  rowset.setFilter("IDTipoOggetto = 342 AND \r\nIDFiliale = 1");
  EXPECT_EQ(
      rowset.source(),
      "SELECT IDDefaultFilialePerTipoOggetto FROM DefaultFilialePerTipoOggetto WHERE IDTipoOggetto = 342 AND "
      "\r\nIDFiliale = 1");
}

TEST(ConnectionRowset, WithoutAFilterTheWholeTableIsRead) {
  FakeConnection connection;
  ConnectionRowset rowset(connection);
  rowset.addField("Anno");
  rowset.setTable("PeriodoIva");
  EXPECT_EQ(rowset.source(), "SELECT Anno FROM PeriodoIva");
}

TEST(ConnectionRowset, WithoutFieldsEveryColumnIsRead) {
  FakeConnection connection;
  ConnectionRowset rowset(connection);
  rowset.setTable("PeriodoIva");
  EXPECT_EQ(rowset.source(), "SELECT * FROM PeriodoIva");
}

TEST(ConnectionRowset, GivesTheFirstRow) {
  FakeConnection connection;
  connection.answerContaining("T", Table({"A", "B"}, {{whole(1), Value()}, {whole(2), whole(3)}}));
  ConnectionRowset rowset(connection);
  rowset.addField("A");
  rowset.addField("B");
  rowset.setTable("T");
  rowset.open();
  EXPECT_EQ(rowset.value("A"), whole(1));
  EXPECT_TRUE(rowset.value("B").isNull());
}

TEST(ConnectionRowset, WithoutARowThereIsNoValue) {
  FakeConnection connection;
  connection.answerContaining("T", Table({"A"}, {}));
  ConnectionRowset rowset(connection);
  rowset.addField("A");
  rowset.setTable("T");
  EXPECT_TRUE(rowset.eof());  // before it is opened too
  EXPECT_EQ(errorOf([&] { (void)rowset.value("A"); }), kErrorNoCurrentRow);
  rowset.open();
  EXPECT_TRUE(rowset.eof());
  EXPECT_EQ(errorOf([&] { (void)rowset.value("A"); }), kErrorNoCurrentRow);
}

TEST(ConnectionRowset, AFieldThatWasNotAddedIsTold) {
  FakeConnection connection;
  connection.answerContaining("T", Table({"A"}, {{whole(1)}}));
  ConnectionRowset rowset(connection);
  rowset.addField("A");
  rowset.setTable("T");
  rowset.open();
  EXPECT_EQ(errorOf([&] { (void)rowset.value("B"); }), kErrorItemNotFound);
}

TEST(ConnectionRowset, ADatabasesErrorRisesAndLeavesNoRow) {
  FakeConnection connection;
  connection.answerContaining("T", Table({"A"}, {{whole(1)}}));
  ConnectionRowset rowset(connection);
  rowset.addField("A");
  rowset.setTable("T");
  rowset.open();
  connection.refuseContaining("T", DatabaseErrorKind::Locked);
  EXPECT_THROW(rowset.open(), DatabaseError);
  EXPECT_TRUE(rowset.eof());
}

TEST(ReadScope, BeginsAndEndsAlsoAfterAnError) {
  FakeConnection connection;
  try {
    const ReadScope outer(connection);
    const ReadScope inner(connection);
    EXPECT_EQ(connection.readDepth, 2);
    throw Error(5, "guasto");
  } catch (const Error&) {
  }
  EXPECT_EQ(connection.readDepth, 0);
  EXPECT_EQ(connection.reads, 2);
}

TEST(DatabaseError, CarriesKindCodeAndStatement) {
  const DatabaseError error(DatabaseErrorKind::Constraint, 19, "INSERT", "La chiave esiste già.");
  EXPECT_EQ(error.number(), kErrorDatabase);
  EXPECT_EQ(error.kind(), DatabaseErrorKind::Constraint);
  EXPECT_EQ(error.nativeCode(), 19);
  EXPECT_EQ(error.statementKind(), "INSERT");
  EXPECT_EQ(error.description(), "La chiave esiste già.");
}

}  // namespace
}  // namespace cu
