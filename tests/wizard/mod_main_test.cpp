#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "wizard/wizard_prova.h"

namespace cu::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Entry : public testing::Test, public WizardProva {
 protected:
  void processi(std::vector<ProcessoHost> elenco) {
    factory.prepareSession = [elenco = std::move(elenco)](FakeSession& sessione) {
      sessione.processes = elenco;
    };
  }
  int numeroDellErrore() {
    try {
      modMain.main();
    } catch (const Error& errore) {
      return errore.number();
    }
    return 0;
  }
};

// The two captions of the common menu are requested during the form's load.
TEST_F(Entry, MakesTextsSessionAndFormBeforeTheSessionStarts) {
  modMain.main();
  EXPECT_THAT(factory.journal, ElementsAre("testi", "testo 1368", "sessione", "programma Autocomposizione",
                                           "testo 829", "testo 80", "avvio", "valuta", "valuta rilasciata"));
  EXPECT_THAT(utilita.prepared, ElementsAre("frmWizard"));
}

TEST_F(Entry, TheFormLoadsWithoutSessionAndDatabase) {
  factory.prepareSession = [](FakeSession& sessione) { sessione.refuses = true; };
  modMain.main();
  EXPECT_THAT(utilita.prepared, ElementsAre("frmWizard"));
  EXPECT_THAT(database.main.texts(), IsEmpty());
  EXPECT_THAT(database.internal.texts(), IsEmpty());
  EXPECT_THAT(database.own.texts(), IsEmpty());
}

TEST_F(Entry, FillsTheRunContext) {
  modMain.main();
  const Globali& contesto = globali();
  EXPECT_EQ(contesto.gChiaveImpostazioni, "Chiave");
  EXPECT_EQ(contesto.gTitolo, "Quadrivio");
  EXPECT_EQ(contesto.gDecimaliValuta, 1);
  EXPECT_EQ(contesto.gSimboloValuta, "€");
  EXPECT_EQ(contesto.gSeparatoreDecimale, ",");
  EXPECT_EQ(contesto.gSeparatoreMigliaia, ".");
  EXPECT_EQ(contesto.gIDFunzione, 247);
  EXPECT_EQ(contesto.helpFile, "/guida/Velatura.chm");
}

TEST_F(Entry, NeitherYearNorWorkTableAreKnownYet) {
  modMain.main();
  EXPECT_EQ(globali().gAnno, 0);
  EXPECT_EQ(globali().gTabellaLavoro, "");
}

TEST_F(Entry, AsksForTheCurrencyOfTodayUserAndCompany) {
  factory.prepareSession = [](FakeSession& sessione) {
    sessione.user = 31;
    sessione.company = 7;
  };
  factory.currency = {0, "L.", "'", " "};
  modMain.main();
  ASSERT_EQ(factory.currencies.size(), 1U);
  EXPECT_EQ(factory.currencies[0].connection, &database.main);
  EXPECT_EQ(factory.currencies[0].day, Date::fromYmd(2017, 3, 5));
  EXPECT_EQ(factory.currencies[0].user, 31);
  EXPECT_EQ(factory.currencies[0].company, 7);
  EXPECT_EQ(globali().gDecimaliValuta, 0);
  EXPECT_EQ(globali().gSimboloValuta, "L.");
  EXPECT_EQ(globali().gSeparatoreDecimale, "'");
  EXPECT_EQ(globali().gSeparatoreMigliaia, " ");
}

TEST_F(Entry, ShowsTheWizardAndReturns) {
  modMain.main();
  EXPECT_THAT(frontEnd.shown, ElementsAre("frmWizard"));
  EXPECT_TRUE(form().isOpen());
  EXPECT_FALSE(modMain.refused());
}

TEST_F(Entry, TheModeIsTheNumberOfTheFirstProcess) {
  processi({{"Wizard stampa", 246}});
  modMain.main();
  EXPECT_EQ(globali().gIDFunzione, 246);
}

TEST_F(Entry, WithoutAProcessShowsNothing) {
  processi({});
  modMain.main();
  EXPECT_THAT(frontEnd.shown, IsEmpty());
  EXPECT_FALSE(form().isOpen());
  EXPECT_FALSE(modMain.refused());
  EXPECT_EQ(globali().gIDFunzione, 0);
}

TEST_F(Entry, AProcessNamedInOtherLettersIsAnError) {
  processi({{"wizard stampa", 247}});
  EXPECT_EQ(numeroDellErrore(), -2147211502);
  EXPECT_THAT(frontEnd.shown, IsEmpty());
  EXPECT_THAT(frontEnd.boxes, IsEmpty());
}

TEST_F(Entry, ANameWithMoreOrFewerCharactersIsAnError) {
  for (const char* nome : {"", "Wizard stampa ", " Wizard stampa", "Wizard", "WIZARD STAMPA"}) {
    WizardProva prova;
    prova.factory.prepareSession = [nome](FakeSession& sessione) { sessione.processes = {{nome, 247}}; };
    EXPECT_THROW(prova.modMain.main(), Error) << nome;
  }
}

TEST_F(Entry, ASecondProcessOfAnotherNameIsAnErrorOnceTheWizardIsShown) {
  processi({{"Wizard stampa", 246}, {"Altro", 1}});
  EXPECT_EQ(numeroDellErrore(), -2147211502);
  EXPECT_THAT(frontEnd.shown, ElementsAre("frmWizard"));
  EXPECT_EQ(globali().gIDFunzione, 246);
}

TEST_F(Entry, TwoProcessesOfTheNameSetTheWizardUpTwiceInTheModeOfTheFirst) {
  processi({{"Wizard stampa", 246}, {"Wizard stampa", 247}});
  modMain.main();
  EXPECT_EQ(globali().gIDFunzione, 246);
  EXPECT_THAT(frontEnd.shown, ElementsAre("frmWizard"));
  // Two lists of years, each loaded twice.
  EXPECT_EQ(database.own.texts().size(), 4U);
  EXPECT_EQ(form().KRNCboEsCont0.entries().size(), 4U);
  EXPECT_EQ(form().cboxTipoComunicazione.entries().size(), 2U);
}

TEST_F(Entry, ARefusedStartIsToldUnderTheSessionsTitleAndShowsNoForm) {
  factory.prepareSession = [](FakeSession& sessione) { sessione.refuses = true; };
  modMain.main();
  ASSERT_EQ(frontEnd.boxes.size(), 1U);
  EXPECT_EQ(frontEnd.boxes[0].text, "Avvio rifiutato.");
  EXPECT_EQ(frontEnd.boxes[0].title, "Quadrivio");
  EXPECT_EQ(frontEnd.boxes[0].buttons, BoxButtons::Ok);
  EXPECT_TRUE(modMain.refused());
  EXPECT_THAT(frontEnd.shown, IsEmpty());
}

TEST_F(Entry, ARefusedStartWithoutATitleIsToldUnderTheApplicationsOwn) {
  factory.prepareSession = [](FakeSession& sessione) {
    sessione.refuses = true;
    sessione.applicationTitle = "";
  };
  modMain.main();
  ASSERT_EQ(frontEnd.boxes.size(), 1U);
  EXPECT_EQ(frontEnd.boxes[0].title, "Autocomposizione");
}

// The unload begins with reading the connection of the session, and ends there.
TEST_F(Entry, ARefusedStartUnloadsTheFormAndSavesNothing) {
  factory.prepareSession = [](FakeSession& sessione) { sessione.refuses = true; };
  modMain.main();
  EXPECT_EQ(factory.databaseAsked, 1);
  EXPECT_THAT(settings.values, IsEmpty());
  EXPECT_THAT(settings.deleted, IsEmpty());
  EXPECT_THAT(database.internal.texts(), IsEmpty());
}

TEST_F(Entry, AnyOtherErrorIsRaisedAgainUnderItsNumber) {
  database.own.refuseContaining("ContoIndividuale", DatabaseErrorKind::Unavailable);
  EXPECT_EQ(numeroDellErrore(), -2147217900);
  EXPECT_FALSE(modMain.refused());
  EXPECT_THAT(frontEnd.boxes, IsEmpty());
  EXPECT_THAT(frontEnd.shown, IsEmpty());
}

}  // namespace
}  // namespace cu::test
