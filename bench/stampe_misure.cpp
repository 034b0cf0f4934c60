// Prints from an archive of any size, compared with the library that only writes the file.
//   stampe_misure each N       N forms, each in a file of its own, as the wizard prints line by line
//   stampe_misure cores N      the same on all processors, compared with one
//   stampe_misure one N        N forms in one file
//   stampe_misure accounts N   the individual accounts of about N lines
//   stampe_misure table N      the same as a table for a spreadsheet

#include <xlsxwriter.h>

#include <QGlyphRun>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QRawFont>
#include <algorithm>
#include <cstdlib>
#include <deque>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "archive/archivio.h"
#include "misura.h"
#include "reporting/gui_application.h"
#include "reporting/library.h"
#include "reporting/pdf_reports.h"
#include "reporting/print_font.h"
#include "sqlite/sqlite_connection.h"
#include "suite/file_system.h"
#include "support/fixed_clock.h"
#include "support/scripted_front_end.h"

namespace cu::bench {
namespace {

constexpr const char* kDelete = "DELETE FROM TabellaRicorsione2 WHERE IDUtente = 12 AND IDFunzione = 342";
constexpr const char* kForm = "CertificazioneUnica.rpt";
constexpr const char* kFormFormula =
    "{__ViewName.Anno} = 2016 AND {__ViewName.IDAzienda} = 1 AND {__ViewName.IDUtente} = 12";
constexpr const char* kAccounts = "ContoIndividuale.rpt";
constexpr const char* kAccountsFormula =
    "{__ViewName.IDAziendaPercipiente} = 1 AND {__ViewName.IDAzienda} = 1";
constexpr std::size_t kModelLines = 2000;  // of a list whose pages represent those of a longer one

std::string insert(const CellView* key) {
  return "INSERT INTO TabellaRicorsione2 (IDPath1, IDPath2, IDUtente, IDFunzione, Path14, Path1, Path2, "
         "Path3) VALUES (" +
         key[0].toText() + "," + key[1].toText() + ",12,342,1,1,0,'20170331')";
}

// ---- the product's side

class Prints {
 public:
  Prints(const Folder& folder, bool accounts, int lines, std::size_t jobs = 1)
      : folder_(folder),
        reports_({.frontEnd = screen_, .files = files_, .clock = clock_, .creator = "misura", .jobs = jobs}) {
    connection_ = SqliteConnection::create(folder.file("archivio.db"));
    creaArchivio(*connection_, ContenutoArchivio::Sintetico,
                 {.percipienti = accounts ? lines / 4 : lines,
                  .primoAnno = accounts ? 2014 : 2016,
                  .ultimoAnno = accounts ? 2017 : 2016,
                  .seme = 1});
    connection_->Query("SELECT IDAnagrafica, IDCausalePagamento FROM ContoIndividuale", keys_);
  }

  std::size_t accounts() const { return keys_.size(); }

  void chooseOnly(std::size_t line) {
    connection_->Execute(kDelete);
    choose(line);
  }
  void choose(std::size_t line) {
    CellView key[2];
    keys_.read(line, key);
    connection_->Execute(insert(key));
  }
  std::unique_ptr<PrintRun> begin() { return reports_.beginRun(); }
  void forms(const std::string& path) { engine(342, 3421, kForm, kFormFormula, path)->run(3); }
  // A form each of the first lines, as many ahead as the run permits.
  void formsAhead(std::size_t count) {
    const std::unique_ptr<PrintRun> run = begin();
    std::deque<std::pair<std::unique_ptr<ReportEngine>, std::unique_ptr<BegunPrint>>> begun;
    const auto finishOldest = [&begun] {
      begun.front().second->finish();
      begun.pop_front();
    };
    for (std::size_t i = 0; i < count; ++i) {
      if (begun.size() == run->ahead()) finishOldest();
      chooseOnly(i);
      auto form = engine(342, 3421, kForm, kFormFormula, folder_.file("modulo" + std::to_string(i) + ".pdf"));
      auto print = form->begin(3);
      begun.emplace_back(std::move(form), std::move(print));
    }
    while (!begun.empty()) finishOldest();
  }
  void list(const std::string& path, bool table) {
    engine(246, 2461, kAccounts, kAccountsFormula, path)->run(table ? 0 : 3);
  }
  // The texts of the pages.
  std::vector<std::string> formPages() { return pages(342, 3421, kForm, kFormFormula); }
  std::vector<std::string> listPages() { return pages(246, 2461, kAccounts, kAccountsFormula); }

 private:
  std::unique_ptr<ReportEngine> engine(int type, int number, const char* report, const char* formula,
                                       const std::string& path) {
    auto engine = reports_.create();
    engine->setSession(12, 1, 1);
    engine->setConnection(*connection_);
    engine->setObjectType(type);
    engine->setSelectionFormula(formula);
    engine->setReportFile(report);
    engine->setDefinition(number);
    engine->setOutputMode(0);
    engine->setOutputPath(path);
    engine->setOutputFormat(0);
    return engine;
  }
  std::vector<std::string> pages(int type, int number, const char* report, const char* formula) {
    engine(type, number, report, formula, "")->preview();
    return screen_.previews.back();
  }

  const Folder& folder_;
  std::unique_ptr<SqliteConnection> connection_;
  RowStore keys_;
  test::ScriptedFrontEnd screen_;
  FileSystemPiattaforma files_;
  test::FixedClock clock_{2017, 3, 5};
  PdfReports reports_;
};

// ---- the bare side: the same texts, set by Qt's writer of PDF files

using Page = std::vector<std::pair<QPointF, QGlyphRun>>;

Page pageOf(const std::string& text, const QRawFont& font) {
  Page page;
  double y = font.pixelSize();
  for (const QString& line : QString::fromStdString(text).split(u'\n')) {
    double x = 0;
    for (const QString& piece : line.split(QStringLiteral("  "), Qt::SkipEmptyParts)) {
      const QList<quint32> glyphs = font.glyphIndexesForString(piece);
      const QList<QPointF> advances = font.advancesForGlyphIndexes(glyphs, QRawFont::UseDesignMetrics);
      QList<QPointF> positions;
      double left = 0;
      for (const QPointF& advance : advances) {
        positions.append({left, 0});
        left += std::round(advance.x());
      }
      QGlyphRun run;
      run.setRawFont(font);
      run.setGlyphIndexes(glyphs);
      run.setPositions(positions);
      page.emplace_back(QPointF(x, y), run);
      x += left + font.pixelSize();
    }
    y += font.pixelSize();
  }
  return page;
}

std::vector<Page> pagesOf(const std::vector<std::string>& texts) {
  QFont wanted(reporting::printFontFamily());
  wanted.setPixelSize(100);
  wanted.setHintingPreference(QFont::PreferNoHinting);
  const QRawFont font = QRawFont::fromFont(wanted);
  std::vector<Page> pages;
  for (const std::string& text : texts) pages.push_back(pageOf(text, font));
  return pages;
}

void barePrint(const std::vector<Page>& pages, std::size_t count, const std::string& path) {
  QPdfWriter writer(QString::fromStdString(path));
  writer.setResolution(1200);
  writer.setPageSize(QPageSize(QPageSize::A4));
  QPainter painter(&writer);
  for (std::size_t i = 0; i < count; ++i) {
    if (i > 0) writer.newPage();
    for (const auto& [at, run] : pages[i % pages.size()]) painter.drawGlyphRun(at, run);
  }
}

void bareTable(std::size_t rows, const std::string& path) {
  reporting::ReportLibrary library(reporting::embeddedDefinitionFiles());
  const reporting::ReportDefinition& definition = library.find(kAccounts, 246, 2461);
  std::vector<reporting::ColumnFormat> columns;
  for (const auto& each : definition.sheetColumns) columns.push_back(each.format);
  for (const auto& each : definition.columns) columns.push_back(each.format);
  lxw_workbook_options options = {};
  options.constant_memory = LXW_TRUE;
  lxw_workbook* const book = workbook_new_opt(path.c_str(), &options);
  lxw_worksheet* const sheet = workbook_add_worksheet(book, nullptr);
  for (std::size_t row = 0; row < rows; ++row) {
    lxw_col_t at = 0;
    for (const reporting::ColumnFormat format : columns) {
      if (format == reporting::ColumnFormat::Text) {
        worksheet_write_string(sheet, static_cast<lxw_row_t>(row), at++, "PERCIPIENTE DI PROVA", nullptr);
      } else {
        worksheet_write_number(sheet, static_cast<lxw_row_t>(row), at++, 1234.56 + static_cast<double>(row),
                               nullptr);
      }
    }
  }
  if (workbook_close(book) != LXW_NO_ERROR) throw std::runtime_error("no table");
}

// ---- both

void tell(const std::string& name, double ours, double memory, double limit, const char* limitName) {
  print({name, ours, limit, limitName});
  print({"memory of " + name, memory, 0, {}, {}, "MiB"});
}

void measureForms(const Folder& folder, int forms, bool each) {
  Prints prints(folder, false, forms);
  const auto count = static_cast<std::size_t>(forms);
  const double ours = seconds([&] {
    const auto run = prints.begin();
    for (std::size_t i = 0; i < count; ++i) {
      if (!each) {
        prints.choose(i);
        continue;
      }
      prints.chooseOnly(i);
      prints.forms(folder.file("nostro" + std::to_string(i) + ".pdf"));
    }
    if (!each) prints.forms(folder.file("nostro.pdf"));
  });
  const double memory = peakMiB();
  prints.chooseOnly(0);
  const std::vector<Page> pages = pagesOf(prints.formPages());
  const double limit = seconds([&] {
    for (std::size_t i = 0; each && i < count; ++i) {
      barePrint(pages, pages.size(), folder.file("nudo" + std::to_string(i) + ".pdf"));
    }
    if (!each) barePrint(pages, count * pages.size(), folder.file("nudo.pdf"));
  });
  tell(grouped(forms) + (each ? " forms, a file each" : " forms in one file"), ours, memory, limit,
       "the texts of as many pages, set by the PDF library");
}

void measureCores(const Folder& folder, int forms) {
  const auto count = static_cast<std::size_t>(forms);
  const std::size_t cores = std::max(2U, std::thread::hardware_concurrency());
  const ScratchFolder second("cu_stampe_insieme");
  Prints alone(folder, false, forms);
  Prints together(second, false, forms, cores);
  const Pair pair = best(
      2, [&] { together.formsAhead(count); },
      [&] {
        const auto run = alone.begin();
        for (std::size_t i = 0; i < count; ++i) {
          alone.chooseOnly(i);
          alone.forms(folder.file("modulo" + std::to_string(i) + ".pdf"));
        }
      });
  print({grouped(forms) + " forms, a file each, on " + std::to_string(cores) + " processors", pair.ours,
         pair.limit, "the same on one", "ratio:0.56"});
}

void measureAccounts(const Folder& folder, int lines, bool table) {
  Prints prints(folder, true, lines);
  const double ours = seconds([&] { prints.list(folder.file(table ? "nostro.xlsx" : "nostro.pdf"), table); });
  const double memory = peakMiB();
  const std::string size = grouped(static_cast<long long>(prints.accounts())) + " accounts ";
  if (table) {
    const double limit = seconds([&] { bareTable(prints.accounts(), folder.file("nudo.xlsx")); });
    tell(size + "as a table", ours, memory, limit, "as many cells written by the library");
    return;
  }
  const ScratchFolder model("cu_stampe_modello");
  Prints few(model, true, static_cast<int>(kModelLines));
  const std::vector<Page> pages = pagesOf(few.listPages());
  const std::size_t count = pages.size() * prints.accounts() / few.accounts();
  const double limit = seconds([&] { barePrint(pages, count, folder.file("nudo.pdf")); });
  tell(size + "as pages", ours, memory, limit, "the texts of as many pages, set by the PDF library");
}

}  // namespace
}  // namespace cu::bench

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  const std::string what = argv[1];
  const int count = std::atoi(argv[2]);
  cu::reporting::ensureGuiApplication();
  const cu::bench::ScratchFolder folder("cu_stampe_misure");
  if (what == "cores") {
    cu::bench::measureCores(folder, count);
  } else if (what == "each" || what == "one") {
    cu::bench::measureForms(folder, count, what == "each");
  } else {
    cu::bench::measureAccounts(folder, count, what == "table");
  }
  return 0;
}
