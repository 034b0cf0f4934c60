// The conversion of values on writing to the file and reading from it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "sqlite/conversion.h"
#include "sqlite/letter_case.h"
#include "sqlite/object_name.h"
#include "sqlite/sql_error.h"
#include "support.h"
#include "support/temp_folder.h"

namespace cu::sqlite::test {
namespace {

class Values : public ::testing::Test {
 protected:
  Values() : connection_(SqliteConnection::create(":memory:")) {
    connection_->Execute(
        "CREATE TABLE [dbo].[v] ([id] [int] NOT NULL, [importo] [Importo] NULL, [testo] [Descrizione] "
        "NULL, [giorno] [datetime] NULL, [flag] [SiNo] NULL, CONSTRAINT [PK_v] PRIMARY KEY CLUSTERED "
        "([id] ASC))");
  }
  std::string through(const std::string& column, const std::string& literal) {
    connection_->Execute("DELETE v");
    connection_->Execute("INSERT INTO v (id, " + column + ") VALUES (1, " + literal + ")");
    return single(*connection_, "SELECT " + column + " FROM v");
  }
  DatabaseError failure(const std::string& text) {
    return errorOf([&] { connection_->Execute(text); });
  }
  std::unique_ptr<SqliteConnection> connection_;
};

TEST_F(Values, AmountsComeBackAsTheyWentIn) {
  for (const char* amount :
       {"0", "0.0001", "-0.0001", "1", "-1", "12.5", "1000.1", "0.1", "-1234.5678", "12345678901.2345",
        "-99999999999.9999", "999999999999.99", "99999999999999", "9999999999999.99"}) {
    EXPECT_EQ(through("importo", amount), amount);
  }
}

TEST_F(Values, EveryAmountOfAThousandHundredthsIsExact) {
  for (int i = 1; i <= 20000; i += 7) {
    const std::string amount = Decimal::fromScaled(i).toText();
    ASSERT_EQ(through("importo", amount), amount);
  }
}

TEST_F(Values, AmountsAreTakenAtFourPlaces) {
  EXPECT_EQ(through("importo", "0.30000000000000004"), "0.3");
  EXPECT_EQ(through("importo", "1.00005"), "1.0001");
  EXPECT_EQ(through("importo", "-1.00005"), "-1.0001");
  EXPECT_EQ(through("importo", "1.5E2"), "150");
}

TEST_F(Values, AnAmountOfSixteenDigitsThatTheFileKeepsExactlyIsTaken) {
  for (const char* amount :
       {"19999999999999.98", "10000000000010.49", "-12345678901234.56", "99999999999999.5"})
    EXPECT_EQ(through("importo", amount), amount);
}

TEST_F(Values, AnAmountOfMoreThanFifteenDigitsIsRefusedAndNotBent) {
  const DatabaseError error = failure("INSERT INTO v (id, importo) VALUES (1, 99999999999999.99)");
  EXPECT_EQ(error.kind(), DatabaseErrorKind::Other);
  EXPECT_EQ(error.statementKind(), "INSERT");
  EXPECT_STREQ(error.what(),
               "Il database non accetta un valore dell'istruzione INSERT: un importo ha più cifre di quante "
               "il database "
               "ne conservi esatte.");
  EXPECT_EQ(failure("INSERT INTO v (id, importo) VALUES (1, 922337203685478)").kind(),
            DatabaseErrorKind::Other);
}

TEST_F(Values, SumsOfAmountsAreExact) {
  for (int i = 1; i <= 300; ++i) {
    connection_->Execute("INSERT INTO v (id, importo, flag) VALUES (" + std::to_string(i) +
                         ", 10000000.1, 1)");
  }
  EXPECT_EQ(single(*connection_, "SELECT SUM(importo) FROM v"), "3000000030");
  EXPECT_EQ(single(*connection_, "SELECT COUNT(*) FROM v WHERE importo - 10000000 = 0.1"), "300");
  EXPECT_EQ(single(*connection_, "SELECT 0.1 + importo - 10000000.1 AS d FROM v WHERE id = 1"), "0.1");
  EXPECT_EQ(single(*connection_, "SELECT SUM(importo) FROM v WHERE id > 900"), "NULL");
  connection_->Execute("UPDATE v SET importo = importo + 0.2 WHERE id = 1");
  EXPECT_EQ(single(*connection_, "SELECT importo FROM v WHERE importo = 10000000.3"), "10000000.3");
}

TEST_F(Values, WhatIsCalculatedIsStoredAtFourPlacesForOtherToolsToo) {
  const cu::test::TempFolder folder;
  const auto connection = SqliteConnection::create(folder / "a.db");
  connection->Execute("CREATE TABLE t (a Importo, b Importo)");
  connection->Execute("INSERT INTO t VALUES (0.1, 0.2)");
  connection->Execute("UPDATE t SET a = a + b");
  BareDatabase bare(folder / "a.db");
  EXPECT_THAT(bare.read("SELECT printf('%!.17g', a) FROM t"), ::testing::ElementsAre("0.29999999999999999"));
  EXPECT_THAT(bare.read("SELECT a = 0.3 FROM t"), ::testing::ElementsAre("1"));
}

TEST_F(Values, DatesTakeTheStoredForm) {
  struct Case {
    const char* literal;
    const char* stored;
  };
  const Case cases[] = {{"20170305", "2017-03-05"},
                        {"2017-03-05", "2017-03-05"},
                        {" 20170305 ", "2017-03-05"},
                        {"20170305 00:00:00", "2017-03-05"},
                        {"20170305 10:30", "2017-03-05 10:30:00"},
                        {"2017-03-05T10:30:59", "2017-03-05 10:30:59"},
                        {"2017-03-05 10:30:59.123", "2017-03-05 10:30:59"},
                        {"", "1900-01-01"},
                        {"20160229", "2016-02-29"}};
  for (const Case& each : cases) EXPECT_EQ(storedDate(each.literal), each.stored) << each.literal;
  for (const char* wrong : {"20170229", "20171301", "05/03/2017", "2017", "2017-3-5", "20170305x",
                            "20170305 25:00", "20170305 10:60", "20170305 1030", "ieri", "2017-03-0a"}) {
    EXPECT_THROW(storedDate(wrong), SqlError) << wrong;
  }
}

TEST_F(Values, DatesComeBackAsDaysAndCompareWithLiterals) {
  EXPECT_EQ(through("giorno", "'20170305'"), "05/03/2017");
  EXPECT_EQ(single(*connection_, "SELECT id FROM v WHERE giorno = '20170305'"), "1");
  EXPECT_EQ(single(*connection_, "SELECT id FROM v WHERE giorno >= '2017-03-05' AND giorno < '20170306'"),
            "1");
  EXPECT_EQ(single(*connection_, "SELECT id FROM v WHERE '20170306' > giorno"), "1");
  EXPECT_EQ(single(*connection_, "SELECT YEAR(giorno) + 1 FROM v"), "2018");
  EXPECT_EQ(single(*connection_, "SELECT MAX(giorno) FROM v"), "05/03/2017");
  EXPECT_EQ(single(*connection_, "SELECT YEAR('20151231') FROM v"), "2015");
  EXPECT_THAT(typesOf(*connection_, "SELECT MAX(giorno), MAX(ISNULL(giorno, '20000101')) FROM v"),
              ::testing::Each(ValueType::Date));
  const DatabaseError error = failure("UPDATE v SET giorno = '20170231'");
  EXPECT_EQ(error.kind(), DatabaseErrorKind::Other);
  EXPECT_STREQ(error.what(), "Il database non accetta un valore dell'istruzione UPDATE: data non valida.");
}

TEST_F(Values, ATextThatLooksLikeADateStaysAText) {
  EXPECT_EQ(through("testo", "'20170305'"), "20170305");
  EXPECT_EQ(through("testo", "'2017-03-05'"), "2017-03-05");
  EXPECT_THAT(typesOf(*connection_, "SELECT testo FROM v"), ::testing::ElementsAre(ValueType::Text));
}

TEST_F(Values, TypesFollowTheColumnsAndExpressionsTheirValues) {
  connection_->Execute("INSERT INTO v (id, importo, testo, giorno, flag) VALUES (1, 5, 'x', '20170305', -1)");
  using enum ValueType;
  EXPECT_THAT(typesOf(*connection_, "v"), ::testing::ElementsAre(Integer, Decimal, Text, Date, Integer));
  EXPECT_THAT(typesOf(*connection_,
                      "SELECT importo + 1, flag + 1, testo + 'a', 7, 7.5, 'z', NULL, COUNT(*), SUM(importo), "
                      "CASE WHEN id = 1 THEN importo ELSE 0 END FROM v"),
              ::testing::ElementsAre(Decimal, Integer, Text, Integer, Decimal, Text, Null, Integer, Decimal,
                                     Decimal));
  RowStore empty;
  connection_->Query("SELECT importo, testo, giorno, flag FROM v WHERE id = 0", empty);
  EXPECT_EQ((*empty.columns())[0].type, Decimal);
  EXPECT_EQ((*empty.columns())[2].type, Date);
  EXPECT_EQ(empty.size(), 0u);
}

TEST_F(Values, NumbersGoIntoIntegersCutAndIntoTextsAsWritten) {
  EXPECT_EQ(through("flag", "1.9"), "1");
  EXPECT_EQ(through("flag", "-1.9"), "-1");
  EXPECT_EQ(through("flag", "' 12 '"), "12");
  EXPECT_EQ(through("flag", "''"), "0");
  EXPECT_EQ(through("testo", "12.50"), "12.50");
  EXPECT_EQ(through("testo", "007"), "7");
  EXPECT_EQ(through("importo", "'12.5'"), "12.5");
  EXPECT_EQ(failure("UPDATE v SET flag = 'abc'").kind(), DatabaseErrorKind::Other);
  EXPECT_EQ(failure("UPDATE v SET importo = 'abc'").kind(), DatabaseErrorKind::Other);
}

TEST_F(Values, TextsWithQuotesAndAccents) {
  EXPECT_EQ(through("testo", "'D''Amico''s'"), "D'Amico's");
  EXPECT_EQ(through("testo", "''''"), "'");
  EXPECT_EQ(through("testo", "N'perché €'"), "perché €");
  EXPECT_EQ(through("testo", "''"), "");
  EXPECT_EQ(through("testo", "'  a  '"), "  a  ");
}

TEST_F(Values, AKeyOfOneIntegerIsNeverFilledByTheEngine) {
  EXPECT_EQ(failure("INSERT INTO v (id) SELECT MAX(id) FROM v").kind(), DatabaseErrorKind::Constraint);
  EXPECT_EQ(failure("INSERT INTO v (testo) VALUES ('x')").kind(), DatabaseErrorKind::Syntax);
  EXPECT_EQ(query(*connection_, "v"), Lines{});
}

TEST(LetterCase, KnowsAccentedLetters) {
  EXPECT_EQ(upperCase("perché àèìòù çñ straße ÿ"), "PERCHÉ ÀÈÌÒÙ ÇÑ STRAßE Ÿ");
  EXPECT_EQ(upperCase("ș Ș ế ÷ ×"), "Ș Ș Ế ÷ ×");
  EXPECT_EQ(upperCase("a\xFF\xC3"), "A\xFF\xC3");
}

TEST(ObjectNames, LoseSchemaAndBrackets) {
  EXPECT_EQ(objectOf("[dbo].[tmp 12]"), "tmp 12");
  EXPECT_EQ(objectOf("dbo.tmp"), "tmp");
  EXPECT_EQ(objectOf("tmp"), "tmp");
  EXPECT_EQ(objectOf("[a]]b]"), "a]b");
  EXPECT_EQ(objectOf("[a.b]"), "a.b");
  EXPECT_EQ(objectOf("[a"), "a");
}

}  // namespace
}  // namespace cu::sqlite::test
