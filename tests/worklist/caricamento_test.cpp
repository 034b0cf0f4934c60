#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/error.h"
#include "worklist/compensi_prova.h"
#include "worklist/tabella_lavoro.h"

namespace cu::test {
namespace {

using testing::ElementsAre;

class Load : public testing::Test, public CompensiProva {
 protected:
  const Filtri filtri = filtriDi("2016");
};

TEST_F(Load, DropsCreatesAndFillsTheTableAndThenReadsIt) {
  std::vector<std::string> ordine;
  const auto nota = [&ordine](const char* passo) {
    return [&ordine, passo](std::string_view) {
      ordine.emplace_back(passo);
      return Table();
    };
  };
  database.internal.answerContaining("drop table", nota("elimina"));
  database.internal.answerContaining("CREATE TABLE", nota("crea"));
  database.internal.answerContaining("INSERT INTO tmpprequadrivio12", nota("riempie"));
  database.main.answerContaining("tmpprequadrivio12", [&ordine](std::string_view) {
    ordine.emplace_back("legge");
    return workTable({});
  });
  caricaAnno(filtri);
  EXPECT_THAT(ordine, ElementsAre("elimina", "crea", "riempie", "legge"));
}

TEST_F(Load, TheThreeStatementsGoToTheServerAsTheyStandAndOnlyTheTablesNameIsAdapted) {
  database.main.answer("[tmpprequadrivio12]", workTable({}));
  utilita.adapt = [](const std::string& testo) { return "[" + testo + "]"; };
  caricaAnno(filtri);
  EXPECT_THAT(istruzioni(),
              ElementsAre(fnEliminaTabella("tmpprequadrivio12"), fnCreaTabella("tmpprequadrivio12"),
                          "INSERT INTO tmpprequadrivio12 " + fnSelectCompensi(filtri, 1, utilita)));
  EXPECT_THAT(database.main.texts(), ElementsAre("[tmpprequadrivio12]"));
  EXPECT_THAT(utilita.adapted, ElementsAre("tmpprequadrivio12"));
}

TEST_F(Load, NamesTheTableInTheRunContext) {
  EXPECT_EQ(compensi.tabella(), "");
  carica({});
  EXPECT_EQ(compensi.tabella(), "tmpprequadrivio12");
}

TEST_F(Load, RunsUnderTheHourglass) {
  int durante = -1;
  database.internal.answerContaining("drop table", [&](std::string_view) {
    durante = frontEnd.pointer();
    return Table();
  });
  database.main.answer("tmpprequadrivio12", workTable({}));
  caricaAnno(filtri);
  EXPECT_EQ(durante, 11);
  EXPECT_THAT(frontEnd.pointers, ElementsAre(11, 0));
}

TEST_F(Load, BindsTheRowsToTheGrid) {
  carica({workRow(1, 1), workRow(2, 1), workRow(3, 1)});
  EXPECT_EQ(vista.righe, &compensi.rsCompensi());
  EXPECT_EQ(vista.quante(), 3U);
  EXPECT_EQ(vista.corrente(), 1U);
}

TEST_F(Load, CountsTheSelectedRowsWithoutAskingTheDatabase) {
  database.main.answer("tmpprequadrivio12",
                       workTable({workRow(1, 1), workRow(2, 1, {{"Selezionato", whole(0)}}), workRow(3, 1)}));
  caricaAnno(filtri);
  EXPECT_EQ(vista.selezionati, 2);
  EXPECT_THAT(database.main.texts(), ElementsAre("tmpprequadrivio12"));
  EXPECT_EQ(compensi.rsCompensi().Filter(), "");
  EXPECT_EQ(compensi.rsCompensi().RecordCount(), 3U);
}

TEST_F(Load, AFilterThatMatchesNoRowGivesAnEmptyGrid) {
  carica({});
  EXPECT_EQ(vista.quante(), 0U);
  EXPECT_EQ(vista.corrente(), 0U);
  EXPECT_EQ(vista.selezionati, 0);
  EXPECT_TRUE(compensi.fnNessunaSelezione());
}

TEST_F(Load, ReadsTheTableAnewAndForgetsTheRowsBefore) {
  carica({workRow(1, 1)});
  compensi.rsCompensi().Set("AmmontareLordo", amount("5"));
  compensi.rsCompensi().Update();
  carica({workRow(1, 1), workRow(2, 1)});
  EXPECT_EQ(compensi.rsCompensi().RecordCount(), 2U);
  EXPECT_EQ(valore("AmmontareLordo"), "0");
}

TEST_F(Load, TheRowsCanBeChangedInMemory) {
  carica({workRow(1, 1)});
  compensi.rsCompensi().Set("Codice", text("M"));
  compensi.rsCompensi().Update();
  EXPECT_EQ(valore("Codice"), "M");
  EXPECT_THAT(istruzioni(), ElementsAre());
}

// Such as a row rejected by the key or a NOT NULL column.
TEST_F(Load, ARefusedStatementRisesAndTheHourglassStays) {
  database.internal.refuseContaining("INSERT INTO", DatabaseErrorKind::Constraint, "Riga duplicata.");
  try {
    caricaAnno(filtri);
    FAIL() << "the error did not rise";
  } catch (const DatabaseError& errore) {
    EXPECT_EQ(errore.kind(), DatabaseErrorKind::Constraint);
  }
  EXPECT_THAT(frontEnd.pointers, ElementsAre(11));
  EXPECT_FALSE(compensi.rsCompensi().IsOpen());
}

struct Contesa {
  const char* piece;
  DatabaseErrorKind kind;
  const char* said;  // the server's message
};
class Contended : public testing::TestWithParam<Contesa>, public CompensiProva {};

TEST_P(Contended, LoadIsToldInWords) {
  const auto [piece, kind, said] = GetParam();
  database.main.answer("tmpprequadrivio12", workTable({}));
  database.internal.refuseContaining(piece, kind, said);
  database.main.refuseContaining(piece, kind, said);
  const std::string testo = erroreDi([&] { caricaAnno(filtriDi("2016")); });
  EXPECT_THAT(testo, testing::HasSubstr("un'altra sessione dello stesso utente"));
  EXPECT_THAT(testo, testing::Not(testing::HasSubstr("(")));
  EXPECT_FALSE(compensi.rsCompensi().IsOpen());
}

INSTANTIATE_TEST_SUITE_P(
    Statements, Contended,
    testing::Values(Contesa{"drop table", DatabaseErrorKind::Missing, "(3701): 'dbo.tmpprequadrivio12'"},
                    Contesa{"CREATE TABLE", DatabaseErrorKind::Exists, "(2714): 'tmpprequadrivio12'"},
                    Contesa{"INSERT INTO", DatabaseErrorKind::Missing, "(208): 'tmpprequadrivio12'"},
                    Contesa{"INSERT INTO", DatabaseErrorKind::Duplicate, "(2627): 'PK_tmpprequadrivio12'"},
                    Contesa{"tmpprequadrivio12", DatabaseErrorKind::Missing, "(208): 'tmpprequadrivio12'"}));

TEST_F(Load, AnotherTableThatIsMissingIsToldAsTheDatabaseTellsIt) {
  database.internal.refuseContaining("INSERT INTO", DatabaseErrorKind::Missing, "manca RepContoIndividuale");
  EXPECT_THROW(caricaAnno(filtri), DatabaseError);
  database.internal.refuseContaining("INSERT INTO", DatabaseErrorKind::Constraint,
                                     "tmpprequadrivio12.Codice nullo");
  EXPECT_THROW(caricaAnno(filtri), DatabaseError);
}

TEST_F(Load, AfterARefusedOneTheNextOneStartsAfresh) {
  carica({workRow(1, 1)});
  database.internal.refuseContaining("INSERT INTO");
  EXPECT_THROW(caricaAnno(filtri), DatabaseError);
  EXPECT_EQ(vista.quante(), 0U);
  database.internal.answerContaining("INSERT INTO", Table());
  carica({workRow(1, 1), workRow(2, 1)});
  EXPECT_EQ(vista.quante(), 2U);
}

}  // namespace
}  // namespace cu::test
