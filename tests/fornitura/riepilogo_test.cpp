#include "fornitura/riepilogo.h"

#include <gmock/gmock.h>

#include "fornitura/carico.h"
#include "fornitura/fornitura_prova.h"

namespace cu::test {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

class Overview : public OperazioniProva {
 protected:
  void SetUp() override { ASSERT_TRUE(fornitura::carica(intorno(), compensi, anno("2016"))); }
  Recordset& righe() { return compensi.rsCompensi(); }
};

TEST_F(Overview, SumsTheSelectedLinesAlone) {
  righe().MoveFirst();
  righe().Set("AmmontareLordo", Value::ofText("1234567.8"));
  righe().Set("RitenuteAcconto", Value::ofText("100.25"));
  righe().Set("RitenuteImposta", Value::ofText("0.75"));
  righe().MoveNext();
  righe().Set("AmmontareLordo", Value::ofText("5"));
  righe().Set("Selezionato", Value::ofFlag(false));
  righe().Update();
  const fornitura::Riepilogo suo = fornitura::riepiloga(compensi);
  EXPECT_EQ(suo.caricate, 2U);
  EXPECT_EQ(suo.righe, 1U);
  EXPECT_EQ(suo.percipienti, 1U);
  EXPECT_EQ(fornitura::importoItaliano(suo.lordo), "1.234.567,80");
  EXPECT_EQ(fornitura::importoItaliano(suo.ritenute), "101,00");
  EXPECT_EQ(righe().AbsolutePosition(), 2U) << "the current row stays";
}

TEST_F(Overview, CountsTwoLinesOfAPayeeAsOnePayee) {
  righe().MoveFirst();
  const std::int64_t primo = righe().Get("IDAnagrafica").integer();
  righe().MoveNext();
  righe().Set("IDAnagrafica", Value::ofInteger(primo));
  righe().Update();
  const fornitura::Riepilogo suo = fornitura::riepiloga(compensi);
  EXPECT_EQ(suo.righe, 2U);
  EXPECT_EQ(suo.percipienti, 1U);
}

TEST_F(Overview, PartsTheCorrectionsThatARunStoresFromTheOthers) {
  database.internal.touchContaining("UPDATE", 1);
  righe().MoveFirst();
  righe().Set("Modificato", Value::ofFlag(true));
  righe().Set("Imponibile", Value::ofText("7"));
  compensi.sbAggiornaRiga();
  righe().MoveNext();
  righe().Set("Modificato", Value::ofFlag(true));
  righe().Set("Imponibile", Value::ofText("8"));
  compensi.sbAggiornaRiga();
  EXPECT_EQ(fornitura::riepiloga(compensi).daMemorizzare, 2U);
  righe().Set("Selezionato", Value::ofFlag(false));
  righe().Update();
  EXPECT_EQ(fornitura::riepiloga(compensi).daMemorizzare, 1U);
  EXPECT_EQ(fornitura::riepiloga(compensi).nonMemorizzate, 1U);
}

TEST_F(Overview, CountsTheLinesWhoseRefundedExpensesLeaveTheAccount) {
  database.internal.touchContaining("UPDATE", 1);
  righe().MoveFirst();
  righe().Set("SpeseRimborsate", Value::ofText("12.5"));
  righe().Update();
  EXPECT_EQ(fornitura::riepiloga(compensi).senzaSpese, 0U) << "it is not corrected";
  righe().Set("Modificato", Value::ofFlag(true));
  righe().Set("Imponibile", Value::ofText("7"));
  righe().Update();
  compensi.sbAggiornaRiga();
  EXPECT_EQ(fornitura::riepiloga(compensi).senzaSpese, 1U);
  righe().Set("Selezionato", Value::ofFlag(false));
  righe().Update();
  EXPECT_EQ(fornitura::riepiloga(compensi).senzaSpese, 0U) << "it is not written back";
}

// What has been stored has left the account already, though the line stays corrected.
TEST_F(Overview, CountsRefundedExpensesOnceThoughAnotherLineIsCorrectedLater) {
  database.internal.touchContaining("UPDATE", 1);
  database.internal.touchContaining("MERGE", 1);
  const auto correggi = [&](const char* imponibile) {
    righe().Set("SpeseRimborsate", Value::ofText("12.5"));
    righe().Set("Modificato", Value::ofFlag(true));
    righe().Set("Imponibile", Value::ofText(imponibile));
    righe().Update();
    compensi.sbAggiornaRiga();
  };
  righe().MoveFirst();
  correggi("7");
  EXPECT_EQ(fornitura::riepiloga(compensi).senzaSpese, 1U);
  EXPECT_EQ(compensi.sbMemorizzaModifiche(), 1U);
  EXPECT_EQ(fornitura::riepiloga(compensi).senzaSpese, 0U);
  righe().MoveNext();
  correggi("8");
  EXPECT_EQ(fornitura::riepiloga(compensi).senzaSpese, 1U);
}

TEST_F(Overview, IsEmptyBeforeTheFirstLoad) {
  Compensi vuoti(utilita, avanzamento);
  EXPECT_EQ(fornitura::riepiloga(vuoti).righe, 0U);
}

TEST_F(Overview, PredictsTheMissingDataWithoutATracedStatement) {
  database.own.answerContaining("AS CodFisc", completeCompany());
  database.own.answerContaining(
      "SELECT DISTINCT Anag.Sesso",
      Table({"Sesso", "DataNascita", "NonResidente", "PersonaFisica", "Anagrafica", "Nome", "AnagPercipiente",
             "CodiceFiscale", "ComuneNascita", "NazioneNascita", "PrefissoInternazionaleRes"},
            {{null(), day(1970, 1, 1), whole(0), whole(1), text("Rossi"), text("Mario"), text("Rossi Mario"),
              text("RSSMRA70A01H501U"), text("Roma"), text("Italia"), null()}}));
  const std::size_t prima = database.main.sent.size() + database.internal.sent.size();
  const fornitura::DatiPrevisti previsti = fornitura::prevedi(intorno(), compensi.tabella());
  EXPECT_EQ(previsti.azienda, "Quadrivio SRL");
  EXPECT_EQ(previsti.sCodFisc, "01234567890");
  ASSERT_THAT(previsti.mancanti, SizeIs(1));
  EXPECT_EQ(previsti.mancanti[0].messaggio, "Sesso non presente");
  EXPECT_EQ(database.main.sent.size() + database.internal.sent.size(), prima);
  EXPECT_THAT(fornitura::prevedi(intorno(), {}).mancanti, IsEmpty()) << "of the company alone";
}

TEST(ItalianNumber, HasPointsBetweenThousands) {
  EXPECT_EQ(fornitura::numeroItaliano(0), "0");
  EXPECT_EQ(fornitura::numeroItaliano(20748), "20.748");
}

TEST(ItalianAmount, HasPointsBetweenThousands) {
  for (const auto& [valore, testo] : {std::pair{"0", "0,00"},
                                      {"999.99", "999,99"},
                                      {"1000", "1.000,00"},
                                      {"-1234567.5", "-1.234.567,50"},
                                      {"-100", "-100,00"}}) {
    EXPECT_EQ(fornitura::importoItaliano(*Decimal::parse(valore)), testo);
  }
}

}  // namespace
}  // namespace cu::test
