// The page of the additional modules: grid, new, save, delete, counts.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editors/campi_prova.h"

namespace cu::test {
namespace {

using ::testing::ElementsAre;

class ModulesPage : public testing::TestWithParam<int>, public CampiProva {
 protected:
  std::int64_t numero() { return c<NumberBox>("numModulo").value(); }
  bool eliminaAcceso() { return c<Button>("cmdDelete").enabled(); }
  std::string conteggio() { return c<Button>("cmdAltriModuli").caption(); }
  void aggiungi() {
    premi("cmdNew");
    premi("cmdSave");
  }
  std::vector<std::string> numeri() {
    std::vector<std::string> tutti;
    std::vector<CellView> celle(righeModuli().Fields().size());
    for (std::size_t n = 1; n <= righeModuli().RecordCount(); ++n) {
      righeModuli().Peek(n, celle.data());
      tutti.push_back(celle[righeModuli().Ordinal("NumeroModulo")].toText());
    }
    return tutti;
  }
};

TEST_P(ModulesPage, WithoutModulesOpensInTheStateOfANewOneWithNumberTwo) {
  apri(GetParam());
  EXPECT_EQ(numero(), 2);
  EXPECT_FALSE(eliminaAcceso());
  EXPECT_FALSE(salvaAcceso());
  EXPECT_EQ(griglia().rowCount(), 0U);
  importo(18).enter("1");
  premi("cmdSave");  // it is a new module
  EXPECT_THAT(numeri(), ElementsAre("2"));
}

TEST_P(ModulesPage, WithModulesShowsTheFirst) {
  moduli({modulo(7, 4), modulo(8, 3)});
  apri(GetParam());
  EXPECT_EQ(numero(), 4);
  EXPECT_TRUE(eliminaAcceso());
  EXPECT_FALSE(salvaAcceso());
  EXPECT_EQ(griglia().row(), 1U);
  griglia().selectRow(2);
  EXPECT_EQ(numero(), 3);
  EXPECT_TRUE(eliminaAcceso());
}

TEST_P(ModulesPage, ShowsEveryModuleWhateverItsAdvanceFlag) {
  // The query initialises the deletion mark with a copy of the flag.
  moduli({modulo(7, 2, {{"Anticipazione", whole(-1)}}), modulo(8, 3, {{"Anticipazione", whole(1)}})});
  apri(GetParam());
  EXPECT_THAT(numeri(), ElementsAre("2", "3"));
  EXPECT_TRUE(c<Check>("chkAnticipazioneAltri").value());
  EXPECT_EQ(righeModuli().Filter(), "Eliminato = 0");
  premi("cmdOk");
  EXPECT_TRUE(istruzioni().empty());
}

TEST_P(ModulesPage, HasTheColumnsOfTheGrid) {
  apri(GetParam());
  const std::vector<GridColumn> attese = {
      {"NumeroModulo", "N° modulo", 3, 700, 0, true, false},
      {"AnnoModulo", "Anno", 3, 1200, 0, true, false},
      {"Anticipazione", "Anticipazione", 11, 1200, 2, true, false},
      {"SommeNonSoggette", "Somme non soggette a ritenuta", 5, 2000, 1, true, false},
      {"ImponibileAnniPrec", "Imponib. anni prec.", 5, 2000, 1, true, false},
      {"RitenuteAnniPrec", "Ritenute anni prec.", 5, 2000, 1, true, false},
      {"IDModuloXContoIndividuale", "IDModuloXContoIndividuale", 3, 0, 1, false, false}};
  const auto& colonne = griglia().columns();
  ASSERT_EQ(colonne.size(), attese.size());
  for (std::size_t n = 0; n < attese.size(); ++n) {
    EXPECT_EQ(colonne[n].field, attese[n].field);
    EXPECT_EQ(colonne[n].caption, attese[n].caption);
    EXPECT_EQ(colonne[n].type, attese[n].type) << attese[n].field;
    EXPECT_EQ(colonne[n].width, attese[n].width) << attese[n].field;
    EXPECT_EQ(colonne[n].alignment, attese[n].alignment) << attese[n].field;
    EXPECT_EQ(colonne[n].visible, attese[n].visible) << attese[n].field;
    EXPECT_FALSE(colonne[n].editable) << attese[n].field;
  }
}

TEST_P(ModulesPage, ShowsAmountsWithCommaAndPointWhateverTheCurrency) {
  globali.gSeparatoreDecimale = ".";
  globali.gSeparatoreMigliaia = ",";
  moduli({modulo(7, 2, {{"SommeNonSoggette", amount("1234567.5")}})});
  apri(GetParam());
  EXPECT_EQ(griglia().shown(*griglia().column("SommeNonSoggette"), righeModuli().Get("SommeNonSoggette")),
            "1.234.567,50");
}

TEST_P(ModulesPage, NewProposesTheHighestNumberPlusOneAndReusesNoGap) {
  moduli({modulo(7, 2), modulo(8, 5)});
  apri(GetParam());
  premi("cmdNew");
  EXPECT_EQ(numero(), 6);
  griglia().press(2, "NumeroModulo");
  premi("cmdDelete");
  premi("cmdNew");
  EXPECT_EQ(numero(), 3);
}

TEST_P(ModulesPage, NewFollowsNumbersThatStandInAnyOrder) {
  moduli({modulo(7, 9), modulo(8, 3)});
  apri(GetParam());
  premi("cmdNew");
  EXPECT_EQ(numero(), 10);
}

TEST_P(ModulesPage, NewDisablesDeleteAndIsNotYetInTheGrid) {
  moduli({modulo(7, 2)});
  apri(GetParam());
  importo(18).enter("1");
  premi("cmdNew");
  EXPECT_FALSE(eliminaAcceso());
  EXPECT_THAT(numeri(), ElementsAre("2"));
  EXPECT_TRUE(righeModuli().Get("ImponibileAnniPrec").isNull());
}

TEST_P(ModulesPage, AProposedNumberThatDiffersEnablesSaveAtOnceAndTheSameOneDoesNot) {
  moduli({modulo(7, 2)});
  apri(GetParam());
  premi("cmdNew");
  EXPECT_TRUE(salvaAcceso());
  premi("cmdNew");  // 3 again
  EXPECT_FALSE(salvaAcceso());
}

TEST_P(ModulesPage, SaveKeepsTheModuleInTheGridAndDisablesItself) {
  moduli({modulo(7, 2)});
  apri(GetParam());
  premi("cmdNew");
  importo(18).enter("12,5");
  premi("cmdSave");
  EXPECT_FALSE(salvaAcceso());
  EXPECT_TRUE(eliminaAcceso());
  EXPECT_THAT(numeri(), ElementsAre("2", "3"));
  EXPECT_EQ(griglia().row(), 2U);
  EXPECT_EQ(importo(18).text(), "12,50");
  EXPECT_TRUE(griglia().drawing());
  importo(18).enter("13");
  premi("cmdSave");  // the same module again, not another one
  EXPECT_THAT(numeri(), ElementsAre("2", "3"));
  EXPECT_TRUE(istruzioni().empty());
}

TEST_P(ModulesPage, NewModulesHaveTemporaryIdsBelowZero) {
  apri(GetParam());
  for (const char* id : {"-1", "-2", "-3"}) {
    aggiungi();
    EXPECT_EQ(righeModuli().Get("IDModuloXContoIndividuale").toText(), id);
  }
}

TEST_P(ModulesPage, ARowClickedWhileANewModuleIsTypedShowsThatRowAgain) {
  moduli({modulo(7, 2)});
  apri(GetParam());
  premi("cmdNew");
  griglia().press(1, "NumeroModulo");
  EXPECT_EQ(numero(), 2);
  importo(18).enter("1");
  premi("cmdSave");
  EXPECT_THAT(numeri(), ElementsAre("2"));
}

TEST_P(ModulesPage, TheCurrentRowChosenWhileANewModuleIsTypedIsShownAgain) {
  moduli({modulo(7, 2)});
  apri(GetParam());
  for (const auto& scegli : {&Grid::selectRow, &Grid::doubleClick}) {
    premi("cmdNew");
    EXPECT_EQ(numero(), 3);
    (griglia().*scegli)(1);
    EXPECT_EQ(numero(), 2);
    EXPECT_TRUE(c<Button>("cmdDelete").enabled());
  }
}

TEST_P(ModulesPage, TheCurrentRowChosenAgainLeavesWhatIsTypedIntoItsModule) {
  moduli({modulo(7, 2)});
  apri(GetParam());
  importo(18).enter("1");
  griglia().selectRow(1);
  EXPECT_EQ(importo(18).text(), "1");
}

TEST_P(ModulesPage, TheGridsHeaderClickedWhileANewModuleIsTypedLeavesItToBeTyped) {
  moduli({modulo(7, 2)});
  apri(GetParam());
  premi("cmdNew");
  griglia().press(0, "NumeroModulo");
  EXPECT_EQ(numero(), 3);
  premi("cmdSave");
  EXPECT_THAT(numeri(), ElementsAre("2", "3"));
}

TEST_P(ModulesPage, DeleteHidesTheRowAsksNothingAndShowsTheNext) {
  moduli({modulo(7, 2), modulo(8, 3), modulo(9, 4)});
  apri(GetParam());
  griglia().selectRow(2);
  premi("cmdDelete");
  EXPECT_TRUE(frontEnd.boxes.empty());
  EXPECT_THAT(numeri(), ElementsAre("2", "4"));
  EXPECT_EQ(numero(), 4);
  EXPECT_TRUE(griglia().drawing());
  premi("cmdDelete");
  EXPECT_THAT(numeri(), ElementsAre("2"));
  EXPECT_EQ(numero(), 2);
  EXPECT_TRUE(istruzioni().empty());
}

TEST_P(ModulesPage, DeletingTheLastOneLeavesTheFieldsToANewOne) {
  moduli({modulo(7, 2)});
  apri(GetParam());
  premi("cmdDelete");
  EXPECT_FALSE(eliminaAcceso());
  EXPECT_EQ(numero(), 2);
  importo(18).enter("1");
  premi("cmdSave");
  EXPECT_THAT(numeri(), ElementsAre("2"));
  EXPECT_EQ(righeModuli().Get("IDModuloXContoIndividuale").toText(), "-1");
}

TEST_P(ModulesPage, CountsTheModulesInTheCaptionWhereTheLayoutHasIt) {
  moduli({modulo(7, 2), modulo(8, 3)});
  apri(GetParam());
  if (GetParam() == 2014) {
    EXPECT_FALSE(esiste("cmdAltriModuli"));
    return;
  }
  EXPECT_EQ(conteggio(), "&Altri moduli (2)");
  aggiungi();
  EXPECT_EQ(conteggio(), "&Altri moduli (3)");
  premi("cmdDelete");
  EXPECT_EQ(conteggio(), "&Altri moduli (2)");
  premi("cmdDelete");
  premi("cmdDelete");
  EXPECT_EQ(conteggio(), "&Altri moduli (0)");
  moduli({});
  apri(GetParam());
  EXPECT_EQ(conteggio(), "&Altri moduli (0)");
}

INSTANTIATE_TEST_SUITE_P(Layouts, ModulesPage, testing::ValuesIn(kAnni),
                         [](const auto& anno) { return std::to_string(anno.param); });

}  // namespace
}  // namespace cu::test
