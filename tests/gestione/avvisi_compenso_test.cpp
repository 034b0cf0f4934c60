// What is unusual in the amounts of a payment, in words.

#include "gestione/avvisi_compenso.h"

#include <gtest/gtest.h>

namespace cu::test {
namespace {

using schede::Importi;
using schede::Importo;
using schede::regolaDi;

Decimal cent(std::int64_t centesimi) { return Decimal::fromScaled(centesimi * 100); }

Importi importi(std::int64_t onorario, std::int64_t quota, std::int64_t acconto, std::int64_t imposta = 0) {
  Importi nuovi{};
  nuovi[posto(Importo::Onorario)] = cent(onorario);
  nuovi[posto(Importo::QuotaNonSoggetta)] = cent(quota);
  nuovi[posto(Importo::RitenutaAcconto)] = cent(acconto);
  nuovi[posto(Importo::RitenutaImposta)] = cent(imposta);
  return nuovi;
}

TEST(AvvisiCompenso, ATaxThatIsNotTheRateIsToldWithBothFigures) {
  const auto avvisi = avvisiCompenso(importi(1000'00, 0, 150'00), regolaDi("A", false));
  ASSERT_EQ(avvisi.size(), 1U);
  EXPECT_EQ(avvisi[0].testo, "La ritenuta d'acconto non è il 20 % dell'imponibile: 150,00 invece di 200,00.");
  EXPECT_FALSE(avvisi[0].arrotondamento);
}

TEST(AvvisiCompenso, OneCentIsARounding) {
  const auto avvisi = avvisiCompenso(importi(1000'00, 0, 199'99), regolaDi("A", false));
  ASSERT_EQ(avvisi.size(), 1U);
  EXPECT_EQ(avvisi[0].testo, "La ritenuta d'acconto non è il 20 % dell'imponibile: 199,99 invece di 200,00.");
  EXPECT_TRUE(avvisi[0].arrotondamento);
}

TEST(AvvisiCompenso, AnAgentsShareIsHalfOrAFifth) {
  EXPECT_TRUE(avvisiCompenso(importi(2864'00, 2291'20, 131'74), regolaDi("R", false)).empty());
  const auto avvisi = avvisiCompenso(importi(1000'00, 300'00, 161'00), regolaDi("R", false));
  ASSERT_EQ(avvisi.size(), 1U);
  EXPECT_EQ(avvisi[0].testo, "L'imponibile non è il 50 % né il 20 % del compenso: 700,00 su 1.000,00.");
}

TEST(AvvisiCompenso, ATaxOfTheOtherKindIsUnusual) {
  const auto avvisi = avvisiCompenso(importi(1000'00, 220'00, 179'40), regolaDi("V", false));
  ASSERT_EQ(avvisi.size(), 1U);
  EXPECT_EQ(avvisi[0].testo,
            "La ritenuta d'acconto non è abituale per questa causale: di solito la ritenuta è a titolo "
            "d'imposta.");
}

TEST(AvvisiCompenso, ReasonsWithoutAUsualTaxAreNotChecked) {
  for (const char* causale : {"C", "D", "G", "H", "I", "N", "P", "X", "Y", "ZO", "", "??"}) {
    EXPECT_FALSE(regolaDi(causale, false)) << causale;
  }
  EXPECT_TRUE(avvisiCompenso(importi(1000'00, 0, 1'00), std::nullopt).empty());
}

TEST(AvvisiCompenso, ThePayeesPartIsWithinTheContribution) {
  Importi nuovi = importi(1000'00, 0, 200'00);
  nuovi[posto(Importo::ContributoPrevidenziale)] = cent(30'00);
  nuovi[posto(Importo::ContributoPercipiente)] = cent(40'00);
  EXPECT_EQ(avvisiCompenso(nuovi, regolaDi("A", false)).size(), 1U);
  nuovi[posto(Importo::ContributoPrevidenziale)] = cent(90'00);
  EXPECT_TRUE(avvisiCompenso(nuovi, regolaDi("A", false)).empty());
}

TEST(AvvisiCompenso, WhatCannotBeIsAnError) {
  EXPECT_EQ(erroreCompenso(importi(100'00, 200'00, 0)),
            "La quota non soggetta 200,00 supera il compenso 100,00.");
  EXPECT_EQ(erroreCompenso(importi(100'00, 0, 60'00, 50'00)),
            "Le ritenute 110,00 superano l'imponibile 100,00.");
  EXPECT_EQ(erroreCompenso(importi(-100'00, 0, -20'00)), "");
}

}  // namespace
}  // namespace cu::test
