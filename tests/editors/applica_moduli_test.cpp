// Which modules the confirmation writes to the database, and in what order.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "editors/applica_prova.h"

namespace cu::test {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Apply : testing::Test, Applying {};

TEST_F(Apply, AnUnchangedPageSendsNothing) {
  moduli({moduloPieno(7, 2), moduloPieno(8, 3)});
  apri(2016);
  seleziona(2);
  premi("cmdOk");
  EXPECT_THAT(database.main.texts(), IsEmpty());
}

TEST_F(Apply, RunsWhetherTheRowIsMarkedOrNot) {
  for (const bool segnata : {false, true}) {
    moduli({modulo(7, 2)});
    apri(2016);
    modifica(1);
    if (segnata) importo(20).enter("1");
    premi("cmdOk");
    EXPECT_THAT(opere(), ElementsAre("UPDATE 7"));
    EXPECT_EQ(modificata(), segnata);
  }
}

TEST_F(Apply, TakesThePendingRowsInTheRecordsetsOrder) {
  moduli({modulo(7, 2), modulo(8, 3), modulo(9, 4), modulo(10, 5)});
  apri(2016);
  aggiungi();
  elimina(4);   // 10
  modifica(3);  // 9
  elimina(1);   // 7
  premi("cmdOk");
  EXPECT_THAT(opere(), ElementsAre("DELETE 7", "UPDATE 9", "DELETE 10", "INSERT 42"));
}

TEST_F(Apply, ADeletedNumberUsedAgainIsDeletedAndThenInserted) {
  moduli({modulo(7, 2), modulo(8, 3)});
  apri(2016);
  elimina(2);
  premi("cmdNew");
  c<NumberBox>("numModulo").enter("3");
  premi("cmdSave");
  premi("cmdOk");
  EXPECT_THAT(opere(), ElementsAre("DELETE 8", "INSERT 42"));
}

TEST_F(Apply, AModuleChangedAndThenDeletedIsOnlyDeleted) {
  moduli({modulo(7, 2), modulo(8, 3)});
  apri(2016);
  modifica(1);
  elimina(1);
  premi("cmdOk");
  EXPECT_THAT(opere(), ElementsAre("DELETE 7"));
}

TEST_F(Apply, AModuleAddedAndDeletedReachesTheDatabaseInNoStatement) {
  moduli({modulo(7, 2)});
  apri(2016);
  aggiungi();
  premi("cmdDelete");
  premi("cmdOk");
  EXPECT_TRUE(editor->OK());
  EXPECT_THAT(database.main.texts(), IsEmpty());
}

TEST_F(Apply, AModuleAddedAndChangedIsInsertedOnce) {
  apri(2016);
  aggiungi();
  modifica(1);
  premi("cmdOk");
  EXPECT_THAT(opere(), ElementsAre("INSERT 42"));
}

TEST_F(Apply, EachInsertionAsksForTheGreatestIdAgain) {
  apri(2016);
  aggiungi();
  aggiungi();
  int massimi = 41;
  database.main.answerContaining(
      "SELECT MAX(", [&massimi](std::string_view) { return Table({"ID"}, {{whole(massimi++)}}); });
  premi("cmdOk");
  EXPECT_THAT(opere(), ElementsAre("INSERT 42", "INSERT 43"));
}

TEST_F(Apply, TheFirstModuleOfAllHasIdOne) {
  massimo(null());
  apri(2016);
  aggiungi();
  premi("cmdOk");
  EXPECT_THAT(opere(), ElementsAre("INSERT 1"));
}

TEST_F(Apply, DeletingEveryModuleDoesNotReachTheDatabase) {
  for (const int anno : kAnni) {
    moduli({modulo(7, 2), modulo(8, 3)});
    apri(anno);
    premi("cmdDelete");
    premi("cmdDelete");
    premi("cmdOk");
    EXPECT_TRUE(editor->OK());
    EXPECT_THAT(database.main.texts(), IsEmpty());
  }
}

TEST_F(Apply, DeletingAllButOneDoes) {
  for (const int anno : kAnni) {
    moduli({modulo(7, 2), modulo(8, 3), modulo(9, 4)});
    apri(anno);
    premi("cmdDelete");
    premi("cmdDelete");
    premi("cmdOk");
    EXPECT_THAT(opere(), ElementsAre("DELETE 7", "DELETE 8"));
  }
}

TEST_F(Apply, DeletingEveryModuleAndSavingANewOneDoesToo) {
  moduli({modulo(7, 2)});
  apri(2016);
  premi("cmdDelete");
  importo(18).enter("1");
  premi("cmdSave");
  premi("cmdOk");
  EXPECT_THAT(opere(), ElementsAre("DELETE 7", "INSERT 42"));
}

TEST_F(Apply, TypedButNotSavedIsLostWithoutAWarning) {
  moduli({modulo(7, 2)});
  apri(2016);
  importo(18).enter("5");
  premi("cmdOk");
  EXPECT_TRUE(editor->OK());
  EXPECT_THAT(frontEnd.boxes, IsEmpty());
  EXPECT_THAT(database.main.texts(), IsEmpty());
}

struct FailingStatement : testing::Test, Applying {
  FailingStatement() {
    moduli({modulo(7, 2), modulo(8, 3), modulo(9, 4), modulo(10, 5)});
    apri(2016);
    elimina(1);
    modifica(1);  // 8
    modifica(2);  // 9
    aggiungi();
    aggiungi();
    seleziona(3);  // 10
  }
};

TEST_F(FailingStatement, EndsTheConfirmationWhereItStands) {
  database.main.refuseContaining("WHERE IDModuloXContoIndividuale = 9");
  premi("cmdOk");
  ASSERT_EQ(frontEnd.errors.size(), 1U);
  EXPECT_EQ(frontEnd.errors[0].text, "Il database ha rifiutato l'istruzione.");
  EXPECT_FALSE(editor->OK());
  EXPECT_TRUE(utilita.released.empty());  // still open
  EXPECT_THAT(opere(), ElementsAre("DELETE 7", "UPDATE 8", "UPDATE 9"));
}

TEST_F(FailingStatement, LeavesThePageOnTheModuleThatItShows) {
  database.main.refuseContaining("WHERE IDModuloXContoIndividuale = 9");
  premi("cmdOk");
  EXPECT_EQ(righeModuli().Filter(), "Eliminato = 0");
  EXPECT_EQ(righeModuli().RecordCount(), 5U);
  EXPECT_EQ(righeModuli().Get("NumeroModulo").toText(), mostrato(tavolaModuli()[0]));
  EXPECT_EQ(mostrato(tavolaModuli()[0]), "5");
  EXPECT_TRUE(griglia().drawing());
}

TEST_F(FailingStatement, LeavesTheRowAsItWas) {
  const Righe prima = fotografia(riga);
  importo(20).enter("5");
  database.main.refuseContaining("WHERE IDModuloXContoIndividuale = 9");
  premi("cmdOk");
  EXPECT_TRUE(differenze(prima, fotografia(riga)).empty());
  EXPECT_EQ(riga.Status(), RecordStatus::Unmodified);
  database.main.answerContaining("WHERE IDModuloXContoIndividuale = 9", Table());
  premi("cmdOk");
  EXPECT_TRUE(editor->OK());
  EXPECT_EQ(riga.Get("RitenuteAcconto").toText(), "5");
}

TEST_F(FailingStatement, AModuleThatIsGoneIsTold) {
  database.main.touchContaining("WHERE IDModuloXContoIndividuale = 7",
                                0);  // to be deleted: it may not exist any more
  database.main.touchContaining("WHERE IDModuloXContoIndividuale = 9", 0);
  premi("cmdOk");
  ASSERT_EQ(frontEnd.errors.size(), 1U);
  EXPECT_EQ(frontEnd.errors[0].number, kErrorRowGone);
  EXPECT_THAT(frontEnd.errors[0].text, testing::StartsWith("Il modulo "));
  EXPECT_FALSE(editor->OK());
  EXPECT_THAT(opere(), ElementsAre("DELETE 7", "UPDATE 8", "UPDATE 9"));
}

TEST_F(FailingStatement, IsTriedAgainWithoutWhatWasExecuted) {
  database.main.refuseContaining("VALUES (43");
  int massimi = 41;
  database.main.answerContaining(
      "SELECT MAX(", [&massimi](std::string_view) { return Table({"ID"}, {{whole(massimi++)}}); });
  premi("cmdOk");
  EXPECT_THAT(opere(), ElementsAre("DELETE 7", "UPDATE 8", "UPDATE 9", "INSERT 42", "INSERT 43"));
  database.main.sent.clear();
  premi("cmdOk");
  EXPECT_TRUE(editor->OK());
  EXPECT_THAT(opere(), ElementsAre("INSERT 44"));
}

TEST_F(FailingStatement, AModuleInsertedBeforeItCanBeChangedAndDeletedUnderItsId) {
  database.main.refuseContaining("VALUES (43");
  int massimi = 41;
  database.main.answerContaining(
      "SELECT MAX(", [&massimi](std::string_view) { return Table({"ID"}, {{whole(massimi++)}}); });
  premi("cmdOk");
  database.main.sent.clear();
  modifica(4);  // inserted with 42
  elimina(5);   // never inserted
  premi("cmdOk");
  EXPECT_THAT(opere(), ElementsAre("UPDATE 42"));
}

}  // namespace
}  // namespace cu::test
