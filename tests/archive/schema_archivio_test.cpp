#include "archive/archivio.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "archive/schema.h"
#include "data/inserimento.h"
#include "support/fake_connection.h"

namespace cu {
namespace {

using test::FakeConnection;
using test::Table;

constexpr const char* kExistence = "FROM dbo.sysobjects";

Table count(std::int64_t number) { return Table({"N"}, {{Value::ofInteger(number)}}); }

TEST(CreaArchivio, RefusesADatabaseThatHoldsATableOfTheSuiteAndTouchesNothing) {
  FakeConnection connection;
  connection.answerContaining(kExistence, count(1));
  try {
    creaArchivio(connection, ContenutoArchivio::Vuoto);
    FAIL();
  } catch (const ArchivioEsistente& error) {
    EXPECT_STREQ(error.what(),
                 "Il database contiene già le tabelle della suite: non è stato modificato. Indicare un "
                 "database vuoto.");
  }
  EXPECT_TRUE(connection.texts(FakeConnection::Kind::Execute).empty());
}

TEST(CreaArchivio, AsksForEveryTableAndViewByName) {
  FakeConnection connection;
  connection.answerContaining(kExistence, count(1));
  EXPECT_THROW(creaArchivio(connection, ContenutoArchivio::Vuoto), ArchivioEsistente);
  const std::string question = connection.texts()[0];
  for (std::string_view name : nomiSchema()) {
    std::string literal;
    appendTesto(literal, name);
    EXPECT_NE(question.find(literal), std::string::npos) << name;
  }
}

TEST(CreaArchivio, RunsInOneTransaction) {
  FakeConnection connection;
  connection.answerContaining(kExistence, count(0));
  creaArchivio(connection, ContenutoArchivio::Vuoto);
  const auto texts = connection.texts(FakeConnection::Kind::Execute);
  ASSERT_GT(texts.size(), 3u);
  EXPECT_EQ(texts.front(), "BEGIN TRANSACTION");
  EXPECT_EQ(texts.back(), "COMMIT TRANSACTION");
  for (std::size_t i = 1; i + 1 < texts.size(); ++i)
    EXPECT_EQ(texts[i].find("TRANSACTION"), std::string::npos);
}

TEST(CreaArchivio, TakesEverythingBackWhenAStatementFails) {
  FakeConnection connection;
  connection.answerContaining(kExistence, count(0));
  connection.refuseContaining("INSERT INTO Nazione", DatabaseErrorKind::Full, "Spazio esaurito.");
  EXPECT_THROW(creaArchivio(connection, ContenutoArchivio::Dimostrativo), DatabaseError);
  const auto texts = connection.texts(FakeConnection::Kind::Execute);
  EXPECT_EQ(texts.back(), "ROLLBACK TRANSACTION");
}

TEST(CreaArchivio, TellsTheFirstErrorWhenTakingBackFailsToo) {
  FakeConnection connection;
  connection.answerContaining(kExistence, count(0));
  connection.refuseContaining("INSERT INTO Nazione", DatabaseErrorKind::Full, "Spazio esaurito.");
  connection.refuseContaining("ROLLBACK", DatabaseErrorKind::Other, "Nessuna transazione.");
  try {
    creaArchivio(connection, ContenutoArchivio::Vuoto);
    FAIL();
  } catch (const DatabaseError& error) {
    EXPECT_EQ(error.description(), "Spazio esaurito.");
  }
}

TEST(CreaArchivio, RefusesASyntheticCompanyOutOfRangeBeforeAnyStatement) {
  const OpzioniGeneratore wrong[] = {{.percipienti = 0},
                                     {.percipienti = 10000000},
                                     {.percipienti = 1, .aziende = 0},
                                     {.percipienti = 1, .aziende = 10000},
                                     {.percipienti = 1001, .aziende = 9999},
                                     {.percipienti = 1, .primoAnno = 2017, .ultimoAnno = 2016},
                                     {.percipienti = 1, .primoAnno = 1, .ultimoAnno = 2016}};
  for (const OpzioniGeneratore& options : wrong) {
    FakeConnection connection;
    EXPECT_THROW(creaArchivio(connection, ContenutoArchivio::Sintetico, options), std::invalid_argument);
    EXPECT_TRUE(connection.texts().empty());
  }
}

TEST(IstruzioniSchema, AreWholeStatementsWithoutCommentsAndBatchMarks) {
  const auto statements = istruzioniSchema();
  ASSERT_EQ(statements.size(), 40u);
  for (std::string_view statement : statements) {
    EXPECT_EQ(statement.substr(0, 7), "CREATE ");
    EXPECT_EQ(statement.find("--"), std::string_view::npos);
    EXPECT_EQ(statement.find("\nGO"), std::string_view::npos);
    EXPECT_NE(statement.back(), '\n');
  }
}

}  // namespace
}  // namespace cu
