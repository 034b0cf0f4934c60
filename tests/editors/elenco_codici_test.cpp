// The list of codes that an editor offers.

#include "editors/elenco_codici.h"

#include <gtest/gtest.h>

namespace cu {
namespace {

const std::string kInteroElenco =
    "SELECT IDCodicePerNonSoggetti, Codice + ' - ' + Descrizione AS Descrizione FROM CodicePerNonSoggetti";

TEST(CodeList, HasEveryCodeInTheFixedForm) {
  for (const int year : {2014, 2017, 2021, 2030})
    EXPECT_EQ(fnElencoCodici(year, modello::kModello), kInteroElenco);
  EXPECT_EQ(fnElencoCodici(2018, modello::kModelloPubblicato), kInteroElenco);
}

TEST(CodeList, HasTheCodesOfAYearWhoseListIsComplete) {
  EXPECT_EQ(fnElencoCodici(2021, modello::kModelloPubblicato),
            kInteroElenco + " WHERE Codice IN ('21', '22', '23', '24')");
}

TEST(CodeList, LeavesOutWhatBelongsToOtherYearsAlone) {
  EXPECT_EQ(fnElencoCodici(2019, modello::kModelloPubblicato),
            kInteroElenco + " WHERE Codice NOT IN ('1', '2', '3', '12', '13', '21', '22', '23', '24')");
  EXPECT_EQ(
      fnElencoCodici(2024, modello::kModelloPubblicato),
      kInteroElenco +
          " WHERE Codice NOT IN ('1', '2', '3', '5', '6', '7', '8', '9', '10', '11', '12', '13', '24')");
  EXPECT_EQ(fnElencoCodici(2025, modello::kModelloPubblicato),
            kInteroElenco +
                " WHERE Codice NOT IN ('1', '2', '3', '5', '6', '7', '8', '9', '10', '11', '12', '13')");
}

}  // namespace
}  // namespace cu
