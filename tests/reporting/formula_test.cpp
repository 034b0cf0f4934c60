#include "reporting/formula.h"

#include <gtest/gtest.h>

#include "data/rowstore.h"
#include "reporting/formula_tokens.h"
#include "reporting/report_error.h"

namespace cu::reporting {
namespace {

const Columns& columns() {
  static const Columns all({{"Anno"},
                            {"Codice"},
                            {"CodicePercipiente"},
                            {"Anagrafica"},
                            {"DataPagamento"},
                            {"IDAzienda"},
                            {"IDAziendaPercipiente"},
                            {"IDUtente"},
                            {"CodicePagamento"}});
  return all;
}

std::string condition(std::string_view formula) {
  return conditionOf(parseFormula(formula), "RepCompenso", columns());
}

struct Refusal {
  std::string text;
  std::size_t position = 0;
};

Refusal refusalOf(std::string_view formula) {
  try {
    condition(formula);
  } catch (const FormulaError& error) {
    EXPECT_EQ(error.number(), kErrorReportFormula);
    return {error.description(), error.position()};
  }
  ADD_FAILURE() << "accepted: " << formula;
  return {};
}

struct Reading {
  const char* formula;
  const char* condition;
};

class FormulaReadings : public testing::TestWithParam<Reading> {};

TEST_P(FormulaReadings, BecomesACondition) { EXPECT_EQ(condition(GetParam().formula), GetParam().condition); }

INSTANTIATE_TEST_SUITE_P(
    EachConstruct, FormulaReadings,
    testing::Values(
        Reading{"", ""}, Reading{" \t\r\n", ""},
        Reading{"{__ViewName.Anno} = 2016", "RepCompenso.Anno = 2016"},
        Reading{" {__ViewName.Anno} = 2016", "RepCompenso.Anno = 2016"},
        Reading{"{__ViewName.Anno} <> 2016", "RepCompenso.Anno <> 2016"},
        Reading{"{__ViewName.Anno} < 2016", "RepCompenso.Anno < 2016"},
        Reading{"{__ViewName.Anno} <= 2016", "RepCompenso.Anno <= 2016"},
        Reading{"{__ViewName.Anno} > 2016", "RepCompenso.Anno > 2016"},
        Reading{"{__ViewName.Anno}>=2016", "RepCompenso.Anno >= 2016"},
        Reading{"{__ViewName.Anno} >= 2014 AND {__ViewName.Anno} <=  2016",
                "RepCompenso.Anno >= 2014 AND RepCompenso.Anno <= 2016"},
        Reading{"Year({__ViewName.DataPagamento}) = 2016", "Year(RepCompenso.DataPagamento) = 2016"},
        Reading{"year ( {__ViewName.DataPagamento} ) = 2016", "Year(RepCompenso.DataPagamento) = 2016"},
        Reading{" {__ViewName.Anagrafica} >= 'D''Amico' AND {__ViewName.Anagrafica}<= 'Rossi'",
                "RepCompenso.Anagrafica >= 'D''Amico' AND RepCompenso.Anagrafica <= 'Rossi'"},
        Reading{"{__ViewName.Codice} >= \"A \"\"B\"\" 'c'\"", "RepCompenso.Codice >= 'A \"B\" ''c'''"},
        Reading{"{__ViewName.Codice} = ''", "RepCompenso.Codice = ''"},
        Reading{"{__ViewName.Anagrafica} >= 'Peña Álvarez'", "RepCompenso.Anagrafica >= 'Peña Álvarez'"},
        Reading{"{__ViewName.Anno} > -1.50", "RepCompenso.Anno > -1.50"},
        Reading{"2016 = {__viewname.ANNO}", "2016 = RepCompenso.Anno"},
        Reading{"{RepCompenso.Anno} = {__ViewName.IDAzienda}", "RepCompenso.Anno = RepCompenso.IDAzienda"},
        Reading{"{__ViewName.Anno} = 1 And {__ViewName.Anno} = 2 and {__ViewName.IDUtente} = 3",
                "RepCompenso.Anno = 1 AND RepCompenso.Anno = 2 AND RepCompenso.IDUtente = 3"}));

struct FormulaFault {
  const char* formula;
  std::size_t position;
  const char* text;
};

class FormulaFaults : public testing::TestWithParam<FormulaFault> {};

TEST_P(FormulaFaults, AreToldWithTheirPosition) {
  const Refusal told = refusalOf(GetParam().formula);
  EXPECT_EQ(told.position, GetParam().position);
  EXPECT_EQ(told.text, "Formula di selezione della stampa, carattere " + std::to_string(GetParam().position) +
                           ": " + GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    EachFault, FormulaFaults,
    testing::Values(
        FormulaFault{"{__ViewName.Anno}", 18,
                     "atteso uno dei confronti = <> < <= > >=, trovato la fine della formula."},
        FormulaFault{
            "{__ViewName.Anno} = ", 21,
            "atteso un campo tra graffe, Year(), un testo o un numero, trovato la fine della formula."},
        FormulaFault{"= 5", 1, "atteso un campo tra graffe, Year(), un testo o un numero, trovato \"=\"."},
        FormulaFault{"{__ViewName.Anno} = 1 OR {__ViewName.Anno} = 2", 23, "atteso AND, trovato \"OR\"."},
        FormulaFault{
            "{__ViewName.Anno} = 1 AND", 26,
            "atteso un campo tra graffe, Year(), un testo o un numero, trovato la fine della formula."},
        FormulaFault{"({__ViewName.Anno} = 1)", 1,
                     "atteso un campo tra graffe, Year(), un testo o un numero, trovato \"(\"."},
        FormulaFault{"NOT {__ViewName.Anno} = 1", 1,
                     "atteso un campo tra graffe, Year(), un testo o un numero, trovato \"NOT\"."},
        FormulaFault{"{__ViewName.Anno} == 1", 20,
                     "atteso un campo tra graffe, Year(), un testo o un numero, trovato \"=\"."},
        FormulaFault{"{__ViewName.Anno} = 'aperto", 21, "testo senza virgolette di chiusura."},
        FormulaFault{"{__ViewName.Anno} = \"aperto'", 21, "testo senza virgolette di chiusura."},
        FormulaFault{"{__ViewName.Anno = 1", 1, "parentesi graffa non chiusa."},
        FormulaFault{"{__ViewName.{Anno}} = 1", 1, "parentesi graffa non chiusa."},
        FormulaFault{"{Anno} = 1", 1, "il campo {Anno} non ha la forma {Vista.Campo}."},
        FormulaFault{"{__ViewName.} = 1", 1, "il campo {__ViewName.} non ha la forma {Vista.Campo}."},
        FormulaFault{"{} = 1", 1, "il campo {} non ha la forma {Vista.Campo}."},
        FormulaFault{"{AltraVista.Anno} = 1", 1, "la stampa non usa la vista \"AltraVista\"."},
        FormulaFault{"1 = 1 AND {__ViewName.Manca} = 1", 11,
                     "la vista RepCompenso non ha il campo \"Manca\"."},
        FormulaFault{"Year{__ViewName.Anno} = 1", 5, "atteso \"(\" dopo Year, trovato {__ViewName.Anno}."},
        FormulaFault{"Year(2016) = 1", 6, "atteso un campo tra graffe, trovato \"2016\"."},
        FormulaFault{"Year({__ViewName.Anno} = 1", 24, "atteso \")\", trovato \"=\"."},
        FormulaFault{"Month({__ViewName.Anno}) = 1", 1,
                     "atteso un campo tra graffe, Year(), un testo o un numero, trovato \"Month\"."},
        FormulaFault{"{__ViewName.Anno} = 12a", 23, "numero seguito da \"a\"."},
        FormulaFault{"{__ViewName.Anno} = 1.2.3", 24, "numero seguito da \".\"."},
        FormulaFault{"{__ViewName.Anno} = 1.", 23, "attesa una cifra dopo il punto decimale."},
        FormulaFault{"{__ViewName.Anno} = -x", 21, "attesa una cifra dopo il segno \"-\"."},
        FormulaFault{"{__ViewName.Anno} = 1234567890123456789", 21, "numero con troppe cifre."},
        FormulaFault{"{__ViewName.Anno} = 1; DELETE", 22, "carattere non ammesso \";\"."},
        FormulaFault{"{__ViewName.Anno} = 1 -- x", 23, "attesa una cifra dopo il segno \"-\"."},
        FormulaFault{"{__ViewName.Anagrafica} = 'a\x01'", 29, "carattere di controllo dentro un testo."},
        FormulaFault{"è", 1, "carattere non ammesso \"è\"."},
        FormulaFault{"'è' = \x01", 7, "carattere non ammesso."},
        FormulaFault{"'\xFF' = 1", 2, "il testo non è UTF-8."},
        FormulaFault{"{__ViewName.Anno} = 1 {__ViewName.Anno} = 1", 23,
                     "atteso AND, trovato {__ViewName.Anno}."}));

}  // namespace
}  // namespace cu::reporting
