#include "reporting/print_font.h"

#include <gtest/gtest.h>

#include <QFont>

#include "reporting/gui_application.h"

namespace cu::reporting {
namespace {

QRawFont printFont(bool bold) {
  ensureGuiApplication();
  QFont font(printFontFamily());
  font.setBold(bold);
  font.setPixelSize(1000);
  return QRawFont::fromFont(font);
}

class PrintFont : public testing::TestWithParam<bool> {};

TEST_P(PrintFont, IsRegularAndBoldOfOneFamily) {
  const QRawFont font = printFont(GetParam());
  EXPECT_EQ(font.familyName(), printFontFamily());
  EXPECT_EQ(font.weight() >= QFont::Bold, GetParam());
}

TEST_P(PrintFont, HasEveryLetterOfTheTelematicFilesCodePage) {
  const QRawFont font = printFont(GetParam());
  for (char16_t letter = 0x21; letter <= 0xFF; ++letter) {
    if (letter >= 0x7F && letter < 0xA0) continue;
    EXPECT_NE(font.glyphIndexesForString(QString(QChar(letter))).front(), 0U) << static_cast<int>(letter);
  }
  for (const QChar letter : QString::fromUtf8("€‚ƒ„…†‡ˆ‰Š‹ŒŽ‘’“”•–—˜™š›œžŸ")) {
    EXPECT_NE(font.glyphIndexesForString(QString(letter)).front(), 0U) << static_cast<int>(letter.unicode());
  }
}

TEST_P(PrintFont, HasLettersAsWideAsTheInstalledOnes) {
  QFont installed("DejaVu Sans");
  installed.setBold(GetParam());
  installed.setPixelSize(1000);
  const QRawFont theirs = QRawFont::fromFont(installed);
  const QRawFont ours = printFont(GetParam());
  const QString letters = QString::fromUtf8("Ammontare lordo 1.234,56 àèìòù ÄÖÜß");
  EXPECT_EQ(ours.glyphIndexesForString(letters), theirs.glyphIndexesForString(letters));
  const auto glyphs = ours.glyphIndexesForString(letters);
  EXPECT_EQ(ours.advancesForGlyphIndexes(glyphs, QRawFont::UseDesignMetrics),
            theirs.advancesForGlyphIndexes(glyphs, QRawFont::UseDesignMetrics));
}

TEST_P(PrintFont, HasNoProgramsForScreens) {
  for (const char* table : {"fpgm", "prep", "cvt "})
    EXPECT_TRUE(printFont(GetParam()).fontTable(table).isEmpty());
}

INSTANTIATE_TEST_SUITE_P(RegularAndBold, PrintFont, testing::Bool());

}  // namespace
}  // namespace cu::reporting
