#include "desktop/page_output.h"

#include <poppler-qt6.h>

#include <QDir>
#include <QFileInfo>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QProgressDialog>
#include <QRegularExpression>
#include <QSaveFile>
#include <algorithm>
#include <vector>

namespace cu::desktop {
namespace {

constexpr int kUnnoticedPrint = 400;  // milliseconds

std::vector<int> pagesToPrint(const QPrinter& printer, int current, int count) {
  std::vector<int> pages;
  const int from = printer.printRange() == QPrinter::PageRange ? std::max(1, printer.fromPage()) : 1;
  const int to = printer.printRange() == QPrinter::PageRange && printer.toPage() > 0
                     ? std::min(count, printer.toPage())
                     : count;
  if (printer.printRange() == QPrinter::CurrentPage) {
    pages.push_back(current);
  } else {
    for (int page = from; page <= to; ++page) pages.push_back(page - 1);
  }
  if (printer.pageOrder() == QPrinter::LastPageFirst) std::reverse(pages.begin(), pages.end());
  // The program makes the copies that the printer cannot make.
  const int copies = printer.supportsMultipleCopies() ? 1 : std::max(1, printer.copyCount());
  std::vector<int> all;
  if (printer.collateCopies()) {
    for (int copy = 0; copy < copies; ++copy) all.insert(all.end(), pages.begin(), pages.end());
  } else {
    for (const int page : pages) all.insert(all.end(), static_cast<std::size_t>(copies), page);
  }
  return all;
}

// Where pages are drawn: a printer, or a file, which has none.
struct Paper {
  QPagedPaintDevice& sheets;
  QPrinter* printer = nullptr;
  bool stopped() const {
    return printer != nullptr &&
           (printer->printerState() == QPrinter::Error || printer->printerState() == QPrinter::Aborted);
  }
};

void turnPaper(QPagedPaintDevice& sheets, const Poppler::Page& page) {
  const QSizeF size = page.pageSizeF();
  sheets.setPageOrientation(size.width() > size.height() ? QPageLayout::Landscape : QPageLayout::Portrait);
}

void drawOn(QPainter& painter, const QPagedPaintDevice& sheets, const Poppler::Page& page) {
  const QSizeF size = page.pageSizeF();
  const QRectF paper = sheets.pageLayout().fullRect(QPageLayout::Point);
  const double smaller = std::min({1.0, paper.width() / size.width(), paper.height() / size.height()});
  // A paper that is the page's but for rounding.
  constexpr double kSame = 0.99;
  const double dots = sheets.logicalDpiX() * (smaller > kSame ? 1.0 : smaller);
  painter.save();
  page.renderToPainter(&painter, dots, dots);
  painter.restore();
}

QString printPages(const Poppler::Document& document, const std::vector<int>& pages, const Paper& paper,
                   QWidget* over) {
  QProgressDialog progress(QStringLiteral("Si stampa…"), QStringLiteral("Interrompi"), 0,
                           static_cast<int>(pages.size()), over);
  progress.setWindowTitle(QStringLiteral("Stampa"));
  progress.setWindowModality(Qt::WindowModal);
  progress.setMinimumDuration(kUnnoticedPrint);
  QPainter painter;
  for (int done = 0; const int number : pages) {
    progress.setLabelText(QStringLiteral("Si stampa la pagina %L1 di %L2").arg(done + 1).arg(pages.size()));
    progress.setValue(done);
    if (progress.wasCanceled()) {
      if (paper.printer != nullptr) paper.printer->abort();
      return QStringLiteral("La stampa è stata interrotta.");
    }
    const std::unique_ptr<Poppler::Page> page = document.page(number);
    if (page == nullptr) return QStringLiteral("La pagina %L1 non si può leggere.").arg(number + 1);
    turnPaper(paper.sheets, *page);
    const bool ready = done == 0 ? painter.begin(&paper.sheets) : paper.sheets.newPage();
    if (!ready || paper.stopped()) {
      return QStringLiteral("La stampante non ha accettato la stampa, dalla pagina %L1 in poi.")
          .arg(number + 1);
    }
    drawOn(painter, paper.sheets, *page);
    ++done;
  }
  progress.setValue(static_cast<int>(pages.size()));
  if (!painter.end() || paper.stopped()) return QStringLiteral("La stampante ha interrotto la stampa.");
  return {};
}

// Why a file cannot be written at this place; "" for nothing that can be seen before.
QString objectionTo(const QString& path) {
  const QFileInfo target(path);
  const QString wrong = QStringLiteral("%1 non si può scrivere: ").arg(path);
  if (target.isDir()) return wrong + QStringLiteral("è una cartella.");
  if (target.exists() && !target.isFile()) return wrong + QStringLiteral("non è un file.");
  if (!target.absoluteDir().exists()) return wrong + QStringLiteral("la cartella non esiste.");
  return {};
}

QString closedTo(const QString& path) {
  return QStringLiteral("%1 non si può scrivere: manca il permesso, o il disco è protetto.").arg(path);
}

QString fullAt(const QString& path) {
  return QStringLiteral("%1 non si può scrivere: il disco è pieno o non risponde.").arg(path);
}

// A file has all of its pages or is not made.
QString printToFile(const Poppler::Document& document, const std::vector<int>& pages, const QPrinter& printer,
                    QWidget* over) {
  const QString path = printer.outputFileName();
  if (QString objection = objectionTo(path); !objection.isEmpty()) return objection;
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly)) return closedTo(path);
  QString error;
  {
    QPdfWriter writer(&file);
    writer.setTitle(printer.docName());
    writer.setResolution(printer.resolution());
    writer.setPageLayout(printer.pageLayout());
    error = printPages(document, pages, {.sheets = writer}, over);
  }
  if (error.isEmpty()) return file.commit() ? QString() : fullAt(path);
  file.cancelWriting();
  return error + (QFileInfo::exists(path) ? QStringLiteral("\n%1 è rimasto com'era.").arg(path)
                                          : QStringLiteral("\n%1 non è stato scritto.").arg(path));
}

}  // namespace

QString pdfNameOf(const QString& title) {
  static const QRegularExpression kForbidden(QStringLiteral("[/\\\\:*?\"<>|\\x00-\\x1f]"));
  QString name = QString(title).replace(kForbidden, QStringLiteral(" ")).simplified();
  if (name.endsWith(QStringLiteral(".cur"))) name.chop(4);
  if (name.isEmpty()) name = QStringLiteral("Anteprima");
  return name + QStringLiteral(".pdf");
}

QString saveDocument(const QByteArray& document, const QString& path) {
  if (document.isEmpty()) return QStringLiteral("Il documento non è ancora aperto.");
  if (QString objection = objectionTo(path); !objection.isEmpty()) return objection;
  QSaveFile file(path);
  if (!file.open(QIODevice::WriteOnly)) return closedTo(path);
  if (file.write(document) != document.size() || !file.commit()) return fullAt(path);
  return {};
}

QString printDocument(const QByteArray& document, QPrinter& printer, int current, QWidget* over) {
  const std::unique_ptr<Poppler::Document> read = Poppler::Document::loadFromData(document);
  if (read == nullptr) return QStringLiteral("Il documento non si può leggere.");
  // Letters and lines as such: they are as sharp as the printer permits, and the job is small.
  read->setRenderBackend(Poppler::Document::QPainterBackend);
  read->setRenderHint(Poppler::Document::Antialiasing);
  read->setRenderHint(Poppler::Document::TextAntialiasing);
  const std::vector<int> pages = pagesToPrint(printer, current, read->numPages());
  if (pages.empty()) return QStringLiteral("Le pagine scelte non ci sono.");
  printer.setFullPage(true);
  if (!printer.outputFileName().isEmpty()) return printToFile(*read, pages, printer, over);
  return printPages(*read, pages, {.sheets = printer, .printer = &printer}, over);
}

}  // namespace cu::desktop
