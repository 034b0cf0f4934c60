#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "wizard/wizard_prova.h"

namespace cu::test {
namespace {

using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

const std::string kAnni =
    "SELECT DISTINCT ContoIndividuale.Anno From ContoIndividuale WHERE IDAzienda = 1 ORDER BY Anno DESC";
const std::string kAnniDal2014 =
    "SELECT DISTINCT ContoIndividuale.Anno From ContoIndividuale WHERE IDAzienda = 1 AND Anno >= 2014"
    " ORDER BY Anno DESC";

std::vector<std::string> testi(const ListBox& elenco) {
  std::vector<std::string> trovati;
  for (const ListBox::Entry& voce : elenco.entries()) trovati.push_back(voce.text);
  return trovati;
}

class Filters : public testing::Test, public WizardProva {
 protected:
  // The filter text passed to the rebuild when a print moves to the last step.
  std::string filtro() {
    form().chkRicostruzione.setValue(true);
    form().KRNCboEsCont0.setIndex(0);
    premi(form().cmdNav[3]);
    EXPECT_THAT(factory.rebuilds, SizeIs(1));
    return factory.rebuilds.back().filter;
  }
};

TEST_F(Filters, YearListsFillThemselvesWithTheCompanysYearsTheLatestFirst) {
  avvia(247);
  EXPECT_THAT(database.own.texts(), ElementsAre(kAnni, kAnni));
  for (const ListBox* elenco : {&form().KRNCboEsCont0, &form().KRNCboEsCont1}) {
    EXPECT_EQ(elenco->source(), kAnni);
    EXPECT_THAT(elenco->columns(), ElementsAre("Anno"));
    EXPECT_THAT(testi(*elenco), ElementsAre("2016", "2015", "2014", "2013"));
    EXPECT_EQ(elenco->index(), -1);
  }
}

TEST_F(Filters, YearListsReadTheCompanyOfTheSession) {
  factory.prepareSession = [](FakeSession& sessione) { sessione.company = 38; };
  modMain.main();
  EXPECT_THAT(database.own.texts(),
              Each("SELECT DISTINCT ContoIndividuale.Anno From ContoIndividuale WHERE IDAzienda = 38"
                   " ORDER BY Anno DESC"));
}

TEST_F(Filters, TheOptionOfTheFileLimitsTheSourceOfTheFirstListOnly) {
  avvia(247);
  premi(form().optstType[1]);
  EXPECT_EQ(form().KRNCboEsCont0.source(), kAnniDal2014);
  EXPECT_EQ(form().KRNCboEsCont1.source(), kAnni);
  premi(form().optstType[0]);
  EXPECT_EQ(form().KRNCboEsCont0.source(), kAnni);
}

TEST_F(Filters, YearsBefore2014StayInTheListUntilItReloads) {
  database.own.answer(kAnniDal2014, Table({"Anno"}, {{whole(2016)}, {whole(2015)}, {whole(2014)}}));
  avvia(247);
  dimentica();
  premi(form().optstType[1]);
  EXPECT_THAT(testi(form().KRNCboEsCont0), ElementsAre("2016", "2015", "2014", "2013"));
  EXPECT_THAT(database.own.texts(), IsEmpty());
  form().KRNCboEsCont0.load();
  EXPECT_THAT(testi(form().KRNCboEsCont0), ElementsAre("2016", "2015", "2014"));
}

TEST_F(Filters, InTheFilesModeTheHiddenSecondYearFollowsTheFirst) {
  avviaCU();
  form().KRNCboEsCont0.setIndex(2);
  EXPECT_EQ(form().KRNCboEsCont1.index(), 2);
  form().KRNCboEsCont0.setIndex(-1);
  EXPECT_EQ(form().KRNCboEsCont1.index(), -1);
}

TEST_F(Filters, OtherwiseTheYearsAreChosenApart) {
  avvia(246);
  form().KRNCboEsCont0.setIndex(2);
  EXPECT_EQ(form().KRNCboEsCont1.index(), -1);
  form().KRNCboEsCont1.setIndex(1);
  EXPECT_EQ(form().KRNCboEsCont0.index(), 2);
}

TEST_F(Filters, TheFirstYearNeverFollowsTheSecond) {
  avviaCU();
  form().KRNCboEsCont1.setIndex(3);
  EXPECT_EQ(form().KRNCboEsCont0.index(), 0);
}

TEST_F(Filters, PayeeSelectorsAreBoundToTheCompanysPayees) {
  avvia(247);
  for (const Selector* selettore : {&form().KrnCDPerc0, &form().KrnCDPerc1}) {
    const Selector::Binding& legame = selettore->binding();
    EXPECT_EQ(legame.table, "RepPercipienteCD");
    EXPECT_EQ(legame.codeField, "Codice");
    EXPECT_EQ(legame.descriptionField, "Anagrafica");
    EXPECT_EQ(legame.idField, "IDAnagrafica");
    EXPECT_EQ(legame.codeCaption, "Codice");
    EXPECT_EQ(legame.descriptionCaption, "Percipiente");
    EXPECT_EQ(legame.filter, "IDAzienda = 1");
    EXPECT_FALSE(legame.manage);
    EXPECT_TRUE(legame.search);
  }
}

TEST_F(Filters, ReasonSelectorsAreBoundToAllReasons) {
  avvia(247);
  for (const Selector* selettore : {&form().KrnCDCausContrib0, &form().KrnCDCausContrib1}) {
    const Selector::Binding& legame = selettore->binding();
    EXPECT_EQ(legame.table, "CausalePagamento");
    EXPECT_EQ(legame.codeField, "Codice");
    EXPECT_EQ(legame.descriptionField, "CausalePagamento");
    EXPECT_EQ(legame.idField, "IDCausalePagamento");
    EXPECT_EQ(legame.codeCaption, "Codice causale");
    EXPECT_EQ(legame.descriptionCaption, "Descrizione causale");
    EXPECT_EQ(legame.filter, "");
    EXPECT_EQ(legame.title, "Causale pagamento");
    EXPECT_FALSE(legame.manage);
    EXPECT_TRUE(legame.search);
  }
}

TEST_F(Filters, AChosenPayeeShowsTheFirstName) {
  avvia(247);
  database.main.answer("SELECT IDAnagrafica, Nome FROM Anagrafica WHERE IDAnagrafica = 7",
                       Table({"IDAnagrafica", "Nome"}, {{whole(7), text("Ada")}}));
  database.main.answer("SELECT IDAnagrafica, Nome FROM Anagrafica WHERE IDAnagrafica = 8",
                       Table({"IDAnagrafica", "Nome"}, {{whole(8), null()}}));
  form().KrnCDPerc0.choose(Selector::Row{7, "P7", "Bianchi"});
  EXPECT_EQ(form().lblName0.caption(), "Ada");
  EXPECT_EQ(form().lblName1.caption(), "");
  form().KrnCDPerc1.choose(Selector::Row{7, "P7", "Bianchi"});
  EXPECT_EQ(form().lblName1.caption(), "Ada");
  form().KrnCDPerc0.choose(Selector::Row{8, "P8", "Gamma SRL"});
  EXPECT_EQ(form().lblName0.caption(), "");
}

TEST_F(Filters, APayeeWithoutItsPersonShowsNoName) {
  avvia(247);
  form().lblName0.setCaption("prima");
  form().KrnCDPerc0.choose(Selector::Row{9, "P9", "Ignoto"});
  EXPECT_EQ(form().lblName0.caption(), "");
  EXPECT_THAT(database.main.texts(),
              Contains("SELECT IDAnagrafica, Nome FROM Anagrafica WHERE IDAnagrafica = 9"));
}

TEST_F(Filters, AnErrorInTheLookUpOfTheNameShowsNone) {
  avvia(247);
  form().lblName0.setCaption("prima");
  database.main.refuseContaining("FROM Anagrafica");
  form().KrnCDPerc0.choose(Selector::Row{9, "P9", "Ignoto"});
  EXPECT_EQ(form().lblName0.caption(), "");
}

TEST_F(Filters, TextIsEmptyWithoutRanges) {
  avvia(247);
  EXPECT_EQ(filtro(), "");
}

TEST_F(Filters, TextOfARangeByName) {
  avvia(247);
  form().KrnCDPerc0.choose("P1", "D'Amico");
  form().KrnCDPerc1.choose("P9", "Verdi");
  EXPECT_EQ(filtro(), " AND Anagrafica >= 'D''Amico' AND Anagrafica <= 'Verdi'");
}

TEST_F(Filters, TextOfARangeByCode) {
  avvia(247);
  form().optCode.click();
  form().KrnCDPerc0.choose("P1", "D'Amico");
  form().KrnCDPerc1.choose("P'9", "Verdi");
  EXPECT_EQ(filtro(), " AND CodicePercipiente >= 'P1' AND CodicePercipiente <= 'P''9'");
}

TEST_F(Filters, ANameWithoutItsCodeIsNoBound) {
  avvia(247);
  form().KrnCDPerc0.choose("", "D'Amico");
  form().KrnCDPerc1.choose("  ", "Verdi");
  EXPECT_EQ(filtro(), "");
}

TEST_F(Filters, EachBoundOfThePayeesStandsAlone) {
  avvia(247);
  form().KrnCDPerc1.choose("P9", "Verdi");
  EXPECT_EQ(filtro(), " AND Anagrafica <= 'Verdi'");
}

TEST_F(Filters, TextOfARangeOfReasonsNamesAnotherFieldThanTheWorklist) {
  avvia(247);
  form().KrnCDCausContrib0.choose("A", "Prestazioni");
  form().KrnCDCausContrib1.choose("M'", "Occasionali");
  EXPECT_EQ(filtro(), " AND CodiceCausalePagamento >= 'A' AND CodiceCausalePagamento <= 'M'''");
}

TEST_F(Filters, PayeesComeBeforeReasons) {
  avvia(247);
  form().KrnCDCausContrib1.choose("M", "Occasionali");
  form().KrnCDPerc0.choose("P1", "Rossi");
  EXPECT_EQ(filtro(), " AND Anagrafica >= 'Rossi' AND CodiceCausalePagamento <= 'M'");
}

TEST_F(Filters, EachBoundByCodeStandsAlone) {
  avvia(247);
  form().optCode.click();
  form().KrnCDPerc1.choose("P9", "Verdi");
  EXPECT_EQ(filtro(), " AND CodicePercipiente <= 'P9'");
}

TEST_F(Filters, WithNeitherCodeNorNameChosenThePayeesAreNotLimited) {
  avvia(247);
  form().optName.setValue(false);
  form().KrnCDPerc0.choose("P1", "Rossi");
  EXPECT_EQ(filtro(), "");
}

TEST_F(Filters, ABlankReasonIsNoBound) {
  avvia(247);
  form().KrnCDCausContrib0.choose("  ", "Prestazioni");
  EXPECT_EQ(filtro(), "");
}

TEST_F(Filters, BoundsThatAreNoRowAreToldBeforeTheGridLoads) {
  avviaCU();
  form().KrnCDPerc0.choose(" ZZZ", "");
  form().KrnCDPerc1.choose("", "Rossi");
  form().KrnCDCausContrib0.choose(Selector::Row{1, "A", "Lavoro autonomo"});
  std::size_t prima = 0;
  database.internal.answerContaining("CREATE TABLE", [&](std::string_view) {
    prima = frontEnd.facts.size();
    return Table({"x"}, {});
  });
  premi(form().cmdNav[3]);
  EXPECT_EQ(passo(), 1);
  EXPECT_THAT(frontEnd.facts,
              ElementsAre("Da percipiente: il codice \"ZZZ\" non esiste, l'intervallo può non valere come è "
                          "scritto.",
                          "A percipiente: senza il codice la descrizione non limita nulla."));
  EXPECT_EQ(prima, 2U);
}

TEST_F(Filters, BoundsThatAreRowsAreNotTold) {
  avviaCU();
  form().KrnCDPerc0.choose(Selector::Row{3, "P003", "Rossi"});
  form().KrnCDPerc1.choose("  ", " ");
  premi(form().cmdNav[3]);
  EXPECT_EQ(passo(), 1);
  EXPECT_THAT(frontEnd.facts, IsEmpty());
}

TEST_F(Filters, TheWorklistIsFilteredByTheScreen) {
  avviaCU();
  form().optCode.click();
  form().KrnCDPerc0.choose("P1", "Rossi");
  form().KrnCDCausContrib1.choose("M", "Occasionali");
  premi(form().cmdNav[3]);
  EXPECT_THAT(istruzioni().at(2), testing::EndsWith(" FROM RepContoIndividuale WHERE Anno = 2016"
                                                    " AND IDAzienda = 1 AND CodicePercipiente >= 'P1'"
                                                    " AND Codice <= 'M'"));
}

class Rebuilding : public testing::Test, public WizardProva {};

TEST_F(Rebuilding, IsGivenDatabaseCompanyFlagFilterAndYear) {
  avviaCU();
  form().chkRicostruzione.setValue(true);
  form().KrnCDPerc0.choose("P1", "Rossi");
  premi(form().cmdNav[3]);
  ASSERT_THAT(factory.rebuilds, SizeIs(1));
  const FakeFactory::Rebuild& ricostruzione = factory.rebuilds[0];
  EXPECT_EQ(ricostruzione.database, &database);
  EXPECT_EQ(ricostruzione.company, 1);
  EXPECT_TRUE(ricostruzione.flag);
  EXPECT_EQ(ricostruzione.filter, " AND Anagrafica >= 'Rossi'");
  EXPECT_THAT(ricostruzione.years, ElementsAre(2016));
  EXPECT_TRUE(ricostruzione.released);
}

TEST_F(Rebuilding, EndsBeforeTheWorkTableIsMade) {
  avviaCU();
  form().chkRicostruzione.setValue(true);
  std::size_t istruzioniPrima = 99;
  factory.onRebuild = [&] { istruzioniPrima = database.internal.texts().size(); };
  premi(form().cmdNav[3]);
  EXPECT_EQ(istruzioniPrima, 0U);
}

TEST_F(Rebuilding, DoesNotRunUnlessTheBoxIsChecked) {
  avviaCU();
  premi(form().cmdNav[3]);
  EXPECT_EQ(passo(), 1);
  EXPECT_THAT(factory.rebuilds, IsEmpty());
}

TEST_F(Rebuilding, RunsOnEveryForwardMoveWhileTheBoxIsChecked) {
  avviaCU();
  form().chkRicostruzione.setValue(true);
  premi(form().cmdNav[3]);
  frontEnd.answers = {Answer::No};
  premi(form().cmdNav[2]);
  premi(form().cmdNav[3]);
  EXPECT_THAT(factory.rebuilds, SizeIs(2));
}

TEST_F(Rebuilding, OfTheIndividualAccountsWithoutAYearIsOfTheYearZero) {
  avvia(246);
  form().chkRicostruzione.setValue(true);
  premi(form().cmdNav[3]);
  ASSERT_THAT(factory.rebuilds, SizeIs(1));
  EXPECT_THAT(factory.rebuilds[0].years, ElementsAre(0));
}

TEST_F(Rebuilding, AFailureIsToldAndLeavesTheStep) {
  avviaCU();
  form().chkRicostruzione.setValue(true);
  factory.onRebuild = [] { throw Error(1, "Ricostruzione non riuscita."); };
  premi(form().cmdNav[3]);
  ASSERT_THAT(frontEnd.errors, SizeIs(1));
  EXPECT_EQ(frontEnd.errors[0].text, "Ricostruzione non riuscita.");
  EXPECT_EQ(passo(), 0);
}

TEST_F(Rebuilding, IsUnderTheHourglassAndTellsHowManyAccountsItChanged) {
  avviaCU();
  form().chkRicostruzione.setValue(true);
  int puntatore = -1;
  factory.onRebuild = [&] { puntatore = frontEnd.pointer(); };
  frontEnd.pointers.clear();
  premi(form().cmdNav[3]);
  EXPECT_EQ(puntatore, kPointerHourglass);
  EXPECT_EQ(frontEnd.pointer(), kPointerDefault);
  frontEnd.answers = {Answer::No, Answer::No};
  for (const std::size_t cambiati : {1U, 1234U}) {
    premi(form().cmdNav[2]);
    factory.rebuiltAccounts = cambiati;
    premi(form().cmdNav[3]);
  }
  EXPECT_THAT(frontEnd.facts, ElementsAre("La ricostruzione non ha cambiato nessun conto.",
                                          "La ricostruzione ha cambiato un conto.",
                                          "La ricostruzione ha cambiato 1234 conti."));
}

TEST_F(Rebuilding, TheBoxSaysWhatItDiscards) {
  EXPECT_THAT(avviaCU().chkRicostruzione.hint(), testing::HasSubstr("a ogni Avanti: le correzioni"));
}

}  // namespace
}  // namespace cu::test
