// The form and the telematic file are one certificate: each box shows the column that the file's cell of the
// same number is written from.

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "reporting/form_values.h"
#include "reporting/library.h"
#include "telematic/tavola_d.h"
#include "telematic/tavola_h.h"

namespace cu::reporting {
namespace {

using telematico::Forma;
using telematico::RigaCella;

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

std::set<std::pair<int, std::string>> cells(std::span<const RigaCella> table, std::string_view prefix,
                                            int year, bool first) {
  std::set<std::pair<int, std::string>> result;
  for (const RigaCella& cell : table) {
    if (!telematico::vale(cell, year, first) || !cell.codice.starts_with(prefix)) continue;
    std::string column(cell.fonte);
    // The file repeats the fund's name where the company has no code; the form leaves its box empty.
    if (cell.codice == "AU001032") column = first ? "IDCUEntePrevidenziale" : "";
    if (cell.codice == "DA002043" && cell.forma == Forma::Uno) column = "NonResidenteSchumacker";
    if (!column.empty()) result.emplace(std::stoi(std::string(cell.codice.substr(5))), column);
  }
  return result;
}

class FormBoxes : public testing::TestWithParam<int> {};

TEST_P(FormBoxes, OfTheMainModuleAreThoseOfTheFile) {
  EXPECT_EQ(boxes(FormPart::Amounts, GetParam(), false),
            cells(telematico::kCelleH, "AU001", GetParam(), true));
}

TEST_P(FormBoxes, OfAnAdditionalModuleAreThoseOfTheFile) {
  EXPECT_EQ(boxes(FormPart::Amounts, GetParam(), true),
            cells(telematico::kCelleH, "AU001", GetParam(), false));
}

TEST_P(FormBoxes, OfCompanyAndPayeeAreThoseOfTheFile) {
  std::set<std::pair<int, std::string>> expected = cells(telematico::kCelleD, "DA001", GetParam(), true);
  expected.merge(cells(telematico::kCelleD, "DA002", GetParam(), true));
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
