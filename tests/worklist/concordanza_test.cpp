// Work tables rejected by the build, because they do not agree with the form.

#include "worklist/concordanza.h"

#include <gtest/gtest.h>

#include <vector>

#include "modello/forma_2031.h"

namespace cu::test {
namespace {

using modello::kModello;

class Agreement : public testing::Test {
 protected:
  ColonnaLavoro& lavoro(std::string_view nome) {
    for (ColonnaLavoro& colonna : lavoro_) {
      if (colonna.nome == nome) return colonna;
    }
    throw std::logic_error("no such column");
  }
  std::vector<ColonnaLavoro> lavoro_{kColonneLavoro.begin(), kColonneLavoro.end()};
};

TEST_F(Agreement, HoldsForWhatTheProgramHas) {
  EXPECT_TRUE(concordaLavoro(kModello, lavoro_));
  EXPECT_TRUE(concordaLordo(lavoro_));
}

TEST_F(Agreement, LacksAColumnOfABox) {
  lavoro("AltriSoggettiImponibile").nome = "Altro";
  EXPECT_FALSE(concordaLavoro(kModello, lavoro_));
}

TEST_F(Agreement, LacksAColumnThatABoxReadsBesideItsOwn) {
  lavoro("CodiceAzPressoENPAPI").nome = "Altro";
  EXPECT_FALSE(concordaLavoro(kModello, lavoro_));
}

TEST_F(Agreement, LacksAColumnOfThePayeeThatIsWrittenBack) {
  lavoro("FusioneComuni").nome = "Altro";
  EXPECT_FALSE(concordaLavoro(kModello, lavoro_));
}

TEST_F(Agreement, LacksTheKindOfABox) {
  lavoro("AltriSoggettiImponibile").tipo = Tipo::Descrizione;
  EXPECT_FALSE(concordaLavoro(kModello, lavoro_));
  lavoro("AltriSoggettiImponibile").tipo = Tipo::Importo;
  lavoro("AltriSoggettiCodiceFiscale").tipo = Tipo::Importo;
  EXPECT_FALSE(concordaLavoro(kModello, lavoro_));
  lavoro("AltriSoggettiCodiceFiscale").tipo = Tipo::Descrizione;
  lavoro("IDCodicePerNonSoggetti").tipo = Tipo::Descrizione;
  EXPECT_FALSE(concordaLavoro(kModello, lavoro_));
}

TEST_F(Agreement, OfTheGrossAmountIsWithItsParts) {
  lavoro("AmmontareLordo").sorgente = "ISNULL(OnorarioProvvigioni,0) + ISNULL(SommeNonSoggette,0)";
  EXPECT_FALSE(concordaLordo(lavoro_));
}

TEST_F(Agreement, AsksForTheColumnOfANewYear) {
  EXPECT_FALSE(concordaLavoro(kModello2031, lavoro_));
  lavoro_.push_back({.nome = kColonnaNuova, .tipo = Tipo::Descrizione});
  EXPECT_FALSE(concordaLavoro(kModello2031, lavoro_));
  lavoro_.back().tipo = Tipo::Importo;
  EXPECT_TRUE(concordaLavoro(kModello2031, lavoro_));
}

}  // namespace
}  // namespace cu::test
