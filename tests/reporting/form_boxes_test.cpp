// The boxes of the form in a year's layout: the definition places exactly the form's boxes, each once.

#include "reporting/form_boxes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "modello/forma_2031.h"
#include "reporting/library.h"

namespace cu::reporting {
namespace {

using modello::Campo;
using modello::kModello;
using modello::Quadro;

const ReportDefinition& form() {
  static const ReportDefinition found = [] {
    ReportLibrary library(embeddedDefinitionFiles());
    return library.find("CertificazioneUnica.rpt", 342, 3421);
  }();
  return found;
}

std::vector<LaidBox> boxes(const ReportDefinition& definition, FormPart part, int year,
                           const modello::Modello& table = kModello) {
  std::vector<LaidBox> all;
  for (const LaidSection& section : layOut(definition, part, year, table)) {
    for (const auto& row : section.rows) {
      for (const LaidBox& box : row) {
        if (box.main != nullptr) all.push_back(box);
      }
    }
  }
  return all;
}

std::vector<int> numbers(const std::vector<LaidBox>& boxes, Quadro part) {
  std::vector<int> result;
  for (const LaidBox& box : boxes) {
    if (box.main->quadro == part) result.push_back(box.main->numero);
  }
  std::sort(result.begin(), result.end());
  return result;
}

std::vector<int> ranges(std::initializer_list<std::pair<int, int>> all) {
  std::vector<int> result;
  for (const auto& [first, last] : all) {
    for (int number = first; number <= last; ++number) result.push_back(number);
  }
  return result;
}

class FormBoxes : public testing::TestWithParam<int> {};

TEST_P(FormBoxes, AreEachOnceOnThePage) {
  for (const FormPart part : {FormPart::Identity, FormPart::Amounts}) {
    std::vector<const Campo*> laid;
    for (const LaidBox& box : boxes(form(), part, GetParam())) laid.push_back(box.main);
    const std::set<const Campo*> once(laid.begin(), laid.end());
    EXPECT_EQ(once.size(), laid.size());
    for (const Campo& campo : kModello.campi) {
      const bool there = haCella(campo, recordOf(part)) && !campo.colonna.empty() &&
                         vale(campo, modello::annoDisposizione(GetParam()), true);
      EXPECT_EQ(once.contains(&campo), there) << campo.numero << " " << campo.colonna;
    }
  }
}

TEST_P(FormBoxes, OfAdditionalModulesAreUnderTheSameNumbers) {
  for (const LaidBox& box : boxes(form(), FormPart::Amounts, GetParam())) {
    if (box.further == nullptr) continue;
    EXPECT_EQ(box.further->numero, box.main->numero);
    EXPECT_NE(box.further->moduli, modello::Moduli::Primo);
  }
}

INSTANTIATE_TEST_SUITE_P(EachYear, FormBoxes, testing::Values(2013, 2014, 2015, 2016, 2017, 2018));

TEST(FormBoxes, OfTheAmountsHaveTheNumbersOfTheYear) {
  const auto in = [](int year) { return numbers(boxes(form(), FormPart::Amounts, year), Quadro::Autonomo); };
  const std::vector<int> newest =
      ranges({{1, 21}, {29, 30}, {32, 39}, {41, 42}, {52, 62}, {71, 73}, {101, 108}, {131, 138}});
  EXPECT_EQ(in(2014), ranges({{1, 23}}));
  EXPECT_EQ(in(2015), ranges({{1, 21}, {29, 39}, {41, 42}, {52, 62}, {71, 73}, {101, 108}, {131, 138}}));
  for (const int year : {2013, 2016, 2017, 2018}) EXPECT_EQ(in(year), newest) << year;
}

TEST(FormBoxes, OfThePayeeHaveTheNumbersOfTheYear) {
  const auto in = [](int year) {
    return numbers(boxes(form(), FormPart::Identity, year), Quadro::Percipiente);
  };
  EXPECT_EQ(in(2014), ranges({{1, 9}, {20, 25}, {30, 30}, {40, 43}}));
  EXPECT_EQ(in(2015), ranges({{1, 9}, {20, 25}, {30, 30}, {40, 44}}));
  EXPECT_EQ(in(2016), ranges({{1, 9}, {20, 26}, {30, 30}, {40, 44}}));
  for (const int year : {2013, 2017, 2018}) {
    EXPECT_EQ(in(year), ranges({{1, 9}, {20, 27}, {30, 30}, {40, 44}})) << year;
  }
}

TEST(FormBoxes, OfAdditionalModulesLackWhatIsTheAccountsAlone) {
  std::vector<int> blank;
  for (const LaidBox& box : boxes(form(), FormPart::Amounts, 2016)) {
    if (box.further == nullptr) blank.push_back(box.main->numero);
  }
  std::sort(blank.begin(), blank.end());
  EXPECT_EQ(blank, ranges({{1, 1}, {4, 5}, {8, 17}, {20, 21}, {41, 42}, {71, 73}}));
}

// The new year's box is on the page as soon as a section contains its column; the removed box leaves its
// place.
TEST(NewYear, HasItsOwnBoxes) {
  using test::kModello2031;
  ReportDefinition definition = form();
  FormSection& last = definition.sections.back();
  last.rows.push_back({{std::string(test::kColonnaNuova), "Nuova indennità", {}, 10}});
  const auto amounts = [&](int year) {
    return numbers(boxes(definition, FormPart::Amounts, year, kModello2031), Quadro::Autonomo);
  };
  EXPECT_EQ(amounts(2017).back(), test::kNumeroTolto);
  EXPECT_EQ(amounts(test::kAnnoNuovo - 1).back(), test::kNumeroTolto);
  const std::vector<int> fresh = amounts(test::kAnnoNuovo);
  EXPECT_EQ(fresh.back(), test::kNumeroNuovo);
  EXPECT_FALSE(std::binary_search(fresh.begin(), fresh.end(), test::kNumeroTolto));
  EXPECT_EQ(boxes(definition, FormPart::Amounts, test::kAnnoNuovo, kModello2031).back().further,
            &test::kCampi2031.back());
  // A row without a box in the year is omitted.
  EXPECT_EQ(layOut(definition, FormPart::Amounts, 2017, kModello2031).back().rows.size() + 1,
            layOut(definition, FormPart::Amounts, test::kAnnoNuovo, kModello2031).back().rows.size());
}

}  // namespace
}  // namespace cu::reporting
