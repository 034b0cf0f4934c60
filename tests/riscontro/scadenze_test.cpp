#include "riscontro/scadenze.h"

#include <gtest/gtest.h>

#include <set>

namespace cu::riscontro {
namespace {

Date ilGiorno(int anno, int mese, int numero) { return Date::fromYmd(anno, mese, numero).value_or(Date()); }

std::vector<std::string> entro(const Termini& termini) {
  std::vector<std::string> testi;
  for (const Termine& uno : termini.tutti) {
    std::string testo = uno.entro.toIso() + " " + uno.condizione + ":";
    for (const std::string& causale : uno.causali) testo += " " + causale;
    testi.push_back(testo + " " + std::to_string(uno.certificazioni));
  }
  return testi;
}

TEST(Scadenze, OfTheFileHaveASourceAndLieInTheYearAfter) {
  const std::vector<Scadenza> tutte = scadenze();
  ASSERT_GT(tutte.size(), 20U);
  std::set<std::int32_t> anni;
  for (const Scadenza& una : tutte) {
    EXPECT_FALSE(una.fonte.empty());
    EXPECT_EQ(una.entro.toIso().substr(0, 4), std::to_string(una.anno + 1)) << una.entro.toIso();
    anni.insert(una.anno);
  }
  // No source was found for the payments of 2019 and 2020.
  EXPECT_EQ(anni, (std::set<std::int32_t>{2014, 2015, 2016, 2017, 2018, 2021, 2022, 2023, 2024, 2025}));
}

TEST(Scadenze, AreDueByReason) {
  const std::vector<Scadenza> tutte = scadenze();
  const Termini del2025 =
      termini(tutte, 2025, {{"A", 3}, {"M", 2}, {"Q", 1}, {"V1", 0}}, ilGiorno(2026, 3, 1));
  EXPECT_EQ(entro(del2025),
            (std::vector<std::string>{
                "2026-03-16 : M 2", "2026-04-30 : A Q 4",
                "2026-11-02 se esenti o non inserite nella dichiarazione precompilata: A M Q 6"}));
  EXPECT_EQ(del2025.inRitardo + del2025.forseInRitardo, 0U);
  EXPECT_EQ(entro(termini(tutte, 2025, {{"W", 1}}, ilGiorno(2026, 3, 1))),
            (std::vector<std::string>{
                "2026-04-30 se il percipiente è una ditta individuale: W 1",
                "2026-11-02 se esenti o non inserite nella dichiarazione precompilata: W 1"}));
}

TEST(Scadenze, TheLastDayIsNotLate) {
  const std::vector<Scadenza> tutte = scadenze();
  EXPECT_EQ(termini(tutte, 2014, {{"A", 5}}, ilGiorno(2015, 3, 9)).inRitardo, 0U);
  EXPECT_EQ(termini(tutte, 2014, {{"A", 5}}, ilGiorno(2015, 3, 10)).inRitardo, 5U);
}

TEST(Scadenze, ALaterDateWithAConditionLeavesItOpenWhetherOneIsLate) {
  const std::vector<Scadenza> tutte = scadenze();
  const Termini marzo = termini(tutte, 2017, {{"A", 2}, {"M", 3}}, ilGiorno(2018, 3, 8));
  EXPECT_EQ(marzo.inRitardo, 0U);
  EXPECT_EQ(marzo.forseInRitardo, 5U);
  const Termini novembre = termini(tutte, 2017, {{"A", 2}, {"M", 3}}, ilGiorno(2018, 11, 1));
  EXPECT_EQ(novembre.inRitardo, 5U);
  EXPECT_EQ(novembre.forseInRitardo, 0U);
}

TEST(Scadenze, NothingIsKnownOfAYearWithoutADate) {
  const Termini nulla = termini(scadenze(), 2019, {{"A", 2}}, ilGiorno(2030, 1, 1));
  EXPECT_TRUE(nulla.tutti.empty());
  EXPECT_EQ(nulla.inRitardo + nulla.forseInRitardo, 0U);
}

TEST(Scadenze, NothingIsDueWhereNothingIsToBeSent) {
  EXPECT_TRUE(termini(scadenze(), 2017, {}, ilGiorno(2030, 1, 1)).tutti.empty());
  EXPECT_TRUE(termini(scadenze(), 2017, {{"A", 0}}, ilGiorno(2030, 1, 1)).tutti.empty());
}

TEST(Scadenze, ThePayeesCopyIsNoSupply) {
  const std::vector<Scadenza> solo = {{2017, true, {}, ilGiorno(2018, 3, 31), "", "fonte"}};
  EXPECT_TRUE(termini(solo, 2017, {{"A", 1}}, ilGiorno(2030, 1, 1)).tutti.empty());
}

}  // namespace
}  // namespace cu::riscontro
