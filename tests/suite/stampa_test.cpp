#include "suite/stampa.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "suite/dialogo_stampante.h"
#include "support/fake_connection.h"
#include "support/fake_report.h"
#include "support/fixed_clock.h"
#include "support/scripted_front_end.h"
#include "support/temp_folder.h"

namespace cu::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::SizeIs;

// A screen that also records the values shown in the file name dialog.
class Schermo : public ScriptedFrontEnd {
 public:
  std::vector<std::string> chiesti;
  std::optional<std::string> chooseFileToSave(const std::string& title, const std::string& start,
                                              const std::string& filter) override {
    chiesti.push_back(title + "|" + start + "|" + filter);
    return ScriptedFrontEnd::chooseFileToSave(title, start, filter);
  }
};

class Stampa : public ::testing::Test {
 protected:
  StampaSuite& nuova(bool impagina = true) {
    stampa_ = std::make_unique<StampaSuite>(
        schermo, documenti, orologio,
        impagina ? std::make_unique<FakeReport>(giornale) : std::unique_ptr<ReportEngine>());
    stampa_->setSession(12, 1, 3);
    stampa_->setConnection(connessione);
    stampa_->setObjectType(246);
    stampa_->setSelectionFormula("{__ViewName.IDAzienda} = 1");
    stampa_->setReportFile("ContoIndividuale.rpt");
    stampa_->setDefinition(2461);
    return *stampa_;
  }
  const PrintNote& nota() const { return schermo.prints.at(0); }
  std::string documenti = "/documenti";
  Schermo schermo;
  PrintJournal giornale;
  FakeConnection connessione;
  FixedClock orologio{2017, 3, 5};
  std::unique_ptr<StampaSuite> stampa_;  // destroyed before the objects it calls
};

TEST_F(Stampa, InTwoPartsIsReportedWhenItIsFinished) {
  StampaSuite& stampa = nuova();
  stampa.setOutputMode(0);
  stampa.setOutputPath("/cu/a.cur");
  stampa.setOutputFormat(0);
  const auto iniziata = stampa.begin(3);
  EXPECT_THAT(schermo.prints, IsEmpty());
  EXPECT_THAT(giornale.arguments("report.begin"), ElementsAre("3"));
  iniziata->finish();
  EXPECT_THAT(giornale.calls, Contains("report.finish /cu/a.cur"));
  ASSERT_THAT(schermo.prints, SizeIs(1));
  EXPECT_EQ(nota().kind, 6);
  EXPECT_EQ(nota().file, "/cu/a.cur");
  EXPECT_TRUE(nota().written);
}

TEST_F(Stampa, InTwoPartsIsReportedOnceWhereEitherPartFails) {
  for (const char* const parte : {"report.begin", "report.finish /cu/a.cur"}) {
    schermo.prints.clear();
    giornale.failures = {{parte, Error(kErrorDeviceIo, "no")}};
    StampaSuite& stampa = nuova();
    stampa.setOutputPath("/cu/a.cur");
    const auto iniziata = stampa.begin(3);
    EXPECT_THAT(schermo.prints, IsEmpty());
    EXPECT_THROW(iniziata->finish(), Error);
    ASSERT_THAT(schermo.prints, SizeIs(1)) << parte;
    EXPECT_FALSE(nota().written);
  }
}

TEST_F(Stampa, ThatTheUserInterruptsIsReportedAsSuch) {
  giornale.interrupted = "report.run";
  StampaSuite& stampa = nuova();
  stampa.setOutputPath("/cu/a.cur");
  EXPECT_THROW(stampa.run(3), PrintInterrupted);
  ASSERT_THAT(schermo.prints, SizeIs(1));
  EXPECT_TRUE(nota().interrupted);
  EXPECT_FALSE(nota().written);
  giornale.interrupted.clear();
  giornale.failures = {{"report.run", Error(kErrorDeviceIo, "no")}};
  EXPECT_THROW(stampa.run(3), Error);
  EXPECT_FALSE(schermo.prints.at(1).interrupted) << "a failure is none";
}

TEST_F(Stampa, InTwoPartsThatIsNotFinishedIsNoPrint) {
  StampaSuite& stampa = nuova();
  stampa.setOutputPath("/cu/a.cur");
  { const auto iniziata = stampa.begin(3); }
  EXPECT_THAT(schermo.prints, IsEmpty());
}

TEST_F(Stampa, InTwoPartsWithoutAnEngineIsOnlyReported) {
  StampaSuite& stampa = nuova(false);
  stampa.setOutputPath("/cu/a.cur");
  stampa.begin(3)->finish();
  ASSERT_THAT(schermo.prints, SizeIs(1));
  EXPECT_FALSE(nota().written);
}

TEST_F(Stampa, WhatIsSetReachesTheEngineAndTheNote) {
  StampaSuite& stampa = nuova();
  stampa.setOutputMode(0);
  stampa.setOutputPath("/cu/a.cur");
  stampa.setOutputFormat(0);
  stampa.run(3);
  EXPECT_THAT(giornale.calls,
              ElementsAre("report.session 12 1 3", "report.connection", "report.objectType 246",
                          "report.formula {__ViewName.IDAzienda} = 1", "report.file ContoIndividuale.rpt",
                          "report.definition 2461", "report.outputMode 0", "report.outputPath /cu/a.cur",
                          "report.outputFormat 0", "report.run 3"));
  EXPECT_EQ(giornale.reportConnection, &connessione);
  ASSERT_THAT(schermo.prints, SizeIs(1));
  EXPECT_EQ(nota().kind, 6);
  EXPECT_EQ(nota().code, 3);
  EXPECT_EQ(nota().report, "ContoIndividuale.rpt");
  EXPECT_EQ(nota().formula, "{__ViewName.IDAzienda} = 1");
  EXPECT_EQ(nota().file, "/cu/a.cur");
  EXPECT_EQ(nota().printer, "");
  EXPECT_EQ(nota().copies, 0);
  EXPECT_TRUE(nota().written);
  EXPECT_THAT(schermo.chiesti, IsEmpty());
}

TEST_F(Stampa, APreviewHasNoCodeAndIsToldBeforeItOpens) {
  StampaSuite& stampa = nuova();
  giornale.failures.emplace("report.preview", Error(57, "guasto"));
  EXPECT_THROW(stampa.preview(), Error);
  ASSERT_THAT(schermo.prints, SizeIs(1));
  EXPECT_EQ(nota().kind, 1);
  EXPECT_EQ(nota().code, std::nullopt);
  EXPECT_THAT(giornale.calls, Contains("report.preview"));
}

TEST_F(Stampa, APrinterHasCopiesAndNoCode) {
  StampaSuite& stampa = nuova();
  stampa.setCopies(2);
  stampa.setPrinter("laser", "LPT1");
  stampa.print();
  ASSERT_THAT(schermo.prints, SizeIs(1));
  EXPECT_EQ(nota().kind, 2);
  EXPECT_EQ(nota().code, std::nullopt);
  EXPECT_EQ(nota().printer, "laser");
  EXPECT_EQ(nota().copies, 2);
  EXPECT_EQ(nota().file, "");
  EXPECT_TRUE(nota().written);
}

struct Uscita {
  int codice;
  int tipo;
  const char* chiesto;
};

class Domanda : public Stampa, public ::testing::WithParamInterface<Uscita> {};

TEST_P(Domanda, WithoutANameAPersonGivesOne) {
  schermo.savedFiles = {"/scelto/x.y"};
  nuova().run(GetParam().codice);
  EXPECT_THAT(schermo.chiesti, ElementsAre(GetParam().chiesto));
  EXPECT_THAT(giornale.arguments("report.outputPath"), ElementsAre("/scelto/x.y"));
  EXPECT_EQ(giornale.calls.back(), "report.run " + std::to_string(GetParam().codice));
  ASSERT_THAT(schermo.prints, SizeIs(1));
  EXPECT_EQ(nota().kind, GetParam().tipo);
  EXPECT_EQ(nota().code, GetParam().codice);
  EXPECT_EQ(nota().file, "/scelto/x.y");
}

TEST_P(Domanda, APersonWhoGivesNoneGivesThePrintUp) {
  try {
    nuova().run(GetParam().codice);
    ADD_FAILURE() << "not given up";
  } catch (const Error& errore) {
    EXPECT_EQ(errore.number(), kErrorPrintGivenUp);
  }
  EXPECT_THAT(giornale.arguments("report.run"), IsEmpty());
  EXPECT_THAT(schermo.prints, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    Codes, Domanda,
    ::testing::Values(
        Uscita{1, 3, "Salva la stampa con nome|/documenti/ContoIndividuale_20170305.pdf|File PDF (*.pdf)"},
        Uscita{
            0, 4,
            "Salva la stampa con nome|/documenti/ContoIndividuale_20170305.xlsx|Foglio di calcolo (*.xlsx)"},
        Uscita{3, 6, "Salva la stampa con nome|/documenti/ContoIndividuale_20170305.pdf|File PDF (*.pdf)"}));

TEST_F(Stampa, ForMailTheFileGoesToTheDocumentsWithoutAQuestion) {
  nuova().run(2);
  EXPECT_THAT(schermo.chiesti, IsEmpty());
  EXPECT_EQ(nota().kind, 5);
  EXPECT_EQ(nota().file, "/documenti/ContoIndividuale_20170305_1030.pdf");
  EXPECT_THAT(giornale.arguments("report.outputPath"), ElementsAre(nota().file));
}

TEST_F(Stampa, ForMailNoEarlierFileIsTouched) {
  const TempFolder cartella;
  documenti = cartella.path();
  cartella.write("ContoIndividuale_20170305_1030.pdf", "prima");
  cartella.write("ContoIndividuale_20170305_1030_2.pdf", "poi");
  nuova().run(2);
  EXPECT_EQ(nota().file, cartella / "ContoIndividuale_20170305_1030_3.pdf");
}

TEST_F(Stampa, ANameWithoutAnEndingGetsOne) {
  schermo.savedFiles = {"/una.cartella/nome", "/x/nome"};
  nuova().run(1);
  nuova().run(0);
  EXPECT_THAT(giornale.arguments("report.outputPath"), ElementsAre("/una.cartella/nome.pdf", "/x/nome.xlsx"));
}

TEST_F(Stampa, AFailedPrintIsToldOnceAndItsErrorRises) {
  StampaSuite& stampa = nuova();
  stampa.setOutputPath("/cu/a.cur");
  giornale.failures.emplace("report.run", Error(61, "Disco pieno."));
  try {
    stampa.run(3);
    ADD_FAILURE() << "no error";
  } catch (const Error& errore) {
    EXPECT_EQ(errore.number(), 61);
  }
  ASSERT_THAT(schermo.prints, SizeIs(1));
  EXPECT_EQ(nota().file, "/cu/a.cur");
  EXPECT_FALSE(nota().written);
}

TEST_F(Stampa, ACodeThatDoesNotExistIsRefused) {
  EXPECT_THROW(nuova().run(4), Error);
  EXPECT_THAT(schermo.prints, IsEmpty());
}

TEST_F(Stampa, TheRecordedOneIsOnlyTold) {
  StampaSuite& stampa = nuova(false);
  stampa.setOutputMode(0);
  stampa.setOutputPath("/cu/a.cur");
  stampa.setOutputFormat(0);
  stampa.run(3);
  stampa.setCopies(1);
  stampa.setPrinter("laser", "");
  stampa.print();
  stampa.preview();
  ASSERT_THAT(schermo.prints, SizeIs(3));
  EXPECT_EQ(nota().file, "/cu/a.cur");
  for (const PrintNote& detta : schermo.prints) EXPECT_FALSE(detta.written);
  EXPECT_THAT(schermo.previews, IsEmpty());
  EXPECT_THAT(giornale.calls, IsEmpty());
}

TEST_F(Stampa, TheRecordedOneAsksForItsNameTheSame) {
  schermo.savedFiles = {"/x/b.pdf"};
  nuova(false).run(1);
  EXPECT_EQ(nota().file, "/x/b.pdf");
  EXPECT_THROW(nuova(false).run(1), Error);
  EXPECT_THAT(schermo.prints, SizeIs(1));
}

TEST(DialogoStampante, ItIsTheFrontEnds) {
  ScriptedFrontEnd schermo;
  schermo.printers = {PrinterChoice{"laser", 3}, std::nullopt};
  DialogoStampante dialogo(schermo);
  FakeConnection connessione;
  dialogo.setConnection(connessione);
  dialogo.setSession(12);
  dialogo.setDefinition(1);
  dialogo.setObjectType(246);
  dialogo.prepare();
  EXPECT_TRUE(dialogo.cancelled());
  dialogo.show();
  EXPECT_FALSE(dialogo.cancelled());
  EXPECT_EQ(dialogo.printer(), "laser");
  EXPECT_EQ(dialogo.copies(), 3);
  EXPECT_EQ(dialogo.port(), "");
  dialogo.prepare();
  dialogo.show();
  EXPECT_TRUE(dialogo.cancelled());
}

}  // namespace
}  // namespace cu::test
