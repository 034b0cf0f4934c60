// Results of a real server: types, blocks, nulls, texts of every length.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "odbc/block_reader.h"
#include "support.h"

namespace cu::odbc::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

// Each driver supplies texts in its own way: as wide characters and as bytes.
class Results : public ::testing::TestWithParam<const char*> {
 protected:
  Results() : connection_(opened(GetParam())) {}
  std::string single(std::string_view text) { return odbc::test::single(*connection_, text); }
  Lines query(std::string_view text) { return odbc::test::query(*connection_, text); }
  std::unique_ptr<OdbcConnection> connection_;
};

TEST_P(Results, TypesFollowTheColumns) {
  RowStore rows;
  connection_->Query(
      "SELECT CAST(1 AS smallint) AS s, 2 AS i, CAST(3 AS bigint) AS b, CAST(1.5 AS decimal(18,4)) AS d, "
      "CAST(2.25 AS double precision) AS f, CAST('x' AS varchar(10)) AS v, CAST('20170305' AS date) AS g, "
      "CAST('20170305 10:30' AS timestamp) AS t, CAST(NULL AS varchar(5)) AS n",
      rows);
  std::vector<ValueType> types;
  std::vector<std::string> names;
  for (std::size_t i = 0; i < rows.columns()->size(); ++i) {
    types.push_back((*rows.columns())[i].type);
    names.push_back((*rows.columns())[i].name);
  }
  using enum ValueType;
  EXPECT_THAT(types, ElementsAre(Integer, Integer, Integer, Decimal, Decimal, Text, Date, Date, Text));
  EXPECT_THAT(names, ElementsAre("s", "i", "b", "d", "f", "v", "g", "t", "n"));
  std::vector<CellView> cells(rows.columns()->size());
  ASSERT_EQ(rows.size(), 1u);
  rows.read(0, cells.data());
  EXPECT_EQ(cells[2].integer(), 3);
  EXPECT_EQ(cells[3].decimal(), Decimal::fromScaled(15000));
  EXPECT_EQ(cells[4].decimal(), Decimal::fromScaled(22500));
  EXPECT_EQ(cells[5].text(), "x");
  EXPECT_EQ(cells[6].date(), Date::fromYmd(2017, 3, 5));
  EXPECT_EQ(cells[7].date(), Date::fromYmd(2017, 3, 5));
  EXPECT_TRUE(cells[8].isNull());
}

TEST_P(Results, AmountsAreExact) {
  for (const char* amount : {"0", "0.0001", "-0.0001", "0.1", "-0.25", "12345678901.2345",
                             "99999999999999.9999", "-99999999999999.9999", "1000.1"}) {
    EXPECT_EQ(single("SELECT CAST(" + std::string(amount) + " AS decimal(18,4))"), amount);
  }
  EXPECT_EQ(single("SELECT CAST(0.30005 AS decimal(20,8))"), "0.3001");
  EXPECT_EQ(single("SELECT CAST(-0.30005 AS decimal(20,8))"), "-0.3001");
  EXPECT_EQ(single("SELECT CAST(9223372036854775807 AS bigint)"), "9223372036854775807");
  EXPECT_EQ(single("SELECT CAST(-9223372036854775808 AS bigint)"), "-9223372036854775808");
}

TEST_P(Results, AnAmountBeyondTheProgramsLimitsIsToldAndNotBent) {
  const DatabaseError error = errorOf([&] { query("SELECT CAST(12345678901234567890.5 AS decimal(30,4))"); });
  EXPECT_EQ(error.kind(), DatabaseErrorKind::Other);
  EXPECT_STREQ(error.what(), "Un importo del risultato è fuori dai limiti del programma.");
  EXPECT_EQ(single("SELECT 1"), "1");
}

TEST_P(Results, NullsOfEveryType) {
  EXPECT_EQ(query("SELECT CAST(NULL AS int), CAST(NULL AS decimal(18,4)), CAST(NULL AS varchar(9)), "
                  "CAST(NULL AS text), CAST(NULL AS timestamp), CAST(NULL AS double precision), '' AS vuoto"),
            (Lines{{"NULL", "NULL", "NULL", "NULL", "NULL", "NULL", ""}}));
}

TEST_P(Results, TextsOfAnyLengthArriveWhole) {
  for (const int length :
       {0, 1, 255, 256, 1000, 7999, 8000, 8001, 8190, 8191, 32767, 32768, 65535, 65536, 65537, 300000}) {
    const std::string expected(static_cast<std::size_t>(length), 'x');
    const std::string repeated = "repeat('x', " + std::to_string(length) + ")";
    EXPECT_EQ(single("SELECT CAST(" + repeated + " AS text)"), expected) << length;
    EXPECT_EQ(single("SELECT " + repeated), expected) << length;
  }
}

TEST_P(Results, LongTextsStandAmongOtherColumns) {
  // After a column without a limit every cell is read separately, in order.
  const Lines lines = query(
      "SELECT i, repeat('è', i * 5000) AS lungo, i * 0.5 AS importo, repeat('y', 20000) AS altro, CAST(NULL "
      "AS "
      "text) AS nullo, DATE '2017-03-05' + i AS giorno FROM generate_series(1, 5) AS s(i) ORDER BY i");
  ASSERT_EQ(lines.size(), 5u);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    EXPECT_EQ(lines[i][0], std::to_string(i + 1));
    EXPECT_EQ(lines[i][1].size(), (i + 1) * 10000);
    EXPECT_EQ(lines[i][1].substr(0, 4), "èè");
    EXPECT_EQ(lines[i][3].size(), 20000u);
    EXPECT_EQ(lines[i][4], "NULL");
  }
  EXPECT_EQ(lines[1][2], "1");
  EXPECT_EQ(lines[4][5], "10/03/2017");
}

TEST_P(Results, ATextLongerThanItsColumnIsDeclaredIsAskedForAgain) {
  // The driver declares 255 characters for types without a length limit.
  const std::string text = settingsOf(server(), GetParam()).text + ";TextAsLongVarchar=0";
  OdbcSettings settings = settingsOf(server(), GetParam());
  settings.text = text;
  const auto connection = OdbcConnection::open(settings, ignore);
  const Lines lines = odbc::test::query(
      *connection,
      "SELECT i, CAST(repeat('z', 250 + i) AS text) AS t, i + 1 AS j FROM generate_series(1, 40) AS s(i)");
  ASSERT_EQ(lines.size(), 40u);
  for (std::size_t i = 0; i < lines.size(); ++i) {
    EXPECT_EQ(lines[i][1], std::string(251 + i, 'z'));
    EXPECT_EQ(lines[i][2], std::to_string(i + 2));
  }
}

TEST_P(Results, EveryCharacterGoesThereAndBack) {
  for (const char* text : {"perché «è» à ì ò ù", "€ 1.234,50", "Škoda ß ç ñ", "ΑΒΓ ЖЗИ", "日本",
                           "a\xF0\x9F\x98\x80"
                           "b",
                           "tab\tinvio\r\nfine", "dop'pio", "{fn ucase('x')} ? \"virgolette\" -- /* %s"}) {
    std::string literal;
    for (const char* c = text; *c != 0; ++c) literal += *c == '\'' ? "''" : std::string(1, *c);
    EXPECT_EQ(single("SELECT CAST('" + literal + "' AS varchar(100))"), text);
    EXPECT_EQ(single("SELECT char_length('" + literal + "')"),
              single("SELECT char_length(CAST('" + literal + "' AS text))"));
  }
}

TEST_P(Results, RowsComeInBlocksWithoutALoss) {
  // At the ends of a block, with nulls in between.
  for (const int count : {0, 1, 511, 512, 513, 1024, 5000}) {
    const Lines lines = query(
        "SELECT i, CASE WHEN i % 3 = 0 THEN NULL ELSE CAST('n' || i AS varchar(20)) END FROM "
        "generate_series(1, " +
        std::to_string(count) + ") AS s(i) ORDER BY i");
    ASSERT_EQ(lines.size(), static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < lines.size(); ++i) {
      ASSERT_EQ(lines[i][0], std::to_string(i + 1));
      ASSERT_EQ(lines[i][1], (i + 1) % 3 == 0 ? "NULL" : "n" + std::to_string(i + 1));
    }
  }
}

TEST_P(Results, OneShapeOfResultAfterAnother) {
  EXPECT_EQ(single("SELECT 1"), "1");
  EXPECT_EQ(query("SELECT 'a', 'b'"), (Lines{{"a", "b"}}));
  EXPECT_EQ(single("SELECT 2"), "2");
  EXPECT_EQ(query("SELECT 3 AS x, CAST('t' AS text) AS y"), (Lines{{"3", "t"}}));
  EXPECT_EQ(query("SELECT 3 AS y, CAST('t' AS text) AS x"), (Lines{{"3", "t"}}));
  EXPECT_EQ(query("SELECT i FROM generate_series(1, 3) AS s(i)"), (Lines{{"1"}, {"2"}, {"3"}}));
}

TEST_P(Results, APlainNameReadsTheTable) {
  connection_->Execute("CREATE TEMPORARY TABLE tabella (a int, b varchar(9))");
  connection_->Execute("INSERT INTO tabella VALUES (1, 'x'), (2, NULL)");
  EXPECT_EQ(query("tabella"), (Lines{{"1", "x"}, {"2", "NULL"}}));
}

TEST_P(Results, ColumnsOfOneNameAreAllThere) {
  RowStore rows;
  connection_->Query("SELECT 1 AS a, 2 AS a, 3 AS \"Ä b\"", rows);
  EXPECT_EQ(rows.columns()->size(), 3u);
  EXPECT_EQ(rows.columns()->find("A"), 0u);
  EXPECT_EQ((*rows.columns())[2].name, "Ä b");
}

TEST_P(Results, OfSeveralResultsTheFirstIsTaken) {
  EXPECT_EQ(query("SELECT 1 AS a; SELECT 2 AS b"), (Lines{{"1"}}));
  connection_->Execute("CREATE TEMPORARY TABLE conta (a int)");
  EXPECT_EQ(query("INSERT INTO conta VALUES (1), (2); SELECT COUNT(*) FROM conta; DELETE FROM conta"),
            (Lines{{"2"}}));
  EXPECT_EQ(single("SELECT COUNT(*) FROM conta"), "0");
}

TEST_P(Results, AnErrorBehindTheFirstResultIsNotLost) {
  const DatabaseError error = errorOf([&] { query("SELECT 1; SELECT 1 / (SELECT 0)"); });
  EXPECT_THAT(error.what(), HasSubstr("division by zero"));
}

TEST_P(Results, RowsTouchedAreCounted) {
  connection_->Execute("CREATE TEMPORARY TABLE conta (a int)");
  EXPECT_EQ(connection_->Execute("INSERT INTO conta VALUES (1), (2), (3)"), 3);
  EXPECT_EQ(connection_->Execute("UPDATE conta SET a = a + 1 WHERE a > 1"), 2);
  EXPECT_EQ(connection_->Execute("UPDATE conta SET a = a + 1 WHERE a > 100"), 0);
  EXPECT_EQ(connection_->Execute("UPDATE conta SET a = 5; DELETE FROM conta WHERE a = 7"), 0);
  EXPECT_EQ(connection_->Execute("DELETE FROM conta"), 3);
  EXPECT_EQ(connection_->Execute("SELECT 1"), -1);
}

TEST_P(Results, AWideTableIsReadWhole) {
  std::string columns;
  std::string values;
  for (int i = 0; i < 101; ++i) {
    columns += (i > 0 ? ", c" : "c") + std::to_string(i) + (i % 2 == 0 ? " varchar(255)" : " decimal(18,4)");
    values += i > 0 ? ", " : "";
    values += i % 2 == 0 ? "'v' || i" : "i + 0.0625";
  }
  connection_->Execute("CREATE TEMPORARY TABLE larga (" + columns + ")");
  connection_->Execute("INSERT INTO larga SELECT " + values + " FROM generate_series(1, 300) AS s(i)");
  const Lines lines = query("larga");
  ASSERT_EQ(lines.size(), 300u);
  ASSERT_EQ(lines[299].size(), 101u);
  EXPECT_EQ(lines[299][100], "v300");
  EXPECT_EQ(lines[299][99], "300.0625");
}

INSTANTIATE_TEST_SUITE_P(Drivers, Results, ::testing::Values("PostgreSQL Unicode", "PostgreSQL ANSI"),
                         [](const ::testing::TestParamInfo<const char*>& driver) {
                           return std::string(driver.param).substr(std::string("PostgreSQL ").size());
                         });

TEST(ResultsOfATemporaryTable, AreReadWithTheNameInBrackets) {
  const auto connection = opened();
  const DatabaseError error = errorOf([&] { query(*connection, "manca"); });
  EXPECT_EQ(error.kind(), DatabaseErrorKind::Missing);
  EXPECT_EQ(error.statementKind(), "SELECT");
}

}  // namespace
}  // namespace cu::odbc::test
