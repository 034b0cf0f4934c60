#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "wizard/wizard_prova.h"

namespace cu::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

const MemorySettings::Key kPercorso{"Chiave", "MenuSettings", "CU_Path"};
const MemorySettings::Key kStile{"Chiave", "MenuSettings", "View2"};
const std::string kPulizia = "DELETE FROM TabellaRicorsione2 WHERE IDUtente = 12 AND IDFunzione = 342";

class FormLoad : public testing::Test, public WizardProva {};

// A session that cannot start leaves the form as after its load.
TEST_F(FormLoad, PutsEveryStageOutOfSightAndTwoItemsIntoTheBand) {
  factory.prepareSession = [](FakeSession& sessione) { sessione.refuses = true; };
  modMain.main();
  for (const Frame& cornice : form().fraStep) EXPECT_EQ(cornice.left(), -20000);
  ASSERT_EQ(form().ctlWizardSideBand.items().size(), 2U);
  EXPECT_EQ(form().ctlWizardSideBand.items()[0].title, "- Passo iniziale");
  EXPECT_EQ(form().ctlWizardSideBand.items()[1].title, "- Passo finale");
  EXPECT_EQ(form().ctlWizardSideBand.selected(), 1);
}

TEST_F(FormLoad, TheMenusStyleIsTwoWhereNoneIsStored) {
  avvia();
  EXPECT_EQ(form().BarMenuWzr.style(), 2);
  EXPECT_THAT(settings.asked, Contains(kStile));
}

TEST_F(FormLoad, TheMenusStyleIsTheStoredOne) {
  settings.values[kStile] = "5";
  avvia();
  EXPECT_EQ(form().BarMenuWzr.style(), 5);
}

TEST_F(FormLoad, AStoredStyleThatIsNoSmallNumberIsThePlainOne) {
  for (const char* testo : {"-3", "100", "99999999999999999999", "nessuno"}) {
    settings.values[kStile] = testo;
    avvia();
    EXPECT_EQ(form().BarMenuWzr.style(), 0) << testo;
    form().unload();
  }
}

TEST_F(FormLoad, TheFolderIsTheSuitesWhereNoneIsStored) {
  avvia();
  EXPECT_EQ(form().txtPercorsoCU.text(), "/cu");
  EXPECT_TRUE(form().txtPercorsoCU.locked());
}

TEST_F(FormLoad, TheFolderIsTheStoredOne) {
  settings.values[kPercorso] = "/altrove";
  avvia();
  EXPECT_EQ(form().txtPercorsoCU.text(), "/altrove");
}

TEST_F(FormLoad, TheListOfCommitmentsHasTwoEntriesAndNoneIsChosen) {
  avvia();
  const auto& voci = form().cboxTipoComunicazione.entries();
  ASSERT_EQ(voci.size(), 2U);
  EXPECT_EQ(voci[0].text, "Comunicazione predisposta dal contribuente");
  EXPECT_EQ(voci[1].text, "Comunicazione predisposta da chi effettua l'invio");
  EXPECT_EQ(form().cboxTipoComunicazione.index(), -1);
}

class FormUnload : public testing::Test, public WizardProva {
 protected:
  void chiudi() {
    form().close();
    EXPECT_FALSE(form().isOpen());
    EXPECT_THAT(frontEnd.boxes, IsEmpty());
    EXPECT_THAT(frontEnd.errors, IsEmpty());
  }
};

TEST_F(FormUnload, CleansThePathRowsSavesTheFolderAndDeletesTheSessionsSection) {
  avvia();
  std::string percorsoAllaPulizia = "?";
  database.internal.answerContaining("DELETE", [&](std::string_view) {
    percorsoAllaPulizia = settings.values.contains(kPercorso) ? "salvato" : "non ancora";
    return Table();
  });
  chiudi();
  EXPECT_THAT(database.internal.texts(), ElementsAre(kPulizia));
  EXPECT_EQ(percorsoAllaPulizia, "non ancora");
  EXPECT_EQ(settings.values[kPercorso], "/cu");
  EXPECT_THAT(settings.deleted, ElementsAre(Pair("Chiave", "Sessione12")));
}

TEST_F(FormUnload, CleansTheRowsOfTheFileWhateverTheMode) {
  avvia(246);
  chiudi();
  EXPECT_THAT(database.internal.texts(), ElementsAre(kPulizia));
}

TEST_F(FormUnload, TheCleaningIsAdaptedBeforeItRuns) {
  avvia();
  utilita.adapt = [](const std::string& testo) { return testo + " --"; };
  chiudi();
  EXPECT_THAT(database.internal.texts(), ElementsAre(kPulizia + " --"));
}

TEST_F(FormUnload, SavesTheFolderThatIsShown) {
  avviaCU();
  frontEnd.folders = {"/nuova"};
  form().cmdSfoglia.click();
  chiudi();
  EXPECT_EQ(settings.values[kPercorso], "/nuova");
}

TEST_F(FormUnload, ComesAfterYesToTheAbandonQuestionToo) {
  avvia();
  premi(form().cmdNav[1]);
  EXPECT_FALSE(form().isOpen());
  EXPECT_THAT(database.internal.texts(), ElementsAre(kPulizia));
  EXPECT_EQ(settings.values[kPercorso], "/cu");
}

TEST_F(FormUnload, AnErrorInTheCleaningEndsItInSilence) {
  avvia();
  database.internal.refuseContaining("DELETE", DatabaseErrorKind::Locked);
  chiudi();
  EXPECT_FALSE(settings.values.contains(kPercorso));
  EXPECT_THAT(settings.deleted, IsEmpty());
}

TEST_F(FormUnload, AnErrorInTheSettingsEndsItInSilence) {
  avvia();
  settings.refuses = true;
  chiudi();
  EXPECT_THAT(database.internal.texts(), ElementsAre(kPulizia));
  EXPECT_THAT(settings.deleted, IsEmpty());
}

TEST_F(FormUnload, LeavesTheWorkTable) {
  vaiAllaGriglia();
  dimentica();
  chiudi();
  EXPECT_THAT(database.internal.texts(), ElementsAre(kPulizia));
}

}  // namespace
}  // namespace cu::test
