#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "wizard/frm_option.h"
#include "wizard/wizard_prova.h"

namespace cu::test {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

class Prints : public testing::Test, public WizardProva {
 protected:
  void vaiAllaStampa(std::int32_t modo) {
    avvia(modo);
    form().KRNCboEsCont0.setIndex(0);
    premi(form().cmdNav[3]);
    // The result of the test before printing.
    database.main.answerContaining("FROM RepContoIndividuale", Table({"IDAzienda"}, {{whole(1)}}));
    database.main.answerContaining("FROM RepCompenso", Table({"IDAzienda"}, {{whole(1)}}));
  }
  void stampa() {
    dimentica();
    factory.printing.calls.clear();
    premi(form().cmdNav[4]);
  }
  std::vector<std::string> cercati() { return database.main.texts(FakeConnection::Kind::Query); }
  PrintJournal& stampe() { return factory.printing; }
};

TEST_F(Prints, TheAccountsAreLaunchedStepByStep) {
  vaiAllaStampa(246);
  stampa();
  EXPECT_THAT(
      cercati(),
      ElementsAre("SELECT IDAzienda FROM RepContoIndividuale WHERE  IDAzienda =  1 And Anno >= 2016"));
  EXPECT_THAT(
      stampe().calls,
      ElementsAre("report.create", "report.session 12 1 1", "report.connection", "dialog.connection",
                  "dialog.session 12", "report.objectType 246",
                  "report.formula {__ViewName.Anno} >= 2016 AND {__ViewName.IDAziendaPercipiente} = 1 AND "
                  "{__ViewName.IDAzienda} = 1",
                  "report.file ContoIndividuale.rpt", "report.definition 1", "dialog.definition 1",
                  "report.preview", "report.release"));
  EXPECT_EQ(stampe().reportConnection, &database.own);
  EXPECT_EQ(stampe().dialogConnection, &database.own);
  EXPECT_THAT(frontEnd.pointers, ElementsAre(11, 0));
  EXPECT_THAT(frontEnd.boxes, IsEmpty());
  EXPECT_EQ(passo(), 2);
}

TEST_F(Prints, TheCertificateTakesTheReportAndTheOutputChosen) {
  vaiAllaStampa(247);
  form().WizPrint.chooseReport("CertificazioneCompensiAnalitico.rpt");
  form().WizPrint.setOutput(3);
  stampa();
  EXPECT_THAT(cercati(), ElementsAre("SELECT IDAzienda FROM RepCompenso WHERE  IDAzienda =  1 And "
                                     "Year(DataPagamento) = 2016"));
  EXPECT_THAT(stampe().arguments("report.formula"),
              ElementsAre("Year({__ViewName.DataPagamento}) = 2016 AND {__ViewName.IDAzienda} = 1"));
  EXPECT_THAT(stampe().arguments("report.definition"), ElementsAre("3"));
  EXPECT_THAT(stampe().arguments("report.objectType"), ElementsAre("247"));
  EXPECT_THAT(stampe().arguments("report.run"), ElementsAre("1"));
  EXPECT_THAT(stampe().arguments("report.outputPath"), IsEmpty());
}

TEST_F(Prints, TheFormulaIsReadFromTheScreen) {
  avvia(246);
  form().KRNCboEsCont0.setIndex(0);  // 2016
  form().KRNCboEsCont1.setIndex(2);  // 2014
  premi(form().optCode);
  form().KrnCDPerc0.choose("P9", "Rossi");
  form().KrnCDPerc1.choose("P1", "Verdi");
  form().KrnCDCausContrib0.choose("A", "Lavoro autonomo");
  premi(form().cmdNav[3]);
  database.main.answerContaining("FROM RepContoIndividuale", Table({"IDAzienda"}, {{whole(1)}}));
  stampa();
  EXPECT_THAT(
      stampe().arguments("report.formula"),
      ElementsAre(
          "{__ViewName.Anno} >= 2014 AND {__ViewName.Anno} <=  2016 AND  {__ViewName.CodicePercipiente} "
          ">= 'P1' AND {__ViewName.CodicePercipiente}<= 'P9' AND {__ViewName.Codice} >= 'A' AND "
          "{__ViewName.IDAziendaPercipiente} = 1 AND {__ViewName.IDAzienda} = 1"));
  EXPECT_THAT(cercati(),
              ElementsAre(testing::EndsWith(
                  " WHERE  IDAzienda =  1 And Anno >= 2014 AND Anno <=  2016 And  CodicePercipiente >= "
                  "'P1' AND CodicePercipiente<= 'P9' And Codice >= 'A'")));
}

TEST_F(Prints, NothingToPrintIsToldAndNothingStarts) {
  vaiAllaStampa(247);
  database.main.answerContaining("FROM RepContoIndividuale", Table({"IDAzienda"}, {}));
  stampa();
  ASSERT_THAT(frontEnd.boxes, SizeIs(1));
  EXPECT_EQ(frontEnd.boxes[0].text, "Nessun elemento da stampare");
  EXPECT_EQ(frontEnd.boxes[0].title, "Quadrivio");
  EXPECT_THAT(stampe().calls, IsEmpty());
  EXPECT_THAT(frontEnd.pointers, IsEmpty());
  EXPECT_EQ(passo(), 2);
}

// The launcher may pass any number; only the accounts and the certificate are tested beforehand.
TEST_F(Prints, AnotherRunModePrintsWithoutLooking) {
  vaiAllaStampa(300);
  for (const char* vista : {"FROM RepContoIndividuale", "FROM RepCompenso"})
    database.main.answerContaining(vista, Table({"IDAzienda"}, {}));
  stampa();
  EXPECT_THAT(cercati(), IsEmpty());
  EXPECT_THAT(frontEnd.boxes, IsEmpty());
  EXPECT_THAT(stampe().calls, Contains("report.preview"));
}

TEST_F(Prints, AnErrorOfTheTestIsToldAndCountsAsNothing) {
  vaiAllaStampa(246);
  database.main.refuseContaining("FROM RepContoIndividuale", DatabaseErrorKind::Timeout, "Tempo scaduto.");
  stampa();
  EXPECT_THAT(frontEnd.boxTexts(), ElementsAre("Tempo scaduto.", "Nessun elemento da stampare"));
  EXPECT_EQ(frontEnd.boxes[0].title, "Quadrivio");
  EXPECT_THAT(frontEnd.errors, IsEmpty());
  EXPECT_THAT(stampe().calls, IsEmpty());
}

TEST_F(Prints, AFailedPrintIsToldAndTheWizardStays) {
  vaiAllaStampa(246);
  stampe().failures.emplace("report.preview", Error(53, "La definizione manca."));
  stampa();
  ASSERT_THAT(frontEnd.boxes, SizeIs(1));
  EXPECT_EQ(frontEnd.boxes[0].text, "La definizione manca.");
  EXPECT_EQ(frontEnd.boxes[0].icon, BoxIcon::Stop);
  EXPECT_THAT(frontEnd.pointers, ElementsAre(11, 0, 0));
  EXPECT_EQ(passo(), 2);
}

// The error handler begins after the report has been set up.
TEST_F(Prints, AReportThatCannotBeSetUpIsAnErrorThatRises) {
  vaiAllaStampa(246);
  stampe().failures.emplace("report.formula", Error(5, "La formula non si legge."));
  stampa();
  ASSERT_THAT(frontEnd.errors, SizeIs(1));
  EXPECT_EQ(frontEnd.errors[0].text, "La formula non si legge.");
  EXPECT_THAT(stampe().arguments("dialog.definition"), IsEmpty());
  EXPECT_EQ(frontEnd.pointer(), 11);
}

class Options : public Prints {
 protected:
  void apri(const std::function<void(FrmOption&)>& azione) {
    database.main.answerContaining("FROM ConfigurazioneContabile",
                                   Table({"IDAzienda", "InterlineaGiornale"}, {{whole(1), text("2")}}));
    frontEnd.modals = {[azione](Form& dialogo) { azione(dynamic_cast<FrmOption&>(dialogo)); }};
    premi(form().cmdOpzioni);
  }
};

TEST_F(Options, OkKeepsTheThreeValues) {
  avvia(246);
  apri([](FrmOption& dialogo) {
    dialogo.chkPrintInter.click();
    dialogo.ChkNewPage.click();
    dialogo.cmdOk.click();
  });
  EXPECT_TRUE(form().bStampaInterlinea);
  EXPECT_TRUE(form().bSaltoPagina);
  EXPECT_EQ(form().sInterlinea, "True");
  apri([](FrmOption& dialogo) { dialogo.cmdOk.click(); });
  EXPECT_FALSE(form().bStampaInterlinea);
  EXPECT_FALSE(form().bSaltoPagina);
  EXPECT_EQ(form().sInterlinea, "False");
}

TEST_F(Options, CancelLeavesTheEarlierValues) {
  avvia(246);
  apri([](FrmOption& dialogo) {
    dialogo.ChkNewPage.click();
    dialogo.cmdOk.click();
  });
  apri([](FrmOption& dialogo) {
    dialogo.chkPrintInter.click();
    dialogo.ChkNewPage.click();
    dialogo.ChkNewPage.click();
    dialogo.cmdCancel.click();
  });
  EXPECT_FALSE(form().bStampaInterlinea);
  EXPECT_TRUE(form().bSaltoPagina);
  EXPECT_EQ(form().sInterlinea, "True");
}

TEST_F(Options, EachOpeningStartsUncheckedWithTheStoredSpacing) {
  avvia(247);
  apri([](FrmOption& dialogo) {
    dialogo.chkPrintInter.click();
    dialogo.txtInter.enter("9");
    dialogo.cmdOk.click();
  });
  apri([](FrmOption& dialogo) {
    EXPECT_FALSE(dialogo.chkPrintInter.value());
    EXPECT_EQ(dialogo.txtInter.text(), "2");
    dialogo.cmdCancel.click();
  });
}

TEST_F(Options, NoneOfThemChangesTheReport) {
  vaiAllaStampa(246);
  stampa();
  const std::vector<std::string> prima = stampe().calls;
  premi(form().cmdNav[2]);
  apri([](FrmOption& dialogo) {
    dialogo.chkPrintInter.click();
    dialogo.txtInter.enter("9");
    dialogo.ChkNewPage.click();
    dialogo.cmdOk.click();
  });
  premi(form().cmdNav[3]);
  stampa();
  EXPECT_EQ(stampe().calls, prima);
}

}  // namespace
}  // namespace cu::test
