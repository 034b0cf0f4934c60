#include "printing/uscita.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/fake_report.h"
#include "support/scripted_front_end.h"

namespace cu::test {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

// A screen that records pointer and boxes in one journal with the calls of the print.
class Schermo : public ScriptedFrontEnd {
 public:
  explicit Schermo(PrintJournal& giornale) : giornale_(giornale) {}
  void setPointer(int pointer) override {
    giornale_.calls.push_back("pointer " + fromInteger(pointer));
    ScriptedFrontEnd::setPointer(pointer);
  }

 private:
  PrintJournal& giornale_;
};

class Launch : public ::testing::Test {
 protected:
  void esegui(int tipo) {
    FakeReport report(giornale);
    FakePrinterDialog dialogo(giornale);
    stampa::esegui({.avanzamento = schermo,
                    .oReport = report,
                    .dialogo = dialogo,
                    .tipoOggetto = 246,
                    .guasto = [this](const std::string& testo) { giornale.calls.push_back("box " + testo); },
                    .interrotta = [this] { giornale.calls.emplace_back("interrotta"); }},
                   static_cast<Uscita>(tipo));
    chiamate = giornale.calls;
  }
  void fallisce(const std::string& chiamata, int numero = 57) {
    giornale.failures.emplace(chiamata, Error(numero, "guasto di " + chiamata));
  }
  PrintJournal giornale;
  Schermo schermo{giornale};
  std::vector<std::string> chiamate;
};

TEST_F(Launch, Kind1IsAPreviewUnderTheHourglass) {
  esegui(1);
  EXPECT_THAT(chiamate, ElementsAre("report.preview", "pointer 0"));
}

TEST_F(Launch, Kind2AsksForThePrinterUnderTheNormalPointer) {
  esegui(2);
  EXPECT_THAT(chiamate, ElementsAre("pointer 0", "dialog.objectType 246", "dialog.prepare", "dialog.show",
                                    "report.copies 2", "report.printer laser LPT1", "pointer 11",
                                    "report.print", "pointer 0"));
}

TEST_F(Launch, APrinterDialogThatIsCancelledEndsThePrintWithoutAWord) {
  giornale.cancelled = true;
  esegui(2);
  EXPECT_THAT(chiamate, ElementsAre("pointer 0", "dialog.objectType 246", "dialog.prepare", "dialog.show",
                                    "pointer 11", "pointer 0"));
  EXPECT_THAT(schermo.boxes, IsEmpty());
}

TEST_F(Launch, Kinds3To6RunWithTheirCodes) {
  for (int tipo = 3; tipo <= 6; ++tipo) esegui(tipo);
  EXPECT_THAT(chiamate, ElementsAre("report.run 1", "pointer 0", "report.release", "report.run 0",
                                    "pointer 0", "report.release", "report.run 2", "pointer 0",
                                    "report.release", "report.run 3", "pointer 0"));
}

TEST_F(Launch, AnyOtherKindDoesNothing) {
  for (const int tipo : {-1, 0, 7}) esegui(tipo);
  EXPECT_THAT(chiamate,
              ElementsAre("pointer 0", "report.release", "pointer 0", "report.release", "pointer 0"));
}

struct Guasto {
  int tipo;
  const char* chiamata;
  const char* completa;
};
class Failure : public Launch, public ::testing::WithParamInterface<Guasto> {};

TEST_P(Failure, OfTheOnlyStatementIsToldUnderTheNormalPointer) {
  fallisce(GetParam().chiamata);
  esegui(GetParam().tipo);
  EXPECT_THAT(chiamate, ElementsAre(GetParam().completa, "pointer 0",
                                    std::string("box guasto di ") + GetParam().chiamata, "pointer 0"));
}

TEST_P(Failure, ThatIsAnInterruptionIsReportedWithoutABox) {
  giornale.interrupted = GetParam().chiamata;
  esegui(GetParam().tipo);
  EXPECT_THAT(chiamate, ElementsAre(GetParam().completa, "pointer 0", "interrotta", "pointer 0"));
}

TEST_P(Failure, OfAPrintGivenUpIsNotTold) {
  fallisce(GetParam().chiamata, kErrorPrintGivenUp);
  esegui(GetParam().tipo);
  EXPECT_THAT(chiamate, ElementsAre(GetParam().completa, "pointer 0", "pointer 0"));
  EXPECT_EQ(static_cast<unsigned>(kErrorPrintGivenUp), 0x800403EFU);
}

INSTANTIATE_TEST_SUITE_P(Kinds, Failure,
                         ::testing::Values(Guasto{1, "report.preview", "report.preview"},
                                           Guasto{3, "report.run", "report.run 1"},
                                           Guasto{4, "report.run", "report.run 0"},
                                           Guasto{5, "report.run", "report.run 2"},
                                           Guasto{6, "report.run", "report.run 3"}));

// Whichever of the printer's statements fails, the next one runs.
class PrinterFailure : public Launch, public ::testing::WithParamInterface<const char*> {};

TEST_P(PrinterFailure, IsToldAndTheNextStatementRuns) {
  fallisce(GetParam());
  esegui(2);
  std::vector<std::string> attese;
  for (const char* chiamata :
       {"pointer 0", "dialog.objectType 246", "dialog.prepare", "dialog.show", "report.copies 2",
        "report.printer laser LPT1", "pointer 11", "report.print", "pointer 0"}) {
    attese.emplace_back(chiamata);
    if (attese.back().rfind(GetParam(), 0) != 0) continue;
    attese.emplace_back("pointer 0");
    attese.push_back(std::string("box guasto di ") + GetParam());
  }
  EXPECT_EQ(chiamate, attese);
}

INSTANTIATE_TEST_SUITE_P(Statements, PrinterFailure,
                         ::testing::Values("dialog.objectType", "dialog.prepare", "dialog.show",
                                           "report.copies", "report.printer"));

TEST_F(Launch, AFailedPrinterIsTold) {
  fallisce("report.print");
  esegui(2);
  EXPECT_THAT(chiamate, Contains("box guasto di report.print"));
  EXPECT_EQ(schermo.pointer(), 0);
}

}  // namespace
}  // namespace cu::test
