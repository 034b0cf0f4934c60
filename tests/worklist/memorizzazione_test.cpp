// The two statements that bring the corrected rows back to the accounts.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "modello/forma_2031.h"
#include "worklist/compensi_prova.h"
#include "worklist/riscrittura.h"

namespace cu::test {
namespace {

using testing::ElementsAre;

// clang-format off
constexpr std::string_view kDatiAggiuntiviAttesi[] = {
    "QuotaProvvigioniNonSoggette",
    "Anticipazione",
    "IDCodicePerNonSoggetti",
    "RitenuteSospese",
    "AddRegionAcconto",
    "AddRegionImposta",
    "AddRegionSospesa",
    "AddComunAcconto",
    "AddComunImposta",
    "AddComunSospesa",
    "ImponibileAnniPrecedenti",
    "RitenuteAnniPrecedenti",
    "RitenuteRimborsate",
    "AltriContributi",
    "ImportoAltriContributi",
    "ContributiDovuti",
    "ContributiVersati",
    "SommeCorrispostePreFallimento",
    "SommeCorrisposteDalCuratore",
    "AltriSoggettiCodiceFiscale",
    "AltriSoggettiImponibile",
    "AltriSoggettiRitenuteAcconto",
    "AltriSoggettiRitenuteImposta",
    "AltriSoggettiRitenuteSospese",
    "AltriSoggettiAddRegionAcconto",
    "AltriSoggettiAddRegionImposta",
    "AltriSoggettiAddRegionSospesa",
    "AltriSoggettiAddComunAcconto",
    "AltriSoggettiAddComunImposta",
    "AltriSoggettiAddComunSospesa",
    "CodiceFiscaleLavoroAutonomo",
    "CodiceFiscalePignoramentoTerzi",
    "CodiceFiscaleIndennitaEsproprio",
    "PignoramentoTerziCodiceFiscale1",
    "PignoramentoTerziSommeErogate1",
    "PignoramentoTerziRitenuteOperate1",
    "PignoramentoTerziRitenuteNonOperate1",
    "PignoramentoTerziSommeNonTassate1",
    "PignoramentoTerziCodiceFiscale2",
    "PignoramentoTerziSommeErogate2",
    "PignoramentoTerziRitenuteOperate2",
    "PignoramentoTerziRitenuteNonOperate2",
    "PignoramentoTerziSommeNonTassate2",
    "IndennitaEsproprioSommeCorrisposte1",
    "IndennitaEsproprioRitenuteOperate1",
    "AltreIndennitaSommeCorrisposte1",
    "AltreIndennitaRitenuteOperate1",
    "IndennitaEsproprioSommeCorrisposte2",
    "IndennitaEsproprioRitenuteOperate2",
    "AltreIndennitaSommeCorrisposte2",
    "AltreIndennitaRitenuteOperate2",
    "ProtocolloAnnSost",
    "ProgressivoAnnSost",
    "FusioneComuni",
    "FusioneComuniAnnoPrec",
    "IDComuneResidenzaAnnoPrec",
    "IDComuneResidenzaAnnoCorr",
};
// clang-format on

class WriteBack : public testing::Test, public CompensiProva {};

const std::string kConti =
    "UPDATE ContoIndividuale SET SommeNonSoggetteRegConv = CItmp.SommeRegimeConvenzionale,"
    " SommeNonSoggette = CItmp.SommeNonSoggetteARitenuta,"
    " OnorarioProvvigioni = CItmp.Imponibile + CItmp.QuotaProvvigioniNonSoggette,"
    " RitenutaAcconto = CItmp.RitenuteAcconto, RitenutaImposta = CItmp.RitenuteImposta,"
    " QuotaProvvigioniNonSoggette = CItmp.QuotaProvvigioniNonSoggette,"
    " ContributoPrevidenziale = CItmp.ContributiCaricoAzienda + CItmp.ContributiCaricoPercipiente,"
    " RitenutaPrevidenziale13 = CItmp.ContributiCaricoPercipiente"
    " FROM ContoIndividuale CI INNER JOIN tmpprequadrivio12 CItmp"
    " ON CI.IDAnagrafica = CItmp.IDAnagrafica AND CI.IDCausalePagamento = CItmp.IDCausalePagamento"
    " AND CI.Anno = CItmp.Anno AND CI.IDAzienda = CItmp.IDAzienda"
    " WHERE CItmp.Modificato <> 0 AND CItmp.Selezionato <> 0";

std::string datiAggiuntivi() {
  std::string coppie;
  std::string colonne;
  std::string valori;
  for (const std::string_view colonna : kDatiAggiuntiviAttesi) {
    const std::string nome(colonna);
    coppie += (coppie.empty() ? " " : ", ") + nome + " = CItmp." + nome;
    colonne += ", " + nome;
    valori += ", CItmp." + nome;
  }
  return "EXEC('MERGE INTO ContoIndividualeDatiAggiuntivi CI USING tmpprequadrivio12 CItmp"
         " ON (CI.IDAnagrafica = CItmp.IDAnagrafica AND CI.IDCausalePagamento = CItmp.IDCausalePagamento"
         " AND CI.Anno = CItmp.Anno AND CI.IDAzienda = CItmp.IDAzienda)"
         " WHEN MATCHED AND CItmp.Modificato <> 0 AND CItmp.Selezionato <> 0 THEN UPDATE SET" +
         coppie +
         " WHEN NOT MATCHED AND CItmp.Modificato <> 0 AND CItmp.Selezionato <> 0 THEN"
         " INSERT (IDAnagrafica, IDCausalePagamento, Anno, IDAzienda" +
         colonne + ") VALUES (CItmp.IDAnagrafica, CItmp.IDCausalePagamento, CItmp.Anno, CItmp.IDAzienda" +
         valori + ");')";
}

TEST_F(WriteBack, AccountsAreUpdatedFromTheChangedAndSelectedRows) {
  EXPECT_EQ(fnAggiornaConti("tmpprequadrivio12"), kConti);
}

TEST_F(WriteBack, AdditionalDataAreUpdatedOrInserted) {
  EXPECT_EQ(std::size(kDatiAggiuntiviAttesi), 57U);
  EXPECT_EQ(fnAggiornaDatiAggiuntivi("tmpprequadrivio12"), datiAggiuntivi());
}

TEST_F(WriteBack, ReimbursedExpensesGoNowhere) {
  EXPECT_EQ(fnAggiornaConti("t").find("SpeseRimborsate"), std::string::npos);
  EXPECT_EQ(fnAggiornaDatiAggiuntivi("t").find("SpeseRimborsate"), std::string::npos);
}

TEST_F(WriteBack, TheMergeHoldsNoTextLiteralSoItsWrapperNeedsNoDoubling) {
  const std::string testo = fnAggiornaDatiAggiuntivi("tmpprequadrivio12");
  EXPECT_EQ(testo.find('\''), 5U);
  EXPECT_EQ(testo.find('\'', 6), testo.size() - 2);
}

TEST_F(WriteBack, BothStatementsRunInOrderWhetherARowIsChangedOrNot) {
  carica({});
  compensi.sbMemorizzaModifiche();
  EXPECT_THAT(istruzioni(), ElementsAre(kConti, datiAggiuntivi()));
  EXPECT_THAT(frontEnd.seen, testing::Contains("Memorizzazione delle modifiche nei conti 11"));
  EXPECT_EQ(frontEnd.pointer(), kPointerDefault);
}

TEST_F(WriteBack, TheStatementsGoToTheServerAsTheyStand) {
  carica({workRow(1, 1)});
  utilita.adapt = [](const std::string& testo) { return testo + " --"; };
  compensi.sbMemorizzaModifiche();
  EXPECT_THAT(istruzioni(), ElementsAre(kConti, datiAggiuntivi()));
  EXPECT_THAT(utilita.adapted, ElementsAre());
}

TEST_F(WriteBack, ARowStaysMarkedAsChanged) {
  carica({workRow(1, 1, {{"Modificato", whole(-1)}})});
  compensi.sbMemorizzaModifiche();
  EXPECT_EQ(valore("Modificato"), "-1");
  compensi.sbMemorizzaModifiche();
  EXPECT_EQ(istruzioni().size(), 4U);
}

TEST_F(WriteBack, WhenTheFirstStatementIsRefusedTheSecondDoesNotRun) {
  carica({workRow(1, 1)});
  database.internal.refuseContaining("UPDATE ContoIndividuale SET");
  EXPECT_THROW(compensi.sbMemorizzaModifiche(), DatabaseError);
  EXPECT_THAT(istruzioni(), ElementsAre(kConti));
}

TEST_F(WriteBack, AsManyRowsAsAreChangedAndSelectedAreWhatItShouldStore) {
  carica({workRow(1, 1, {{"Modificato", whole(1)}}), workRow(2, 1, {{"Modificato", whole(-1)}}),
          workRow(3, 1, {{"Modificato", whole(1)}, {"Selezionato", whole(0)}}), workRow(4, 1)});
  for (const char* istruzione : {"UPDATE ContoIndividuale SET", "MERGE INTO"}) {
    database.internal.touchContaining("ContoIndividuale", 2);
    compensi.sbMemorizzaModifiche();
    for (const int righe : {0, 1, 3}) {
      istruzioni();
      database.internal.sent.clear();
      database.internal.touchContaining(istruzione, righe);
      EXPECT_THAT(erroreDi([&] { compensi.sbMemorizzaModifiche(); }),
                  testing::AllOf(testing::HasSubstr("ne sono state memorizzate " + std::to_string(righe) +
                                                    " su 2. Un'altra sessione dello stesso utente"),
                                 testing::HasSubstr("oppure un conto è stato eliminato")));
      EXPECT_THAT(istruzioni(), testing::SizeIs(2)) << "what can be stored is";
    }
  }
}

TEST_F(WriteBack, WithoutACorrectionNoRowIsAwaited) {
  carica({workRow(1, 1)});
  database.internal.touchContaining("ContoIndividuale", 0);
  compensi.sbMemorizzaModifiche();
  EXPECT_THAT(istruzioni(), testing::SizeIs(2));
}

TEST_F(WriteBack, AfterTheSecondIsRefusedBothRunAgain) {
  carica({workRow(1, 1)});
  database.internal.refuseContaining("MERGE");
  EXPECT_THROW(compensi.sbMemorizzaModifiche(), DatabaseError);
  database.internal.answerContaining("MERGE", Table());
  compensi.sbMemorizzaModifiche();
  EXPECT_THAT(istruzioni(), ElementsAre(kConti, datiAggiuntivi(), kConti, datiAggiuntivi()));
}

TEST(NewYear, ItsColumnIsAmongTheAdditionalData) {
  const std::vector<std::string_view> dati = cu::datiAggiuntivi(kModello2031);
  EXPECT_EQ(dati.size(), std::size(kDatiAggiuntiviAttesi) + 1);
  EXPECT_NE(std::find(dati.begin(), dati.end(), kColonnaNuova), dati.end());
}

}  // namespace
}  // namespace cu::test
