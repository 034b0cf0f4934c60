#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "wizard/wizard_prova.h"

namespace cu::test {
namespace {

constexpr const char* kSpiegazione246 =
    "Questa autocomposizione permette di stampare tutti i dati contabili dei compensi pagati negli anni "
    "selezionati.";
constexpr const char* kSpiegazione342 =
    "Questa procedura consente di creare il tracciato telematico della Certificazione Unica e di stampare il "
    "modello ministeriale per l’attestazione dei redditi di lavoro autonomo e diversi.";
constexpr const char* kSpiegazione247 =
    "Questa procedura consente di stampare la certificazione in forma libera dei compensi pagati.";
constexpr const char* kGriglia342 =
    "In questo passo è possibile selezionare i percipienti e le causali di pagamento per i quali si vuole "
    "creare il tracciato telematico della Certificazione Unica e stampare il modello ministeriale.";
constexpr const char* kFine246 =
    "Dopo aver definito il formato di stampa che si intende utilizzare, è qui possibile scegliere la "
    "tipologia "
    "con cui si vuole che la stampa venga effettuata.";
constexpr const char* kFine342 =
    "Confermando l’avvio della procedura verranno memorizzate le modifiche apportate al passo precedente, "
    "verrà creato il tracciato telematico della Certificazione Unica ed eseguita la stampa del modello "
    "ministeriale.";
constexpr const char* kFine247 =
    "Confermando l’avvio della procedura verrà stampata la certificazione in forma libera dei compensi "
    "pagati "
    "per l'anno selezionato.";

using Voci = std::vector<std::pair<std::string, std::string>>;
const Voci kDueVoci = {{"- Passo iniziale", "Filtri di selezione"},
                       {"- Passo finale", "Completamento delle operazioni"}};
const Voci kTreVoci = {{"- Passo iniziale", "Filtri di selezione"},
                       {"- Passo 2", "Selezione dei compensi"},
                       {"- Passo finale", "Completamento delle operazioni"}};

class StepTexts : public testing::Test, public WizardProva {
 protected:
  Voci voci() {
    Voci trovate;
    for (const SideBand::Item& voce : form().ctlWizardSideBand.items()) {
      trovate.emplace_back(voce.title, voce.description);
    }
    return trovate;
  }
};

TEST_F(StepTexts, OfTheIndividualAccounts) {
  avvia(246);
  EXPECT_EQ(form().lblStep0.caption(), kSpiegazione246);
  EXPECT_EQ(form().lblStep1.caption(), "");
  EXPECT_EQ(form().lblStep5.caption(), kFine246);
  EXPECT_EQ(form().lblEsCont0.caption(), "Da anno");
}

TEST_F(StepTexts, OfTheCertificate) {
  avvia(247);
  EXPECT_EQ(form().lblStep0.caption(), kSpiegazione247);
  EXPECT_EQ(form().lblStep1.caption(), "");
  EXPECT_EQ(form().lblStep5.caption(), kFine247);
  EXPECT_EQ(form().lblEsCont0.caption(), "Anno pagamento compensi");
}

TEST_F(StepTexts, OfTheTelematicFileOnceItsOptionIsTaken) {
  avvia(247);
  premi(form().optstType[1]);
  EXPECT_EQ(form().lblStep0.caption(), kSpiegazione342);
  EXPECT_EQ(form().lblStep1.caption(), kGriglia342);
  EXPECT_EQ(form().lblStep5.caption(), kFine342);
}

TEST_F(StepTexts, OfTheFirstStepWhenTheRunHasEnded) {
  vaiAllaFine();
  premi(form().cmdNav[4]);
  ASSERT_EQ(passo(), 0);
  EXPECT_EQ(form().lblStep0.caption(), kSpiegazione342);
  EXPECT_EQ(form().lblStep1.caption(), kGriglia342);
  EXPECT_EQ(form().lblStep5.caption(), kFine342);
  EXPECT_EQ(form().lblEsCont0.caption(), "Anno pagamento compensi");
}

TEST_F(StepTexts, OfTheCertificateComeBackAndTheGridsStays) {
  avvia(247);
  premi(form().optstType[1]);
  premi(form().optstType[0]);
  EXPECT_EQ(form().lblStep0.caption(), kSpiegazione247);
  EXPECT_EQ(form().lblStep1.caption(), kGriglia342);
  EXPECT_EQ(form().lblStep5.caption(), kFine247);
}

struct Comune {
  const char* nome;
  const char* testo;
};

// Except the first year, for which see above.
constexpr Comune kComuni[] = {
    {"fraStType", "Tipo di stampa"},
    {"optstType(0)", "Stampa certificazione dei compensi"},
    {"optstType(1)", "Creazione tracciato ministeriale e stampa moduli"},
    {"lblEsCont(1)", "Ad anno"},
    {"lblPecDA", "Da percipiente"},
    {"lblPercA", "A percipiente"},
    {"fraSelectOption", "Opzione selezione"},
    {"optCode", "Per codice"},
    {"optName", "Per nominativo"},
    {"lblCausContrbDa", "Da causale pagamento"},
    {"lblCausContribA", "A causale pagamento"},
};

class CommonTexts : public testing::TestWithParam<int>, public WizardProva {};

TEST_P(CommonTexts, AreTheSameInEveryMode) {
  if (GetParam() == 342) {
    vaiAllaFine();
    premi(form().cmdNav[4]);
  } else {
    avvia(GetParam());
  }
  ASSERT_EQ(globali().gIDFunzione, GetParam());
  for (const Comune& comune : kComuni)
    EXPECT_EQ(form().find(comune.nome)->caption(), comune.testo) << comune.nome;
}

INSTANTIATE_TEST_SUITE_P(Modes, CommonTexts, testing::Values(246, 247, 342));

TEST_F(StepTexts, CaptionNamesTheSessionAndTheStep) {
  avvia(246);
  EXPECT_EQ(form().caption(), "Autocomposizione Quadrivio - Passo 1 di 2 - Inizio");
  premi(form().cmdNav[3]);
  EXPECT_EQ(form().caption(), "Autocomposizione Quadrivio - Passo 2 di 2 - Fine");
}

TEST_F(StepTexts, CaptionOfTheCertificate) {
  avvia(247);
  EXPECT_EQ(form().caption(), "Autocomposizione Quadrivio - Passo 1 di 2 - Inizio");
  form().KRNCboEsCont0.setIndex(0);
  premi(form().cmdNav[3]);
  EXPECT_EQ(form().caption(), "Autocomposizione Quadrivio - Passo 2 di 2 - Fine");
}

TEST_F(StepTexts, CaptionOfTheTelematicFileCountsThreeSteps) {
  vaiAllaGriglia();
  EXPECT_EQ(form().caption(), "Autocomposizione Quadrivio - Passo 2 di 3");
  premi(form().cmdNav[3]);
  EXPECT_EQ(form().caption(), "Autocomposizione Quadrivio - Passo 3 di 3 - Fine");
}

TEST_F(StepTexts, TakingTheOptionOfTheFileChangesTheCaptionAtOnce) {
  avvia(247);
  premi(form().optstType[1]);
  EXPECT_EQ(form().caption(), "Autocomposizione Quadrivio - Passo 1 di 3 - Inizio");
  premi(form().optstType[0]);
  EXPECT_EQ(form().caption(), "Autocomposizione Quadrivio - Passo 1 di 2 - Inizio");
}

TEST_F(StepTexts, CaptionOfASessionWithoutATitle) {
  factory.prepareSession = [](FakeSession& sessione) { sessione.applicationTitle = ""; };
  modMain.main();
  EXPECT_EQ(form().caption(), "Autocomposizione  - Passo 1 di 2 - Inizio");
}

TEST_F(StepTexts, SideBandHasTwoItemsUntilTheOptionOfTheFileIsTaken) {
  avvia(247);
  EXPECT_EQ(voci(), kDueVoci);
  EXPECT_EQ(form().ctlWizardSideBand.selected(), 1);
  premi(form().optstType[1]);
  EXPECT_EQ(voci(), kTreVoci);
  EXPECT_EQ(form().ctlWizardSideBand.selected(), 1);
  premi(form().optstType[0]);
  EXPECT_EQ(voci(), kDueVoci);
}

TEST_F(StepTexts, SideBandFollowsTheThreeSteps) {
  avviaCU();
  premi(form().cmdNav[3]);
  EXPECT_EQ(form().ctlWizardSideBand.selected(), 2);
  premi(form().cmdNav[3]);
  EXPECT_EQ(form().ctlWizardSideBand.selected(), 3);
  premi(form().cmdNav[2]);
  EXPECT_EQ(form().ctlWizardSideBand.selected(), 2);
  premi(form().cmdNav[2]);
  EXPECT_EQ(form().ctlWizardSideBand.selected(), 1);
}

TEST_F(StepTexts, SideBandsSecondItemIsTheLastStepInTheModesOfTwoSteps) {
  avvia(246);
  EXPECT_EQ(voci(), kDueVoci);
  premi(form().cmdNav[3]);
  EXPECT_EQ(form().ctlWizardSideBand.selected(), 2);
  premi(form().cmdNav[2]);
  EXPECT_EQ(form().ctlWizardSideBand.selected(), 1);
}

}  // namespace
}  // namespace cu::test
