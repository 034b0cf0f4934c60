// The form and the telematic file are one certificate: each box shows the column that the file's cell of the
// same number is written from.

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "modello/modello.h"
#include "reporting/form_values.h"
#include "reporting/library.h"

namespace cu::reporting {
namespace {

using modello::Campo;
using modello::Quadro;

const ReportDefinition& form() {
  static const ReportDefinition found = [] {
    ReportLibrary library(embeddedDefinitionFiles());
    return library.find("CertificazioneUnica.rpt", 342, 3421);
  }();
  return found;
}

// Number of the box, column: of the boxes that a part has in a year's layout. A box that is blank in
// additional modules is not among those of a module.
std::set<std::pair<int, std::string>> boxes(FormPart part, int year, bool module) {
  std::set<std::pair<int, std::string>> result;
  for (const FormSection& section : form().sections) {
    if (section.part != part || !section.years.contains(layoutYear(year))) continue;
    for (const auto& row : section.rows) {
      for (const FormBox& box : row) {
        if (box.number.empty() || !box.years.contains(layoutYear(year))) continue;
        const std::string column = module ? box.moduleField : box.fields.front();
        if (!column.empty()) result.emplace(std::stoi(box.number), column);
      }
    }
  }
  return result;
}

std::set<std::pair<int, std::string>> cells(Quadro part, int year, bool first) {
  std::set<std::pair<int, std::string>> result;
  for (const Campo& box : modello::kModello.campi) {
    if (box.quadro != part || !haCella(box, record(part)) || !vale(box, year, first)) continue;
    // The file repeats the fund's name where the company has no code; the form leaves its box empty.
    if (part == Quadro::Autonomo && box.numero == 32 && !first) continue;
    result.emplace(box.numero, box.colonna);
  }
  return result;
}

class FormBoxes : public testing::TestWithParam<int> {};

TEST_P(FormBoxes, OfTheMainModuleAreThoseOfTheFile) {
  EXPECT_EQ(boxes(FormPart::Amounts, GetParam(), false), cells(Quadro::Autonomo, GetParam(), true));
}

TEST_P(FormBoxes, OfAnAdditionalModuleAreThoseOfTheFile) {
  EXPECT_EQ(boxes(FormPart::Amounts, GetParam(), true), cells(Quadro::Autonomo, GetParam(), false));
}

TEST_P(FormBoxes, OfCompanyAndPayeeAreThoseOfTheFile) {
  std::set<std::pair<int, std::string>> expected = cells(Quadro::Azienda, GetParam(), true);
  expected.merge(cells(Quadro::Percipiente, GetParam(), true));
  EXPECT_EQ(boxes(FormPart::Identity, GetParam(), false), expected);
}

INSTANTIATE_TEST_SUITE_P(EachYear, FormBoxes, testing::Values(2014, 2015, 2016, 2017, 2018));

TEST(LayoutYear, IsTheNewestForEveryYearWithoutOneOfItsOwn) {
  EXPECT_EQ(layoutYear(2013), 2017);
  EXPECT_EQ(layoutYear(2014), 2014);
  EXPECT_EQ(layoutYear(2015), 2015);
  EXPECT_EQ(layoutYear(2016), 2016);
  EXPECT_EQ(layoutYear(2017), 2017);
  EXPECT_EQ(layoutYear(2018), 2017);
}

}  // namespace
}  // namespace cu::reporting
