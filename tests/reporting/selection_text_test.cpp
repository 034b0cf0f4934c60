// The description of the selection in the heading of a list.

#include "reporting/selection_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "report_support.h"

namespace cu::test {
namespace {

using testing::HasSubstr;

struct Named {
  const char* formula;
  const char* text;
};

class SelectionText : public testing::TestWithParam<Named> {};

TEST_P(SelectionText, NamesYearsPayeesAndReasons) {
  reporting::ReportLibrary library(reporting::embeddedDefinitionFiles());
  const reporting::ReportDefinition& definition = library.find(kAccounts, 246, 2461);
  EXPECT_EQ(reporting::selectionText(definition, reporting::parseFormula(GetParam().formula)).toStdString(),
            GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Formulas, SelectionText,
    testing::Values(
        Named{"{__ViewName.IDAziendaPercipiente} = 1 AND {__ViewName.IDAzienda} = 1",
              "Tutti gli anni - tutti i percipienti - tutte le causali"},
        Named{
            "{__ViewName.Anno} >= 2014 AND {__ViewName.Anno} <=  2016 AND  {__ViewName.CodicePercipiente} >= "
            "'P001' AND {__ViewName.CodicePercipiente}<= 'P009' AND  {__ViewName.Codice} >= 'A' AND "
            "{__ViewName.Codice}<='M1' AND {__ViewName.IDAzienda} = 1",
            "Anni dal 2014 al 2016 - percipienti da P001 a P009 - causali da A a M1"},
        Named{
            "{__ViewName.Anno} >= 2014 AND {__ViewName.Anno} <=  2014 AND  {__ViewName.CodicePercipiente} >= "
            "'P001' AND {__ViewName.CodicePercipiente}<= 'P001' AND  {__ViewName.Codice} >= 'A' AND "
            "{__ViewName.Codice}<='A'",
            "Anno 2014 - percipiente P001 - causale A"},
        Named{"{__ViewName.Anno} >= 2015 AND {__ViewName.Anagrafica} >= 'D''Amico' AND {__ViewName.Codice} "
              ">= 'G'",
              "Anni dal 2015 - percipienti da D'Amico - causali da G"},
        Named{"{__ViewName.Anno} <= 2015 AND {__ViewName.Anagrafica} <= 'Rossi %2' AND {__ViewName.Codice} "
              "<= 'G'",
              "Anni fino al 2015 - percipienti fino a Rossi %2 - causali fino a G"},
        Named{" {__ViewName.Anagrafica} >= 'A %2' AND {__ViewName.Anagrafica}<= '%1'",
              "Tutti gli anni - percipienti da A %2 a %1 - tutte le causali"},
        Named{"{repcontoindividuale.ANNO} = 2016", "Anno 2016 - tutti i percipienti - tutte le causali"},
        // A condition that is no limit, or more than two limits, is not described, because the words would be
        // wrong.
        Named{"{__ViewName.Anno} <> 2016 AND {__ViewName.Codice} > 'A'", "tutti i percipienti"},
        Named{"2016 = {__ViewName.Anno} AND {__ViewName.Codice} = {__ViewName.CodicePercipiente}", ""},
        Named{"{__ViewName.Anno} >= 2014 AND {__ViewName.Anno} >= 2015",
              "tutti i percipienti - tutte le causali"}));

TEST(Selection, StandsInTheHeadingOfEachPage) {
  PrintShop shop;
  const std::string path = shop.print(
      kAccounts,
      "{__ViewName.Anno} >= 2015 AND {__ViewName.IDAziendaPercipiente} = 1 AND {__ViewName.IDAzienda} = 1");
  EXPECT_EQ(count(pdfText(path), "Anni dal 2015 - tutti i percipienti - tutte le causali"), pageCount(path));
}

TEST(Selection, StandsWhereNothingWasFound) {
  PrintShop shop;
  EXPECT_THAT(shop.text(kAccounts, "{__ViewName.Anno} >= 1999 AND {__ViewName.Anno} <=  2000"),
              HasSubstr("Anni dal 1999 al 2000 - tutti i percipienti - tutte le causali"));
}

}  // namespace
}  // namespace cu::test
