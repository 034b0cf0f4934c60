#include "reporting/form_values.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "report_support.h"
#include "reporting/run_readings.h"

namespace cu::test {
namespace {

using namespace reporting;
using testing::ElementsAre;
using testing::Pair;
using Boxes = std::map<int, std::string>;

const ReportDefinition& formOfValues() {
  static const ReportDefinition found = [] {
    ReportLibrary library(embeddedDefinitionFiles());
    return library.find(kForms, 342, 3421);
  }();
  return found;
}

template <class Values>
Boxes filled(FormPart part, int year, const Values& values, const std::string& section = "") {
  Boxes result;
  for (const LaidSection& each : layOut(formOfValues(), part, year)) {
    if (!section.empty() && each.section->title != section) continue;
    for (const auto& row : each.rows) {
      for (const LaidBox& box : row) {
        if (box.main == nullptr) continue;
        const BoxValue value = values.of(box);
        if (!value.text.isEmpty()) result[box.main->numero] = value.text.toStdString();
      }
    }
  }
  return result;
}

// One line of the demonstration company, selected for a form.
class Line {
 public:
  Line(int payee, const std::string& reason, int year)
      : year_(year),
        rows_((chooseLines({{payee, reason}}), demo()),
              selectionOf(formOfValues(), parseFormula(formFormula(year)),
                          RunReadings().columns(demo(), formOfValues().view))) {
    if (rows_.size() != 1) throw std::runtime_error("no such line");
    rows_.move(0);
  }
  Boxes amounts() const { return filled(FormPart::Amounts, year_, MainModuleValues(rows_)); }
  Boxes company() const {
    return filled(FormPart::Identity, year_, MainModuleValues(rows_), "Dati relativi al sostituto d'imposta");
  }
  Boxes payee() const {
    return filled(FormPart::Identity, year_, MainModuleValues(rows_),
                  "Dati relativi al percettore delle somme");
  }
  Boxes of(const std::string& section) const {
    return filled(FormPart::Identity, year_, MainModuleValues(rows_), section);
  }
  std::vector<Boxes> modules() const {
    Rows modules = readModules(demo(), rows_);
    std::vector<Boxes> result;
    for (std::size_t i = 0; i < modules.size(); ++i) {
      modules.move(i);
      result.push_back(filled(FormPart::Amounts, year_, FurtherModuleValues(modules, rows_)));
    }
    return result;
  }

 private:
  int year_;
  Rows rows_;
};

TEST(FormValues, ZeroAmountsLeaveTheirBoxesEmpty) {
  EXPECT_THAT(Line(101, "A", 2016).amounts(),
              ElementsAre(Pair(1, "A"), Pair(4, "13.551,50"), Pair(8, "13.551,50"), Pair(9, "2.710,30")));
}

TEST(FormValues, TheGrossAmountHoldsTheSumsOfAdditionalModules) {
  const Line line(101, "A", 2017);
  EXPECT_THAT(line.amounts(),
              ElementsAre(Pair(1, "A"), Pair(4, "14.235,33"), Pair(8, "13.902,00"), Pair(9, "2.780,40")));
  EXPECT_THAT(line.modules(), ElementsAre(ElementsAre(Pair(6, "7"), Pair(7, "333,33"))));
}

TEST(FormValues, TheYearStandsInItsBoxForAnAdvance) {
  EXPECT_THAT(Line(102, "A", 2016).amounts(),
              ElementsAre(Pair(1, "A"), Pair(2, "2016"), Pair(3, "X"), Pair(4, "9.170,35"),
                          Pair(8, "9.170,35"), Pair(9, "1.834,07"), Pair(11, "350,00")));
}

TEST(FormValues, TheYearStandsInItsBoxForTheEndOfAnAgency) {
  const Line line(123, "H", 2015);
  EXPECT_EQ(line.amounts().at(2), "2015");
  EXPECT_EQ(line.amounts().at(18), "9.000,00");
  EXPECT_EQ(line.amounts().at(19), "1.800,00");
  EXPECT_THAT(
      line.modules(),
      ElementsAre(ElementsAre(Pair(2, "2012"), Pair(3, "X"), Pair(18, "3.000,00"), Pair(19, "600,00")),
                  ElementsAre(Pair(2, "2013"), Pair(18, "4.000,00"), Pair(19, "800,00")),
                  ElementsAre(Pair(2, "2014"), Pair(18, "2.000,00"), Pair(19, "400,00"))));
}

TEST(FormValues, SurchargesStandUnderReasonNAlone) {
  EXPECT_THAT(
      Line(120, "N", 2016).amounts(),
      ElementsAre(Pair(1, "N"), Pair(4, "10.100,00"), Pair(6, "6"), Pair(7, "7.500,00"), Pair(8, "2.600,00"),
                  Pair(10, "598,00"), Pair(11, "12,00"), Pair(12, "1,10"), Pair(13, "27,45"),
                  Pair(14, "0,55"), Pair(15, "0,80"), Pair(16, "9,20"), Pair(17, "0,35")));
}

struct YearsCode {
  int year;
  const char* code;
};
class NotSubjectCode : public testing::TestWithParam<YearsCode> {};

TEST_P(NotSubjectCode, IsTheYearsOwnWhereNoneWasChosen) {
  EXPECT_EQ(Line(106, "B", GetParam().year).amounts().at(6), GetParam().code);
}

INSTANTIATE_TEST_SUITE_P(EachYear, NotSubjectCode,
                         testing::Values(YearsCode{2015, "3"}, YearsCode{2016, "6"}, YearsCode{2017, "7"}));

TEST(FormValues, RefundedExpensesHaveTheBoxOfTheYear) {
  const Boxes in2014 = Line(115, "M", 2014).amounts();
  const Boxes in2015 = Line(115, "M", 2015).amounts();
  EXPECT_TRUE(in2014.contains(22));
  EXPECT_FALSE(in2014.contains(7));
  EXPECT_TRUE(in2015.contains(20));
  EXPECT_FALSE(in2015.contains(22));
}

TEST(FormValues, ContributionsOf2014HaveNoFund) {
  const Boxes boxes = Line(117, "M", 2014).amounts();
  EXPECT_EQ(boxes.at(20), "1.057,55");
  EXPECT_EQ(boxes.at(21), "528,77");
  EXPECT_FALSE(boxes.contains(29));
}

TEST(FormValues, TheCompanysCodeAtTheFundIsThatOfTheFund) {
  EXPECT_EQ(Line(118, "A", 2016).amounts().at(32), "00123456");
  EXPECT_EQ(Line(117, "M2", 2016).amounts().at(32), "A1B2");
  EXPECT_FALSE(Line(119, "A", 2016).amounts().contains(32));
}

TEST(FormValues, ContributionsMayBeNegative) {
  const Boxes boxes = Line(119, "A", 2016).amounts();
  EXPECT_EQ(boxes.at(36), "X");
  EXPECT_EQ(boxes.at(37), "-35,40");
  EXPECT_EQ(boxes.at(38), "950,00");
  EXPECT_EQ(boxes.at(39), "940,00");
}

TEST(FormValues, AModuleHasItsOwnContributionsUnderTheFundOfThePayee) {
  EXPECT_THAT(Line(119, "A", 2017).modules(),
              ElementsAre(ElementsAre(
                  Pair(29, "02159000583"), Pair(30, testing::StartsWith("Fondo Dimostrativo")), Pair(33, "Z"),
                  Pair(34, "150,00"), Pair(35, "75,00"), Pair(36, "X"), Pair(37, "-8,90"), Pair(38, "225,00"),
                  Pair(39, "225,00"), Pair(52, "02150260012"), Pair(53, "310,00"), Pair(54, "62,00"))));
}

TEST(FormValues, AModuleWithoutContributionsNamesNoFund) {
  for (const Boxes& boxes : Line(134, "A", 2016).modules()) EXPECT_FALSE(boxes.contains(29));
}

TEST(FormValues, WithholdingNotMadeIsACrossIn2015AndAnAmountLater) {
  EXPECT_EQ(Line(134, "A", 2015).amounts().at(104), "X");
  EXPECT_EQ(Line(134, "A", 2016).amounts().at(104), "75,00");
  EXPECT_EQ(Line(134, "A", 2016).amounts().at(108), "15,50");
}

TEST(FormValues, IndemnitiesHaveEightBoxes) {
  const Boxes boxes = Line(135, "A", 2017).amounts();
  const std::vector<std::string> expected = {"9.000,00", "1.800,00", "500,00", "100,00",
                                             "4.000,00", "800,00",   "250,00", "50,00"};
  for (int i = 0; i < 8; ++i) EXPECT_EQ(boxes.at(131 + i), expected[static_cast<std::size_t>(i)]);
}

TEST(FormValues, OtherPayersHaveElevenBoxes) {
  const Boxes boxes = Line(136, "A", 2016).amounts();
  EXPECT_EQ(boxes.at(52), "02150070239");
  const std::vector<std::string> expected = {"2.400,00", "480,00", "10,00", "5,00", "4,10",
                                             "3,20",     "2,30",   "1,40",  "0,50", "0,60"};
  for (int i = 0; i < 10; ++i) EXPECT_EQ(boxes.at(53 + i), expected[static_cast<std::size_t>(i)]);
}

TEST(FormValues, CompanyAndPayeeStandInTheirBoxes) {
  const Line line(101, "A", 2017);
  EXPECT_THAT(
      line.company(),
      ElementsAre(Pair(1, "04123450233"), Pair(2, "BOTTEGA LESSINIA SERVIZI S.R.L."), Pair(4, "Verona"),
                  Pair(5, "VR"), Pair(6, "37121"), Pair(7, "Via dei Mulini 18"), Pair(8, "0451234567"),
                  Pair(9, "amministrazione@bottegalessinia.example"), Pair(10, testing::Not(""))));
  EXPECT_THAT(line.payee(),
              ElementsAre(Pair(1, "RSSMRC71C08L781I"), Pair(2, "ROSSI"), Pair(3, "MARCO"), Pair(4, "M"),
                          Pair(5, "08/03/1971"), Pair(6, "Verona"), Pair(7, "VR")));
}

TEST(FormValues, CapitalsKeepTheLetterThatHasNone) {
  EXPECT_EQ(Line(104, "A", 2017).payee().at(2), "MÜLLER-GROßMANN");
}

TEST(FormValues, OnlyANonResidentHasAForeignAddress) {
  EXPECT_THAT(Line(104, "A", 2017).of("Riservato ai percipienti esteri"),
              ElementsAre(Pair(40, "DE812345678"), Pair(41, "München"), Pair(42, "Leopoldstraße 12"),
                          Pair(43, "X"), Pair(44, "094")));
  EXPECT_THAT(Line(104, "A", 2014).of("Riservato ai percipienti esteri"),
              ElementsAre(Pair(40, "DE812345678"), Pair(41, "München"), Pair(42, "Leopoldstraße 12"),
                          Pair(43, "094")));
  EXPECT_FALSE(Line(105, "M", 2017).of("Riservato ai percipienti esteri").contains(43));
  EXPECT_TRUE(Line(101, "A", 2017).of("Riservato ai percipienti esteri").empty());
}

TEST(FormValues, TheMunicipalitiesMoveWithTheYearsMergers) {
  EXPECT_THAT(Line(144, "N", 2015).of("Domicilio fiscale al 1º gennaio {AnnoDopo}"),
              ElementsAre(Pair(23, testing::_), Pair(24, "PT"), Pair(25, "A012")));
  EXPECT_EQ(Line(144, "N", 2016).of("Domicilio fiscale al 1º gennaio {AnnoDopo}").at(26), "A01");
  EXPECT_EQ(Line(144, "N", 2017).of("Domicilio fiscale al 1º gennaio {AnnoDopo}").at(27), "A02");
  EXPECT_EQ(Line(144, "N", 2017).of("Domicilio fiscale al 1º gennaio {Anno}").at(23), "A01");
}

}  // namespace
}  // namespace cu::test
