#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/error.h"
#include "worklist/compensi_prova.h"

namespace cu::test {
namespace {

using testing::ElementsAre;

std::string riferimenti(const std::string& protocollo, const std::string& progressivo, int modificato,
                        int idAnagrafica) {
  return "UPDATE tmpprequadrivio12 SET ProtocolloAnnSost = " + protocollo +
         ", ProgressivoAnnSost = " + progressivo + ", Modificato = " + std::to_string(modificato) +
         chiave(idAnagrafica, 1);
}

WorkRow con(int idAnagrafica, const Value& protocollo, const Value& progressivo, int modificato = 0) {
  return workRow(idAnagrafica, 1,
                 {{"ProtocolloAnnSost", protocollo},
                  {"ProgressivoAnnSost", progressivo},
                  {"Modificato", whole(modificato)}});
}

class References : public testing::Test, public CompensiProva {};

TEST_F(References, ReplaceWhatEverySelectedRowHolds) {
  carica({con(1, null(), null()), con(2, text("123"), text("4")), con(3, text(""), text("5"), -1)});
  compensi.sbAggiornaProtocolli("17012345678901234", "000007", true);
  EXPECT_THAT(istruzioni(), ElementsAre(riferimenti("'17012345678901234'", "'000007'", 1, 1),
                                        riferimenti("'17012345678901234'", "'000007'", 1, 2),
                                        riferimenti("'17012345678901234'", "'000007'", 1, 3)));
  EXPECT_EQ(valore("ProtocolloAnnSost"), "17012345678901234");
  EXPECT_EQ(valore("ProgressivoAnnSost"), "000007");
  EXPECT_EQ(valore("Modificato"), "-1");
}

TEST_F(References, TheStatementIsSentWordForWord) {
  carica({con(1, null(), null())});
  compensi.sbAggiornaProtocolli("12", "3", true);
  EXPECT_THAT(istruzioni(),
              ElementsAre("UPDATE tmpprequadrivio12 SET ProtocolloAnnSost = '12', ProgressivoAnnSost = '3',"
                          " Modificato = 1 WHERE Anno = 2016 AND IDAnagrafica = 1 AND IDAzienda = 1"
                          " AND IDCausalePagamento = 1"));
}

TEST_F(References, OnlyTheProtocolGivenEmptiesTheProgressiveNumberWhereOverwritten) {
  carica({con(1, null(), text("4"))});
  compensi.sbAggiornaProtocolli("12", "", true);
  EXPECT_THAT(istruzioni(), ElementsAre(riferimenti("'12'", "''", 1, 1)));
  EXPECT_EQ(valore("ProgressivoAnnSost"), "");
}

TEST_F(References, WithoutOverwritingOnlyTheEmptyOneIsFilled) {
  carica({con(1, text("99"), text("  "))});
  compensi.sbAggiornaProtocolli("12", "3", false);
  EXPECT_THAT(istruzioni(), ElementsAre(riferimenti("'99'", "'3'", 1, 1)));
  EXPECT_EQ(valore("ProtocolloAnnSost"), "99");
  EXPECT_EQ(valore("Modificato"), "-1");
}

TEST_F(References, WithoutOverwritingAnEmptyProtocolIsFilledToo) {
  carica({con(1, null(), text("4"))});
  compensi.sbAggiornaProtocolli("12", "3", false);
  EXPECT_THAT(istruzioni(), ElementsAre(riferimenti("'12'", "'4'", 1, 1)));
}

TEST_F(References, ARowThatHasBothKeepsThemYetItsStatementRuns) {
  carica({con(1, text("99"), text("4"))});
  compensi.sbAggiornaProtocolli("12", "3", false);
  EXPECT_THAT(istruzioni(), ElementsAre(riferimenti("'99'", "'4'", 0, 1)));
  EXPECT_EQ(valore("Modificato"), "0");
}

TEST_F(References, TheChangedMarkIsWrittenAsAnAbsoluteValueAndNullAsZero) {
  carica({con(1, text("99"), text("4"), -1), workRow(2, 1,
                                                     {{"ProtocolloAnnSost", text("99")},
                                                      {"ProgressivoAnnSost", text("4")},
                                                      {"Modificato", null()}})});
  compensi.sbAggiornaProtocolli("12", "3", false);
  EXPECT_THAT(istruzioni(), ElementsAre(riferimenti("'99'", "'4'", 1, 1), riferimenti("'99'", "'4'", 0, 2)));
}

TEST_F(References, RowsNotSelectedAreNeverTouched) {
  WorkRow deselezionata = con(1, null(), null());
  deselezionata["Selezionato"] = whole(0);
  WorkRow nulla = con(2, null(), null());
  nulla["Selezionato"] = null();
  carica({deselezionata, nulla, con(3, null(), null())});
  compensi.sbAggiornaProtocolli("12", "3", true);
  EXPECT_THAT(istruzioni(), ElementsAre(riferimenti("'12'", "'3'", 1, 3)));
  compensi.rsCompensi().MoveFirst();
  EXPECT_EQ(valore("ProtocolloAnnSost"), "");
  EXPECT_EQ(valore("Modificato"), "0");
}

TEST_F(References, AnApostropheReachesTheStatementOnlyAsALiteral) {
  carica({con(1, null(), null())});
  compensi.sbAggiornaProtocolli("'; --", "'", true);
  EXPECT_THAT(istruzioni(), ElementsAre(riferimenti("'''; --'", "''''", 1, 1)));
}

TEST_F(References, TheCurrentRowIsTheOneThatWasCurrentBefore) {
  carica({con(1, null(), null()), con(2, null(), null()), con(3, null(), null())});
  compensi.rsCompensi().MoveNext();
  compensi.sbAggiornaProtocolli("12", "3", true);
  EXPECT_EQ(vista.corrente(), 2U);
}

TEST_F(References, TheGridStandsStillMeanwhileAndIsDrawnAnewAtTheEnd) {
  carica({con(1, null(), null())});
  bool disegno = true;
  database.internal.answerContaining("UPDATE", [&](std::string_view) {
    disegno = vista.disegna();
    return Table();
  });
  compensi.sbAggiornaProtocolli("12", "3", true);
  EXPECT_FALSE(disegno);
  EXPECT_TRUE(vista.disegna());
  EXPECT_EQ(vista.cambiamenti, 1);
}

TEST_F(References, AreAdaptedBeforeTheyRun) {
  carica({con(1, null(), null())});
  utilita.adapt = [](const std::string& testo) { return testo + " --"; };
  compensi.sbAggiornaProtocolli("12", "3", true);
  EXPECT_THAT(istruzioni(), ElementsAre(riferimenti("'12'", "'3'", 1, 1) + " --"));
}

TEST_F(References, WithNoCurrentRowNoneIsCurrentAfterwards) {
  for (const bool prima : {true, false}) {
    carica({con(1, null(), null()), con(2, null(), null())});
    if (prima) {
      compensi.rsCompensi().MovePrevious();
    } else {
      compensi.rsCompensi().MoveTo(compensi.rsCompensi().RecordCount());
      compensi.rsCompensi().MoveNext();
    }
    compensi.sbAggiornaProtocolli("12", "3", true);
    EXPECT_EQ(vista.corrente(), 0U);
    EXPECT_EQ(istruzioni().size(), 2U);
  }
}

TEST_F(References, BeforeTheFirstLoadDoNothing) {
  compensi.sbAggiornaProtocolli("12", "3", true);
  EXPECT_THAT(istruzioni(), ElementsAre());
}

TEST_F(References, OnAnEmptyGridDoNothing) {
  carica({});
  compensi.sbAggiornaProtocolli("12", "3", true);
  EXPECT_THAT(istruzioni(), ElementsAre());
}

TEST_F(References, ARefusedStatementRisesAndTheGridDrawsAgain) {
  carica({con(1, null(), null())});
  database.internal.refuseContaining("UPDATE");
  EXPECT_THROW(compensi.sbAggiornaProtocolli("12", "3", true), DatabaseError);
  EXPECT_TRUE(vista.disegna());
}

TEST_F(References, ARowWhoseStatementFailsHoldsWhatItHeld) {
  carica({con(1, text("a"), text("1")), con(2, text("b"), text("2")), con(3, text("c"), text("3"))});
  compensi.rsCompensi().MoveTo(compensi.rsCompensi().RecordCount());
  database.internal.refuseContaining("IDAnagrafica = 2");
  EXPECT_THROW(compensi.sbAggiornaProtocolli("12", "7", true), DatabaseError);
  EXPECT_EQ(vista.corrente(), 3U);
  EXPECT_TRUE(vista.disegna());
  std::vector<std::string> protocolli;
  for (compensi.rsCompensi().MoveFirst(); !compensi.rsCompensi().Eof(); compensi.rsCompensi().MoveNext()) {
    protocolli.push_back(valore("ProtocolloAnnSost") + valore("ProgressivoAnnSost") + valore("Modificato"));
  }
  EXPECT_THAT(protocolli, ElementsAre("127-1", "b20", "c30"));
}

TEST_F(References, ARowThatTheTableHasNoLongerIsTold) {
  carica({con(1, text("a"), text("1"))});
  database.internal.touchContaining("SET ProtocolloAnnSost", 0);
  EXPECT_THAT(erroreDi([&] { compensi.sbAggiornaProtocolli("12", "7", true); }),
              testing::StartsWith("La tabella di lavoro non contiene più questa riga: "));
  EXPECT_EQ(valore("ProtocolloAnnSost"), "a");
}

}  // namespace
}  // namespace cu::test
