#include "intake/importi_compenso.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "banco.h"

namespace cu::intake {
namespace {

using prova::Banco;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

// The amounts of one row of reason and columns, "1000 0 2 0 200 0 0 0", and its messages.
class ImportiTest : public ::testing::Test {
 protected:
  std::string importi(const std::string& colonne, const std::string& valori,
                      const std::string& causale = "A") {
    const Piano piano =
        banco_.piano(Elenco::Compensi, "CodicePercipiente;Causale;DataPagamento;NumeroDocumento;" + colonne +
                                           "\nP1;" + causale + ";2015-01-02;X;" + valori + "\n");
    messaggi = Banco::messaggi(piano);
    derivati.clear();
    for (const std::uint8_t quale : piano.righe[0].derivati) {
      derivati.emplace_back(cu::intake::colonne(Elenco::Compensi)[quale].nome);
    }
    if (piano.compensi.empty()) return "";
    std::string testo;
    for (const Decimal importo : piano.compensi[0].dopo.importi)
      testo += (testo.empty() ? "" : " ") + importo.toText();
    return testo;
  }

  std::vector<std::string> messaggi;
  std::vector<std::string> derivati;

 private:
  Banco banco_{prova::riempito()};
};

TEST_F(ImportiTest, TheTaxFollowsFromItsRate) {
  EXPECT_EQ(importi("Onorario;AliquotaRitenuta", "1234,56;20"), "1234.56 0 0 0 246.91 0 0 0");
  EXPECT_THAT(derivati, ElementsAre("RitenutaAcconto"));
  EXPECT_THAT(messaggi, IsEmpty());
}

TEST_F(ImportiTest, TheShareFollowsFromTheTaxablePercentage) {
  EXPECT_EQ(importi("Onorario;PercentualeImponibile;RitenutaAcconto", "2864;20;131,74", "R"),
            "2864 2291.2 0 0 131.74 0 0 0");
  EXPECT_THAT(derivati, ElementsAre("QuotaNonSoggetta"));
  EXPECT_THAT(messaggi, IsEmpty());
}

TEST_F(ImportiTest, ATaxThatIsNotTheRateOfTheBaseIsAWarning) {
  importi("Onorario;RitenutaAcconto", "1000;199,99");
  EXPECT_THAT(messaggi,
              ElementsAre("2: R09 RitenutaAcconto: la ritenuta non è il 20 % dell'imponibile: 199,99 invece "
                          "di 200,00"));
  importi("Onorario;RitenutaAcconto", "1000;199,98");
  EXPECT_THAT(messaggi, ElementsAre(HasSubstr("R01")));
  importi("Onorario;RitenutaAcconto;AliquotaRitenuta", "1000;300;30", "P");
  EXPECT_THAT(messaggi, IsEmpty());
  importi("Onorario;RitenutaAcconto", "1000;300", "P");
  EXPECT_THAT(messaggi, IsEmpty()) << "a reason without a usual rate";
}

TEST_F(ImportiTest, AFinalTaxIsComparedLikeOneOnAccount) {
  importi("Onorario;RitenutaImposta;AliquotaRitenuta", "1000;290;30", "P");
  EXPECT_THAT(messaggi,
              ElementsAre("2: R01 RitenutaImposta: la ritenuta non è il 30 % dell'imponibile: 290,00 "
                          "invece di 300,00"));
  importi("Onorario;QuotaNonSoggetta;RitenutaImposta", "1000;220;179,41", "V");
  EXPECT_THAT(messaggi, ElementsAre(HasSubstr("R09 RitenutaImposta")));
  importi("Onorario;QuotaNonSoggetta;RitenutaImposta", "1000;220;179,40", "V");
  EXPECT_THAT(messaggi, IsEmpty());
  importi("Onorario;RitenutaImposta", "1000;300", "A");
  EXPECT_THAT(messaggi, IsEmpty()) << "of a payee abroad: the reason has no usual final tax";
}

TEST_F(ImportiTest, ARateAloneGivesTheFinalTaxOfAReasonThatIsTaxedFinally) {
  EXPECT_EQ(importi("Onorario;PercentualeImponibile;AliquotaRitenuta", "1000;78;23", "V"),
            "1000 220 0 0 0 179.4 0 0");
  EXPECT_THAT(derivati, ElementsAre("QuotaNonSoggetta", "RitenutaImposta"));
  EXPECT_THAT(messaggi, IsEmpty());
  EXPECT_EQ(importi("Onorario;AliquotaRitenuta", "1000;23", "V"), "1000 0 0 0 0 230 0 0");
  EXPECT_THAT(messaggi,
              ElementsAre(HasSubstr("R01 AliquotaRitenuta: la ritenuta è calcolata su tutto il "
                                    "compenso, ma con la causale V l'imponibile è di solito il 78 %")));
}

TEST_F(ImportiTest, APartOfThePayeeAboveTheContributionIsAWarning) {
  importi("Onorario;ContributoPrevidenziale;ContributoPercipiente", "1000;30;50");
  EXPECT_THAT(messaggi,
              ElementsAre("2: R14 ContributoPercipiente: la parte del percipiente, 50,00, supera il "
                          "contributo, 30,00"));
}

TEST_F(ImportiTest, TheFeeFollowsFromTheGross) {
  EXPECT_EQ(importi("Lordo;SommeNonSoggette;RitenutaAcconto", "1002;2;200"), "1000 0 2 0 200 0 0 0");
  EXPECT_THAT(derivati, ElementsAre("Onorario"));
  EXPECT_THAT(messaggi, IsEmpty());
  EXPECT_EQ(importi("Lordo;Imponibile;RitenutaAcconto", "2505;1252,50;288,08", "S"),
            "2505 1252.5 0 0 288.08 0 0 0");
  EXPECT_THAT(messaggi, IsEmpty());
}

TEST_F(ImportiTest, ABaseThatDoesNotFollowFromTheGrossIsLeftToThePerson) {
  importi("Lordo;RitenutaAcconto", "1268,80;208");
  EXPECT_THAT(messaggi, ElementsAre(HasSubstr("R02 Lordo: l'imponibile non si ricava dal lordo")));
}

TEST_F(ImportiTest, TheContributionFollowsFromItsParts) {
  EXPECT_EQ(importi("Onorario;ContributoDitta;ContributoPercipiente", "1000;200;100"),
            "1000 0 0 0 0 0 300 100");
  EXPECT_EQ(importi("Onorario;ContributoPrevidenziale;ContributoDitta", "1000;300;200"),
            "1000 0 0 0 0 0 300 100");
  EXPECT_EQ(importi("Onorario;ContributoPrevidenziale", "1000;300"), "1000 0 0 0 0 0 300 0");
  importi("Onorario;ContributoPrevidenziale;ContributoDitta;ContributoPercipiente", "1000;300;200;99");
  EXPECT_THAT(messaggi, ElementsAre(HasSubstr("R14 ContributoPrevidenziale")));
}

TEST_F(ImportiTest, ControlsThatDifferAreWarnings) {
  importi("Onorario;SommeNonSoggette;RitenutaAcconto;Lordo;Imponibile;Netto", "1000;2;200;1002;1000;802");
  EXPECT_THAT(messaggi, IsEmpty());
  importi("Onorario;SommeNonSoggette;RitenutaAcconto;Lordo;Imponibile;Netto", "1000;2;200;1001;999;800");
  EXPECT_THAT(messaggi, ElementsAre("2: R14 Lordo: il lordo della riga è 1.001,00, ma risulta 1.002,00",
                                    HasSubstr("R14 Imponibile"), HasSubstr("R14 Netto")));
}

TEST_F(ImportiTest, ATaxAboveTheBaseAndAShareAboveTheFeeAreErrors) {
  importi("Onorario;RitenutaAcconto;AliquotaRitenuta", "100;101;20");
  EXPECT_THAT(messaggi, Contains("2: R13: le ritenute 101,00 superano l'imponibile 100,00"));
  importi("Onorario;QuotaNonSoggetta", "100;101");
  EXPECT_THAT(messaggi, Contains("2: R13: la quota non soggetta 101,00 supera il compenso 100,00"));
}

}  // namespace
}  // namespace cu::intake
