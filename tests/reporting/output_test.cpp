#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "host/print_interrupted.h"
#include "report_support.h"
#include "reporting/report_error.h"
#include "support/memory_file_system.h"

namespace cu::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr const char* kFormula = "{__ViewName.IDAziendaPercipiente} = 1 AND {__ViewName.IDAzienda} = 1";

Error refusalOfPrint(const std::function<void()>& print) {
  try {
    print();
  } catch (const Error& error) {
    return error;
  }
  ADD_FAILURE() << "it printed";
  return {0, ""};
}

TEST(Pdf, HasTitleCreatorAndPagesOfA4) {
  PrintShop shop;
  const std::string info = runCommand("pdfinfo '" + shop.print(kAccounts, kFormula) + "'").output;
  EXPECT_THAT(info, HasSubstr("Title:           Conti individuali dei percipienti - Bottega Lessinia Servizi "
                              "S.r.l. - anni 2014-2017"));
  EXPECT_THAT(info, HasSubstr("Creator:         Quadrivio"));
  EXPECT_THAT(info, HasSubstr("A4"));
}

TEST(Pdf, EmbedsItsFontsAndMapsThemToLetters) {
  PrintShop shop;
  const std::string fonts = runCommand("pdffonts '" + shop.print(kAccounts, kFormula) + "'").output;
  EXPECT_EQ(count(fonts, "DejaVuSans"), 2);  // regular and bold
  EXPECT_EQ(count(fonts, "\n"), 4);
  EXPECT_EQ(count(fonts, " yes yes yes "), 2);  // embedded, a subset, mapped to Unicode
}

TEST(Pdf, KeepsLettersApartThatAFontWouldJoin) {
  PrintShop shop;
  const std::string text = shop.text(kSummary, " {__ViewName.Anno} = 2017 AND " + std::string(kFormula));
  EXPECT_THAT(text, HasSubstr("Codice fiscale"));
  EXPECT_THAT(text, HasSubstr("Certificazione"));
}

TEST(Pdf, HasAccentsOfEveryName) {
  PrintShop shop;
  const std::string text = shop.text(kSummary, " {__ViewName.Anno} = 2017 AND " + std::string(kFormula));
  for (const char* name :
       {"Niccolò", "Peña Álvarez", "María José", "Hélène", "Müller-Großmann", "Žagar", "Pàstina"}) {
    EXPECT_THAT(text, HasSubstr(name));
  }
}

TEST(Pdf, TakesThePlaceOfAnEarlierPrint) {
  PrintShop shop;
  shop.folder.write("stampa.pdf", "vecchia");
  EXPECT_THAT(shop.text(kAccounts, kFormula), HasSubstr("Totale generale"));
  EXPECT_THAT(shop.filesLeft(), ElementsAre("stampa.pdf"));
}

TEST(Pdf, IsWrittenForEveryCodeButTheTable) {
  for (const int code : {1, 2, 3}) {
    PrintShop shop;
    auto engine = shop.engine(kAccounts, kFormula);
    PrintShop::nameFile(*engine, shop.folder / "a.cur");
    engine->run(code);
    EXPECT_THAT(shop.folder.read("a.cur"), testing::StartsWith("%PDF-"));
  }
}

TEST(Run, AsksNothingAndTellsNothing) {
  PrintShop shop;
  shop.print(kAccounts, kFormula);
  EXPECT_THAT(shop.screen.prints, IsEmpty());
  EXPECT_THAT(shop.screen.boxes, IsEmpty());
}

TEST(Run, ReportsTheRowsAsItCountsThePagesAndThePagesAsItWritesThem) {
  PrintShop shop;
  const int pages = pageCount(shop.print(kAccounts, kFormula));
  ASSERT_GT(pages, 2);
  std::vector<std::string> kinds;
  std::size_t written = 0;
  for (const auto& step : shop.screen.progresses) {
    if (kinds.empty() || kinds.back() != step.what) kinds.push_back(step.what);
    EXPECT_LE(step.done, step.total);
    if (step.what != "Scrittura delle pagine") continue;
    EXPECT_EQ(step.total, static_cast<std::size_t>(pages));
    EXPECT_EQ(step.done, ++written);
  }
  EXPECT_THAT(kinds, ElementsAre("Conteggio delle pagine", "Scrittura delle pagine"));
  EXPECT_EQ(written, static_cast<std::size_t>(pages) - 1) << "each page but the last, as it ends";
}

TEST(Run, ReportsEachFormOfMany) {
  PrintShop shop;
  chooseLines({{101, "A"}, {104, "A"}});
  shop.print(kForms, formFormula(2016));
  ASSERT_FALSE(shop.screen.progresses.empty());
  const std::size_t total = shop.screen.progresses.front().total;
  EXPECT_EQ(shop.screen.progresses.size(), total);
  EXPECT_GT(total, 1U);
  for (const auto& step : shop.screen.progresses) EXPECT_EQ(step.what, "Scrittura dei moduli");
}

TEST(Run, WithoutAFileOrWithAnUnknownCodeIsRefused) {
  PrintShop shop;
  EXPECT_EQ(refusalOfPrint([&] { shop.engine(kAccounts, kFormula)->run(3); }).description(),
            "La stampa non ha il nome del file da scrivere.");
  for (const int code : {-1, 4}) {
    auto engine = shop.engine(kAccounts, kFormula);
    PrintShop::nameFile(*engine, shop.folder / "a.pdf");
    EXPECT_EQ(refusalOfPrint([&] { engine->run(code); }).number(), kErrorInvalidCall);
  }
  EXPECT_THAT(shop.filesLeft(), IsEmpty());
}

TEST(Failure, InAFolderThatIsNotThereIsToldAndLeavesNothing) {
  PrintShop shop;
  const std::string path = shop.folder / "manca/a.pdf";
  for (const int code : {0, 3}) {
    auto engine = shop.engine(kAccounts, kFormula);
    PrintShop::nameFile(*engine, path);
    const Error error = refusalOfPrint([&] { engine->run(code); });
    EXPECT_EQ(error.number(), kErrorPathNotFound);
    EXPECT_THAT(error.description(), HasSubstr("Impossibile creare la stampa " + path));
  }
  EXPECT_THAT(shop.filesLeft(), IsEmpty());
}

TEST(Failure, OverAFolderIsTold) {
  PrintShop shop;
  std::filesystem::create_directory(shop.folder / "a.pdf");
  auto engine = shop.engine(kAccounts, kFormula);
  PrintShop::nameFile(*engine, shop.folder / "a.pdf");
  EXPECT_EQ(refusalOfPrint([&] { engine->run(3); }).number(), kErrorPathAccess);
  EXPECT_THAT(shop.filesLeft(), ElementsAre("a.pdf"));
}

// The same print on files in memory, so that each step can be made to fail.
class MemoryPrint {
 public:
  MemoryPrint() : reports({screen, files, clock, "Quadrivio"}) { files.files["/a.pdf"] = "quella di prima"; }
  std::unique_ptr<ReportEngine> engine() {
    auto engine = reports.create();
    engine->setSession(12, 1, 1);
    engine->setConnection(demo());
    engine->setObjectType(246);
    engine->setSelectionFormula(kFormula);
    engine->setReportFile(kAccounts);
    engine->setDefinition(2461);
    PrintShop::nameFile(*engine, "/a.pdf");
    return engine;
  }
  Error refused(int code) {
    return refusalOfPrint([&] { engine()->run(code); });
  }
  ScriptedFrontEnd screen;
  MemoryFileSystem files;
  FixedClock clock{2018, 3, 5};
  PdfReports reports;
};

struct Step {
  MemoryFileSystem::Operation operation;
  int nth;
};
class FailingStep : public testing::TestWithParam<std::tuple<Step, int>> {};

TEST_P(FailingStep, LeavesWhatWasThereBefore) {
  const auto& [step, code] = GetParam();
  MemoryPrint print;
  print.files.failNth(step.operation, step.nth, kErrorDeviceIo);
  EXPECT_EQ(print.refused(code).number(), kErrorDeviceIo);
  EXPECT_THAT(print.files.files, ElementsAre(testing::Pair("/a.pdf", "quella di prima")));
  EXPECT_EQ(print.files.openNow, 0);
}

INSTANTIATE_TEST_SUITE_P(EachStep, FailingStep,
                         testing::Combine(testing::Values(Step{MemoryFileSystem::Operation::Open, 1},
                                                          Step{MemoryFileSystem::Operation::Write, 1},
                                                          Step{MemoryFileSystem::Operation::Close, 1},
                                                          Step{MemoryFileSystem::Operation::Rename, 1}),
                                          testing::Values(0, 3)));

TEST(Failure, OfTheTwentiethWriteIsToldToo) {
  MemoryPrint print;
  print.files.failNth(MemoryFileSystem::Operation::Write, 20, kErrorDeviceIo);
  EXPECT_EQ(print.refused(3).number(), kErrorDeviceIo);
  EXPECT_EQ(print.files.files.size(), 1U);
}

// Interrupted at each report of its progress, one after the other; false after the last.
template <class Print>
bool interruptedAt(std::size_t report, ScriptedFrontEnd& screen, const Print& print) {
  screen.progresses.clear();
  screen.interrupts = [&] { return screen.progresses.size() > report; };
  try {
    print();
  } catch (const PrintInterrupted&) {
    return true;
  }
  return false;
}

TEST(Interruption, AtAnyStepLeavesTheFileThatWasThereBefore) {
  for (const int code : {0, 3}) {
    MemoryPrint print;
    std::size_t report = 0;
    for (; interruptedAt(report, print.screen, [&] { print.engine()->run(code); }); ++report) {
      EXPECT_THAT(print.files.files, ElementsAre(testing::Pair("/a.pdf", "quella di prima"))) << report;
      EXPECT_EQ(print.files.openNow, 0);
    }
    EXPECT_GT(report, 3U);
    EXPECT_THAT(print.files.files, ElementsAre(testing::Pair("/a.pdf", Not("quella di prima"))));
  }
}

TEST(Interruption, OfAPreviewShowsThePagesThatAreComplete) {
  MemoryPrint print;
  print.engine()->preview();
  ASSERT_THAT(print.screen.previews, testing::SizeIs(1));
  const std::vector<std::string> whole = print.screen.previews.front();
  ASSERT_GT(whole.size(), 2U);
  EXPECT_EQ(print.screen.partialPreviews, 0);
  EXPECT_THAT(print.screen.facts, IsEmpty());
  print.screen.interrupts = [&] {
    const auto& last = print.screen.progresses.back();
    return last.what == "Scrittura delle pagine" && last.done == 2;
  };
  print.engine()->preview();
  ASSERT_THAT(print.screen.previews, testing::SizeIs(2));
  EXPECT_THAT(print.screen.previews.back(), ElementsAre(whole[0], whole[1]));
  EXPECT_EQ(print.screen.partialPreviews, 1);
  EXPECT_THAT(print.screen.facts, ElementsAre("L'anteprima è stata interrotta."));
}

TEST(Interruption, OfAPreviewWithoutAPageShowsNothing) {
  MemoryPrint print;
  print.screen.interrupts = [] { return true; };
  EXPECT_THROW(print.engine()->preview(), PrintInterrupted);
  EXPECT_THAT(print.screen.previews, IsEmpty());
  EXPECT_THAT(print.screen.facts, ElementsAre("Anteprima interrotta prima della prima pagina."));
}

TEST(Interruption, OfFormsShowsThoseThatAreComplete) {
  PrintShop shop;
  chooseLines({{101, "A"}, {104, "A"}});
  shop.engine(kForms, formFormula(2016))->preview();
  shop.screen.interrupts = [&] { return shop.screen.progresses.back().done == 1; };
  shop.engine(kForms, formFormula(2016))->preview();
  ASSERT_THAT(shop.screen.previews, testing::SizeIs(2));
  const auto& whole = shop.screen.previews.front();
  const auto& part = shop.screen.previews.back();
  ASSERT_LT(part.size(), whole.size());
  ASSERT_GE(part.size(), 2U);
  EXPECT_TRUE(std::equal(part.begin(), part.end(), whole.begin()));
}

TEST(Failure, OfAFullDiskLeavesWhatWasThereBefore) {
  for (const int code : {0, 3}) {
    MemoryPrint print;
    print.files.limitSpace(4000);
    EXPECT_EQ(print.refused(code).number(), kErrorDiskFull);
    EXPECT_THAT(print.files.files, ElementsAre(testing::Pair("/a.pdf", "quella di prima")));
  }
}

TEST(Failure, OfABrokenDefinitionIsTold) {
  const std::vector<reporting::DefinitionFile> broken = {
      {"rotta.toml", "name = \"ContoIndividuale.rpt\"\nobject_type = 246\n"}};
  PrintShop shop(broken);
  auto engine = shop.engine(kAccounts, kFormula);
  PrintShop::nameFile(*engine, shop.folder / "a.pdf");
  const Error error = refusalOfPrint([&] { engine->run(3); });
  EXPECT_EQ(error.number(), kErrorReportDefinition);
  EXPECT_EQ(
      error.description(),
      "Definizione della stampa rotta.toml: definition: manca, atteso un numero intero maggiore di zero.");
  EXPECT_THAT(shop.filesLeft(), IsEmpty());
}

TEST(Failure, OfADefinitionWithAFieldThatTheViewLacksIsTold) {
  std::vector<reporting::DefinitionFile> files = reporting::embeddedDefinitionFiles();
  for (reporting::DefinitionFile& file : files) {
    const std::size_t at = file.text.find("field = \"RitenutaAcconto\"");
    if (at != std::string::npos) file.text.replace(at, 25, "field = \"RitenutaInventata\"");
  }
  PrintShop shop(files);
  auto engine = shop.engine(kAccounts, kFormula);
  PrintShop::nameFile(*engine, shop.folder / "a.pdf");
  EXPECT_EQ(refusalOfPrint([&] { engine->run(3); }).description(),
            "Definizione della stampa ContoIndividuale.rpt: la vista RepContoIndividuale non ha il campo "
            "\"RitenutaInventata\".");
}

TEST(Failure, OfAFormulaIsToldWithItsPosition) {
  PrintShop shop;
  auto engine = shop.engine(kAccounts, "{__ViewName.Anno} >= duemila");
  PrintShop::nameFile(*engine, shop.folder / "a.pdf");
  const Error error = refusalOfPrint([&] { engine->run(3); });
  EXPECT_EQ(error.number(), kErrorReportFormula);
  EXPECT_THAT(error.description(), HasSubstr("carattere 22"));
  EXPECT_THAT(shop.filesLeft(), IsEmpty());
}

// A screen that examines the file during the preview.
class WatchingScreen : public ScriptedFrontEnd {
 public:
  void preview(const Preview& preview) override {
    title = preview.title;
    file = preview.file;
    text = pdfText(preview.file);
    ScriptedFrontEnd::preview(preview);
  }
  std::string title;
  std::string file;
  std::string text;
};

TEST(PreviewOfPages, HasTheirTextsAndAFileThatGoes) {
  WatchingScreen screen;
  FileSystemPiattaforma files;
  const FixedClock clock(2018, 3, 5);
  PdfReports reports({screen, files, clock, "Quadrivio"});
  auto engine = reports.create();
  engine->setSession(12, 1, 1);
  engine->setConnection(demo());
  engine->setObjectType(246);
  engine->setSelectionFormula(kFormula);
  engine->setReportFile(kAccounts);
  engine->setDefinition(2461);
  engine->preview();
  EXPECT_EQ(screen.title, "Conti individuali dei percipienti");
  ASSERT_EQ(screen.previews.size(), 1U);
  const std::vector<std::string>& pages = screen.previews[0];
  ASSERT_GT(pages.size(), 5U);
  EXPECT_THAT(pages.front(), HasSubstr("P041   Abd El Karim Yousef  Codice fiscale BDLYSF86M08Z336E\n"));
  EXPECT_THAT(pages.front(), HasSubstr("2014  2.322,22  0,00  0,00  0,00  2.322,22"));
  EXPECT_THAT(pages.back(), HasSubstr("Totale generale  1.515.716,26"));
  EXPECT_THAT(pages.back(),
              HasSubstr("Pagina " + std::to_string(pages.size()) + " di " + std::to_string(pages.size())));
  EXPECT_THAT(screen.text, HasSubstr("Totale generale"));
  EXPECT_FALSE(std::filesystem::exists(screen.file));
}

TEST(Printer, ThatIsNotInstalledIsTold) {
  PrintShop shop;
  auto engine = shop.engine(kAccounts, kFormula);
  engine->setCopies(2);
  engine->setPrinter("Stampante che non esiste", "");
  const Error error = refusalOfPrint([&] { engine->print(); });
  EXPECT_EQ(error.number(), kErrorReportPrinter);
  EXPECT_THAT(error.description(),
              testing::AnyOf("Nessuna stampante è installata su questo computer.",
                             "La stampante \"Stampante che non esiste\" non è installata."));
}

// The cells of a table, one row per line, separated by "|".
std::string cellsOf(const std::string& path) {
  const CommandResult result = runCommand(
      "python3 -c \"\n"
      "import re,sys,zipfile,xml.etree.ElementTree as E\n"
      "n='{http://schemas.openxmlformats.org/spreadsheetml/2006/main}'\n"
      "z=zipfile.ZipFile(sys.argv[1]); assert z.testzip() is None\n"
      "for r in E.fromstring(z.read('xl/worksheets/sheet1.xml')).iter(n+'row'):\n"
      "  print('|'.join(''.join(t.text or '' for t in c.iter() if t.tag in (n+'v',n+'t')) for c in "
      "r.iter(n+'c')))\n"
      "print(z.read('docProps/core.xml').decode())\n"
      "\" '" +
      path + "'");
  EXPECT_EQ(result.status, 0) << result.output;
  return result.output;
}

TEST(Spreadsheet, HoldsTheRowsAsNumbersAndTexts) {
  PrintShop shop;
  auto engine =
      shop.engine(kAccounts, std::string("{__ViewName.CodicePercipiente} = 'P010' AND ") + kFormula);
  PrintShop::nameFile(*engine, shop.folder / "conti.xlsx");
  engine->run(0);
  const std::string cells = cellsOf(shop.folder / "conti.xlsx");
  EXPECT_THAT(
      cells,
      HasSubstr("Codice percipiente|Cognome o denominazione|Nome|Codice fiscale|Causale|Descrizione della "
                "causale|Anno|Onorari e provvigioni|"));
  EXPECT_THAT(cells,
              HasSubstr("P010|Commissionaria Adige S.r.l.|02150100226|S|Provvigioni a commissionario|2014|"));
  EXPECT_THAT(cells, HasSubstr("<dc:title>Conti individuali dei percipienti</dc:title>"));
  EXPECT_THAT(cells, HasSubstr("<dc:creator>Quadrivio</dc:creator>"));
  EXPECT_THAT(shop.filesLeft(), ElementsAre("conti.xlsx"));
}

TEST(Spreadsheet, OfPaymentsHasTheirDates) {
  PrintShop shop;
  auto engine = shop.engine(kDetailed,
                            "Year({__ViewName.DataPagamento}) = 2014 AND {__ViewName.Codice} = 'P002' AND "
                            "{__ViewName.IDAzienda} = 1");
  PrintShop::nameFile(*engine, shop.folder / "a.xlsx");
  engine->run(0);
  // 25 January 2014 is day 41664.
  EXPECT_THAT(cellsOf(shop.folder / "a.xlsx"), HasSubstr("|2014|A|"));
  EXPECT_THAT(cellsOf(shop.folder / "a.xlsx"), HasSubstr("|41664|1/2014|41657|2974|0|2974|594.8|0|0"));
}

TEST(Spreadsheet, OfFormsHasALineAModule) {
  PrintShop shop;
  chooseLines({{101, "A"}});
  auto engine = shop.engine(kForms, formFormula(2017));
  PrintShop::nameFile(*engine, shop.folder / "a.xlsx");
  engine->run(0);
  const std::string cells = cellsOf(shop.folder / "a.xlsx");
  EXPECT_THAT(cells, HasSubstr("Modulo|1 Causale|2 Anno|3 Anticipazione|4 Ammontare lordo corrisposto|"));
  EXPECT_THAT(cells, HasSubstr("2017|P001|RSSMRC71C08L781I|Rossi|Marco|1|A|14235.33|13902|2780.4\n"));
  EXPECT_THAT(cells, HasSubstr("2017|P001|RSSMRC71C08L781I|Rossi|Marco|2|7|333.33\n"));
}

TEST(Spreadsheet, IsNamedByATitleWithSignsThatASheetMayNotBear) {
  const auto titled = [](const std::string& title) {
    PrintShop shop({{"prova.toml",
                     "name = \"Prova.rpt\"\nobject_type = 246\ndefinition = 9\n"
                     "view = \"RepContoIndividuale\"\ntitle = \"" +
                         title +
                         "\"\nlayout = \"list\"\norder = [\"Anno\"]\n[[group]]\nkey = [\"Anno\"]\n"
                         "title = \"{Anno}\"\n[[column]]\ncaption = \"Anno\"\nformat = \"integer\"\n"
                         "field = \"Anno\"\nwidth = 10\n"}});
    auto engine = shop.engine("Prova.rpt", 246, 9, kFormula);
    PrintShop::nameFile(*engine, shop.folder / "a.xlsx");
    engine->run(0);
    return runCommand(
               "python3 -c \"import sys,zipfile; "
               "print(zipfile.ZipFile(sys.argv[1]).read('xl/workbook.xml'))\" '" +
               shop.folder / "a.xlsx" + "'")
        .output;
  };
  EXPECT_THAT(titled("'Anno' 2016/17: [tutti] *?"), HasSubstr("<sheet name=\"Anno  2016 17   tutti\""));
  EXPECT_THAT(titled("Certificazioni dei compensi corrisposti nell'anno"),
              HasSubstr("<sheet name=\"Certificazioni dei compensi cor\""));
  EXPECT_THAT(titled("[/]"), HasSubstr("<sheet name=\"Stampa\""));
}

}  // namespace
}  // namespace cu::test
