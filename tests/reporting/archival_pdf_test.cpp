// Prints are files for keeping: PDF/A-1b with the information of what they are.

#include "reporting/archival_pdf.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>

#include "pdfa_support.h"
#include "report_support.h"
#include "reporting/file_form.h"
#include "reporting/gui_application.h"
#include "reporting/print_font.h"
#include "reporting/report_error.h"
#include "support/temp_folder.h"

namespace cu::test {
namespace {

using reporting::ArchivalPdf;
using reporting::DocumentInfo;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

struct TitledPrint {
  const char* report;
  const char* formula;
  const char* title;
};

class Keeping : public testing::TestWithParam<TitledPrint> {
 protected:
  void SetUp() override { chooseLines({{101, "A"}, {103, "A"}, {128, "A"}}); }
  std::string print() { return shop.print(GetParam().report, GetParam().formula, "stampa.cur"); }
  PrintShop shop;
};

TEST_P(Keeping, HasWhatTheStandardNames) { EXPECT_THAT(missingForKeeping(print()), IsEmpty()); }

TEST_P(Keeping, IsAcceptedByTheValidator) { EXPECT_EQ(refusalOfValidator(print()), ""); }

TEST_P(Keeping, SaysWhatItIsWhoseAndOfWhichYears) {
  const std::string info = runCommand("pdfinfo '" + print() + "'").output;
  EXPECT_THAT(info, HasSubstr("Title:           " + std::string(GetParam().title) + "\n"));
  EXPECT_THAT(info, HasSubstr("Author:          Bottega Lessinia Servizi S.r.l.\n"));
  EXPECT_THAT(info, HasSubstr("Creator:         Quadrivio\n"));
  EXPECT_THAT(info, HasSubstr("Producer:        Qt " + std::string(qVersion())));
}

constexpr const char* kAllYears = "{__ViewName.IDAziendaPercipiente} = 1 AND {__ViewName.IDAzienda} = 1";
constexpr const char* kOneYear =
    "{__ViewName.Anno} = 2017 AND {__ViewName.IDAziendaPercipiente} = 1 AND {__ViewName.IDAzienda} = 1";
constexpr const char* kPaymentsOfYear =
    "Year({__ViewName.DataPagamento}) = 2017 AND {__ViewName.IDAzienda} = 1";
constexpr const char* kLines =
    "{__ViewName.Anno} = 2017 AND {__ViewName.IDAzienda} = 1 AND {__ViewName.IDUtente} = 12";
constexpr const char* kNoLines =
    "{__ViewName.Anno} = 1990 AND {__ViewName.IDAzienda} = 1 AND {__ViewName.IDUtente} = 12";

INSTANTIATE_TEST_SUITE_P(
    Reports, Keeping,
    testing::Values(
        TitledPrint{kAccounts, kAllYears,
                    "Conti individuali dei percipienti - Bottega Lessinia Servizi S.r.l. - anni 2014-2017"},
        TitledPrint{kAccounts, kOneYear,
                    "Conti individuali dei percipienti - Bottega Lessinia Servizi S.r.l. - anno 2017"},
        TitledPrint{kSummary, kOneYear,
                    "Certificazione dei compensi - Bottega Lessinia Servizi S.r.l. - anno 2017"},
        TitledPrint{kDetailed, kPaymentsOfYear,
                    "Certificazione dei compensi - Bottega Lessinia Servizi S.r.l. - anno 2017"},
        TitledPrint{kForms, kLines, "Certificazione Unica - Bottega Lessinia Servizi S.r.l. - anno 2017"},
        TitledPrint{kForms, kNoLines, "Certificazione Unica - Bottega Lessinia Servizi S.r.l."}));

TEST(KeepingOfAPreview, IsThatOfAPrint) {
  class Screen : public ScriptedFrontEnd {
   public:
    void preview(const Preview& preview) override {
      missing = missingForKeeping(preview.file);
      refused = refusalOfValidator(preview.file);
      ScriptedFrontEnd::preview(preview);
    }
    std::vector<std::string> missing = {"no preview"};
    std::string refused = "no preview";
  };
  Screen screen;
  FileSystemPiattaforma files;
  const FixedClock clock(2018, 3, 5);
  PdfReports reports({screen, files, clock, "Quadrivio"});
  auto engine = reports.create();
  engine->setSession(12, 1, 1);
  engine->setConnection(demo());
  engine->setObjectType(246);
  engine->setSelectionFormula(kOneYear);
  engine->setReportFile(kAccounts);
  engine->setDefinition(2461);
  engine->preview();
  EXPECT_THAT(screen.missing, IsEmpty());
  EXPECT_EQ(screen.refused, "");
}

TEST(KeepingOfAFormFromAFile, NamesTheFilesCompanyAndHasNoDate) {
  reporting::FormOfFile form;
  form.year = 2017;
  form.identity = {{"DA001002", "ROSSI & FIGLI <S.R.L.>"}, {"DA002001", "BDLYSF86M08Z336E"}};
  form.modules = {{{"AU001001", "A"}}};
  const auto pages = reporting::drawFormOfFile(form, "Quadrivio");
  EXPECT_THAT(missingForKeeping(pages->preview().file), IsEmpty());
  EXPECT_EQ(refusalOfValidator(pages->preview().file), "");
  const std::string info = runCommand("pdfinfo '" + pages->preview().file + "'").output;
  EXPECT_THAT(info,
              HasSubstr("Title:           Certificazione Unica - ROSSI & FIGLI <S.R.L.> - anno 2017\n"));
  EXPECT_THAT(info, Not(HasSubstr("CreationDate")));
}

// ---- the device, on a drawing of its own

DocumentInfo someInfo() {
  return {.title = "Prova",
          .author = "Ditta",
          .creator = "Quadrivio",
          .producer = QString("Qt ") + qVersion(),
          .day = Date::fromYmd(2018, 3, 5).value(),
          .time = {9, 8, 7}};
}

QByteArray drawing(int pages, bool forKeeping = true) {
  reporting::ensureGuiApplication();
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  if (forKeeping) writer.setPdfVersion(QPagedPaintDevice::PdfVersion_A1b);
  QPainter painter(&writer);
  painter.setFont(QFont(reporting::printFontFamily()));
  for (int i = 0; i < pages; ++i) {
    if (i > 0) writer.newPage();
    painter.drawText(1000, 1000, QString::number(i + 1));
  }
  painter.end();
  return buffer.data();
}

// What the device makes of a drawing in pieces of that size.
std::string kept(const QByteArray& drawn, const DocumentInfo& info = someInfo(), qsizetype piece = 1000) {
  QBuffer target;
  target.open(QIODevice::WriteOnly);
  ArchivalPdf device(target, info);
  for (qsizetype at = 0; at < drawn.size(); at += piece) device.write(drawn.mid(at, piece));
  device.finish();
  return target.data().toStdString();
}

std::string inFile(const TempFolder& folder, const std::string& bytes) {
  folder.write("prova.pdf", bytes);
  return folder / "prova.pdf";
}

TEST(ArchivalDevice, GivesTheSameBytesWhateverPiecesItIsGiven) {
  const QByteArray drawn = drawing(2);
  const std::string whole = kept(drawn, someInfo(), drawn.size());
  for (const qsizetype piece : {1, 2, 3, 7, 8, 9, 4096})
    EXPECT_TRUE(kept(drawn, someInfo(), piece) == whole) << piece;
}

TEST(ArchivalDevice, KeepsAFileThatAnswersItsIdentifier) {
  const QByteArray drawn = drawing(1);
  DocumentInfo other = someInfo();
  other.author = "Altra";
  const auto identifier = [](const std::string& bytes) { return bytes.substr(bytes.rfind("/ID ["), 72); };
  EXPECT_EQ(identifier(kept(drawn)), identifier(kept(drawn)));
  EXPECT_NE(identifier(kept(drawn)), identifier(kept(drawn, other)));
}

TEST(ArchivalDevice, PutsManyPagesInBranchesInTheirOrder) {
  const TempFolder folder;
  constexpr int kPages = 2001;
  const std::string path = inFile(folder, kept(drawing(kPages)));
  EXPECT_THAT(missingForKeeping(path), IsEmpty());
  EXPECT_EQ(pageCount(path), kPages);
  for (const int page : {1, 2, 999, 1000, 1001, 1002, 2000, 2001}) {
    const std::string number = std::to_string(page);
    EXPECT_THAT(runCommand("pdftotext -f " + number + " -l " + number + " '" + path + "' -").output,
                testing::StartsWith(number + "\n"));
  }
}

TEST(ArchivalDevice, RefusesADocumentThatIsNotWhole) {
  const QByteArray drawn = drawing(1);
  const auto refused = [](const QByteArray& broken) {
    try {
      kept(broken);
    } catch (const Error& error) {
      return error.number() == kErrorReportOutput;
    }
    return false;
  };
  EXPECT_FALSE(refused(drawn));
  EXPECT_TRUE(refused({}));
  EXPECT_TRUE(refused("%PDF-1.4\n"));
  EXPECT_TRUE(refused(drawn.left(drawn.indexOf("\nxref\n") + 1))) << "without its table";
  const qsizetype fifth = drawn.indexOf("\n6 0 obj\n") + 1;
  EXPECT_TRUE(refused(drawn.left(fifth) + drawn.mid(drawn.indexOf("endobj\n", fifth) + 7)))
      << "without its catalog";
  QByteArray shorter = drawn;
  const qsizetype length =
      shorter.indexOf("0 obj\n", shorter.indexOf("endstream", shorter.indexOf("/Contents")));
  shorter[length + 6] = '9';
  EXPECT_TRUE(refused(shorter)) << "a stream of another length";
}

TEST(Information, IsTheSameInBothPlacesForAnyText) {
  const TempFolder folder;
  DocumentInfo info = someInfo();
  for (const char* const text : {"a & b < c > d", "\"Ditta\" (di) \\ Rossi", "Žagar à l'œuvre €",
                                 "\xF0\x9F\x93\x84 12 0 R", "/Type /Pages", "endobj"}) {
    info.title = QString::fromUtf8(text);
    info.author = info.title;
    const std::string path = inFile(folder, kept(drawing(1), info));
    EXPECT_THAT(missingForKeeping(path), IsEmpty()) << text;
    EXPECT_THAT(runCommand("pdfinfo '" + path + "'").output,
                HasSubstr("Title:           " + std::string(text) + "\n"));
  }
}

TEST(Information, LeavesOutWhatIsEmpty) {
  const TempFolder folder;
  DocumentInfo info;
  info.title = "Prova";
  const std::string path = inFile(folder, kept(drawing(1), info));
  EXPECT_THAT(missingForKeeping(path), IsEmpty());
  EXPECT_EQ(refusalOfValidator(path), "");
  const std::string said = runCommand("pdfinfo '" + path + "'").output;
  for (const char* name : {"Author", "Creator", "Producer", "CreationDate"})
    EXPECT_THAT(said, Not(HasSubstr(name)));
}

// ---- the examination itself finds what it looks for

TEST(Examination, FindsWhatAnOrdinaryPdfLacks) {
  const TempFolder folder;
  const std::string path = inFile(folder, drawing(1, false).toStdString());
  const std::vector<std::string> missing = missingForKeeping(path);
  for (const char* what :
       {"identifier", "language", "one output intent", "metadata", "claim of the conformance"}) {
    EXPECT_THAT(missing, Contains(what));
  }
  EXPECT_NE(refusalOfValidator(path), "");
}

struct Damage {
  const char* piece;
  const char* by;  // of the same length
  const char* missing;
};

TEST(Examination, FindsADamage) {
  const TempFolder folder;
  const std::string good = kept(drawing(1));
  for (const Damage& damage :
       {Damage{"<FEFF00500072", "<FEFF00510072", "/Title as in the metadata"},
        Damage{"D:20180305", "D:20180306", "date as in the metadata"},
        Damage{"/Lang (it-IT)", "/Lang (en-US)", "language"},
        Damage{"/GTS_PDFA1", "/GTS_PDFX1", "output intent"},
        Damage{"pdfaid:part>1<", "pdfaid:part>2<", "claim of the conformance"},
        Damage{"/ca 1.0", "/ca 0.5", " opaque"}, Damage{"/BaseFont /Q", "/BaseFont /R", " one name"},
        Damage{"/CIDSet ", "/CidSet ", " set of all glyphs"}, Damage{"/W [0 [", "/W [1 [", " widths"},
        Damage{"/FontFile2 ", "/FontFile3 ", " embedded"},
        Damage{"/CIDToGIDMap ", "/CIDToGIDMop ", " glyphs by number"}}) {
    std::string bad = good;
    const std::size_t at = bad.find(damage.piece);
    ASSERT_NE(at, std::string::npos) << damage.piece;
    bad.replace(at, std::string(damage.by).size(), damage.by);
    EXPECT_THAT(missingForKeeping(inFile(folder, bad)), Contains(HasSubstr(damage.missing))) << damage.piece;
  }
}

}  // namespace
}  // namespace cu::test
