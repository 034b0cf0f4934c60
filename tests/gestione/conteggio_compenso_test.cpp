// A payment while it is typed: base, taxes and net follow until they are overwritten.

#include "gestione/conteggio_compenso.h"

#include <gtest/gtest.h>

namespace cu::test {
namespace {

Decimal importo(const char* testo) { return Decimal::parse(testo).value(); }

ConteggioCompenso conteggio(const char* causale, const char* onorario, bool nonResidente = false) {
  ConteggioCompenso nuovo;
  nuovo.setRegola(schede::regolaDi(causale, nonResidente));
  nuovo.scrivi(Cifra::Onorario, importo(onorario));
  return nuovo;
}

TEST(ConteggioCompenso, AProfessionalsExpensesAreOutsideTheBase) {
  ConteggioCompenso c = conteggio("A", "6000");
  c.scrivi(Cifra::SommeNonSoggette, importo("402"));
  EXPECT_EQ(c.valore(Cifra::Imponibile), importo("6000"));
  EXPECT_EQ(c.valore(Cifra::RitenutaAcconto), importo("1200"));
  EXPECT_EQ(c.valore(Cifra::RitenutaImposta), importo("0"));
  EXPECT_EQ(c.valore(Cifra::Lordo), importo("6402"));
  EXPECT_EQ(c.valore(Cifra::Netto), importo("5202"));
  EXPECT_TRUE(c.avvisi().empty());
}

TEST(ConteggioCompenso, AnAgentIsTaxedOnHalfOrOnAFifth) {
  ConteggioCompenso c = conteggio("S", "2505");
  EXPECT_EQ(c.valore(Cifra::QuotaNonSoggetta), importo("1252.50"));
  EXPECT_EQ(c.valore(Cifra::RitenutaAcconto), importo("288.08"));
  c = conteggio("R", "2864");
  c.scrivi(Cifra::QuotaNonSoggetta, importo("2291.20"));
  EXPECT_EQ(c.valore(Cifra::Imponibile), importo("572.80"));
  EXPECT_EQ(c.valore(Cifra::RitenutaAcconto), importo("131.74"));
  EXPECT_TRUE(c.avvisi().empty());
}

TEST(ConteggioCompenso, AHomeSellerIsTaxedFinally) {
  const ConteggioCompenso c = conteggio("V", "4823.45");
  EXPECT_EQ(c.valore(Cifra::QuotaNonSoggetta), importo("1061.16"));
  EXPECT_EQ(c.valore(Cifra::RitenutaAcconto), importo("0"));
  EXPECT_EQ(c.valore(Cifra::RitenutaImposta), importo("865.33"));
}

TEST(ConteggioCompenso, APayeeAbroadIsTaxedFinallyWhateverTheReason) {
  const ConteggioCompenso c = conteggio("A", "1000", true);
  EXPECT_EQ(c.valore(Cifra::RitenutaAcconto), importo("0"));
  EXPECT_EQ(c.valore(Cifra::RitenutaImposta), importo("300"));
}

TEST(ConteggioCompenso, AnOverwrittenTaxStaysUntilItIsEmptied) {
  ConteggioCompenso c = conteggio("A", "1000");
  c.scrivi(Cifra::RitenutaAcconto, importo("150"));
  c.scrivi(Cifra::Onorario, importo("2000"));
  EXPECT_EQ(c.valore(Cifra::RitenutaAcconto), importo("150"));
  EXPECT_EQ(c.valore(Cifra::Netto), importo("1850"));
  c.setRegola(schede::regolaDi("M", false));
  EXPECT_EQ(c.valore(Cifra::RitenutaAcconto), importo("150"));
  c.libera(Cifra::RitenutaAcconto);
  EXPECT_EQ(c.valore(Cifra::RitenutaAcconto), importo("400"));
}

TEST(ConteggioCompenso, OfBaseAndShareTheOneWrittenLastDecides) {
  ConteggioCompenso c = conteggio("Q", "1000");
  c.scrivi(Cifra::Imponibile, importo("200"));
  EXPECT_EQ(c.valore(Cifra::QuotaNonSoggetta), importo("800"));
  EXPECT_EQ(c.valore(Cifra::RitenutaAcconto), importo("46"));
  c.scrivi(Cifra::Onorario, importo("1100"));
  EXPECT_EQ(c.valore(Cifra::Imponibile), importo("200"));
  EXPECT_EQ(c.valore(Cifra::QuotaNonSoggetta), importo("900"));
  c.scrivi(Cifra::QuotaNonSoggetta, importo("880"));
  EXPECT_EQ(c.valore(Cifra::Imponibile), importo("220"));
  c.scrivi(Cifra::Onorario, importo("1200"));
  EXPECT_EQ(c.valore(Cifra::QuotaNonSoggetta), importo("880"));
}

TEST(ConteggioCompenso, AWrittenNetIsOnlyCompared) {
  ConteggioCompenso c = conteggio("A", "1000");
  c.scrivi(Cifra::Netto, importo("810"));
  EXPECT_EQ(c.valore(Cifra::RitenutaAcconto), importo("200"));
  ASSERT_EQ(c.avvisi().size(), 1U);
  EXPECT_EQ(c.avvisi()[0].testo, "Il netto scritto è 810,00, dalle altre cifre risulta 800,00.");
  c.scrivi(Cifra::Netto, importo("800"));
  EXPECT_TRUE(c.avvisi().empty());
}

TEST(ConteggioCompenso, AStoredPaymentGoesOnFollowingTheUsualFigures) {
  ConteggioCompenso c = conteggio("A", "1000");
  const schede::Importi importi = c.importi();
  ConteggioCompenso altro;
  altro.setRegola(schede::regolaDi("A", false));
  altro.carica(importi);
  altro.scrivi(Cifra::Onorario, importo("500"));
  EXPECT_EQ(altro.valore(Cifra::RitenutaAcconto), importo("100"));
}

TEST(ConteggioCompenso, AStoredTaxThatIsNotTheUsualOneStays) {
  ConteggioCompenso c = conteggio("A", "1000");
  c.scrivi(Cifra::RitenutaAcconto, importo("40"));
  ConteggioCompenso altro;
  altro.setRegola(schede::regolaDi("A", false));
  altro.carica(c.importi());
  altro.scrivi(Cifra::Onorario, importo("2000"));
  EXPECT_EQ(altro.valore(Cifra::RitenutaAcconto), importo("40"));
  EXPECT_TRUE(altro.aMano(Cifra::RitenutaAcconto));
}

TEST(ConteggioCompenso, AReasonWithoutAUsualTaxProposesNothing) {
  const ConteggioCompenso c = conteggio("N", "1000");
  EXPECT_EQ(c.valore(Cifra::Imponibile), importo("1000"));
  EXPECT_EQ(c.valore(Cifra::RitenutaAcconto), importo("0"));
  EXPECT_TRUE(c.avvisi().empty());
}

}  // namespace
}  // namespace cu::test
