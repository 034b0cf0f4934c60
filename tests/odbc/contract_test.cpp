// The contract of every connection, tested on the embedded engine and on a server.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "data/recordset.h"
#include "sqlite/sqlite_connection.h"
#include "support.h"

namespace cu::odbc::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

struct Engine {
  const char* name;
  std::unique_ptr<Connection> (*open)();
};

std::unique_ptr<Connection> embedded() { return SqliteConnection::create(":memory:"); }

// The test server has the suite's types under the same names.
std::unique_ptr<Connection> served() {
  auto connection = opened();
  if (single(*connection, "SELECT COUNT(*) FROM pg_type WHERE typname = 'importo'") == "0") {
    connection->Execute(
        "CREATE DOMAIN Note AS varchar(1000); CREATE DOMAIN Descrizione AS varchar(255); CREATE DOMAIN "
        "Importo AS "
        "decimal(18,4); CREATE DOMAIN SiNo AS smallint; CREATE DOMAIN datetime AS timestamp");
  }
  connection->Execute("DROP TABLE IF EXISTS t");
  return connection;
}

class Contract : public ::testing::TestWithParam<Engine> {
 protected:
  Contract() : connection_(GetParam().open()) {
    connection_->Execute(
        "CREATE TABLE t (id int NOT NULL PRIMARY KEY, importo Importo, testo Descrizione, lungo Note, giorno "
        "datetime, flag SiNo)");
  }
  Lines rows(const std::string& text) { return query(*connection_, text); }
  void run(const std::string& text) { connection_->Execute(text); }
  std::unique_ptr<Connection> connection_;
};

TEST_P(Contract, ValuesComeBackAsTheyWentIn) {
  run("INSERT INTO t VALUES (1, 1234.5678, 'D''Amico è qui', '', '20170305', -1)");
  run("INSERT INTO t VALUES (2, -0.01, '  a  ', '€ 日本', '2016-02-29', 0)");
  run("INSERT INTO t (id) VALUES (3)");
  EXPECT_EQ(rows("SELECT id, importo, testo, lungo, giorno, flag FROM t ORDER BY id"),
            (Lines{{"1", "1234.5678", "D'Amico è qui", "", "05/03/2017", "-1"},
                   {"2", "-0.01", "  a  ", "€ 日本", "29/02/2016", "0"},
                   {"3", "NULL", "NULL", "NULL", "NULL", "NULL"}}));
}

TEST_P(Contract, NoTextWithinALiteralChangesTheStatement) {
  const std::string texts[] = {"''; DROP TABLE t; --",
                               "-- /* ''",
                               "*/ [a] {d ''2016-01-01''} ? %_ \\ \"b\" $1 :c",
                               "\r\n\t\n;\nGO\n\x01\x1B\x7F",
                               "Ж e\u0301 \u02BC\uFF07\u2019 😀 \U0010FFFF",
                               std::string(1000, '\'') + std::string(1000, '\'')};
  for (const std::string& literal : texts) {
    run("DELETE FROM t");
    run("INSERT INTO t (id, lungo) VALUES (1, '" + literal + "')");
    std::string plain;
    for (std::size_t i = 0; i < literal.size(); ++i) {
      plain += literal[i];
      if (literal[i] == '\'') ++i;
    }
    EXPECT_EQ(rows("SELECT id, lungo FROM t WHERE lungo = '" + literal + "'"), (Lines{{"1", plain}}));
  }
}

TEST_P(Contract, AZeroCharacterIsRefusedInWords) {
  run("INSERT INTO t (id, testo) VALUES (1, 'a')");
  const std::string statement = std::string("UPDATE t SET testo = 'b") + '\0' + "' WHERE id = 1";
  const DatabaseError error = errorOf([&] { run(statement); });
  EXPECT_EQ(error.kind(), DatabaseErrorKind::Syntax);
  EXPECT_THAT(error.what(), HasSubstr("carattere nullo"));
  EXPECT_EQ(rows("SELECT testo FROM t"), (Lines{{"a"}}));
}

TEST_P(Contract, TypesFollowTheColumnsAlsoOfAnEmptyResult) {
  RowStore store;
  connection_->Query("t", store);
  const ValueType types[] = {ValueType::Integer, ValueType::Decimal, ValueType::Text,
                             ValueType::Text,    ValueType::Date,    ValueType::Integer};
  ASSERT_EQ(store.columns()->size(), std::size(types));
  for (std::size_t i = 0; i < std::size(types); ++i) EXPECT_EQ((*store.columns())[i].type, types[i]) << i;
  EXPECT_EQ(store.size(), 0u);
  EXPECT_EQ(store.columns()->find("IMPORTO"), 1u);
}

TEST_P(Contract, AmountsAddUpExactly) {
  for (int i = 1; i <= 300; ++i) run("INSERT INTO t (id, importo) VALUES (" + std::to_string(i) + ", 0.1)");
  EXPECT_EQ(rows("SELECT SUM(importo) AS s FROM t"), (Lines{{"30"}}));
  run("UPDATE t SET importo = importo + 0.2 WHERE id = 1");
  EXPECT_EQ(rows("SELECT importo FROM t WHERE importo = 0.3"), (Lines{{"0.3"}}));
}

TEST_P(Contract, ATextAsLongAsItsColumnArrivesWhole) {
  const std::string text(1000, 'x');
  run("INSERT INTO t (id, lungo) VALUES (1, '" + text + "')");
  EXPECT_EQ(rows("SELECT lungo FROM t"), (Lines{{text}}));
}

TEST_P(Contract, ManyRowsComeInTheirOrder) {
  for (int block = 0; block < 4; ++block) {
    std::string text = "INSERT INTO t (id, testo) VALUES ";
    for (int i = 0; i < 500; ++i) {
      const int id = block * 500 + i + 1;
      text += (i > 0 ? ", (" : "(") + std::to_string(id) + ", " +
              (id % 7 == 0 ? "NULL" : "'n" + std::to_string(id) + "'") + ")";
    }
    run(text);
  }
  const Lines all = rows("SELECT id, testo FROM t ORDER BY id");
  ASSERT_EQ(all.size(), 2000u);
  for (int id = 1; id <= 2000; ++id) {
    const auto& line = all[static_cast<std::size_t>(id - 1)];
    ASSERT_EQ(line[0], std::to_string(id));
    ASSERT_EQ(line[1], id % 7 == 0 ? "NULL" : "n" + std::to_string(id));
  }
}

TEST_P(Contract, OfTwoColumnsOfOneNameTheFirstIsReadByName) {
  run("INSERT INTO t (id, flag) VALUES (1, 7)");
  Recordset recordset;
  recordset.Open(*connection_, "SELECT id AS a, flag AS a FROM t");
  EXPECT_EQ(recordset.Get("a").integer(), 1);
}

TEST_P(Contract, ARecordsetStaysAsItWasRead) {
  run("INSERT INTO t (id, testo) VALUES (1, 'prima')");
  Recordset recordset;
  recordset.Open(*connection_, "t");
  run("UPDATE t SET testo = 'dopo'");
  run("DELETE FROM t WHERE id = 2");
  EXPECT_EQ(recordset.Get("testo").text(), "prima");
  EXPECT_EQ(rows("SELECT testo FROM t"), (Lines{{"dopo"}}));
}

TEST_P(Contract, ARowsetLooksOneRowUp) {
  run("INSERT INTO t (id, testo) VALUES (5, 'cinque')");
  ConnectionRowset rowset(*connection_);
  rowset.addField("id");
  rowset.addField("testo");
  rowset.setTable("t");
  rowset.setFilter("id = 5");
  rowset.open();
  ASSERT_FALSE(rowset.eof());
  EXPECT_EQ(rowset.value("TESTO").view().text(), "cinque");
  rowset.setFilter("id = 6");
  rowset.open();
  EXPECT_TRUE(rowset.eof());
}

TEST_P(Contract, ATransactionIsKeptOrTakenBack) {
  run("BEGIN TRANSACTION");
  run("INSERT INTO t (id) VALUES (1)");
  run("ROLLBACK TRANSACTION");
  EXPECT_EQ(rows("SELECT id FROM t"), Lines{});
  run("BEGIN TRANSACTION");
  run("INSERT INTO t (id) VALUES (1)");
  run("COMMIT TRANSACTION");
  EXPECT_EQ(rows("SELECT id FROM t"), (Lines{{"1"}}));
}

TEST_P(Contract, WhatIsRefusedIsOfItsKindAndLeavesTheRest) {
  run("INSERT INTO t (id, testo) VALUES (1, 'segreto'), (2, 'altro segreto')");
  struct {
    const char* text;
    DatabaseErrorKind kind;
    const char* statement;
  } const cases[] = {
      {"INSERT INTO t (id, testo) VALUES (1, 'segreto')", DatabaseErrorKind::Duplicate, "INSERT"},
      {"UPDATE t SET id = 1 WHERE testo = 'altro segreto'", DatabaseErrorKind::Duplicate, "UPDATE"},
      {"SELECT manca FROM t WHERE testo = 'segreto'", DatabaseErrorKind::Syntax, "SELECT"},
      {"DELETE FROM manca WHERE testo = 'segreto'", DatabaseErrorKind::Missing, "DELETE"},
      {"SELECT id FROM t WHERE testo = 'segreto' AND", DatabaseErrorKind::Syntax, "SELECT"},
  };
  for (const auto& each : cases) {
    const DatabaseError error = errorOf([&] { run(each.text); });
    EXPECT_EQ(error.kind(), each.kind) << each.text << ": " << error.what();
    EXPECT_EQ(error.statementKind(), each.statement);
    EXPECT_THAT(error.what(), Not(HasSubstr("segreto")));
    EXPECT_EQ(error.number(), kErrorDatabase);
  }
  EXPECT_EQ(errorOf([&] { rows("manca"); }).kind(), DatabaseErrorKind::Missing);
  EXPECT_EQ(rows("SELECT testo FROM t WHERE id = 1"), (Lines{{"segreto"}}));
}

TEST_P(Contract, ReadsMayBeHeldTogetherAndNested) {
  run("INSERT INTO t (id) VALUES (1)");
  const ReadScope outer(*connection_);
  const ReadScope inner(*connection_);
  EXPECT_EQ(rows("SELECT id FROM t"), (Lines{{"1"}}));
  run("INSERT INTO t (id) VALUES (2)");
  EXPECT_EQ(rows("SELECT id FROM t ORDER BY id"), (Lines{{"1"}, {"2"}}));
}

INSTANTIATE_TEST_SUITE_P(Engines, Contract,
                         ::testing::Values(Engine{"Embedded", embedded}, Engine{"Served", served}),
                         [](const ::testing::TestParamInfo<Engine>& engine) { return engine.param.name; });

}  // namespace
}  // namespace cu::odbc::test
