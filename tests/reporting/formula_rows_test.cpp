// The rows of the demonstration company selected by the wizard's formulas.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "archive/archivio_di_prova.h"
#include "report_support.h"
#include "reporting/definition_reader.h"
#include "reporting/formula_tokens.h"
#include "reporting/library.h"
#include "reporting/rows.h"
#include "reporting/run_readings.h"

namespace cu::test {
namespace {

using reporting::ReportDefinition;
using testing::ElementsAre;

ReportDefinition definition(const std::string& name) {
  for (const reporting::DefinitionFile& file : reporting::embeddedDefinitionFiles()) {
    ReportDefinition each = reporting::parseDefinition(file.text, file.name);
    if (each.name == name) return each;
  }
  throw std::runtime_error("no definition of " + name);
}

Righe rows(const std::string& report, const std::string& formula) {
  const ReportDefinition used = definition(report);
  return Righe(demo(), reporting::selectionOf(used, reporting::parseFormula(formula),
                                              reporting::RunReadings().columns(demo(), used.view)));
}

std::set<std::string> column(const Righe& rows, const std::string& name) {
  std::set<std::string> values;
  for (std::size_t i = 0; i < rows.size(); ++i) values.insert(rows.text(i, name));
  return values;
}

constexpr const char* kCompany = "{__ViewName.IDAziendaPercipiente} = 1 AND {__ViewName.IDAzienda} = 1";

TEST(FormulaRows, TheCompanyClauseAloneGivesAllAccounts) {
  EXPECT_EQ(rows(kAccounts, kCompany).size(), 194U);
}

TEST(FormulaRows, AnotherCompanyHasNone) {
  EXPECT_EQ(rows(kAccounts, "{__ViewName.IDAziendaPercipiente} = 2 AND {__ViewName.IDAzienda} = 2").size(),
            0U);
}

TEST(FormulaRows, ARangeOfYearsHoldsBothItsEnds) {
  const Righe found = rows(
      kAccounts, std::string("{__ViewName.Anno} >= 2014 AND {__ViewName.Anno} <=  2016 AND ") + kCompany);
  EXPECT_EQ(found.size(), 49U + 47U + 49U);
  EXPECT_THAT(column(found, "Anno"), ElementsAre("2014", "2015", "2016"));
}

TEST(FormulaRows, ALoneYearIsAnOpenEnd) {
  EXPECT_THAT(column(rows(kAccounts, std::string("{__ViewName.Anno} <= 2015 AND ") + kCompany), "Anno"),
              ElementsAre("2014", "2015"));
  EXPECT_THAT(column(rows(kAccounts, std::string("{__ViewName.Anno} >= 2016 AND ") + kCompany), "Anno"),
              ElementsAre("2016", "2017"));
}

TEST(FormulaRows, TheFormulaOfTheSummaryOpensWithABlank) {
  EXPECT_EQ(rows(kSummary, std::string(" {__ViewName.Anno} = 2015 AND ") + kCompany).size(), 47U);
}

TEST(FormulaRows, PayeesByCode) {
  const Righe found = rows(kAccounts, std::string(" {__ViewName.CodicePercipiente} >= 'P002' AND "
                                                  "{__ViewName.CodicePercipiente}<= 'P003' AND ") +
                                          kCompany);
  EXPECT_THAT(column(found, "CodicePercipiente"), ElementsAre("P002", "P003"));
  EXPECT_EQ(found.size(), 4U + 8U);
}

TEST(FormulaRows, PayeesByNameInItalianOrder) {
  const Righe found = rows(kAccounts, std::string(" {__ViewName.Anagrafica} >= 'D''Amico' AND "
                                                  "{__ViewName.Anagrafica}<= 'de luca' AND ") +
                                          kCompany);
  EXPECT_THAT(column(found, "Anagrafica"), ElementsAre("D'Amico", "De Luca"));
}

TEST(FormulaRows, ALoneBoundByName) {
  const Righe found =
      rows(kAccounts,
           std::string("{__ViewName.Anagrafica} >= 'Weiss' AND {__ViewName.Anno} = 2017 AND ") + kCompany);
  EXPECT_THAT(column(found, "Anagrafica"), ElementsAre("Weiss", "Zanella", "Žagar"));
}

TEST(FormulaRows, ReasonsOfThePayments) {
  const Righe found =
      rows(kDetailed,
           "Year({__ViewName.DataPagamento}) = 2017 AND  {__ViewName.CodicePagamento} >= 'A' AND "
           "{__ViewName.CodicePagamento}<='B' AND {__ViewName.IDAzienda} = 1");
  EXPECT_THAT(column(found, "CodicePagamento"), ElementsAre("A", "B"));
  EXPECT_THAT(column(found, "Anno"), ElementsAre("2017"));
}

TEST(FormulaRows, ALoneBoundOnTheCodeComparesWhatItWasGiven) {
  // With the description of a payee: every code "P..." is below "Rossi Marco".
  const Righe found = rows(kDetailed,
                           "Year({__ViewName.DataPagamento}) = 2017 AND {__ViewName.Codice} >= 'Rossi' AND "
                           "{__ViewName.IDAzienda} = 1");
  EXPECT_EQ(found.size(), 0U);
}

TEST(FormulaRows, TheFormsAreTheLinesThatAUserChose) {
  chooseLines({{101, "A"}, {103, "M1"}});
  const Righe found = rows(kForms, formFormula(2016));
  ASSERT_EQ(found.size(), 2U);
  EXPECT_THAT(column(found, "CodicePercipiente"), ElementsAre("P001", "P003"));
  EXPECT_EQ(
      rows(kForms, "{__ViewName.Anno} = 2016 AND {__ViewName.IDAzienda} = 1 AND {__ViewName.IDUtente} = 13")
          .size(),
      0U);
}

TEST(FormulaRows, RowsComeInTheOrderOfTheNames) {
  const Righe found = rows(kSummary, std::string(" {__ViewName.Anno} = 2017 AND ") + kCompany);
  std::vector<std::string> names;
  for (std::size_t i = 0; i < 6; ++i)
    names.push_back(found.text(i, "Anagrafica") + "/" + found.text(i, "Codice"));
  EXPECT_THAT(names, ElementsAre("Abd El Karim/O", "Barbieri/A", "Bianchi & Figli S.n.c./Q", "Calò/A",
                                 "Calò/O", "Caruso/A"));
}

TEST(FormulaRows, AQuoteInALiteralStaysText) {
  EXPECT_EQ(rows(kAccounts, "{__ViewName.Anagrafica} = 'x'' OR 1 = 1 --'").size(), 0U);
}

TEST(FormulaRows, AnUnknownFieldIsToldBeforeAnythingIsRead) {
  EXPECT_THROW(rows(kDetailed, "{__ViewName.CodicePercipiente} = 'P001'"), reporting::FormulaError);
}

}  // namespace
}  // namespace cu::test
