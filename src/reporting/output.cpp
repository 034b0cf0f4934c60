#include "reporting/output.h"

#include <QBuffer>
#include <QDir>
#include <QPdfWriter>
#include <QPrinter>
#include <QPrinterInfo>
#include <QTemporaryFile>
#include <functional>
#include <utility>
#include <vector>

#include "reporting/archival_pdf.h"
#include "reporting/document_info.h"
#include "reporting/gui_application.h"
#include "reporting/hash_order.h"
#include "reporting/italian.h"
#include "reporting/new_file.h"
#include "reporting/report_error.h"
#include "reporting/sheet.h"

namespace cu::reporting {
namespace {

constexpr int kDotsPerInch = 1200;
constexpr std::size_t kBlock = 1U << 16;

void draw(Canvas& canvas, const LayoutInput& input) {
  switch (input.definition.layout) {
    case LayoutKind::List:
      drawList(canvas, input);
      return;
    case LayoutKind::Certificate:
      drawCertificates(canvas, input);
      return;
    case LayoutKind::Form:
      drawForms(canvas, input);
      return;
  }
}

// Called as each page begins, and may raise.
using PageCheck = std::function<void()>;

enum class Interrupted { Dropped, Kept };

// Returns false where the user has interrupted the layout, and the pages drawn so far are kept.
bool drawWhole(Canvas& canvas, const LayoutInput& input, Interrupted interrupted) {
  try {
    draw(canvas, input);
    return true;
  } catch (const PrintInterrupted&) {
    if (interrupted == Interrupted::Dropped || canvas.pages() == 0) throw;
    return false;
  }
}

struct DrawnPdf {
  std::vector<std::string> texts;  // of its pages, where they are collected
  bool whole = true;
};

// Draws the report as a PDF for keeping.
DrawnPdf drawPdf(QIODevice& device, const LayoutInput& input, const std::string& creator, bool collect,
                 Interrupted interrupted, PageCheck check) {
  ArchivalPdf archival(device, documentInfo(input, creator));
  const FixedHashOrder order;
  QPdfWriter writer(&archival);
  writer.setPdfVersion(QPagedPaintDevice::PdfVersion_A1b);
  writer.setResolution(kDotsPerInch);
  Canvas canvas(writer, isLandscape(input.definition.layout), collect);
  canvas.setPageCheck(std::move(check));
  const bool whole = drawWhole(canvas, input, interrupted);
  canvas.end();
  archival.finish();
  return {canvas.pageTexts(), whole};
}

[[noreturn]] void noTemporaryFile() {
  throw Error(kErrorReportOutput, "Impossibile scrivere nella cartella dei file temporanei.");
}

}  // namespace

QByteArray pdfOf(const LayoutInput& input, const std::string& creator) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  drawPdf(buffer, input, creator, false, Interrupted::Dropped, nullptr);
  return buffer.data();
}

void writePdf(FileSystem& files, const std::string& path, const LayoutInput& input,
              const std::string& creator) {
  ensureGuiApplication();
  NewFile file(files, path);
  NewFileDevice device(file);
  drawPdf(device, input, creator, false, Interrupted::Dropped, [&] { device.check(); });
  device.check();
  file.commit();
}

void writeSpreadsheet(FileSystem& files, const std::string& path, const LayoutInput& input,
                      const std::string& creator) {
  ensureGuiApplication();
  // The library writes to a file of the machine; the table is then copied like every other file.
  QTemporaryFile made;
  if (!made.open()) noTemporaryFile();
  NewFile file(files, path);
  writeSheet(made.fileName().toStdString(), input, creator);
  QFile source(made.fileName());
  if (!source.open(QIODevice::ReadOnly)) noTemporaryFile();
  std::string block(kBlock, '\0');
  for (;;) {
    const qint64 count = source.read(block.data(), static_cast<qint64>(block.size()));
    if (count < 0) noTemporaryFile();
    if (count == 0) break;
    file.write({block.data(), static_cast<std::size_t>(count)});
  }
  file.commit();
}

PreviewPages::PreviewPages(const LayoutInput& input, const std::string& creator) {
  ensureGuiApplication();
  file_ = std::make_unique<QTemporaryFile>(QDir::tempPath() + "/anteprima-XXXXXX.pdf");
  QTemporaryFile& file = *file_;
  if (!file.open()) noTemporaryFile();
  const auto check = [&file] {
    if (file.error() != QFileDevice::NoError) noTemporaryFile();
  };
  preview_.title = input.definition.title;
  DrawnPdf drawn = drawPdf(file, input, creator, true, Interrupted::Kept, check);
  preview_.pages = std::move(drawn.texts);
  preview_.whole = drawn.whole;
  file.flush();
  check();
  preview_.file = file.fileName().toStdString();
}

PreviewPages::~PreviewPages() = default;

void printPages(const std::string& name, int copies, const LayoutInput& input, const std::string& creator) {
  ensureGuiApplication();
  const QStringList known = QPrinterInfo::availablePrinterNames();
  if (known.isEmpty()) {
    throw Error(kErrorReportPrinter, "Nessuna stampante è installata su questo computer.");
  }
  const QString wanted = name.empty() ? QPrinterInfo::defaultPrinterName() : fromUtf8(name);
  if (!known.contains(wanted)) {
    throw Error(kErrorReportPrinter, name.empty() ? "Nessuna stampante è scelta come predefinita."
                                                  : "La stampante \"" + name + "\" non è installata.");
  }
  QPrinter printer(QPrinterInfo::printerInfo(wanted), QPrinter::HighResolution);
  printer.setFullPage(true);
  printer.setDocName(fromUtf8(input.definition.title));
  printer.setCreator(fromUtf8(creator));
  printer.setCopyCount(copies < 1 ? 1 : copies);
  Canvas canvas(printer, isLandscape(input.definition.layout), false);
  canvas.setPageCheck([&] {
    if (printer.printerState() == QPrinter::Error || printer.printerState() == QPrinter::Aborted) {
      throw Error(kErrorReportPrinter,
                  "La stampante \"" + wanted.toStdString() + "\" ha interrotto la stampa.");
    }
  });
  draw(canvas, input);
  canvas.end();
}

}  // namespace cu::reporting
