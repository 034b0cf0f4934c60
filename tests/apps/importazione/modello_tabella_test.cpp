#include "apps/importazione/modello_tabella.h"

#include <gtest/gtest.h>

#include <algorithm>

#include <fstream>

#include "apps/importazione/scrittura_tabella.h"
#include "intake/lettura_righe.h"
#include "support/temp_folder.h"

namespace cu {
namespace {

using intake::Elenco;

class Modello : public testing::TestWithParam<Elenco> {};

TEST_P(Modello, HasEveryColumnAndReadsWithoutAMessage) {
  const test::TempFolder cartella;
  for (const char* nome : {"m.csv", "m.xlsx"}) {
    scriviModello(cartella / nome, GetParam());
    const intake::Lettura lettura =
        intake::leggiFile(cartella.read(nome), nome, GetParam(), {}, *Date::fromYmd(2018, 3, 5));
    EXPECT_TRUE(lettura.messaggi.empty()) << dettoMessaggio(lettura.messaggi.front());
    ASSERT_EQ(lettura.righe.size(), 1U);
    const intake::RigaLetta& riga = lettura.righe.front();
    EXPECT_TRUE(riga.messaggi.empty()) << dettoMessaggio({}, riga.messaggi.front());
    for (const intake::Colonna& colonna : intake::colonne(GetParam())) {
      if (colonna.rara) {
        EXPECT_EQ(riga.campo(colonna.indice), nullptr);
        EXPECT_EQ(std::count(lettura.intestazioni.begin(), lettura.intestazioni.end(), colonna.nome), 0);
        continue;
      }
      EXPECT_EQ(lettura.intestazioni[colonna.indice], colonna.nome);
      EXPECT_EQ(riga.campo(colonna.indice) != nullptr,
                !colonna.esempio.empty() || colonna.nome == "NonResidente")
          << colonna.nome;
    }
  }
}

TEST_P(Modello, SaysWhatEachColumnAccepts) {
  const auto fogli = modelloTabella(GetParam());
  ASSERT_EQ(fogli.size(), 2U);
  EXPECT_EQ(fogli[1].foglio, "Valori ammessi");
  const auto colonne = intake::colonne(GetParam());
  ASSERT_GT(fogli[1].righe.size(), colonne.size());
  for (std::size_t i = 0; i < colonne.size(); ++i) {
    if (colonne[i].rara) continue;
    EXPECT_EQ(fogli[1].righe[i][0].view().text(), colonne[i].nome);
    EXPECT_FALSE(fogli[1].righe[i][1].isNull());
  }
}

INSTANTIATE_TEST_SUITE_P(Modelli, Modello,
                         testing::Values(Elenco::Aziende, Elenco::Percipienti, Elenco::Compensi),
                         [](const auto& caso) { return std::string(intake::nome(caso.param)); });

TEST(FileDiTabella, IsKnownByItsEnding) {
  EXPECT_TRUE(fileDiTabella("a.csv"));
  EXPECT_TRUE(fileDiTabella("a.XLSX"));
  EXPECT_FALSE(fileDiTabella("a.xls"));
  EXPECT_FALSE(fileDiTabella(".csv"));
  EXPECT_FALSE(fileDiTabella("csv"));
}

}  // namespace
}  // namespace cu
