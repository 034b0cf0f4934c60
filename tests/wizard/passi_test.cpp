#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "wizard/wizard_prova.h"

namespace cu::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

constexpr const char* kAnnoObbligatorio = "Per il tipo di stampa selezionato il campo anno è obbligatorio.";
constexpr const char* kNessunaSelezione = "Per poter proseguire è necessario selezionare almeno un elemento.";
constexpr const char* kProtocolliMancanti =
    "Per il tipo operazione annullamento o sostituzione il\r\n"
    "protocollo è obbligatorio. Verificare che in tutti gli\r\n"
    "elementi selezionati sia stato correttamente indicato.";

class Steps : public testing::Test, public WizardProva {
 protected:
  // One box for rejected input, with the wizard's title.
  void rifiutato(const char* testo) {
    ASSERT_EQ(frontEnd.boxes.size(), 1U);
    EXPECT_EQ(frontEnd.boxes[0].text, testo);
    EXPECT_EQ(frontEnd.boxes[0].title, "Quadrivio");
    EXPECT_EQ(frontEnd.boxes[0].icon, BoxIcon::Warning);
    EXPECT_EQ(frontEnd.boxes[0].buttons, BoxButtons::Ok);
  }
};

TEST_F(Steps, WithoutAYearTheIndividualAccountsGoOn) {
  avvia(246);
  EXPECT_EQ(form().KRNCboEsCont0.text(), "");
  premi(form().cmdNav[3]);
  EXPECT_EQ(passo(), 2);
  EXPECT_THAT(frontEnd.boxes, IsEmpty());
}

TEST_F(Steps, WithoutAYearTheCertificateStops) {
  avvia(247);
  premi(form().cmdNav[3]);
  EXPECT_EQ(passo(), 0);
  rifiutato(kAnnoObbligatorio);
  EXPECT_THAT(frontEnd.missed, ElementsAre("KRNCboEsCont(0)"));
  EXPECT_EQ(form().focus(), &form().cmdNav[3]) << "where it goes is the window's affair";
}

TEST_F(Steps, WithoutAYearTheTelematicFileStopsBeforeAnythingIsRead) {
  avviaCU();
  form().KRNCboEsCont0.setIndex(-1);
  dimentica();
  premi(form().cmdNav[3]);
  EXPECT_EQ(passo(), 0);
  rifiutato(kAnnoObbligatorio);
  EXPECT_THAT(database.internal.texts(), IsEmpty());
  EXPECT_THAT(database.main.texts(), IsEmpty());
}

TEST_F(Steps, OneStageStandsBesideTheBandAndTheOthersFarToTheLeft) {
  avviaCU();
  const auto posizioni = [&] {
    return std::vector<int>{form().fraStep[0].left(), form().fraStep[1].left(), form().fraStep[2].left()};
  };
  const int banda = SideBand::kWidth;
  EXPECT_THAT(posizioni(), ElementsAre(banda, -20000, -20000));
  premi(form().cmdNav[3]);
  EXPECT_THAT(posizioni(), ElementsAre(-20000, banda, -20000));
  EXPECT_FALSE(form().fraStep[0].enabled());
  EXPECT_TRUE(form().fraStep[1].enabled());
  premi(form().cmdNav[3]);
  EXPECT_THAT(posizioni(), ElementsAre(-20000, -20000, banda));
  EXPECT_FALSE(form().fraStep[1].enabled());
  EXPECT_TRUE(form().fraStep[2].enabled());
  for (const Frame& cornice : form().fraStep) EXPECT_TRUE(cornice.visible());
}

TEST_F(Steps, TheStagesAreTheThreeFramesInTheirOrder) {
  avvia(247);
  EXPECT_THAT(form().stages(), ElementsAre(&form().fraStep[0], &form().fraStep[1], &form().fraStep[2]));
}

// The launcher never passes this mode; if it did, the print's option would still be on.
TEST_F(Steps, InTheFilesModeWithThePrintChosenTheSecondStepCanStart) {
  avvia(342);
  form().KRNCboEsCont0.setIndex(0);
  premi(form().cmdNav[3]);
  EXPECT_EQ(passo(), 1);
  EXPECT_TRUE(form().cmdNav[4].enabled());
  EXPECT_THAT(istruzioni(), IsEmpty());
  dimentica();
  premi(form().cmdNav[4]);  // prints without the test for an empty print
  EXPECT_THAT(database.main.texts(), IsEmpty());
  EXPECT_THAT(frontEnd.works, testing::Contains("Preparazione della stampa"));
}

TEST_F(Steps, GoingToTheGridFiltersLaysOutAndLoadsInThisOrder) {
  avviaCU();
  form().chkRicostruzione.setValue(true);
  form().optTipoComunicazione[1].click();
  std::vector<std::string> ordine;
  factory.onRebuild = [&] {
    ordine.push_back("ricostruzione con " + std::to_string(form().grdCompensi.columns().size()) + " colonne");
  };
  database.internal.answerContaining("drop table", [&](std::string_view) {
    ordine.push_back("caricamento con " + std::to_string(form().grdCompensi.columns().size()) + " colonne");
    return Table();
  });
  premi(form().cmdNav[3]);
  EXPECT_THAT(ordine, ElementsAre("ricostruzione con 0 colonne", "caricamento con 8 colonne"));
}

TEST_F(Steps, TheLoadLeavesTheGridAtRestAndDatesTheSignatureToday) {
  avviaCU();
  form().grdCompensi.setState(3);
  premi(form().cmdNav[3]);
  EXPECT_EQ(form().grdCompensi.state(), 0);
  EXPECT_EQ(form().dtDataFirma.text(), "05/03/2017");
}

TEST_F(Steps, ADateOfSignatureThatStandsThereStays) {
  avviaCU();
  form().dtDataFirma.setText("28/02/2017");
  premi(form().cmdNav[3]);
  EXPECT_EQ(form().dtDataFirma.text(), "28/02/2017");
}

TEST_F(Steps, NextFromTheFirstStepReloadsTheTableEachTime) {
  vaiAllaGriglia();
  EXPECT_THAT(istruzioni(), ElementsAre(HasSubstr("drop table"), StartsWith("CREATE TABLE"),
                                        StartsWith("INSERT INTO tmpprequadrivio12 SELECT ")));
  frontEnd.answers = {Answer::No};
  premi(form().cmdNav[2]);
  dimentica();
  righe({workRow(5, 5)});
  premi(form().cmdNav[3]);
  EXPECT_THAT(istruzioni(), ElementsAre(HasSubstr("drop table"), StartsWith("CREATE TABLE"),
                                        StartsWith("INSERT INTO tmpprequadrivio12 SELECT ")));
  EXPECT_EQ(form().grdCompensi.rowCount(), 1U);
}

TEST_F(Steps, ALoadThatFailsIsToldAndLeavesTheFirstStep) {
  avviaCU();
  database.internal.refuseContaining("INSERT INTO", DatabaseErrorKind::Constraint, "Riga duplicata.");
  premi(form().cmdNav[3]);
  ASSERT_EQ(frontEnd.errors.size(), 1U);
  EXPECT_EQ(frontEnd.errors[0].text, "Riga duplicata.");
  EXPECT_EQ(passo(), 0);
  EXPECT_EQ(frontEnd.pointer(), 11);
}

TEST_F(Steps, WithNoLineSelectedTheGridStops) {
  vaiAllaGriglia();
  conteggi.selected = 0;
  premi(form().cmdNav[3]);
  EXPECT_EQ(passo(), 1);
  rifiutato(kNessunaSelezione);
  EXPECT_THAT(frontEnd.missed, ElementsAre("grdCompensi"));
}

TEST_F(Steps, AnEmptyWorkTableStopsAtTheGrid) {
  righe({});
  conteggi.selected = 0;
  vaiAllaGriglia();
  EXPECT_EQ(form().grdCompensi.rowCount(), 0U);
  premi(form().cmdNav[3]);
  EXPECT_EQ(passo(), 1);
  rifiutato(kNessunaSelezione);
}

class ReferencesRequired : public testing::TestWithParam<int>, public WizardProva {};

TEST_P(ReferencesRequired, OfAnAnnulmentOrAReplacementAlone) {
  avviaCU();
  form().optTipoComunicazione.at(static_cast<std::size_t>(GetParam())).click();
  premi(form().cmdNav[3]);
  conteggi.withoutReferences = 1;
  premi(form().cmdNav[3]);
  if (GetParam() == 0) {
    EXPECT_EQ(passo(), 2);
    EXPECT_THAT(frontEnd.boxes, IsEmpty());
    return;
  }
  EXPECT_EQ(passo(), 1);
  ASSERT_EQ(frontEnd.boxes.size(), 1U);
  EXPECT_EQ(frontEnd.boxes[0].text, kProtocolliMancanti);
  EXPECT_EQ(frontEnd.boxes[0].title, "Quadrivio");
  EXPECT_THAT(frontEnd.missed, ElementsAre("cmdProtocollo"));
  conteggi.withoutReferences = 0;
  premi(form().cmdNav[3]);
  EXPECT_EQ(passo(), 2);
}

INSTANTIATE_TEST_SUITE_P(Kinds, ReferencesRequired, testing::Values(0, 1, 2));

TEST_F(Steps, SelectionIsCheckedBeforeTheReferences) {
  avviaCU();
  form().optTipoComunicazione[2].click();
  premi(form().cmdNav[3]);
  conteggi.selected = 0;
  conteggi.withoutReferences = 1;
  premi(form().cmdNav[3]);
  rifiutato(kNessunaSelezione);
}

TEST_F(Steps, BackFromTheGridAsksAboutTheChanges) {
  vaiAllaGriglia();
  premi(form().cmdNav[2]);
  ASSERT_EQ(frontEnd.boxes.size(), 1U);
  EXPECT_EQ(frontEnd.boxes[0].text,
            "Attenzione! Si vogliono memorizzare le modifiche\r\n"
            "apportate ai compensi? Rispondere:\r\n"
            " - Si per memorizzare\r\n"
            " - No per non memorizzare\r\n"
            " - Annulla per non andare al passo precedente.");
  EXPECT_EQ(frontEnd.boxes[0].title, "Quadrivio");
  EXPECT_EQ(frontEnd.boxes[0].icon, BoxIcon::Question);
  EXPECT_EQ(frontEnd.boxes[0].buttons, BoxButtons::YesNoCancel);
  EXPECT_EQ(frontEnd.boxes[0].byDefault, Answer::Yes);
}

TEST_F(Steps, BackFromTheGridWithYesWritesBack) {
  vaiAllaGriglia();
  dimentica();
  frontEnd.answers = {Answer::Yes};
  premi(form().cmdNav[2]);
  EXPECT_EQ(passo(), 0);
  EXPECT_THAT(istruzioni(), ElementsAre(StartsWith("UPDATE ContoIndividuale SET "),
                                        StartsWith("EXEC('MERGE INTO ContoIndividualeDatiAggiuntivi ")));
}

TEST_F(Steps, BackFromTheGridWithYesTellsHowManyAccountsWereStored) {
  const char* const esiti[] = {"Nessun conto è cambiato: nessuna riga scelta era stata corretta.",
                               "Le correzioni sono state memorizzate in un conto.",
                               "Le correzioni sono state memorizzate in 2 conti."};
  for (std::size_t corrette = 0; corrette < std::size(esiti); ++corrette) {
    righe({workRow(1, 1, {{"Modificato", whole(corrette > 0 ? 1 : 0)}}),
           workRow(2, 1, {{"Modificato", whole(corrette > 1 ? 1 : 0)}}),
           workRow(3, 1, {{"Modificato", whole(1)}, {"Selezionato", whole(0)}})});
    for (const char* istruzione : {"UPDATE ContoIndividuale SET", "MERGE INTO"}) {
      database.internal.touchContaining(istruzione, static_cast<std::int64_t>(corrette));
    }
    vaiAllaGriglia();
    frontEnd.facts.clear();
    frontEnd.answers = {Answer::Yes};
    premi(form().cmdNav[2]);
    EXPECT_THAT(frontEnd.facts, ElementsAre(esiti[corrette]));
  }
}

TEST_F(Steps, BackFromTheGridWithNoWritesNothing) {
  vaiAllaGriglia();
  dimentica();
  frontEnd.answers = {Answer::No};
  premi(form().cmdNav[2]);
  EXPECT_EQ(passo(), 0);
  EXPECT_THAT(istruzioni(), IsEmpty());
}

TEST_F(Steps, BackFromTheGridWithCancelStaysAndWritesNothing) {
  vaiAllaGriglia();
  dimentica();
  frontEnd.answers = {Answer::Cancel};
  premi(form().cmdNav[2]);
  EXPECT_EQ(passo(), 1);
  EXPECT_THAT(istruzioni(), IsEmpty());
  EXPECT_EQ(form().caption(), "Autocomposizione Quadrivio - Passo 2 di 3");
}

TEST_F(Steps, AWriteBackThatFailsIsToldAndLeavesTheGrid) {
  vaiAllaGriglia();
  database.internal.refuseContaining("UPDATE ContoIndividuale SET", DatabaseErrorKind::Locked, "Occupato.");
  frontEnd.answers = {Answer::Yes};
  premi(form().cmdNav[2]);
  ASSERT_EQ(frontEnd.errors.size(), 1U);
  EXPECT_EQ(frontEnd.errors[0].text, "Occupato.");
  EXPECT_EQ(passo(), 1);
}

TEST_F(Steps, BackFromTheLastStepKeepsRowsAndEdits) {
  vaiAllaGriglia();
  form().grdCompensi.rows()->Set("AmmontareLordo", amount("77"));
  form().grdCompensi.rows()->Update();
  premi(form().cmdNav[3]);
  dimentica();
  premi(form().cmdNav[2]);
  EXPECT_EQ(passo(), 1);
  EXPECT_THAT(istruzioni(), IsEmpty());
  EXPECT_THAT(database.main.texts(), IsEmpty());
  EXPECT_EQ(form().grdCompensi.rows()->Get("AmmontareLordo").toText(), "77");
  EXPECT_THAT(frontEnd.boxes, IsEmpty());
}

TEST_F(Steps, BackFromTheLastStepToTheGridAsksForTheYearAgain) {
  vaiAllaFine();
  form().KRNCboEsCont0.setIndex(-1);
  premi(form().cmdNav[2]);
  EXPECT_EQ(passo(), 2);
  rifiutato(kAnnoObbligatorio);
  EXPECT_TRUE(form().cmdNav[4].enabled());
}

TEST_F(Steps, BackFromTheLastStepOfAPrintAsksNothing) {
  avvia(247);
  form().KRNCboEsCont0.setIndex(0);
  premi(form().cmdNav[3]);
  premi(form().cmdNav[2]);
  EXPECT_EQ(passo(), 0);
  EXPECT_THAT(frontEnd.boxes, IsEmpty());
}

TEST_F(Steps, AfterAGenerationTheFirstStepShowsWithoutAQuestion) {
  vaiAllaFine();
  premi(form().cmdNav[4]);
  EXPECT_EQ(passo(), 0);
  EXPECT_FALSE(form().cmdNav[4].enabled());
  EXPECT_FALSE(form().cmdNav[2].enabled());
  for (const std::string& testo : frontEnd.boxTexts()) {
    EXPECT_THAT(testo, Not(HasSubstr("Si vogliono memorizzare le modifiche")));
  }
}

TEST_F(Steps, FromTheGridTheFilterIsNotBuiltASecondTime) {
  vaiAllaGriglia();
  form().chkRicostruzione.setValue(true);
  premi(form().cmdNav[3]);
  EXPECT_EQ(passo(), 2);
  EXPECT_THAT(factory.rebuilds, IsEmpty());
}

}  // namespace
}  // namespace cu::test
