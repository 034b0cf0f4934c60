// The dialog for a print from the preview.

#include "desktop/print_dialog.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QFileSystemModel>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>

#include "desktop/screen_support.h"

namespace cu::test {
namespace {

QSpinBox& number(const QWidget& dialog, const char* name) {
  for (auto* each : dialog.findChildren<QSpinBox*>()) {
    if (each->accessibleName() == QString::fromUtf8(name)) return *each;
  }
  throw std::runtime_error(name);
}

// The last entry, whatever printers the computer has.
void chooseFilePrint(const QWidget& dialog) {
  auto& printers = *dialog.findChild<QComboBox*>(QStringLiteral("stampante"));
  printers.setCurrentIndex(printers.count() - 1);
}

TEST(PrintDialog, HandsOverThePagesAndTheFile) {
  desktop::PrintDialog dialog(nullptr, 9, 4, [] { return QStringLiteral("/qualche/stampa.pdf"); });
  chooseFilePrint(dialog);
  QPrinter whole;
  pressButton(dialog, "Stampa");
  ASSERT_EQ(dialog.result(), QDialog::Accepted);
  dialog.setUp(whole);
  EXPECT_EQ(whole.printRange(), QPrinter::AllPages);
  EXPECT_EQ(whole.outputFormat(), QPrinter::PdfFormat);
  EXPECT_EQ(whole.outputFileName(), QStringLiteral("/qualche/stampa.pdf"));
  // Typing a number is the choice of a range; its ends may be typed in either order.
  number(dialog, "Dalla pagina").setValue(7);
  number(dialog, "Alla pagina").setValue(3);
  EXPECT_TRUE(dialog.findChild<QRadioButton*>(QStringLiteral("intervallo"))->isChecked());
  QPrinter some;
  dialog.setUp(some);
  EXPECT_EQ(some.printRange(), QPrinter::PageRange);
  EXPECT_EQ(some.fromPage(), 3);
  EXPECT_EQ(some.toPage(), 7);
  auto& current = *dialog.findChild<QRadioButton*>(QStringLiteral("inVista"));
  EXPECT_TRUE(current.text().endsWith(QStringLiteral("la 5")));
  current.setChecked(true);
  QPrinter one;
  dialog.setUp(one);
  EXPECT_EQ(one.printRange(), QPrinter::CurrentPage);
}

TEST(PrintDialog, WithoutAFileNothingIsPrinted) {
  int asked = 0;
  desktop::PrintDialog dialog(nullptr, 2, 0, [&asked] {
    ++asked;
    return QString();
  });
  chooseFilePrint(dialog);
  dialog.show();
  pressButton(dialog, "Stampa");
  EXPECT_EQ(asked, 1);
  EXPECT_NE(dialog.result(), QDialog::Accepted);
  EXPECT_TRUE(dialog.isVisible()) << "what was chosen stays";
}

TEST(PrintDialog, ReadsNoFolder) {
  desktop::PrintDialog dialog(nullptr, 2, 0, [] { return QString(); });
  dialog.show();
  settle();
  EXPECT_TRUE(dialog.findChildren<QFileSystemModel*>().isEmpty());
}

TEST(PrintDialog, OffersNoPagesOfADocumentOfOne) {
  desktop::PrintDialog dialog(nullptr, 1, 0, [] { return QString(); });
  dialog.show();
  EXPECT_FALSE(dialog.findChild<QRadioButton*>(QStringLiteral("intervallo"))->isVisible());
  EXPECT_FALSE(number(dialog, "Dalla pagina").isVisible());
}

}  // namespace
}  // namespace cu::test
