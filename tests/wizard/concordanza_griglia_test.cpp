// Grids rejected by the build, because they do not agree with the work table and the form.

#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

#include "modello/forma_2031.h"
#include "wizard/griglia_compensi.h"

namespace cu::test {
namespace {

using modello::kModello;

class GridAgreement : public testing::Test {
 protected:
  ColonnaGriglia& griglia(std::string_view nome) {
    for (ColonnaGriglia& colonna : griglia_) {
      if (colonna.campo == nome) return colonna;
    }
    throw std::logic_error("no such column");
  }
  std::vector<ColonnaLavoro> lavoro_{kColonneLavoro.begin(), kColonneLavoro.end()};
  std::vector<ColonnaGriglia> griglia_{kColonneGriglia.begin(), kColonneGriglia.end()};
};

TEST_F(GridAgreement, HoldsForWhatTheProgramHas) {
  EXPECT_TRUE(concordaGriglia(kModello, lavoro_, griglia_));
}

TEST_F(GridAgreement, IsWithTheWorkTable) {
  griglia("IDAnagrafica").campo = "Altro";
  EXPECT_FALSE(concordaGriglia(kModello, lavoro_, griglia_));
}

TEST_F(GridAgreement, IsWithTheKindOfABox) {
  for (const char* nome : {"Anticipazione", "AmmontareLordo", "ComuneResidenzaAnnoPrec"}) {
    const int tipo = griglia(nome).tipo;
    griglia(nome).tipo = kGridLong;
    EXPECT_FALSE(concordaGriglia(kModello, lavoro_, griglia_)) << nome;
    griglia(nome).tipo = tipo;
  }
  EXPECT_TRUE(concordaGriglia(kModello, lavoro_, griglia_));
}

TEST_F(GridAgreement, AsksForTheKindOfANewYearsColumn) {
  lavoro_.push_back({.nome = kColonnaNuova, .tipo = Tipo::Importo});
  griglia_.push_back({kColonnaNuova, "Nuova indennità", kGridText, 2000, 1, Quando::NonAnnullamento});
  EXPECT_FALSE(concordaGriglia(kModello2031, lavoro_, griglia_));
  griglia_.back().tipo = kGridDouble;
  EXPECT_TRUE(concordaGriglia(kModello2031, lavoro_, griglia_));
}

}  // namespace
}  // namespace cu::test
