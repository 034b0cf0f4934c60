#include "reporting/canvas.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QBuffer>
#include <QPdfWriter>

#include "reporting/gui_application.h"
#include "reporting/italian.h"

namespace cu::reporting {
namespace {

using testing::ElementsAre;

class CanvasTest : public testing::Test {
 protected:
  CanvasTest() {
    ensureGuiApplication();
    buffer_.open(QIODevice::WriteOnly);
    writer_ = std::make_unique<QPdfWriter>(&buffer_);
    writer_->setResolution(1200);
    canvas = std::make_unique<Canvas>(*writer_, false, true);
    canvas->beginPage();
  }
  std::vector<std::string> wrapped(const char* text, double width) {
    std::vector<std::string> lines;
    for (const QString& line : canvas->wrap(QString::fromUtf8(text), style, width))
      lines.push_back(line.toStdString());
    return lines;
  }
  std::string pageText() {
    canvas->end();
    return canvas->pageTexts().at(0);
  }

 private:
  QBuffer buffer_;
  std::unique_ptr<QPdfWriter> writer_;

 public:
  std::unique_ptr<Canvas> canvas;
  TextStyle style;
};

TEST_F(CanvasTest, WrapsAtBlanks) {
  const double width = canvas->textWidth("Consorzio Artigiano", style);
  EXPECT_THAT(wrapped("Consorzio Artigiano per la Manutenzione", width),
              ElementsAre("Consorzio Artigiano", "per la", "Manutenzione"));
}

TEST_F(CanvasTest, BreaksAWordThatIsWiderThanTheLine) {
  const double width = canvas->textWidth("WWWWW", style);
  EXPECT_THAT(wrapped("WWWWWWWWWWWW", width), ElementsAre("WWWWW", "WWWWW", "WW"));
  EXPECT_THAT(wrapped("a WWWWWWW b", width), ElementsAre("a", "WWWWW", "WW b"));
}

TEST_F(CanvasTest, PartsAWideWordBehindAMarkNearTheEnd) {
  const double width = canvas->textWidth("WWWWWWW", style);
  EXPECT_THAT(wrapped("WWWWW_WWWWWWW", width), ElementsAre("WWWWW_", "WWWWWWW"));
  EXPECT_THAT(wrapped("WWWWW.WWWWWWW", width), ElementsAre("WWWWW.", "WWWWWWW"));
  // Not after a mark that would leave most of the line empty.
  EXPECT_THAT(wrapped("W_WWWWWWWWWWW", width), testing::Not(testing::Contains("W_")));
}

TEST_F(CanvasTest, BreaksAtLineEnds) {
  EXPECT_THAT(wrapped("uno\n\ndue", 50), ElementsAre("uno", "", "due"));
}

TEST_F(CanvasTest, NoLineIsWiderThanItsRoom) {
  const QString text =
      "Società Cooperativa Agricola dei Produttori di Ortofrutta e Fiori della Bassa Padana "
      "Nordoccidentale/Sudorientale (in liquidazione)";
  for (double width = 3; width < 60; width += 1.7) {
    QString joined;
    for (const QString& line : canvas->wrap(text, style, width)) {
      EXPECT_LE(canvas->textWidth(line, style), width + 0.01);
      joined += line;
    }
    EXPECT_EQ(joined.remove(' '), QString(text).remove(' '));
  }
}

TEST_F(CanvasTest, AVeryNarrowLineStillEnds) { EXPECT_THAT(wrapped("WW", 0.01), ElementsAre("W", "W")); }

TEST_F(CanvasTest, ATextThatIsTooWideIsSetSmallerAndThenCut) {
  canvas->text(20, 50, canvas->textWidth("abcdefgh", style), "abcdefghij", style);
  EXPECT_EQ(pageText(), "abcdefghij\n");
}

TEST_F(CanvasTest, ATextFarTooWideEndsInAnEllipsis) {
  canvas->text(20, 50, 20, QString(200, 'W'), style);
  const std::string text = pageText();
  EXPECT_THAT(text, testing::EndsWith("\u2026\n"));
  EXPECT_LT(text.size(), 60U);
}

TEST_F(CanvasTest, AnAmountIsNeverCut) {
  canvas->text(20, 50, 5, "-999.999.999.999.999,99", style, Align::Right);
  EXPECT_EQ(pageText(), "-999.999.999.999.999,99\n");
}

TEST_F(CanvasTest, AMarkThatStandsApartIsJoinedWithItsLetter) {
  canvas->text(20, 50, 50, QString::fromUtf8("Niccolo\u0300"), style);
  EXPECT_EQ(pageText(), "Niccolò\n");
}

TEST_F(CanvasTest, ThePageIsReadLineByLine) {
  canvas->text(90, 50, 50, "destra", style);
  canvas->text(20, 60, 50, "sotto", style);
  canvas->text(20, 50.1, 50, "sinistra", style);
  EXPECT_EQ(pageText(), "sinistra  destra\nsotto\n");
}

TEST_F(CanvasTest, LettersOfManyAlphabetsHaveTheirOwnGlyphs) {
  for (const char* text : {"à", "ß", "Ž", "ñ", "€", "ł", "ő", "Ω", "Ж"}) {
    EXPECT_NE(canvas->textWidth(QString::fromUtf8(text), style),
              canvas->textWidth(QString(QChar(0xE000)), style))
        << text;
  }
}

TEST(Italian, Amounts) {
  const auto amount = [](const char* text) {
    return italianAmount(Decimal::parse(text).value()).toStdString();
  };
  EXPECT_EQ(amount("0"), "0,00");
  EXPECT_EQ(amount("1234.5"), "1.234,50");
  EXPECT_EQ(amount("-1234567.891"), "-1.234.567,89");
  EXPECT_EQ(amount("999"), "999,00");
  EXPECT_EQ(amount("-999.99"), "-999,99");
  EXPECT_EQ(amount("1000"), "1.000,00");
  EXPECT_EQ(amount("0.005"), "0,01");
  EXPECT_EQ(amount("-0.001"), "0,00");
}

TEST(Italian, Dates) {
  EXPECT_EQ(italianDate(Date::fromYmd(2017, 3, 5).value()).toStdString(), "05/03/2017");
  EXPECT_EQ(italianDate(Date()).toStdString(), "");
  EXPECT_EQ(writtenDate(Date::fromYmd(2017, 3, 5).value()).toStdString(), "5 marzo 2017");
}

TEST(Italian, Addresses) {
  EXPECT_EQ(addressLine("Via Roma 1", "37121", "Verona", "VR", "Italia").toStdString(),
            "Via Roma 1 - 37121 Verona (VR)");
  EXPECT_EQ(addressLine("", "", "München", "", "Germania").toStdString(), "München, Germania");
  EXPECT_EQ(addressLine("Via Roma 1", "", "", "", "").toStdString(), "Via Roma 1");
  EXPECT_EQ(addressLine("", "", "", "", "").toStdString(), "");
}

TEST(Italian, CapitalsAreTakenLetterByLetter) {
  EXPECT_EQ(upperCase(QString::fromUtf8("müller-großmann, peña")).toStdString(), "MÜLLER-GROßMANN, PEÑA");
}

}  // namespace
}  // namespace cu::reporting
