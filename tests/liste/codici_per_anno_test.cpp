// The lists of codes that change from year to year.

#include "liste/codici_per_anno.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

namespace cu {
namespace {

TEST(CodesByYear, OfSumsNotSubjectAreRenumberedIn2021) {
  const CodiciPerAnno& codici = codiciNonSoggettiPerAnno();
  EXPECT_EQ(codici.elencoDi(2019), "5, 6, 7, 8, 9, 10, 11");
  EXPECT_EQ(codici.elencoDi(2020), "5, 6, 7, 8, 9, 10, 11, 12, 13");
  EXPECT_EQ(codici.elencoDi(2021), "21, 22, 23, 24");
  EXPECT_EQ(codici.elencoDi(2022), "21, 22, 23, 24");
  EXPECT_EQ(codici.elencoDi(2023), "21, 22, 23, 24");
  EXPECT_EQ(codici.elencoDi(2024), "21, 22, 23");
  EXPECT_EQ(codici.elencoDi(2025), "21, 22, 23, 24");
}

TEST(CodesByYear, ThatAreGoneAreNotPermitted) {
  const CodiciPerAnno& codici = codiciNonSoggettiPerAnno();
  EXPECT_EQ(codici.di("7", 2020), Validita::Nota);
  for (const int anno : {2021, 2022, 2023, 2024, 2025}) {
    EXPECT_EQ(codici.di("7", anno), Validita::Tolta) << anno;
    EXPECT_FALSE(codici.ammesso("8", anno)) << anno;
    EXPECT_FALSE(codici.ammesso("12", anno)) << anno;
  }
  EXPECT_FALSE(codici.ammesso("3", 2019));
  EXPECT_EQ(codici.di("24", 2024), Validita::Tolta);
  EXPECT_EQ(codici.di("24", 2025), Validita::Nota);
}

TEST(CodesByYear, OfWhichNothingIsKnownArePermittedWhereTheListIsNotComplete) {
  const CodiciPerAnno& codici = codiciNonSoggettiPerAnno();
  EXPECT_EQ(codici.di("25", 2024), Validita::Ignota);
  EXPECT_TRUE(codici.ammesso("25", 2024));
  EXPECT_TRUE(codici.completo(2021));
  EXPECT_FALSE(codici.ammesso("25", 2021));
  EXPECT_FALSE(codici.ammesso("13", 2021));
  EXPECT_FALSE(codici.completo(2024));
}

TEST(CodesByYear, OfReasonsAreThoseOfTheTwoListsThatAreKnown) {
  const CodiciPerAnno& causali = causaliPerAnno();
  for (const int anno : {2017, 2021}) EXPECT_TRUE(causali.completo(anno)) << anno;
  EXPECT_FALSE(causali.completo(2019));
  EXPECT_FALSE(causali.ammesso("J", 2017));
  EXPECT_EQ(causali.di("J", 2019), Validita::Dubbia);
  EXPECT_EQ(causali.di("V2", 2021), Validita::Nota);
  EXPECT_EQ(causali.di("N1", 2023), Validita::Nota);
  EXPECT_EQ(causali.di("N1", 2024), Validita::Tolta);
  EXPECT_EQ(causali.di("N3", 2024), Validita::Nota);
  EXPECT_EQ(causali.di("N3", 2025), Validita::Tolta);
  EXPECT_EQ(causali.di("Z", 2019), Validita::Tolta);
  EXPECT_EQ(causali.di("QQ", 2019), Validita::Ignota);
  EXPECT_FALSE(causali.ammesso("QQ", 2021));
  EXPECT_TRUE(causali.ammesso("QQ", 2022));
  EXPECT_EQ(causali.elencoDi(2021),
            "A, B, C, D, E, F, G, H, I, J, K, L, L1, M, M1, M2, N, O, O1, P, Q, R, S, T, U, V, V1, V2, W, X, "
            "Y, ZO");
}

TEST(CodesByYear, OfCategoriesAreKnownInPart) {
  const CodiciPerAnno& categorie = categorieEntiPerAnno();
  EXPECT_EQ(categorie.elencoDi(2022), "I, O, P, Q, U, V");
  EXPECT_EQ(categorie.di("U", 2025), Validita::Tolta);
  EXPECT_EQ(categorie.di("R", 2025), Validita::Nota);
  EXPECT_EQ(categorie.di("R", 2024), Validita::Ignota);
}

TEST(CodesByYear, OfEventsAreKnownWhereTheyChange) {
  const CodiciPerAnno& eventi = eventiEccezionaliPerAnno();
  for (const char* tolto : {"2", "3", "99"}) {
    EXPECT_TRUE(eventi.ammesso(tolto, 2023)) << tolto;
    EXPECT_EQ(eventi.di(tolto, 2024), Validita::Tolta) << tolto;
    EXPECT_FALSE(eventi.ammesso(tolto, 2025)) << tolto;
  }
  EXPECT_EQ(eventi.di("15", 2024), Validita::Nota);
  for (const char* altro : {"1", "4", "6", "8"}) EXPECT_TRUE(eventi.ammesso(altro, 2025)) << altro;
}

TEST(CodesByYear, ThatAnArchiveIsGivenHaveIdsOfTheirOwn) {
  for (const CodiciPerAnno* const elenco :
       {&causaliPerAnno(), &codiciNonSoggettiPerAnno(), &categorieEntiPerAnno()}) {
    std::vector<std::int32_t> id;
    for (const CodiciPerAnno::Aggiunta& una : elenco->aggiunte()) id.push_back(una.id);
    EXPECT_FALSE(id.empty());
    std::sort(id.begin(), id.end());
    EXPECT_EQ(std::adjacent_find(id.begin(), id.end()), id.end());
  }
  EXPECT_EQ(causaliPerAnno().aggiunte().front().codice, "F");
}

TEST(CodesByYear, HaveAFileForEachList) { EXPECT_THROW(CodiciPerAnno("altro"), std::out_of_range); }

}  // namespace
}  // namespace cu
