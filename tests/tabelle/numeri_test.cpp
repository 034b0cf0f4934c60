#include "tabelle/numeri.h"

#include <gtest/gtest.h>

namespace cu::tabelle {
namespace {

TEST(Numeri, OfAWorkbookAreExactDecimals) {
  const std::pair<const char*, const char*> casi[] = {
      {"199.89999999999998", "199.9"},
      {"0.30000000000000004", "0.3"},
      {"1234.5600000000001", "1234.56"},
      {"99999999999.99", "99999999999.99"},
      {"0", "0"},
      {"-0", "0"},
      {"0.0", "0"},
      {"-0.00", "0"},
      {"007", "7"},
      {"-5", "-5"},
      {"+5", "5"},
      {" 5 ", "5"},
      {"5.00", "5"},
      {".5", "0.5"},
      {"1E2", "100"},
      {"1.5e-7", "0.00000015"},
      {"1e15", "1000000000000000"},
      {"123456789012345678", "123456789012345678"},
      {"0.99999999999999999", "1"},
  };
  for (const auto& [scritto, atteso] : casi) EXPECT_EQ(testoDiNumero(scritto), atteso) << scritto;
  for (const char* const scritto :
       {"", "-", "x", "1x", "1,5", "nan", "inf", "-inf", "1e400", "0x10", "1 2"}) {
    EXPECT_EQ(testoDiNumero(scritto), std::nullopt) << scritto;
  }
  EXPECT_EQ(testoDiNumero("1e300")->size(), 301U);
}

TEST(Numeri, PercentagesAreAsTheyAreShown) {
  const std::pair<const char*, const char*> casi[] = {
      {"0.2", "20"}, {"0.115", "11.5"},  {"0.28999999999999998", "29"},
      {"1", "100"},  {"0.0005", "0.05"}, {"-0.2", "-20"}};
  for (const auto& [scritto, atteso] : casi) EXPECT_EQ(testoDiNumero(scritto, 2), atteso) << scritto;
}

TEST(Numeri, DaysAreCountedAsTheWorkbookCountsThem) {
  const std::pair<const char*, const char*> dal1900[] = {
      {"1", "1900-01-01"},
      {"59", "1900-02-28"},
      {"61", "1900-03-01"},
      {"42430", "2016-03-01"},
      {"45291.0", "2023-12-31"},
      {"45291.999994", "2023-12-31T23:59:59"},
      {"45291.9999999", "2024-01-01"},
      {"42430.5", "2016-03-01T12:00:00"},
      {"2958465", "9999-12-31"},
  };
  for (const auto& [scritto, atteso] : dal1900) EXPECT_EQ(testoDiData(scritto, false), atteso) << scritto;
  for (const char* const scritto : {"0", "0.5", "60", "-1", "2958466", "1e300", "x", ""}) {
    EXPECT_EQ(testoDiData(scritto, false), std::nullopt) << scritto;
  }
  EXPECT_EQ(testoDiData("0", true), "1904-01-01");
  EXPECT_EQ(testoDiData("60", true), "1904-03-01");
  EXPECT_EQ(testoDiData("40968", true), "2016-03-01");
  EXPECT_EQ(testoDiData("2957004", true), std::nullopt);
}

TEST(Numeri, TimesOfDayAreToTheSecond) {
  EXPECT_EQ(testoDiOra("0"), "00:00:00");
  EXPECT_EQ(testoDiOra("0.604166666666667"), "14:30:00");
  EXPECT_EQ(testoDiOra("0.99999"), "23:59:59");
  EXPECT_EQ(testoDiOra("1"), std::nullopt);
}

TEST(Formati, OfDatesAreKnownByTheirSymbols) {
  const std::pair<const char*, Formato> casi[] = {
      {"General", Formato::Numero},
      {"0.00", Formato::Numero},
      {"#,##0.00", Formato::Numero},
      {"#,##0.00\\ [$\xe2\x82\xac-410]", Formato::Numero},
      {"[Red]#,##0.00;[Blue]-#,##0", Formato::Numero},
      {"0.00E+00", Formato::Numero},
      {"@", Formato::Numero},
      {"0 \"giorni dym\"", Formato::Numero},
      {"0_d\\d*d", Formato::Numero},
      {"\"aperto d", Formato::Numero},
      {"[aperto d", Formato::Numero},
      {"0%", Formato::Percentuale},
      {"0.00%;[Red]-0.00%", Formato::Percentuale},
      {"0\"%\"", Formato::Numero},
      {"dd/mm/yyyy", Formato::Data},
      {"DD/MM/YY", Formato::Data},
      {"d.m.yy", Formato::Data},
      {"mmm\\-yy", Formato::Data},
      {"mmmm", Formato::Data},
      {"yyyy\\-mm\\-dd\\ hh:mm:ss", Formato::Data},
      {"[$-F800]dddd\\,\\ mmmm\\ dd\\,\\ yyyy", Formato::Data},
      {"[$-410]d\\ mmmm\\ yyyy;@", Formato::Data},
      {"h:mm", Formato::Ora},
      {"mm:ss.0", Formato::Ora},
      {"[h]:mm:ss", Formato::Ora},
      {"h:mm\\ AM/PM", Formato::Ora},
  };
  for (const auto& [codice, atteso] : casi) EXPECT_EQ(formatoDiCodice(codice), atteso) << codice;
}

TEST(Formati, BuiltInOnesHaveNumbers) {
  for (const int numero : {14, 15, 16, 17, 22})
    EXPECT_EQ(formatoPredefinito(numero), Formato::Data) << numero;
  for (const int numero : {18, 19, 20, 21, 45, 46, 47}) {
    EXPECT_EQ(formatoPredefinito(numero), Formato::Ora) << numero;
  }
  for (const int numero : {9, 10}) EXPECT_EQ(formatoPredefinito(numero), Formato::Percentuale) << numero;
  for (const int numero : {0, 1, 2, 4, 11, 13, 23, 37, 44, 48, 49}) {
    EXPECT_EQ(formatoPredefinito(numero), Formato::Numero) << numero;
  }
}

}  // namespace
}  // namespace cu::tabelle
