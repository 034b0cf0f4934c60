// The gross amount.

#include <gtest/gtest.h>

#include "editors/campi_prova.h"

namespace cu::test {
namespace {

class GrossAmount : public testing::TestWithParam<int>, public CampiProva {
 protected:
  void apriConModuli() {
    moduli({modulo(7, 2, {{"SommeNonSoggette", amount("100")}, {"IDCodicePerNonSoggetti", whole(1)}}),
            modulo(8, 3, {{"SommeNonSoggette", amount("200")}, {"IDCodicePerNonSoggetti", whole(1)}}),
            modulo(9, 4)});
    apri(GetParam(), {{"AmmontareLordo", amount("1")},
                      {"SommeRegimeConvenzionale", amount("1000")},
                      {"SommeNonSoggetteARitenuta", amount("2000.5")},
                      {"Imponibile", amount("4000.25")},
                      {"QuotaProvvigioniNonSoggette", amount("8000.0001")}});
  }
  std::string lordo() { return CellView::ofDecimal(importo(10).number()).toText(); }
};

TEST_P(GrossAmount, IsTheSumOfFourFieldsAndOfTheModulesWhenOneOfTheFourIsLeft) {
  for (const int n : {11, 12, 19, 22}) {
    apriConModuli();
    lascia(importo(n));
    EXPECT_EQ(lordo(), "15300.7501") << n;
  }
}

TEST_P(GrossAmount, IsLeftAloneByEveryOtherField) {
  apriConModuli();
  for (const auto* tavola : {&tavolaModulo1(), &tavolaModuli()}) {
    for (const Campo& campo : *tavola) {
      const int n = indice(campo.controllo);
      if (!campo.nel(GetParam()) || n == 11 || n == 12 || n == 19 || n == 22) continue;
      lascia(*editor->find(campo.controllo));
      EXPECT_EQ(lordo(), "1") << campo.controllo;
    }
  }
}

TEST_P(GrossAmount, MarksTheRowWhenItDiffersEvenIfNothingWasTyped) {
  apriConModuli();
  lascia(importo(19));
  premi("cmdOk");
  EXPECT_TRUE(modificata());
  EXPECT_EQ(riga.Get("AmmontareLordo").toText(), "15300.7501");
}

TEST_P(GrossAmount, DoesNotMarkTheRowWhenItIsTheSame) {
  apri(GetParam(), {{"AmmontareLordo", amount("0.3")},
                    {"Imponibile", amount("0.1")},
                    {"SommeRegimeConvenzionale", amount("0.2")}});
  lascia(importo(19));
  premi("cmdOk");
  EXPECT_FALSE(modificata());
}

TEST_P(GrossAmount, FollowsATypedAmount) {
  apriConModuli();
  importo(19).enter("10");
  EXPECT_EQ(lordo(), "1");
  lascia(importo(19));
  EXPECT_EQ(lordo(), "11310.5001");
}

TEST_P(GrossAmount, CanBeOvertypedUntilTheNextRecalculation) {
  apriConModuli();
  importo(10).enter("5");
  EXPECT_EQ(lordo(), "5");
  lascia(importo(10));
  EXPECT_EQ(lordo(), "5");
  lascia(importo(11));
  EXPECT_EQ(lordo(), "15300.7501");
}

TEST_P(GrossAmount, CountsASavedModule) {
  apriConModuli();
  importo(17).enter("150");
  EXPECT_EQ(lordo(), "1");
  premi("cmdSave");
  EXPECT_EQ(lordo(), "15350.7501");
}

TEST_P(GrossAmount, LeavesOutADeletedModule) {
  apriConModuli();
  premi("cmdDelete");
  EXPECT_EQ(lordo(), "15200.7501");
  premi("cmdDelete");
  EXPECT_EQ(lordo(), "15000.7501");
}

INSTANTIATE_TEST_SUITE_P(Layouts, GrossAmount, testing::ValuesIn(kAnni),
                         [](const auto& caso) { return std::to_string(caso.param); });

}  // namespace
}  // namespace cu::test
