// The input accepted by the boxes: limits, formats, lengths.

#include <gtest/gtest.h>

#include "editors/campi_prova.h"

namespace cu::test {
namespace {

// The only amounts that may be negative; the oldest layout has none of them.
const std::set<int> kNegativi = {23, 24, 25, 69, 70, 71};
const char* const kMassimo = "99999999999999";

class Amount : public testing::TestWithParam<Caso>, public CampiProva {
 protected:
  AmountBox& casella() { return c<AmountBox>(GetParam().campo.controllo); }
  bool negativo() const { return kNegativi.contains(indice(GetParam().campo.controllo)); }
};

TEST_P(Amount, HasItsLimitsAndTheCurrencysFormat) {
  apri(GetParam().anno);
  EXPECT_EQ(CellView::ofDecimal(casella().min()).toText(), negativo() ? "-99999999999999" : "0");
  EXPECT_EQ(CellView::ofDecimal(casella().max()).toText(), kMassimo);
  EXPECT_EQ(casella().CurrencyDecimalPlaces(), 2);
  EXPECT_EQ(casella().CurrencySymbol(), "€");
  EXPECT_EQ(casella().DecimalPoint(), ",");
  EXPECT_EQ(casella().Separator(), ".");
}

TEST_P(Amount, FollowsACurrencyWithoutDecimals) {
  globali.gDecimaliValuta = 0;
  globali.gSimboloValuta = "L.";
  globali.gSeparatoreDecimale = ".";
  globali.gSeparatoreMigliaia = ",";
  apri(GetParam().anno);
  EXPECT_EQ(casella().CurrencyDecimalPlaces(), 0);
  EXPECT_EQ(casella().CurrencySymbol(), "L.");
  EXPECT_EQ(casella().DecimalPoint(), ".");
  EXPECT_EQ(casella().Separator(), ",");
}

TEST_P(Amount, CountsAnyDecimalsFlagButZeroAsTwoPlaces) {
  globali.gDecimaliValuta = -1;
  apri(GetParam().anno);
  EXPECT_EQ(casella().CurrencyDecimalPlaces(), 2);
}

TEST_P(Amount, TakesAMinusOnlyWhereItMayBeNegative) {
  apri(GetParam().anno);
  casella().enter("-5");
  EXPECT_EQ(casella().value(), negativo() ? -5 : 5);
}

TEST_P(Amount, TakesTheLargestOneAndNothingBeyond) {
  apri(GetParam().anno);
  casella().enter(kMassimo);
  EXPECT_EQ(CellView::ofDecimal(casella().number()).toText(), kMassimo);
  casella().paste("100000000000000");
  EXPECT_EQ(CellView::ofDecimal(casella().number()).toText(), kMassimo);
}

INSTANTIATE_TEST_SUITE_P(Rows, Amount,
                         testing::ValuesIn(solo(Tipo::Importo,
                                                insieme(casi(tavolaModulo1()), casi(tavolaModuli())))),
                         NomeCaso());

// The texts of sixteen characters: those typed by the user, and the fiscal codes of the heading.
const std::set<int> kSediciCaratteri = {5, 6, 7, 8, 9, 10, 13, 14, 18, 0, 11, 12, 19};

class TextField : public testing::TestWithParam<Caso>, public CampiProva {};

TEST_P(TextField, HasItsLength) {
  apri(GetParam().anno);
  const Campo& campo = GetParam().campo;
  EXPECT_EQ(c<TextBox>(campo.controllo).maxLength(),
            kSediciCaratteri.contains(indice(campo.controllo)) ? 16U : 0U);
}
INSTANTIATE_TEST_SUITE_P(Rows, TextField,
                         testing::ValuesIn(solo(Tipo::Testo, insieme(casi(tavolaModulo1()),
                                                                     insieme(casi(tavolaModuli()),
                                                                             casi(tavolaIntestazione()))))),
                         NomeCaso());

struct Boxes : testing::Test, CampiProva {};

TEST_F(Boxes, AFiscalCodeIsCutAtSixteenCharactersTypedOrPasted) {
  apri(2016);
  testo(5).enter("RSSMRA70A01H501UX");
  EXPECT_EQ(testo(5).text(), "RSSMRA70A01H501U");
  testo(6).paste("RSSMRA70A01H501UX");
  EXPECT_EQ(testo(6).text(), "RSSMRA70A01H501U");
}

TEST_F(Boxes, AStoredNegativeIsShownAndKeptWhereAPersonCannotTypeIt) {
  apri(2016, {{"Imponibile", amount("-12.5")}});
  EXPECT_EQ(importo(19).text(), "-12,50");
  importo(20).enter("1");
  premi("cmdOk");
  EXPECT_EQ(riga.Get("Imponibile").toText(), "-12.5");
}

TEST_F(Boxes, FourStoredPlacesAreShownAsTwoAndGoBackWhole) {
  apri(2016, {{"Imponibile", amount("99999999999999.9999")}, {"RitenuteImposta", amount("0.0049")}});
  EXPECT_EQ(importo(0).text(), "0,00");
  importo(20).enter("1");
  premi("cmdOk");
  EXPECT_EQ(riga.Get("Imponibile").toText(), "99999999999999.9999");
  EXPECT_EQ(riga.Get("RitenuteImposta").toText(), "0.0049");
}

}  // namespace
}  // namespace cu::test
