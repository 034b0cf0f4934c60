#include "fornitura/selezione.h"

#include <gmock/gmock.h>

#include "fornitura/carico.h"
#include "fornitura/fornitura_prova.h"

namespace cu::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class Lines : public OperazioniProva {
 protected:
  void SetUp() override {
    ASSERT_TRUE(fornitura::carica(intorno(), compensi, anno("2016")));
    database.internal.sent.clear();
  }
  std::vector<bool> scelte() {
    std::vector<bool> flag;
    Recordset& righe = compensi.rsCompensi();
    for (righe.MoveFirst(); !righe.Eof(); righe.MoveNext()) flag.push_back(righe.Get("Selezionato").flag());
    return flag;
  }
};

TEST_F(Lines, AllAreDeselectedAndSelected) {
  EXPECT_TRUE(fornitura::seleziona(compensi, {.azione = AzioneSelezione::Deseleziona, .tutte = true}));
  EXPECT_THAT(scelte(), ElementsAre(false, false));
  EXPECT_THAT(eseguite(), ElementsAre(HasSubstr("SET Selezionato = 0"), HasSubstr("SET Selezionato = 0")));
  EXPECT_TRUE(fornitura::seleziona(compensi, {.azione = AzioneSelezione::Seleziona, .tutte = true}));
  EXPECT_THAT(scelte(), ElementsAre(true, true));
}

TEST_F(Lines, TheCurrentOneIsInvertedOrThoseThatAreNamed) {
  EXPECT_TRUE(fornitura::seleziona(compensi, {.azione = AzioneSelezione::Inverti}));
  EXPECT_THAT(scelte(), ElementsAre(false, true));
  compensi.rsCompensi().MoveFirst();
  EXPECT_TRUE(fornitura::seleziona(compensi, {.azione = AzioneSelezione::Inverti, .posizioni = {1, 2}}));
  EXPECT_THAT(scelte(), ElementsAre(true, false));
}

TEST_F(Lines, ALineThatFailsIsAsItWas) {
  database.internal.refuseContaining("SET Selezionato");
  EXPECT_THROW(static_cast<void>(fornitura::seleziona(compensi, {.azione = AzioneSelezione::Inverti})),
               DatabaseError);
  EXPECT_THAT(scelte(), ElementsAre(true, true));
}

TEST_F(Lines, WithoutASelectedOneTheRunIsRefused) {
  conteggi.selected = 0;
  const auto esito = fornitura::controllaSelezione(compensi, Comunicazione::Ordinaria);
  EXPECT_THAT(codici(esito.refusals), ElementsAre("nessuna-selezione @grdCompensi"));
  EXPECT_EQ(esito.refusals[0].text, "Per poter proseguire è necessario selezionare almeno un elemento.");
}

TEST_F(Lines, OnlyAnOrdinaryCommunicationNeedsNoReferences) {
  conteggi.withoutReferences = 1;
  EXPECT_TRUE(fornitura::controllaSelezione(compensi, Comunicazione::Ordinaria));
  for (const Comunicazione tipo :
       {Comunicazione::Annullamento, Comunicazione::Sostituzione, Comunicazione::Nessuna}) {
    const auto esito = fornitura::controllaSelezione(compensi, tipo);
    EXPECT_THAT(codici(esito.refusals), ElementsAre("riferimenti-mancanti @cmdProtocollo"));
    EXPECT_EQ(esito.refusals[0].text,
              "Per il tipo operazione annullamento o sostituzione il\r\n"
              "protocollo è obbligatorio. Verificare che in tutti gli\r\n"
              "elementi selezionati sia stato correttamente indicato.");
  }
}

TEST_F(Lines, ReferencesGoToEachSelectedOne) {
  EXPECT_TRUE(fornitura::correggiRiferimenti(compensi, {.protocollo = "12", .progressivo = "3"}));
  EXPECT_THAT(eseguite(), ElementsAre(HasSubstr("SET ProtocolloAnnSost = '12', ProgressivoAnnSost = '3'"),
                                      HasSubstr("SET ProtocolloAnnSost = '12', ProgressivoAnnSost = '3'")));
}

TEST_F(Lines, ReferencesAreTextsThatTheirBoxesTake) {
  using fornitura::controllaRiferimenti;
  EXPECT_TRUE(controllaRiferimenti({.protocollo = "12345678901234567", .progressivo = "000001"}));
  EXPECT_TRUE(controllaRiferimenti({.protocollo = "12.&", .progressivo = ""}));
  const auto lettera = controllaRiferimenti({.protocollo = "12A", .progressivo = "1"});
  ASSERT_EQ(lettera.refusals.size(), 1U);
  EXPECT_EQ(lettera.refusals[0].text, "Il protocollo «12A» non è ammesso: al massimo 17 cifre.");
  EXPECT_FALSE(controllaRiferimenti({.protocollo = "123456789012345678", .progressivo = "1"}));
  const auto lungo = controllaRiferimenti({.protocollo = "1", .progressivo = "1234567"});
  EXPECT_EQ(lungo.refusals.at(0).text, "Il progressivo «1234567» non è ammesso: al massimo 6 cifre.");
  EXPECT_EQ(lungo.refusals.at(0).place, "frmProtocollo.txtProgressivo");
}

TEST_F(Lines, AnIntermediarysCodeHasSixteenCharacters) {
  EXPECT_TRUE(fornitura::controllaCodiceIntermediario("RSSMRA70A01L78ÀK"));
  const auto esito = fornitura::controllaCodiceIntermediario("RSSMRA70A01L781KX");
  EXPECT_EQ(
      esito.refusals.at(0).text,
      "Il codice fiscale dell'intermediario «RSSMRA70A01L781KX» non è ammesso: al massimo 16 caratteri.");
}

TEST_F(Lines, ACorrectedOneGoesToTheTableAndAllOfThemToTheAccounts) {
  database.internal.touchContaining("UPDATE ContoIndividuale", 1);
  database.internal.touchContaining("MERGE INTO", 1);
  compensi.rsCompensi().Set("Modificato", Value::ofFlag(true));
  compensi.rsCompensi().Update();
  EXPECT_TRUE(fornitura::correggi(compensi));
  EXPECT_EQ(compensi.nonMemorizzate(), 1U);
  EXPECT_TRUE(fornitura::memorizza(compensi));
  EXPECT_EQ(compensi.nonMemorizzate(), 0U);
  EXPECT_THAT(eseguite(), ElementsAre(HasSubstr("UPDATE tmpprequadrivio12 SET"),
                                      HasSubstr("UPDATE ContoIndividuale"), HasSubstr("MERGE INTO")));
}

}  // namespace
}  // namespace cu::test
