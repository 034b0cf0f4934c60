#include "data/filter.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "base/error.h"
#include "data/rowstore.h"
#include "support/table.h"

namespace cu {
namespace {

using test::amount;
using test::day;
using test::null;
using test::text;
using test::whole;

const Columns& columns() {
  static const Columns list({{"Anno", ValueType::Integer},
                             {"Codice", ValueType::Text},
                             {"Imponibile", ValueType::Decimal},
                             {"Data", ValueType::Date},
                             {"Nota di testo", ValueType::Text},
                             {"_x1", ValueType::Integer}});
  return list;
}

bool matches(std::string_view condition, const std::vector<Value>& row) {
  std::vector<CellView> cells;
  for (const Value& value : row) cells.push_back(value.view());
  cells.resize(columns().size());
  return RowFilter::parse(condition, columns()).matches(cells.data());
}

int errorOfFilter(std::string_view condition) {
  try {
    (void)RowFilter::parse(condition, columns());
  } catch (const Error& error) {
    return error.number();
  }
  return 0;
}

TEST(RowFilter, WithoutAConditionEveryRowMatches) {
  EXPECT_TRUE(RowFilter().matches(nullptr));
  EXPECT_EQ(RowFilter().columns(), 0U);
}

TEST(RowFilter, ComparesIntegers) {
  const std::vector<Value> row = {whole(2016)};
  EXPECT_TRUE(matches("Anno = 2016", row));
  EXPECT_FALSE(matches("Anno = 2015", row));
  EXPECT_TRUE(matches("Anno <> 2015", row));
  EXPECT_FALSE(matches("Anno <> 2016", row));
  EXPECT_TRUE(matches("Anno < 2017", row));
  EXPECT_FALSE(matches("Anno < 2016", row));
  EXPECT_TRUE(matches("Anno <= 2016", row));
  EXPECT_FALSE(matches("Anno <= 2015", row));
  EXPECT_TRUE(matches("Anno > 2015", row));
  EXPECT_FALSE(matches("Anno > 2016", row));
  EXPECT_TRUE(matches("Anno >= 2016", row));
  EXPECT_FALSE(matches("Anno >= 2017", row));
  EXPECT_TRUE(matches("Anno = +2016", row));
  EXPECT_TRUE(matches("Anno = 2016.0", row));
}

TEST(RowFilter, ComparesIntegersWithFractionsAndOfAnySize) {
  const std::int64_t max = std::numeric_limits<std::int64_t>::max();
  EXPECT_TRUE(matches("Anno < 1.5", {whole(1)}));
  EXPECT_TRUE(matches("Anno > 1.5", {whole(2)}));
  EXPECT_TRUE(matches("Anno > -1.5", {whole(-1)}));
  EXPECT_TRUE(matches("Anno < -1.5", {whole(-2)}));
  EXPECT_FALSE(matches("Anno = 1.5", {whole(1)}));
  EXPECT_TRUE(matches("Anno > 900000000000000", {whole(max)}));
  EXPECT_TRUE(matches("Anno < -900000000000000", {whole(-max)}));
  EXPECT_TRUE(matches("Anno = -1", {whole(-1)}));
}

TEST(RowFilter, ComparesAmountsExactly) {
  const std::vector<Value> row = {null(), null(), amount("100.1234")};
  EXPECT_TRUE(matches("Imponibile = 100.1234", row));
  EXPECT_FALSE(matches("Imponibile = 100.1235", row));
  EXPECT_TRUE(matches("Imponibile > 100.1233", row));
  EXPECT_TRUE(matches("Imponibile < 100.1235", row));
  EXPECT_TRUE(matches("Imponibile >= -5", row));
}

TEST(RowFilter, ComparesTextsAsTheDatabaseDoes) {
  const std::vector<Value> row = {null(), text("Rossi ")};
  EXPECT_TRUE(matches("Codice = 'ROSSI'", row));
  EXPECT_TRUE(matches("Codice = 'rossi   '", row));
  EXPECT_FALSE(matches("Codice = 'Rossì'", row));
  EXPECT_TRUE(matches("Codice < 'Rossì'", row));
  EXPECT_TRUE(matches("Codice >= 'R'", row));
  EXPECT_TRUE(matches("Codice <> ''", row));
  EXPECT_TRUE(matches("Codice = ''", {null(), text("  ")}));
}

TEST(RowFilter, ATextFieldAgainstANumberComparesTexts) {
  EXPECT_TRUE(matches("Codice = 12", {null(), text("12")}));
  EXPECT_FALSE(matches("Codice = 12", {null(), text("012")}));
}

TEST(RowFilter, ANumberAgainstATextComparesNumbers) {
  EXPECT_TRUE(matches("Anno = '2016'", {whole(2016)}));
  EXPECT_FALSE(matches("Anno = 'abc'", {whole(2016)}));
}

TEST(RowFilter, ANumberInATextMayBeBeyondAnAmountsRange) {
  EXPECT_TRUE(matches("Anno = '900000000000000000'", {whole(900'000'000'000'000'000)}));
  EXPECT_TRUE(matches("Anno < '900000000000000000'", {whole(899'999'999'999'999'999)}));
  EXPECT_TRUE(matches("Anno > '-900000000000000000'", {whole(2016)}));
  EXPECT_TRUE(matches("Imponibile < '900000000000000000'", {null(), null(), amount("900000000000000")}));
  EXPECT_FALSE(matches("Imponibile >= '900000000000000000'", {null(), null(), amount("1.5")}));
}

TEST(RowFilter, ComparesDays) {
  const std::vector<Value> row = {null(), null(), null(), day(2017, 3, 5)};
  EXPECT_TRUE(matches("Data = #05/03/2017#", row));
  EXPECT_TRUE(matches("Data = #2017-03-05#", row));
  EXPECT_TRUE(matches("Data = '05/03/2017'", row));
  EXPECT_TRUE(matches("Data = '20170305'", row));
  EXPECT_TRUE(matches("Data > #04/03/2017#", row));
  EXPECT_TRUE(matches("Data < #2017-03-06#", row));
  EXPECT_TRUE(matches("Data = 42799", row));
  EXPECT_FALSE(matches("Data <> #05/03/2017#", row));
}

TEST(RowFilter, AFieldThatIsNoDateAgainstADayComparesDays) {
  EXPECT_TRUE(matches("Codice = #05/03/2017#", {null(), text("2017-03-05")}));
  EXPECT_TRUE(matches("Anno < #05/03/2017#", {whole(42798)}));
  EXPECT_FALSE(matches("Codice = #05/03/2017#", {null(), text("nessuna")}));
}

TEST(RowFilter, FlagsInNumbersAndInWords) {
  EXPECT_TRUE(matches("Anno = TRUE", {whole(-1)}));
  EXPECT_TRUE(matches("Anno = true", {whole(-1)}));
  EXPECT_FALSE(matches("Anno = TRUE", {whole(1)}));
  EXPECT_TRUE(matches("Anno = False", {whole(0)}));
  EXPECT_FALSE(matches("Anno = 1", {whole(-1)}));  // true set by the program is -1
  EXPECT_TRUE(matches("Anno <> 0", {whole(-1)}));
}

TEST(RowFilter, ANullFieldMeetsOnlyNull) {
  const std::vector<Value> row;
  EXPECT_TRUE(matches("Anno = NULL", row));
  EXPECT_TRUE(matches("Anno = null", row));
  for (const char* condition :
       {"Anno = 0", "Anno <> 0", "Anno < 1", "Anno <= 0", "Anno > -1", "Anno >= 0", "Codice = ''",
        "Codice <> 'a'", "Data = 0", "Anno <> NULL", "Anno < NULL", "Anno >= NULL"}) {
    EXPECT_FALSE(matches(condition, row)) << condition;
  }
}

TEST(RowFilter, AFieldWithAValueIsNotNull) {
  const std::vector<Value> row = {whole(0), text("")};
  EXPECT_TRUE(matches("Anno <> NULL", row));
  EXPECT_TRUE(matches("Codice <> NULL", row));
  EXPECT_FALSE(matches("Anno = NULL", row));
  EXPECT_FALSE(matches("Codice = NULL", row));
  EXPECT_FALSE(matches("Anno > NULL", row));
  EXPECT_FALSE(matches("Anno < NULL", row));
}

TEST(RowFilter, AndBindsCloserThanOr) {
  const std::string condition = "Anno = 1 OR Anno = 2 AND Codice = 'A'";
  EXPECT_TRUE(matches(condition, {whole(1), text("B")}));
  EXPECT_TRUE(matches(condition, {whole(2), text("A")}));
  EXPECT_FALSE(matches(condition, {whole(2), text("B")}));
  const std::string other = "Anno = 2 AND Codice = 'A' OR Anno = 1";
  EXPECT_TRUE(matches(other, {whole(1), text("B")}));
  EXPECT_FALSE(matches(other, {whole(2), text("B")}));
}

TEST(RowFilter, LongChains) {
  const std::string key = "Anno = 2016 AND Codice = 'A' AND Imponibile = 5 AND _x1 = 3";
  EXPECT_TRUE(matches(key, {whole(2016), text("A"), amount("5"), null(), null(), whole(3)}));
  EXPECT_FALSE(matches(key, {whole(2016), text("A"), amount("5"), null(), null(), whole(4)}));
  EXPECT_FALSE(matches(key, {whole(2015), text("A"), amount("5"), null(), null(), whole(3)}));
}

TEST(RowFilter, TakesSpacingAndCaseAsTheyCome) {
  EXPECT_TRUE(matches("  anno=2016\t and\r\nCODICE='a'or Anno=1 ", {whole(2016), text("A")}));
  EXPECT_TRUE(matches("[Anno] = 2016", {whole(2016)}));
  EXPECT_TRUE(matches("[Nota di testo] = 'x'", {null(), null(), null(), null(), text("X")}));
  EXPECT_TRUE(matches("Anno<=2016", {whole(2016)}));
  EXPECT_TRUE(matches("Anno<>2", {whole(2016)}));
}

TEST(RowFilter, QuotesAreDoubledInATextAndWordsInItAreText) {
  EXPECT_TRUE(matches("Codice = 'D''Angelo'", {null(), text("d'angelo")}));
  EXPECT_TRUE(matches("Codice = ''''", {null(), text("'")}));
  EXPECT_TRUE(matches("Codice = 'A AND B'", {null(), text("A and B")}));
  EXPECT_TRUE(matches("Codice = '#1#'", {null(), text("#1#")}));
}

TEST(RowFilter, RefusesWhatIsNoCondition) {
  for (const char* condition : {"",
                                "   ",
                                "Anno",
                                "Anno =",
                                "Anno = =",
                                "Anno == 1",
                                "= 1",
                                "Anno 1",
                                "Anno != 1",
                                "Anno = 1 AND",
                                "Anno = 1 OR",
                                "Anno = 1 Anno = 2",

                                "Anno = 1 XOR Anno = 2",
                                "(Anno = 1)",

                                "Anno = 'x",
                                "Anno = 1,5",
                                "Anno = 1.2.3",
                                "Anno = -",
                                "Anno = --1",
                                "Anno = abc",
                                "Anno = #99/99/2017#",
                                "Anno = #05/03/2017",
                                "Anno = ##",
                                "[Anno = 1",
                                "Anno = 1;",
                                "Anno LIKE 'a'",
                                "Anno IN (1)",
                                "Anno = 1 2",
                                "1 = 1",
                                "Anno => 1",
                                "Anno = 99999999999999999999",
                                "{Anno = 1",
                                "Anno = 1 |",
                                "Anno = \"x\""}) {
    EXPECT_EQ(errorOfFilter(condition), kErrorFilter) << condition;
  }
}

TEST(RowFilter, TheErrorNamesThePlace) {
  try {
    (void)RowFilter::parse("Anno = 1 AND Codice ? 'a'", columns());
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.description(), "Il filtro non è leggibile dalla posizione 21: Anno = 1 AND Codice ? 'a'");
  }
}

TEST(RowFilter, RefusesAFieldThatIsNotThere) {
  EXPECT_EQ(errorOfFilter("Mese = 1"), kErrorItemNotFound);
  EXPECT_EQ(errorOfFilter("Anno = 1 OR Mese = 1"), kErrorItemNotFound);
  EXPECT_EQ(errorOfFilter("[Nota] = 1"), kErrorItemNotFound);
  EXPECT_EQ(errorOfFilter("Città = 'x'"), kErrorItemNotFound);  // a name, not an invalid character
  EXPECT_EQ(errorOfFilter("AND Anno = 1"), kErrorItemNotFound);
  EXPECT_EQ(errorOfFilter("NOT Anno = 1"), kErrorItemNotFound);
  try {
    (void)RowFilter::parse("Mese = 1", columns());
    FAIL();
  } catch (const Error& error) {
    EXPECT_EQ(error.description(), "Il campo \"Mese\" del filtro non esiste.");
  }
}

TEST(RowFilter, TellsHowFarInTheRowItLooks) {
  EXPECT_EQ(RowFilter::parse("Anno = 1", columns()).columns(), 1U);
  EXPECT_EQ(RowFilter::parse("Data = 1 OR Anno = 1", columns()).columns(), 4U);
}

}  // namespace
}  // namespace cu
