#include "printing/formule.h"

#include "host/testi_programma.h"

#include <gtest/gtest.h>

#include <ostream>

#include "base/error.h"
#include "support/scripted_front_end.h"
#include "support/simple_utility.h"

namespace cu::test {
namespace {

using stampa::Dati;

constexpr const char* kConto = "ContoIndividuale.rpt";
constexpr const char* kSintetico = "CertificazioneCompensiSintetico.rpt";
constexpr const char* kAnalitico = "CertificazioneCompensiAnalitico.rpt";
constexpr const char* kModulo = "CertificazioneUnica.rpt";

Dati dati(std::int32_t modo, const char* report, const Filtri& filtri = {}) {
  return {.modo = modoCorsa(modo), .report = report, .filtri = filtri, .idAzienda = 7, .idUtente = 12};
}

Filtri conAnni(const char* anno, const char* adAnno = "") {
  Filtri filtri;
  filtri.anno = anno;
  filtri.adAnno = adAnno;
  return filtri;
}

// A payee with code and description; an empty code omits the limit, whatever its description.
Filtri conPercipienti(bool perCodice, const char* codiceDa, const char* nomeDa, const char* codiceA,
                      const char* nomeA) {
  Filtri filtri;
  filtri.anno = "2016";
  filtri.perCodice = perCodice;
  filtri.perNome = !perCodice;
  filtri.codiceDa = codiceDa;
  filtri.descrizioneDa = nomeDa;
  filtri.codiceA = codiceA;
  filtri.descrizioneA = nomeA;
  return filtri;
}

Filtri conCausali(const char* da, const char* a) {
  Filtri filtri;
  filtri.anno = "2016";
  filtri.causaleDa = da;
  filtri.causaleA = a;
  return filtri;
}

struct Riga {
  const char* caso;
  Dati dati;
  const char* atteso;
};
void PrintTo(const Riga& riga, std::ostream* out) { *out << riga.caso; }
std::string nome(const ::testing::TestParamInfo<Riga>& info) { return info.param.caso; }

class FormulaProva : public ::testing::TestWithParam<Riga> {
 protected:
  ScriptedFrontEnd frontEnd;
  SimpleUtility utilita{frontEnd};
};

class YearFormula : public FormulaProva {};
TEST_P(YearFormula, IsTheTablesRow) {
  EXPECT_EQ(stampa::fnFiltroAnno(GetParam().dati, utilita), GetParam().atteso);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, YearFormula,
    ::testing::Values(
        Riga{"BothBlank", dati(246, kConto), ""}, Riga{"Blanks", dati(246, kConto, conAnni("  ", " ")), ""},
        Riga{"OnlyTo", dati(246, kConto, conAnni("", " 2016 ")), "{__ViewName.Anno} <= 2016"},
        Riga{"OnlyFrom", dati(246, kConto, conAnni(" 2014 ")), "{__ViewName.Anno} >= 2014"},
        Riga{"Both", dati(246, kConto, conAnni("2014", "2016")),
             "{__ViewName.Anno} >= 2014 AND {__ViewName.Anno} <=  2016"},
        Riga{"BothTheWrongWayRound", dati(246, kConto, conAnni("2016", "2014")),
             "{__ViewName.Anno} >= 2014 AND {__ViewName.Anno} <=  2016"},
        Riga{"BothTheSame", dati(246, kConto, conAnni("2015", "2015")),
             "{__ViewName.Anno} >= 2015 AND {__ViewName.Anno} <=  2015"},
        Riga{"ASingleYearAsItStands", dati(246, kConto, conAnni("02014")), "{__ViewName.Anno} >= 02014"},
        Riga{"BothAsNumbers", dati(246, kConto, conAnni("02014", "2016")),
             "{__ViewName.Anno} >= 2014 AND {__ViewName.Anno} <=  2016"},
        Riga{"Sintetico", dati(247, kSintetico, conAnni("2016")), " {__ViewName.Anno} = 2016"},
        Riga{"SinteticoOfTheFile", dati(342, kSintetico, conAnni("2016")), " {__ViewName.Anno} = 2016"},
        Riga{"Analitico", dati(247, kAnalitico, conAnni("2016")), "Year({__ViewName.DataPagamento}) = 2016"},
        Riga{"AnyOtherCertificate", dati(247, "Altro.rpt", conAnni("2016")),
             "Year({__ViewName.DataPagamento}) = 2016"},
        Riga{"TheSecondListIsNotRead", dati(247, kSintetico, conAnni("2016", "2017")),
             " {__ViewName.Anno} = 2016"},
        Riga{"Form", dati(342, kModulo, conAnni("2016")), "{__ViewName.Anno} = 2016"}),
    nome);

class PayeeFormula : public FormulaProva {};
TEST_P(PayeeFormula, IsTheTablesRow) {
  EXPECT_EQ(stampa::fnFiltroPercipiente(GetParam().dati, utilita), GetParam().atteso);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, PayeeFormula,
    ::testing::Values(
        Riga{"NoneByCode", dati(246, kConto, conPercipienti(true, "", "", "", "")), ""},
        Riga{"NoneByName", dati(246, kConto, conPercipienti(false, "", "Rossi", "", "Verdi")), ""},
        Riga{"FromByCode", dati(246, kConto, conPercipienti(true, "P1", "Rossi", "", "")),
             "{__ViewName.CodicePercipiente} >= 'P1'"},
        Riga{"ToByCode", dati(247, kSintetico, conPercipienti(true, "", "", "P9", "Verdi")),
             "{__ViewName.CodicePercipiente} <= 'P9'"},
        Riga{"BothByCode", dati(246, kConto, conPercipienti(true, "P1", "Z", "P9", "A")),
             " {__ViewName.CodicePercipiente} >= 'P1' AND {__ViewName.CodicePercipiente}<= 'P9'"},
        Riga{"BothByCodeTheWrongWayRound", dati(246, kConto, conPercipienti(true, "P9", "A", "P1", "Z")),
             " {__ViewName.CodicePercipiente} >= 'P1' AND {__ViewName.CodicePercipiente}<= 'P9'"},
        Riga{"CodesAreTexts", dati(246, kConto, conPercipienti(true, "P2", "A", "P10", "Z")),
             " {__ViewName.CodicePercipiente} >= 'P10' AND {__ViewName.CodicePercipiente}<= 'P2'"},
        Riga{"FromByName", dati(246, kConto, conPercipienti(false, "P1", "D'Angelo", "", "")),
             "{__ViewName.Anagrafica} >= 'D''Angelo'"},
        Riga{"ToByName", dati(247, kSintetico, conPercipienti(false, "", "", "P9", "Verdi")),
             "{__ViewName.Anagrafica} <= 'Verdi'"},
        // By name the descriptions decide, not the codes, which here are in the opposite order.
        Riga{"BothByNameTheWrongWayRound",
             dati(246, kConto, conPercipienti(false, "P1", "Verdi", "P9", "Rossi")),
             " {__ViewName.Anagrafica} >= 'Rossi' AND {__ViewName.Anagrafica}<= 'Verdi'"},
        Riga{"BothByNameOfTheAnalitico",
             dati(247, kAnalitico, conPercipienti(false, "P1", "Rossi", "P9", "Verdi")),
             " {__ViewName.Anagrafica} >= 'Rossi' AND {__ViewName.Anagrafica}<= 'Verdi'"},
        Riga{"BothByCodeOfTheAnalitico", dati(247, kAnalitico, conPercipienti(true, "P9", "A", "P1", "Z")),
             " {__ViewName.Codice} >= 'P1' AND {__ViewName.Codice}<= 'P9'"},
        // A single limit on this field uses the description.
        Riga{"FromByCodeOfTheAnalitico", dati(247, kAnalitico, conPercipienti(true, "P1", "Rossi", "", "")),
             "{__ViewName.Codice} >= 'Rossi'"},
        Riga{"ToByCodeOfTheAnalitico", dati(247, kAnalitico, conPercipienti(true, "", "", "P9", "Verdi")),
             "{__ViewName.Codice} <= 'Verdi'"},
        Riga{"ACodeOfBlanksIsGiven", dati(246, kConto, conPercipienti(true, " ", "", "", "")),
             "{__ViewName.CodicePercipiente} >= ' '"},
        Riga{"ADescriptionAloneIsNothing", dati(246, kConto, conPercipienti(true, "", "Rossi", "", "")), ""}),
    nome);

class ReasonFormula : public FormulaProva {};
TEST_P(ReasonFormula, IsTheTablesRow) {
  EXPECT_EQ(stampa::fnFiltroCausale(GetParam().dati, utilita), GetParam().atteso);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, ReasonFormula,
    ::testing::Values(
        Riga{"None", dati(246, kConto, conCausali("", "")), ""},
        Riga{"From", dati(246, kConto, conCausali("A", "")), "{__ViewName.Codice} >= 'A'"},
        Riga{"To", dati(246, kConto, conCausali("", "M")), "{__ViewName.Codice} <= 'M'"},
        Riga{"Both", dati(246, kConto, conCausali("A", "M")),
             " {__ViewName.Codice} >= 'A' AND {__ViewName.Codice}<='M'"},
        Riga{"BothTheWrongWayRound", dati(247, kSintetico, conCausali("M", "A")),
             " {__ViewName.Codice} >= 'A' AND {__ViewName.Codice}<='M'"},
        Riga{"Sintetico", dati(247, kSintetico, conCausali("A", "")), "{__ViewName.Codice} >= 'A'"},
        Riga{"OtherCertificateFrom", dati(247, kAnalitico, conCausali("A", "")),
             "{__ViewName.CodicePagamento} >= 'A'"},
        Riga{"OtherCertificateTo", dati(247, "Altro.rpt", conCausali("", "M")),
             "{__ViewName.CodicePagamento} <= 'M'"},
        Riga{"OtherCertificateBoth", dati(247, kAnalitico, conCausali("M1", "L")),
             " {__ViewName.CodicePagamento} >= 'L' AND {__ViewName.CodicePagamento}<='M1'"},
        Riga{"AnyOtherMode", dati(342, kModulo, conCausali("A", "")), "{__ViewName.Codice} >= 'A'"}),
    nome);

Filtri tutto(const char* anno, const char* adAnno, bool perCodice) {
  Filtri filtri = conPercipienti(perCodice, "P9", "Rossi", "P1", "Verdi");
  filtri.anno = anno;
  filtri.adAnno = adAnno;
  filtri.causaleDa = "A";
  filtri.causaleA = "M";
  return filtri;
}

class WholeFormula : public FormulaProva {};
TEST_P(WholeFormula, IsTheVariantOfTheReport) {
  EXPECT_EQ(stampa::formula(GetParam().dati, utilita), GetParam().atteso);
}

INSTANTIATE_TEST_SUITE_P(
    Variants, WholeFormula,
    ::testing::Values(
        // All filters blank: only the company's condition.
        Riga{"AccountsOfAll", dati(246, kConto),
             "{__ViewName.IDAziendaPercipiente} = 7 AND {__ViewName.IDAzienda} = 7"},
        Riga{"AccountsOfYears", dati(246, kConto, conAnni("2016", "2014")),
             "{__ViewName.Anno} >= 2014 AND {__ViewName.Anno} <=  2016 AND "
             "{__ViewName.IDAziendaPercipiente} = 7 AND {__ViewName.IDAzienda} = 7"},
        Riga{"AccountsOfPayeesAlone",
             dati(246, kConto,
                  [] {
                    Filtri filtri = tutto("", "", false);
                    filtri.causaleDa = filtri.causaleA = "";
                    return filtri;
                  }()),
             " {__ViewName.Anagrafica} >= 'Rossi' AND {__ViewName.Anagrafica}<= 'Verdi' AND "
             "{__ViewName.IDAziendaPercipiente} = 7 AND {__ViewName.IDAzienda} = 7"},
        Riga{"AccountsOfReasonsAlone",
             dati(246, kConto,
                  [] {
                    Filtri filtri = conCausali("", "M");
                    filtri.anno = "";
                    return filtri;
                  }()),
             "{__ViewName.Codice} <= 'M' AND {__ViewName.IDAziendaPercipiente} = 7 AND "
             "{__ViewName.IDAzienda} = 7"},
        Riga{
            "Accounts", dati(246, kConto, tutto("2014", "2016", true)),
            "{__ViewName.Anno} >= 2014 AND {__ViewName.Anno} <=  2016 AND  {__ViewName.CodicePercipiente} >= "
            "'P1' AND {__ViewName.CodicePercipiente}<= 'P9' AND  {__ViewName.Codice} >= 'A' AND "
            "{__ViewName.Codice}<='M' AND {__ViewName.IDAziendaPercipiente} = 7 AND {__ViewName.IDAzienda} = "
            "7"},
        Riga{"Sintetico", dati(247, kSintetico, conAnni("2016")),
             " {__ViewName.Anno} = 2016 AND {__ViewName.IDAziendaPercipiente} = 7 AND "
             "{__ViewName.IDAzienda} = 7"},
        Riga{"SinteticoOfARange", dati(247, kSintetico, tutto("2016", "", true)),
             " {__ViewName.Anno} = 2016 AND  {__ViewName.CodicePercipiente} >= 'P1' AND "
             "{__ViewName.CodicePercipiente}<= 'P9' AND  {__ViewName.Codice} >= 'A' AND "
             "{__ViewName.Codice}<='M'"
             " AND {__ViewName.IDAziendaPercipiente} = 7 AND {__ViewName.IDAzienda} = 7"},
        Riga{"Analitico", dati(247, kAnalitico, conAnni("2016")),
             "Year({__ViewName.DataPagamento}) = 2016 AND {__ViewName.IDAzienda} = 7"},
        Riga{"AnaliticoOfARange", dati(247, kAnalitico, tutto("2016", "", true)),
             "Year({__ViewName.DataPagamento}) = 2016 AND  {__ViewName.Codice} >= 'P1' AND "
             "{__ViewName.Codice}<= "
             "'P9' AND  {__ViewName.CodicePagamento} >= 'A' AND {__ViewName.CodicePagamento}<='M' AND "
             "{__ViewName.IDAzienda} = 7"},
        // The selection is in the table of the lines to print.
        Riga{"Form", dati(342, kModulo, tutto("2016", "", true)),
             "{__ViewName.Anno} = 2016 AND {__ViewName.IDAzienda} = 7 AND {__ViewName.IDUtente} = 12"},
        Riga{"FormAsTheSinteticoIsNamed", dati(342, kSintetico, tutto("2016", "", true)),
             " {__ViewName.Anno} = 2016 AND {__ViewName.IDAziendaPercipiente} = 7 AND {__ViewName.IDAzienda} "
             "= 7 "
             "AND {__ViewName.IDUtente} = 12"}),
    nome);

class PreTestFilter : public FormulaProva {};
TEST_P(PreTestFilter, IsWrittenInSql) {
  EXPECT_EQ(stampa::filtroSql(GetParam().dati, utilita), GetParam().atteso);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, PreTestFilter,
    ::testing::Values(
        Riga{"AccountsOfAll", dati(246, kConto), " IDAzienda =  7"},
        Riga{"AccountsFromAYear", dati(246, kConto, conAnni(" 2014")), " IDAzienda =  7 And Anno >= 2014"},
        Riga{"AccountsToAYear", dati(246, kConto, conAnni("", "2016 ")), " IDAzienda =  7 And Anno <= 2016"},
        Riga{"AccountsOfYears", dati(246, kConto, conAnni("2016", "2014")),
             " IDAzienda =  7 And Anno >= 2014 AND Anno <=  2016"},
        Riga{"Accounts", dati(246, kConto, tutto("2014", "2016", true)),
             " IDAzienda =  7 And Anno >= 2014 AND Anno <=  2016 And  CodicePercipiente >= 'P1' AND "
             "CodicePercipiente<= 'P9' And  Codice >= 'A' AND Codice<='M'"},
        Riga{"AccountsByName", dati(246, kConto, tutto("", "", false)),
             " IDAzienda =  7 And  Anagrafica >= 'Rossi' AND Anagrafica<= 'Verdi' And  Codice >= 'A' AND "
             "Codice<='M'"},
        Riga{"Sintetico", dati(247, kSintetico, conAnni("2016")), " IDAzienda =  7 And  Anno = 2016"},
        Riga{"SinteticoOfARange", dati(247, kSintetico, tutto("2016", "", true)),
             " IDAzienda =  7 And  Anno = 2016 And  CodicePercipiente >= 'P1' AND CodicePercipiente<= 'P9' "
             "And  "
             "Codice >= 'A' AND Codice<='M'"},
        Riga{"Analitico", dati(247, kAnalitico, conAnni("2016")),
             " IDAzienda =  7 And Year(DataPagamento) = 2016"},
        Riga{"AnaliticoOfARange", dati(247, kAnalitico, tutto("2016", "", true)),
             " IDAzienda =  7 And Year(DataPagamento) = 2016 And  Codice >= 'P1' AND Codice<= 'P9' And  "
             "CodicePagamento >= 'A' AND CodicePagamento<='M'"},
        Riga{"AnaliticoByName", dati(247, kAnalitico, conPercipienti(false, "P1", "Verdi", "P9", "Rossi")),
             " IDAzienda =  7 And Year(DataPagamento) = 2016 And  Anagrafica >= 'Rossi' AND Anagrafica<= "
             "'Verdi'"},
        // Here the reason's field depends on the report, not on the mode.
        Riga{"AnyOtherReport", dati(247, "Altro.rpt", tutto("2016", "", true)),
             " IDAzienda =  7 And Year(DataPagamento) = 2016 And  Codice >= 'P1' AND Codice<= 'P9' And  "
             "Codice >= 'A' AND Codice<='M'"},
        // A single limit is the description, for every field.
        Riga{"FromByCode", dati(247, kSintetico, conPercipienti(true, "P1", "Rossi", "", "")),
             " IDAzienda =  7 And  Anno = 2016 And CodicePercipiente >= 'Rossi'"},
        Riga{"ToByCode", dati(247, kSintetico, conPercipienti(true, "", "", "P9", "Verdi")),
             " IDAzienda =  7 And  Anno = 2016 And CodicePercipiente <= 'Verdi'"},
        Riga{"FromByCodeOfTheAnalitico", dati(247, kAnalitico, conPercipienti(true, "P1", "Rossi", "", "")),
             " IDAzienda =  7 And Year(DataPagamento) = 2016 And Codice >= 'Rossi'"},
        Riga{"FromByName", dati(247, kSintetico, conPercipienti(false, "P1", "D'Angelo", "", "")),
             " IDAzienda =  7 And  Anno = 2016 And Anagrafica >= 'D''Angelo'"},
        Riga{"ReasonFrom", dati(247, kSintetico, conCausali("A", "")),
             " IDAzienda =  7 And  Anno = 2016 And Codice >= 'A'"},
        Riga{"ReasonTo", dati(247, kAnalitico, conCausali("", "M")),
             " IDAzienda =  7 And Year(DataPagamento) = 2016 And CodicePagamento <= 'M'"}),
    nome);

struct Vista {
  std::int32_t modo;
  const char* report;
  const char* vista;
};
class PreTestView : public ::testing::TestWithParam<Vista> {};
TEST_P(PreTestView, FollowsModeAndReport) {
  EXPECT_EQ(stampa::vista(dati(GetParam().modo, GetParam().report)), GetParam().vista);
}
INSTANTIATE_TEST_SUITE_P(Rows, PreTestView,
                         ::testing::Values(Vista{246, kConto, "RepContoIndividuale"},
                                           Vista{247, kSintetico, "RepContoIndividuale"},
                                           Vista{247, kAnalitico, "RepCompenso"},
                                           Vista{247, "Altro.rpt", "RepCompenso"}, Vista{342, kSintetico, ""},
                                           Vista{342, "Altro.rpt", ""}, Vista{300, kConto, ""}));

struct Ordine {
  const char* campo;
  const char* a;
  const char* b;
};
class Bounds : public ::testing::TestWithParam<Ordine> {};
TEST_P(Bounds, AreOfTheFieldAndAscend) {
  std::string a;
  std::string b;
  stampa::sbOrdinaEstremi(conPercipienti(true, "P2", "Bianchi", "P1", "alberti"), GetParam().campo, a, b);
  EXPECT_EQ(a, GetParam().a);
  EXPECT_EQ(b, GetParam().b);
}
// Case is ignored, as in the database that selects by these limits.
INSTANTIATE_TEST_SUITE_P(Fields, Bounds,
                         ::testing::Values(Ordine{"{__ViewName.CodicePercipiente}", "P1", "P2"},
                                           Ordine{"{__ViewName.Codice}", "P1", "P2"},
                                           Ordine{"{__ViewName.Anagrafica}", "alberti", "Bianchi"},
                                           Ordine{"{__ViewName.Nome}", "", ""}));

TEST(YearBounds, AYearBeyond16BitsIsAnError) {
  ScriptedFrontEnd frontEnd;
  const SimpleUtility utilita(frontEnd);
  EXPECT_THROW(stampa::fnFiltroAnno(dati(246, kConto, conAnni("2014", "40000")), utilita), Error);
  EXPECT_THROW(stampa::fnFiltroAnno(dati(246, kConto, conAnni("-40000", "2016")), utilita), Error);
}

}  // namespace
}  // namespace cu::test
