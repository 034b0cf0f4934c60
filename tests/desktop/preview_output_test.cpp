// What leaves the preview: prints, to printers and files, and copies.

#include <gtest/gtest.h>
#include <poppler-qt6.h>

#include <QComboBox>
#include <QDir>
#include <QMessageBox>
#include <QPrinter>
#include <QProgressDialog>
#include <QRadioButton>
#include <QTimer>
#include <cstdlib>
#include <vector>

#include "desktop/page_output.h"
#include "desktop/preview_support.h"
#include "desktop/print_dialog.h"

namespace cu::test {
namespace {

// The pages of a document as small grey images.
std::vector<QImage> imagesOf(const QString& pdf) {
  std::vector<QImage> images;
  const auto document = Poppler::Document::load(pdf);
  constexpr double kDots = 60;
  for (int page = 0; document != nullptr && page < document->numPages(); ++page) {
    images.push_back(
        document->page(page)->renderToImage(kDots, kDots).convertToFormat(QImage::Format_Grayscale8));
  }
  return images;
}

qint64 pageDifference(const QImage& one, const QImage& other) {
  qint64 sum = 0;
  for (int y = 0; y < std::min(one.height(), other.height()); ++y) {
    for (int x = 0; x < std::min(one.width(), other.width()); ++x) {
      sum += std::abs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y)));
    }
  }
  return sum;
}

// The page of the document, from 1, that a printed page resembles most.
std::size_t nearest(const QImage& printed, const std::vector<QImage>& pages) {
  const auto found =
      std::min_element(pages.begin(), pages.end(), [&](const QImage& one, const QImage& other) {
        return pageDifference(printed, one) < pageDifference(printed, other);
      });
  return static_cast<std::size_t>(found - pages.begin()) + 1;
}

TEST(PreviewOutput, PrintsThePagesThatTheDialogOfThePrinterNames) {
  Previewed shown(6);
  const QString printed = shown.folder.filePath(QStringLiteral("stampa.pdf"));
  shown.dialog->choosePrinter = [&](QPrinter& printer) {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(printed);
    printer.setPageSize(QPageSize(QPageSize::A4));
    printer.setPrintRange(QPrinter::PageRange);
    printer.setFromTo(2, 4);
    return true;
  };
  QTest::keySequence(shown.dialog.get(), QKeySequence::Print);
  const std::vector<QImage> made = imagesOf(printed);
  const std::vector<QImage> source = imagesOf(desktop::shown(shown.preview.file));
  ASSERT_EQ(made.size(), 3U);
  EXPECT_EQ(made[0].size(), source[0].size());
  for (std::size_t page = 0; page < made.size(); ++page) EXPECT_EQ(nearest(made[page], source), page + 2);
  EXPECT_TRUE(shown.says(QStringLiteral("Stampata in %1.").arg(printed)));
}

TEST(PreviewOutput, PrintsThePageInViewToTheFileThatIsGiven) {
  Previewed shown(5);
  const QString printed = shown.folder.filePath(QStringLiteral("una.pdf"));
  shown.choose(printed);
  QTest::keyClick(shown.dialog.get(), Qt::Key_PageDown);
  ASSERT_EQ(shown.dialog->page(), 1);
  QTimer::singleShot(0, shown.dialog.get(), [] {
    auto* const asking = dynamic_cast<desktop::PrintDialog*>(QApplication::activeModalWidget());
    ASSERT_NE(asking, nullptr);
    auto& printers = *asking->findChild<QComboBox*>(QStringLiteral("stampante"));
    printers.setCurrentIndex(printers.count() - 1);
    asking->findChild<QRadioButton*>(QStringLiteral("inVista"))->setChecked(true);
    pressButton(*asking, "Stampa");
  });
  QTest::keySequence(shown.dialog.get(), QKeySequence::Print);
  EXPECT_EQ(shown.suggested, QStringLiteral("Conto individuale.pdf"));
  const std::vector<QImage> made = imagesOf(printed);
  ASSERT_EQ(made.size(), 1U);
  EXPECT_EQ(nearest(made[0], imagesOf(desktop::shown(shown.preview.file))), 2U);
}

TEST(PreviewOutput, APrintThatIsNotWantedOrFailsMakesNothing) {
  Previewed shown(2);
  const QString printed = shown.folder.filePath(QStringLiteral("manca/stampa.pdf"));
  shown.dialog->choosePrinter = [&](QPrinter&) { return false; };
  QTest::keySequence(shown.dialog.get(), QKeySequence::Print);
  QPrinter printer(QPrinter::HighResolution);
  printer.setOutputFormat(QPrinter::PdfFormat);
  printer.setOutputFileName(printed);
  EXPECT_FALSE(desktop::printDocument(shown.dialog->view().source()->bytes(), printer, 0, shown.dialog.get())
                   .isEmpty());
  EXPECT_FALSE(QFile::exists(printed));
}

QByteArray contentOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Presses "Interrompi" as soon as the progress of a print is in view.
class Interrupter : public QObject {
 public:
  Interrupter() { qApp->installEventFilter(this); }
  bool eventFilter(QObject* watched, QEvent* event) override {
    auto* const progress = qobject_cast<QProgressDialog*>(watched);
    if (progress != nullptr && event->type() == QEvent::Show) {
      QTimer::singleShot(0, progress, [this, progress] {
        ++pressed;
        pressButton(*progress, "Interrompi");
      });
    }
    return false;
  }
  int pressed = 0;
};

TEST(PreviewOutput, AnInterruptedPrintToAFileMakesNoneAndKeepsTheFormerOne) {
  Previewed shown(kMany);
  shown.dialog->choosePrinter = [&](QPrinter& printer) {
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(shown.folder.filePath(QStringLiteral("stampa.pdf")));
    constexpr int kLongPrint = 20;  // times the pages
    printer.setCopyCount(kLongPrint);
    return true;
  };
  const QString printed = shown.folder.filePath(QStringLiteral("stampa.pdf"));
  const QStringList before = QDir(shown.folder.path()).entryList(QDir::Files | QDir::Hidden);
  QString told;
  const auto print = [&] {
    shown.dialog->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(shown.dialog.get()));
    const Interrupter interrupter;
    QTimer answer;
    answer.setInterval(20);
    QObject::connect(&answer, &QTimer::timeout, [&told] {
      auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
      if (box == nullptr) return;
      told = box->text();
      box->accept();
    });
    answer.start();
    QTest::keySequence(shown.dialog.get(), QKeySequence::Print);
    EXPECT_EQ(interrupter.pressed, 1);
  };
  print();
  EXPECT_EQ(told, QStringLiteral("La stampa è stata interrotta.\n%1 non è stato scritto.").arg(printed));
  EXPECT_EQ(QDir(shown.folder.path()).entryList(QDir::Files | QDir::Hidden), before);

  QFile former(printed);
  ASSERT_TRUE(former.open(QIODevice::WriteOnly));
  former.write("prima");
  former.close();
  print();
  EXPECT_EQ(told, QStringLiteral("La stampa è stata interrotta.\n%1 è rimasto com'era.").arg(printed));
  EXPECT_EQ(contentOf(printed), QByteArray("prima"));
  EXPECT_EQ(QDir(shown.folder.path()).entryList(QDir::Files | QDir::Hidden).size(), before.size() + 1);
}

TEST(PreviewOutput, SavesACopyOfTheDocument) {
  Previewed shown(2);
  const QString copy = shown.folder.filePath(QStringLiteral("copia.pdf"));
  shown.choose(copy);
  QTest::keySequence(shown.dialog.get(), QKeySequence::Save);
  EXPECT_EQ(shown.suggested, QStringLiteral("Conto individuale.pdf"));
  EXPECT_EQ(contentOf(copy), contentOf(desktop::shown(shown.preview.file)));
  EXPECT_TRUE(shown.says(QStringLiteral("Salvata in %1.").arg(copy)));
}

TEST(PreviewOutput, ACopyThatCannotBeWrittenIsToldWithItsReason) {
  Previewed shown(2);
  const QByteArray bytes = shown.dialog->view().source()->bytes();
  const QString nowhere = shown.folder.filePath(QStringLiteral("manca/copia.pdf"));
  EXPECT_EQ(desktop::saveDocument(bytes, nowhere),
            nowhere + QStringLiteral(" non si può scrivere: la cartella non esiste."));
  EXPECT_EQ(desktop::saveDocument(bytes, shown.folder.path()),
            shown.folder.path() + QStringLiteral(" non si può scrivere: è una cartella."));
  EXPECT_EQ(desktop::saveDocument(bytes, QStringLiteral("/dev/null")),
            QStringLiteral("/dev/null non si può scrivere: non è un file."));
  EXPECT_EQ(desktop::pdfNameOf(QStringLiteral("CUR_1_2017/12.cur")), QStringLiteral("CUR_1_2017 12.pdf"));
}

}  // namespace
}  // namespace cu::test
