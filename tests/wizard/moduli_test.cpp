#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "wizard/creazione_prova.h"
#include "wizard/frm_msg_link.h"

namespace cu::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

const std::string kElimina = "DELETE FROM TabellaRicorsione2 WHERE IDUtente = 12 AND IDFunzione = 342";

std::string inserisci(const std::string& valori) {
  return "INSERT INTO TabellaRicorsione2 (IDPath1, IDPath2, IDUtente, IDFunzione, Path14, Path1, Path2, "
         "Path3)"
         " VALUES (" +
         valori + ")";
}

class Forms : public FileRun {
 protected:
  // Three lines; the second is not selected, and neither is the third, whose flag is null.
  void SetUp() override {
    certificati(2);
    righe({workRow(1, 1), workRow(2, 1, {{"Selezionato", whole(0)}}),
           workRow(3, 1, {{"Selezionato", null()}}),
           workRow(4, 2, {{"CodicePercipiente", text("P4")}, {"Codice", text("M")}})});
  }
  void avviaModuli(bool cumulativa = false) {
    vaiAllaFine();
    if (cumulativa) premi(form().optStampaTracciato[1]);
    factory.printing.calls.clear();
    avviaRun();
  }
  std::vector<std::string> ricorsione() {
    std::vector<std::string> testi;
    for (const std::string& testo : database.internal.texts(FakeConnection::Kind::Execute)) {
      if (testo.find("TabellaRicorsione2") != std::string::npos) testi.push_back(testo);
    }
    return testi;
  }
  PrintJournal& stampe() { return factory.printing; }
};

TEST_F(Forms, PerLineTheTableHoldsOneLineAtATime) {
  avviaModuli();
  EXPECT_THAT(ricorsione(), ElementsAre(kElimina, kElimina, inserisci("1,1,12,342,1,1,0,'05/03/2017'"),
                                        kElimina, inserisci("4,2,12,342,1,1,0,'05/03/2017'")));
  EXPECT_THAT(stampe().arguments("report.outputPath"),
              ElementsAre("/cu/CUR_01234567890_RSSMRA70A01H501U_P1_2016_A_05032017_1030.cur",
                          "/cu/CUR_01234567890_RSSMRA70A01H501U_P4_2016_M_05032017_1030.cur"));
  EXPECT_THAT(stampe().arguments("report.run"), ElementsAre("3", "3"));
}

TEST_F(Forms, TogetherTheTableHoldsAllSelectedLinesAndIsPrintedOnce) {
  avviaModuli(true);
  EXPECT_THAT(ricorsione(), ElementsAre(kElimina, inserisci("1,1,12,342,1,1,0,'05/03/2017'"),
                                        inserisci("4,2,12,342,1,1,0,'05/03/2017'")));
  EXPECT_THAT(stampe().arguments("report.outputPath"),
              ElementsAre("/cu/CUR_01234567890_2016_05032017_1030.cur"));
  EXPECT_THAT(stampe().arguments("report.run"), ElementsAre("3"));
}

TEST_F(Forms, EachPrintIsSetUpAnew) {
  avviaModuli(true);
  EXPECT_THAT(
      stampe().calls,
      ElementsAre("run.begin", "report.create", "report.session 12 1 1", "report.connection",
                  "dialog.connection", "dialog.session 12", "report.objectType 342",
                  "report.formula {__ViewName.Anno} = 2016 AND {__ViewName.IDAzienda} = 1 AND "
                  "{__ViewName.IDUtente} = 12",
                  "report.file Modulo.rpt", "report.definition 4", "report.outputMode 0",
                  "report.outputPath /cu/CUR_01234567890_2016_05032017_1030.cur", "report.outputFormat 0",
                  "dialog.definition 4", "report.run 3", "report.release", "run.end"));
}

TEST_F(Forms, AreOneRunOfPrints) {
  avviaModuli();
  const std::vector<std::string>& chiamate = stampe().calls;
  ASSERT_FALSE(chiamate.empty());
  EXPECT_EQ(chiamate.front(), "run.begin");
  EXPECT_EQ(chiamate.back(), "run.end");
  EXPECT_EQ(std::count(chiamate.begin(), chiamate.end(), "run.begin"), 1);
  EXPECT_EQ(std::count(chiamate.begin(), chiamate.end(), "report.create"), 2);
}

TEST_F(Forms, KindIntermediaryAndSignatureGoWithEachLine) {
  avviaCU();
  premi(form().optTipoComunicazione[2]);
  premi(form().cmdNav[3]);
  premi(form().cmdNav[3]);
  intermediario("NTRMDR70A01H501U", "01/02/2017");
  form().dtDataFirma.enter("28/02/2017");
  avviaRun();
  EXPECT_THAT(ricorsione(), testing::Contains(inserisci("1,1,12,342,1,3,1,'28/02/2017'")));
}

TEST_F(Forms, EveryStatementPassesTheAdaptation) {
  utilita.adapt = [](std::string testo) {
    return testo.find("TabellaRicorsione2") == std::string::npos ? testo : testo + " /*a*/";
  };
  avviaModuli();
  EXPECT_THAT(ricorsione(), testing::Each(testing::EndsWith(" /*a*/")));
  EXPECT_THAT(ricorsione(), SizeIs(5));
}

TEST_F(Forms, TheyComeBehindTheFileAndBeforeTheTableIsLoadedAnew) {
  avviaModuli();
  EXPECT_LT(posto("ORDER BY Anag.Anagrafica"), posto("TabellaRicorsione2"));
  EXPECT_LT(posto("INSERT INTO TabellaRicorsione2"), posto("drop table"));
  EXPECT_TRUE(riuscito());
}

TEST_F(Forms, TwoLinesOfOnePayeeAndReasonHaveOneNameInOneMinute) {
  righe({workRow(1, 1), workRow(1, 1, {{"Anno", whole(2015)}})});
  avviaModuli();
  const auto nomi = stampe().arguments("report.outputPath");
  ASSERT_THAT(nomi, SizeIs(2));
  EXPECT_EQ(nomi[0], nomi[1]);
}

TEST_F(Forms, TheFolderIsTheFiles) {
  files.folders.insert("/scelta");
  vaiAllaFine();
  frontEnd.folders = {"/scelta"};
  premi(form().cmdSfoglia);
  avviaRun();
  EXPECT_THAT(stampe().arguments("report.outputPath"), testing::Each(testing::StartsWith("/scelta/CUR_")));
}

TEST_F(Forms, AFailedPrintIsToldAndTheRunGoesOnToTheNotice) {
  stampe().failures.emplace("report.run", Error(70, "Il file è in uso."));
  avviaModuli();
  EXPECT_THAT(frontEnd.boxTexts(), ElementsAre("Il file è in uso.", "Il file è in uso."));
  EXPECT_THAT(stampe().arguments("report.run"), ElementsAre("3", "3"));
  EXPECT_EQ(frontEnd.shown.back(), "frmMsgLink");
  EXPECT_TRUE(files.files.contains(kFile));
  EXPECT_TRUE(riuscito());
}

TEST_F(Forms, NoneIsPrintedWhereTheFileCouldNotBeMade) {
  vaiAllaFine();
  files.folders.erase("/cu");
  factory.printing.calls.clear();
  avviaRun();
  EXPECT_THAT(stampe().calls, IsEmpty());
  EXPECT_THAT(ricorsione(), IsEmpty());
  EXPECT_EQ(frontEnd.shown.back(), "frmWizard");
}

TEST_F(Forms, AnErrorOfTheDatabaseRisesAndTheNoticeDoesNotCome) {
  vaiAllaFine();
  database.internal.refuseContaining("INSERT INTO TabellaRicorsione2", DatabaseErrorKind::Full,
                                     "Disco pieno.");
  avviaRun();
  ASSERT_THAT(frontEnd.errors, SizeIs(1));
  EXPECT_EQ(frontEnd.shown.back(), "frmWizard");
  EXPECT_FALSE(riuscito());
}

TEST_F(Forms, TheRowsStayUntilTheFormIsUnloaded) {
  avviaModuli();
  dimentica();
  form().unload();
  EXPECT_THAT(ricorsione(), ElementsAre(kElimina));
}

class EndNotice : public Forms {
 protected:
  void conAvviso(const std::function<void(FrmMsgLink&)>& azione) {
    vaiAllaFine();
    frontEnd.modals = {[azione](Form& avviso) { azione(dynamic_cast<FrmMsgLink&>(avviso)); }};
    avviaRun();
  }
};

TEST_F(EndNotice, TellsNameAndFolderInThreeLines) {
  int mostrato = 0;
  conAvviso([&](FrmMsgLink& avviso) {
    ++mostrato;
    EXPECT_EQ(avviso.lblUser.caption(),
              "Il file generato, che si chiama\r\nCUR_01234567890_2016.cur\r\n"
              "è stato creato correttamente nel seguente percorso:");
    EXPECT_EQ(avviso.lblLink.caption(), "/cu");
    EXPECT_EQ(avviso.connection(), &database.main);
    EXPECT_EQ(passo(), 2);
    avviso.Command1.click();
  });
  EXPECT_EQ(mostrato, 1);
  EXPECT_TRUE(riuscito());
}

TEST_F(EndNotice, OpensTheFolderAsOneText) {
  files.folders.insert("/le mie cu");
  vaiAllaFine();
  frontEnd.folders = {"/le mie cu"};
  premi(form().cmdSfoglia);
  frontEnd.modals = {[](Form& avviso) {
    auto& notizia = dynamic_cast<FrmMsgLink&>(avviso);
    notizia.lblLink.click();
    notizia.Command1.click();
  }};
  avviaRun();
  ASSERT_THAT(frontEnd.opened, SizeIs(1));
  EXPECT_EQ(frontEnd.opened[0].path, "/le mie cu");
  EXPECT_EQ(frontEnd.opened[0].folder, "/le mie cu");
}

TEST_F(EndNotice, LeavesThePointerAsItWas) {
  int durante = -1;
  conAvviso([&](FrmMsgLink& avviso) {
    durante = frontEnd.pointer();
    avviso.Command1.click();
  });
  EXPECT_EQ(durante, 0);
  EXPECT_EQ(frontEnd.pointer(), 0);
}

}  // namespace
}  // namespace cu::test
