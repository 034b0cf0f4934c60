#include "suite/utilita.h"

#include <gtest/gtest.h>

#include "support/scripted_front_end.h"

namespace cu {
namespace {

CellView testo(std::string_view text) { return CellView::ofText(text); }
CellView importo(std::string_view text) { return CellView::ofDecimal(*Decimal::parse(text)); }

struct UtilitaTest : ::testing::Test {
  test::ScriptedFrontEnd schermo;
  UtilitaItaliana utilita{schermo, "/documenti"};
};

TEST_F(UtilitaTest, AQuestionHasYesAndNo) {
  schermo.answers = {Answer::Yes, Answer::No};
  EXPECT_EQ(utilita.question("Domanda?", "Titolo"), 6);
  EXPECT_EQ(utilita.question("Domanda?", "Titolo"), 7);
  ASSERT_EQ(schermo.boxes.size(), 2U);
  EXPECT_EQ(schermo.boxes[0].text, "Domanda?");
  EXPECT_EQ(schermo.boxes[0].title, "Titolo");
  EXPECT_EQ(schermo.boxes[0].icon, BoxIcon::Question);
  EXPECT_EQ(schermo.boxes[0].buttons, BoxButtons::YesNo);
  EXPECT_EQ(schermo.boxes[0].byDefault, Answer::Yes);
}

TEST_F(UtilitaTest, WhatWasRefusedIsToldWithTheWarningIconUnlessToldOtherwise) {
  UtilitaSuite& suite = utilita;
  suite.message("No", "Titolo");
  suite.message("No", "Titolo", BoxIcon::Stop);
  ASSERT_EQ(schermo.boxes.size(), 2U);
  EXPECT_EQ(schermo.boxes[0].icon, BoxIcon::Warning);
  EXPECT_EQ(schermo.boxes[0].buttons, BoxButtons::Ok);
  EXPECT_EQ(schermo.boxes[1].icon, BoxIcon::Stop);
}

TEST_F(UtilitaTest, ARefusedStartHasOneButton) {
  utilita.refusedStart("Non si avvia", "Quadrivio");
  ASSERT_EQ(schermo.boxes.size(), 1U);
  EXPECT_EQ(schermo.boxes[0].text, "Non si avvia");
  EXPECT_EQ(schermo.boxes[0].title, "Quadrivio");
  EXPECT_EQ(schermo.boxes[0].buttons, BoxButtons::Ok);
}

TEST_F(UtilitaTest, AConfirmationProposesCancel) {
  schermo.answers = {Answer::Cancel, Answer::Ok};
  EXPECT_EQ(utilita.confirm("Proseguire?", "Titolo"), 2);
  EXPECT_EQ(utilita.confirm("Proseguire?", "Titolo"), 1);
  EXPECT_EQ(schermo.boxes[0].icon, BoxIcon::Question);
  EXPECT_EQ(schermo.boxes[0].buttons, BoxButtons::OkCancel);
  EXPECT_EQ(schermo.boxes[0].byDefault, Answer::Cancel);
}

TEST_F(UtilitaTest, ATextLiteralDoublesItsQuotes) {
  EXPECT_EQ(utilita.literal("ROSSI"), "'ROSSI'");
  EXPECT_EQ(utilita.literal("D'ANGELO"), "'D''ANGELO'");
  EXPECT_EQ(utilita.literal("''"), "''''''");
  EXPECT_EQ(utilita.literal(""), "''");
  EXPECT_EQ(utilita.literal(testo("")), "''");
  EXPECT_EQ(utilita.literal(testo("città")), "'città'");
  EXPECT_EQ(utilita.literal(CellView()), "NULL");
}

TEST_F(UtilitaTest, ANumberLiteralHasAPointAndNoSuperfluousZeros) {
  EXPECT_EQ(utilita.literalNumber(importo("1234.5000")), "1234.5");
  EXPECT_EQ(utilita.literalNumber(importo("-0.0001")), "-0.0001");
  EXPECT_EQ(utilita.literalNumber(importo("99999999999999")), "99999999999999");
  EXPECT_EQ(utilita.literalNumber(CellView::ofInteger(0)), "0");
  EXPECT_EQ(utilita.literalNumber(CellView::ofInteger(-3)), "-3");
  EXPECT_EQ(utilita.literalNumber(testo("12.50")), "12.5");
  EXPECT_EQ(utilita.literalNumber(CellView()), "NULL");
}

TEST_F(UtilitaTest, AnIdOfZeroOrNullIsNull) {
  EXPECT_EQ(utilita.literalId(CellView::ofInteger(7)), "7");
  EXPECT_EQ(utilita.literalId(CellView::ofInteger(0)), "NULL");
  EXPECT_EQ(utilita.literalId(CellView()), "NULL");
}

TEST_F(UtilitaTest, AFlagIsOneOrZero) {
  EXPECT_EQ(utilita.literalFlag(CellView::ofInteger(-1)), "1");
  EXPECT_EQ(utilita.literalFlag(CellView::ofInteger(1)), "1");
  EXPECT_EQ(utilita.literalFlag(CellView::ofInteger(0)), "0");
  EXPECT_EQ(utilita.literalFlag(CellView()), "NULL");
}

TEST_F(UtilitaTest, ADateLiteralIsCompact) {
  EXPECT_EQ(utilita.literalDate("05/03/2017"), "'20170305'");
  EXPECT_EQ(utilita.literalDate(""), "NULL");
  EXPECT_EQ(utilita.literalDate("31/02/2017"), "NULL");
  EXPECT_EQ(utilita.literalDate("ieri"), "NULL");
}

TEST_F(UtilitaTest, TheAbsoluteValueTurnsTrueIntoOne) {
  EXPECT_EQ(utilita.absolute(CellView::ofInteger(-1)), "1");
  EXPECT_EQ(utilita.absolute(CellView::ofInteger(0)), "0");
  EXPECT_EQ(utilita.absolute(importo("-2.50")), "2.5");
  EXPECT_EQ(utilita.absolute(CellView()), "NULL");
}

TEST_F(UtilitaTest, ConversionsTakeANull) {
  EXPECT_EQ(utilita.toText(CellView()), "");
  EXPECT_EQ(utilita.toDouble(CellView()), 0.0);
  EXPECT_EQ(utilita.toLong(CellView()), 0);
  EXPECT_EQ(utilita.toText(CellView::ofInteger(-1)), "-1");
  EXPECT_EQ(utilita.toDouble(importo("12.34")), 12.34);
  EXPECT_EQ(utilita.toLong(testo("2016")), 2016);
}

TEST_F(UtilitaTest, ATextThatIsNoNumberIsZero) {
  EXPECT_EQ(utilita.toLong("2016"), 2016);
  EXPECT_EQ(utilita.toLong(" 2016 "), 2016);
  EXPECT_EQ(utilita.toLong(""), 0);
  EXPECT_EQ(utilita.toLong("anno"), 0);
}

TEST_F(UtilitaTest, ANumberOfMoreThan32BitsIsAnError) {
  EXPECT_EQ(utilita.toLong("2147483647"), 2147483647);
  try {
    utilita.toLong("2147483648");
    FAIL() << "an overflow was not told";
  } catch (const Error& error) {
    EXPECT_EQ(error.number(), 6);
  }
}

TEST_F(UtilitaTest, FoldersAndStatementsPassThrough) {
  EXPECT_EQ(utilita.defaultFolder(), "/documenti");
  EXPECT_EQ(utilita.documentsFolder(), "/documenti");
  EXPECT_EQ(utilita.fnAnsi2jet("SELECT 'x'"), "SELECT 'x'");
}

}  // namespace
}  // namespace cu
