#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/error.h"
#include "worklist/compensi_prova.h"

namespace cu::test {
namespace {

using testing::Each;
using testing::ElementsAre;

const std::string kConteggio = "SELECT COUNT(Selezionato) FROM tmpprequadrivio12 WHERE Selezionato = 1";
const std::string kConteggioProtocolli =
    "SELECT COUNT(Selezionato) FROM tmpprequadrivio12 WHERE Selezionato = 1 AND"
    " (ISNULL(ProtocolloAnnSost, '') = ''  OR ISNULL(ProgressivoAnnSost, '') = '')";

std::string seleziona(const char* valore, int idAnagrafica, int idCausale = 1) {
  return "UPDATE tmpprequadrivio12 SET Selezionato = " + std::string(valore) +
         chiave(idAnagrafica, idCausale);
}

class Selection : public testing::Test, public CompensiProva {};

TEST_F(Selection, InvertsEachOfTheRowsGivenAndStaysOnTheCurrentOne) {
  carica({workRow(1, 1, {{"Selezionato", whole(1)}}), workRow(2, 1, {{"Selezionato", whole(0)}}),
          workRow(3, 1, {{"Selezionato", whole(1)}}), workRow(4, 1, {{"Selezionato", whole(1)}})});
  compensi.rsCompensi().MoveTo(3);
  compensi.sbInvertiRighe({1, 2, 4});
  EXPECT_THAT(istruzioni(), ElementsAre(seleziona("0", 1), seleziona("1", 2), seleziona("0", 4)));
  EXPECT_EQ(compensi.rsCompensi().AbsolutePosition(), 3U);
  EXPECT_THAT(frontEnd.pointers, ElementsAre(11, 0));
}

TEST_F(Selection, AnErrorEndsTheInversionOnTheCurrentRow) {
  carica({workRow(1, 1), workRow(2, 1), workRow(3, 1)});
  compensi.rsCompensi().MoveTo(3);
  database.internal.refuseContaining("IDAnagrafica = 2", DatabaseErrorKind::Locked, "Occupato.");
  EXPECT_THROW(compensi.sbInvertiRighe({1, 2, 3}), Error);
  EXPECT_THAT(istruzioni(), ElementsAre(seleziona("0", 1), seleziona("0", 2)));
  EXPECT_EQ(compensi.rsCompensi().AbsolutePosition(), 3U);
  EXPECT_THAT(frontEnd.pointers, ElementsAre(11, 0));
  EXPECT_TRUE(vista.disegna());
  EXPECT_EQ(vista.selezionati, 2) << "the first row is stored";
}

struct Azione {
  AzioneSelezione azione;
  int prima;
  const char* dopo;     // in memory
  const char* scritto;  // in the statement
};

class RowSelection : public testing::TestWithParam<Azione>, public CompensiProva {};

TEST_P(RowSelection, SetsTheFlagAndSavesItsAbsoluteValue) {
  carica({workRow(1, 1, {{"Selezionato", whole(GetParam().prima)}})});
  compensi.sbSelezionaRiga(GetParam().azione);
  EXPECT_EQ(valore("Selezionato"), GetParam().dopo);
  EXPECT_THAT(istruzioni(), ElementsAre(seleziona(GetParam().scritto, 1)));
}

INSTANTIATE_TEST_SUITE_P(Actions, RowSelection,
                         testing::Values(Azione{AzioneSelezione::Seleziona, 0, "-1", "1"},
                                         Azione{AzioneSelezione::Seleziona, 1, "-1", "1"},
                                         Azione{AzioneSelezione::Deseleziona, 1, "0", "0"},
                                         Azione{AzioneSelezione::Deseleziona, 0, "0", "0"},
                                         Azione{AzioneSelezione::Deseleziona, -1, "0", "0"},
                                         Azione{AzioneSelezione::Inverti, 1, "0", "0"},
                                         Azione{AzioneSelezione::Inverti, -1, "0", "0"},
                                         Azione{AzioneSelezione::Inverti, 0, "-1", "1"}));

TEST_F(Selection, ActionsBearTheirNumbers) {
  EXPECT_EQ(static_cast<int>(AzioneSelezione::Seleziona), 1);
  EXPECT_EQ(static_cast<int>(AzioneSelezione::Deseleziona), 2);
}

TEST_F(Selection, ActsOnTheCurrentRowOnlyAndNamesItsKey) {
  carica({workRow(1, 1), workRow(4, 7), workRow(9, 2)});
  compensi.rsCompensi().MoveNext();
  compensi.sbSelezionaRiga(AzioneSelezione::Deseleziona);
  EXPECT_THAT(istruzioni(), ElementsAre("UPDATE tmpprequadrivio12 SET Selezionato = 0 WHERE Anno = 2016 AND"
                                        " IDAnagrafica = 4 AND IDAzienda = 1 AND IDCausalePagamento = 7"));
  EXPECT_EQ(valore("Selezionato"), "0");
  compensi.rsCompensi().MoveFirst();
  EXPECT_EQ(valore("Selezionato"), "1");
}

TEST_F(Selection, TheStatementIsAdaptedBeforeItRuns) {
  carica({workRow(1, 1)});
  utilita.adapt = [](const std::string& testo) { return testo + " --"; };
  compensi.sbSelezionaRiga(AzioneSelezione::Seleziona);
  EXPECT_THAT(istruzioni(), ElementsAre(seleziona("1", 1) + " --"));
}

TEST_F(Selection, TheCountIsAskedOfTheTableAndShownInTheHeader) {
  carica({workRow(1, 1)});
  contate(kConteggio, 17);
  compensi.sbContaSelezionati();
  EXPECT_EQ(vista.selezionati, 17);
  EXPECT_THAT(database.main.texts(), ElementsAre(kConteggio));
  EXPECT_THAT(utilita.adapted, ElementsAre(kConteggio));
}

TEST_F(Selection, NoneIsSelectedWhenTheTableCountsNone) {
  carica({workRow(1, 1)});
  contate(kConteggio, 0);
  EXPECT_TRUE(compensi.fnNessunaSelezione());
  contate(kConteggio, 1);
  EXPECT_FALSE(compensi.fnNessunaSelezione());
  EXPECT_THAT(database.main.texts(), ElementsAre(kConteggio, kConteggio));
}

TEST_F(Selection, ReferencesAreMissingWhenTheTableCountsARowWithoutOneOfThem) {
  carica({workRow(1, 1)});
  contate(kConteggioProtocolli, 0);
  EXPECT_FALSE(compensi.fnProtocolliMancanti());
  contate(kConteggioProtocolli, 3);
  EXPECT_TRUE(compensi.fnProtocolliMancanti());
  EXPECT_THAT(database.main.texts(), ElementsAre(kConteggioProtocolli, kConteggioProtocolli));
  EXPECT_THAT(utilita.adapted, ElementsAre(kConteggioProtocolli, kConteggioProtocolli));
}

TEST_F(Selection, AllRowsAreSelectedWithOneStatementEach) {
  carica({workRow(1, 1, {{"Selezionato", whole(0)}}), workRow(2, 1), workRow(3, 5)});
  contate(kConteggio, 3);
  compensi.sbSelezionaTutto(AzioneSelezione::Seleziona);
  EXPECT_THAT(istruzioni(), ElementsAre(seleziona("1", 1), seleziona("1", 2), seleziona("1", 3, 5)));
  EXPECT_EQ(vista.selezionati, 3);
}

TEST_F(Selection, AllRowsAreDeselectedAndTheHeaderCountsNone) {
  carica({workRow(1, 1), workRow(2, 1)});
  EXPECT_EQ(vista.selezionati, 2);
  contate(kConteggio, 0);
  compensi.sbSelezionaTutto(AzioneSelezione::Deseleziona);
  EXPECT_THAT(istruzioni(), ElementsAre(seleziona("0", 1), seleziona("0", 2)));
  EXPECT_EQ(vista.selezionati, 0);
}

TEST_F(Selection, OfAllRowsRunsUnderTheHourglassWithoutDrawingAndEndsOnTheFirstRow) {
  carica({workRow(1, 1), workRow(2, 1), workRow(3, 1)});
  compensi.rsCompensi().MoveTo(compensi.rsCompensi().RecordCount());
  std::vector<bool> disegno;
  std::vector<int> puntatori;
  database.internal.answerContaining("UPDATE", [&](std::string_view) {
    disegno.push_back(vista.disegna());
    puntatori.push_back(frontEnd.pointer());
    return Table();
  });
  bool disegnoAlConteggio = false;
  database.main.answerContaining("COUNT", [&](std::string_view) {
    disegnoAlConteggio = vista.disegna();
    return Table({"COUNT"}, {{whole(3)}});
  });
  compensi.sbSelezionaTutto(AzioneSelezione::Seleziona);
  EXPECT_EQ(disegno.size(), 3U);
  EXPECT_THAT(disegno, Each(false));
  EXPECT_THAT(puntatori, Each(11));
  EXPECT_TRUE(disegnoAlConteggio);
  EXPECT_THAT(frontEnd.pointers, ElementsAre(11, 0));
  EXPECT_EQ(vista.corrente(), 1U);
}

TEST_F(Selection, OfAllRowsDoesNothingOnAnEmptyGrid) {
  carica({});
  compensi.sbSelezionaTutto(AzioneSelezione::Seleziona);
  compensi.sbSelezionaTutto(AzioneSelezione::Deseleziona);
  EXPECT_THAT(istruzioni(), ElementsAre());
  EXPECT_THAT(database.main.texts(), ElementsAre());
  EXPECT_THAT(frontEnd.pointers, ElementsAre());
}

TEST_F(Selection, OfAllRowsDoesNothingBeforeTheFirstLoad) {
  compensi.sbSelezionaTutto(AzioneSelezione::Seleziona);
  EXPECT_THAT(istruzioni(), ElementsAre());
  EXPECT_THAT(frontEnd.pointers, ElementsAre());
}

TEST_F(Selection, ACountThatYieldsNoRowIsNone) {
  carica({workRow(1, 1)});
  database.main.answer(kConteggio, Table({"COUNT"}, {}));
  EXPECT_TRUE(compensi.fnNessunaSelezione());
  compensi.sbContaSelezionati();
  EXPECT_EQ(vista.selezionati, 0);
}

TEST_F(Selection, OfAllRowsThatFailsHalfwayLetsTheGridDrawAgain) {
  carica({workRow(1, 1), workRow(2, 1)});
  database.internal.refuseContaining("IDAnagrafica = 2");
  EXPECT_THROW(compensi.sbSelezionaTutto(AzioneSelezione::Seleziona), DatabaseError);
  EXPECT_TRUE(vista.disegna());
}

TEST_F(Selection, AToggleThatFailsLeavesTheRowAsItWas) {
  carica({workRow(1, 1), workRow(2, 1)});
  database.internal.refuseContaining("SET Selezionato");
  EXPECT_THROW(compensi.sbSelezionaRiga(AzioneSelezione::Inverti), DatabaseError);
  EXPECT_EQ(valore("Selezionato"), "1");
  EXPECT_EQ(compensi.rsCompensi().Status(), RecordStatus::Unmodified);
}

TEST_F(Selection, OfAllRowsThatFailsHalfwayShowsWhatIsStored) {
  carica({workRow(1, 1), workRow(2, 1), workRow(3, 1)});
  database.internal.refuseContaining("IDAnagrafica = 2");
  EXPECT_THROW(compensi.sbSelezionaTutto(AzioneSelezione::Deseleziona), DatabaseError);
  EXPECT_EQ(vista.selezionati, 2);
  compensi.rsCompensi().MoveFirst();
  EXPECT_EQ(valore("Selezionato"), "0");
  compensi.rsCompensi().MoveNext();
  EXPECT_EQ(valore("Selezionato"), "1");
}

TEST_F(Selection, ACountThatFailsLeavesTheHeaderWithTheRowsInMemory) {
  carica({workRow(1, 1), workRow(2, 1)});
  compensi.sbSelezionaRiga(AzioneSelezione::Deseleziona);
  database.main.refuseContaining("COUNT(Selezionato)");
  EXPECT_THROW(compensi.sbContaSelezionati(), DatabaseError);
  EXPECT_EQ(vista.selezionati, 1);
}

TEST_F(Selection, ARowThatTheTableHasNoLongerIsTold) {
  carica({workRow(1, 1)});
  database.internal.touchContaining("IDAnagrafica = 1", 0);
  EXPECT_THAT(erroreDi([&] { compensi.sbSelezionaRiga(AzioneSelezione::Deseleziona); }),
              testing::StartsWith("La tabella di lavoro non contiene più questa riga: "));
  EXPECT_EQ(valore("Selezionato"), "1");
  database.internal.touchContaining("IDAnagrafica = 1", 1);
  compensi.sbSelezionaRiga(AzioneSelezione::Deseleziona);
  EXPECT_EQ(valore("Selezionato"), "0");
}

TEST_F(Selection, ATableThatAnotherSessionHasTakenAwayIsTold) {
  carica({workRow(1, 1)});
  database.internal.refuseContaining(
      "SET Selezionato", DatabaseErrorKind::Missing,
      "Nel database manca una tabella. Messaggio del server (208): Invalid object name "
      "'TMPprequadrivio12'.");
  EXPECT_THAT(erroreDi([&] { compensi.sbSelezionaRiga(AzioneSelezione::Deseleziona); }),
              testing::HasSubstr("un'altra sessione dello stesso utente"));
  database.main.refuseContaining("COUNT(Selezionato)", DatabaseErrorKind::Missing, "manca tmpprequadrivio12");
  EXPECT_THAT(erroreDi([&] { compensi.sbContaSelezionati(); }),
              testing::Not(testing::HasSubstr("manca tmp")));
}

}  // namespace
}  // namespace cu::test
