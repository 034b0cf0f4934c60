#include "archive/demo.h"

#include <gtest/gtest.h>

#include <array>
#include <map>
#include <set>
#include <string>

#include "archive/archivio.h"
#include "archive/archivio_di_prova.h"
#include "base/codice_fiscale.h"
#include "base/text.h"

namespace cu {
namespace {

using test::number;
using test::Righe;

// One read-only archive for all tests.
Connection& demo() {
  static const std::unique_ptr<SqliteConnection> connection = [] {
    auto created = SqliteConnection::create(":memory:");
    creaArchivio(*created, ContenutoArchivio::Dimostrativo);
    return created;
  }();
  return *connection;
}

constexpr int kYears[] = {2014, 2015, 2016, 2017};

std::string ofYear(std::string_view text, int year) { return std::string(text) + fromInteger(year); }

TEST(Demo, HasAboutFortyPayees) {
  const std::int64_t payees = number(demo(), "SELECT COUNT(*) FROM RepPercipienteCD WHERE IDAzienda = 1");
  EXPECT_GE(payees, 40);
  EXPECT_LE(payees, 50);
}

TEST(Demo, HasAccountsOfTheYears2014To2017) {
  const Righe rows(demo(),
                   "SELECT DISTINCT Anno FROM ContoIndividuale WHERE IDAzienda = 1 ORDER BY Anno DESC");
  ASSERT_EQ(rows.size(), 4u);
  EXPECT_EQ(rows.integer(0, "Anno"), 2017);
  EXPECT_EQ(rows.integer(3, "Anno"), 2014);
  for (int year : kYears) {
    EXPECT_GT(number(demo(), ofYear("SELECT COUNT(*) FROM ContoIndividuale WHERE Anno = ", year)), 40)
        << year;
  }
}

TEST(Demo, UsesEveryPaymentReason) {
  EXPECT_EQ(number(demo(),
                   "SELECT COUNT(*) FROM CausalePagamento WHERE NOT EXISTS (SELECT * FROM ContoIndividuale"
                   " CI WHERE CI.IDCausalePagamento = CausalePagamento.IDCausalePagamento)"),
            0);
}

// The data of the company required to make a file.
TEST(Demo, CompanyHasAllThatTheFileNeeds) {
  const Righe rows(
      demo(),
      "SELECT CASE WHEN ISNULL(Anagrafica.CodiceFiscale, '') = '' THEN Anagrafica.PartitaIva ELSE"
      " Anagrafica.CodiceFiscale END AS CodFisc, Anagrafica.Anagrafica AS AnagAz, Anagrafica.PersonaFisica"
      " AS PersonaFisicaAz, ComAz.Comune ComuneAz, ProvAz.Provincia SiglaProvinciaAz,"
      " AnagRapp.Anagrafica AS AnagraficaRapp, AnagRapp.Nome AS NomeRapp, AnagRapp.CodiceFiscale AS"
      " CodiceFiscaleRapp, CodiceCarica.Codice CodiceCarica, Anagrafica.EMailInternet, Anagrafica.Telefono"
      " FROM Anagrafica INNER JOIN Azienda ON Anagrafica.IDAnagrafica = Azienda.IDAnagrafica"
      " LEFT JOIN Comune ComAz ON Anagrafica.IDComune = ComAz.IDComune"
      " LEFT JOIN Provincia ProvAz ON ComAz.IDProvincia = ProvAz.IDProvincia"
      " LEFT JOIN ConfigurazioneGenerale CG ON Azienda.IDAzienda = CG.IDAzienda"
      " LEFT JOIN Anagrafica AnagRapp ON CG.IDAnagraficaRappresentante = AnagRapp.IDAnagrafica"
      " LEFT JOIN CodiceCarica ON CG.IDCodiceCaricaRappresentante = CodiceCarica.IDCodiceCarica"
      " WHERE Azienda.IDAzienda = 1");
  ASSERT_EQ(rows.size(), 1u);
  EXPECT_EQ(rows.integer(0, "PersonaFisicaAz"), 0);
  for (const char* column : {"CodFisc", "ComuneAz", "SiglaProvinciaAz", "CodiceFiscaleRapp", "CodiceCarica",
                             "AnagraficaRapp", "NomeRapp", "EMailInternet", "Telefono"}) {
    EXPECT_NE(rows.text(0, column), "") << column;
  }
}

// The chain of activity and VAT period on which the file's rows depend: exactly one in each year.
TEST(Demo, CompanyHasOneActivityInEachVatPeriod) {
  for (int year = 2013; year <= 2019; ++year) {
    EXPECT_EQ(number(demo(),
                     ofYear("SELECT COUNT(*) FROM ConfigurazioneGenerale CG"
                            " INNER JOIN Filiale ON CG.IDFilialePrevalente = Filiale.IDFiliale"
                            " INNER JOIN AttivitaAzienda ON Filiale.IDAttivitaAzienda ="
                            " AttivitaAzienda.IDAttivitaAzienda"
                            " INNER JOIN AttivitaAziendaPerPeriodoIva ON AttivitaAzienda.IDAttivitaAzienda ="
                            " AttivitaAziendaPerPeriodoIva.IDAttivitaAzienda"
                            " INNER JOIN PeriodoIva ON AttivitaAziendaPerPeriodoIva.IDPeriodoIva ="
                            " PeriodoIva.IDPeriodoIva"
                            " INNER JOIN CodiceAttivita ON AttivitaAziendaPerPeriodoIva.IDCodiceAttivita ="
                            " CodiceAttivita.IDCodiceAttivita"
                            " WHERE CG.IDAzienda = 1 AND PeriodoIva.IDAzienda = 1 AND PeriodoIva.Anno = ",
                            year)),
              1)
        << year;
  }
}

TEST(Demo, HasADefaultBranchForEachKindOfPrint) {
  for (const char* kind : {"246", "247", "342"}) {
    EXPECT_EQ(
        number(demo(), std::string("SELECT COUNT(*) FROM DefaultFilialePerTipoOggetto WHERE IDFiliale = 1 AND"
                                   " IDTipoOggetto = ") +
                           kind),
        1);
  }
  EXPECT_EQ(number(demo(), "SELECT COUNT(*) FROM ConfigurazioneContabile WHERE IDAzienda = 1"), 1);
}

constexpr std::string_view kPayees =
    "SELECT Anag.IDAnagrafica, Anag.Sesso, Anag.DataNascita, NonResidente, Anag.PersonaFisica, "
    "Anag.Anagrafica,"
    " Anag.Nome, Anag.CodiceFiscale, Anag.PartitaIva, ComNascita.Comune AS ComuneNascita,"
    " ComNascita.CodiceComuneDiNascita AS Catasto, NazNasc.Nazione AS NazioneNascita, ComRes.Comune AS "
    "ComuneRes,"
    " Anag.Indirizzo, CodiceIdentificazioneFiscaleEstero,"
    " NazRes.PrefissoInternazionale PrefissoInternazionaleRes, NonResidenteSchumacker"
    " FROM Percipiente INNER JOIN Anagrafica Anag ON Percipiente.IDAnagrafica = Anag.IDAnagrafica"
    " LEFT JOIN Comune ComNascita ON Anag.IDComuneNascita = ComNascita.IDComune"
    " LEFT JOIN Comune ComRes ON Anag.IDComune = ComRes.IDComune"
    " LEFT JOIN Nazione NazNasc ON Anag.IDNazionalita = NazNasc.IDNazione"
    " LEFT JOIN Nazione NazRes ON Anag.IDNazione = NazRes.IDNazione WHERE Percipiente.IDAzienda = 1";

void expectFilled(const Righe& rows, std::size_t row, const char* column) {
  EXPECT_NE(rows.text(row, column), "") << column << " of " << rows.text(row, "Anagrafica");
}

void expectPayeesComplete(Connection& connection) {
  const Righe rows(connection, kPayees);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    EXPECT_FALSE(rows.text(i, "CodiceFiscale").empty() && rows.text(i, "PartitaIva").empty());
    expectFilled(rows, i, "Anagrafica");
    expectFilled(rows, i, "Indirizzo");
    expectFilled(rows, i, "ComuneRes");
    if (rows.integer(i, "NonResidente") != 0) expectFilled(rows, i, "PrefissoInternazionaleRes");
    if (rows.integer(i, "PersonaFisica") == 0) continue;
    for (const char* column : {"Nome", "Sesso", "DataNascita", "NazioneNascita"})
      expectFilled(rows, i, column);
    if (rows.text(i, "NazioneNascita") == "Italia") expectFilled(rows, i, "ComuneNascita");
  }
}

TEST(Demo, EveryPayeeHasAllThatTheFileNeeds) { expectPayeesComplete(demo()); }

TEST(Demo, PersonsHaveTheFiscalCodeOfTheirData) {
  const Righe rows(demo(), kPayees);
  std::set<std::string> codes;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const std::string code = rows.text(i, "CodiceFiscale");
    if (rows.integer(i, "PersonaFisica") == 0) continue;
    ASSERT_EQ(code.size(), 16u) << rows.text(i, "Anagrafica");
    EXPECT_EQ(carattereDiControllo(std::string_view(code).substr(0, 15)), code[15]) << code;
    EXPECT_TRUE(codes.insert(code).second) << code;
    const Date birth = rows.value(i, "DataNascita").view().date();
    EXPECT_EQ(code.substr(6, 2), birth.toCompact().substr(2, 2));
    EXPECT_EQ(leadingInteger(code.substr(9, 2)) > 40, rows.text(i, "Sesso") == "F");
    if (rows.text(i, "NazioneNascita") == "Italia") {
      EXPECT_EQ(code.substr(11, 4), rows.text(i, "Catasto"));
    } else {
      EXPECT_EQ(code[11], 'Z');
    }
  }
}

TEST(Demo, FirmsHaveNumbersWithARightCheckDigit) {
  const Righe rows(demo(), kPayees);
  for (std::size_t i = 0; i < rows.size(); ++i) {
    for (const char* column : {"CodiceFiscale", "PartitaIva"}) {
      const std::string code = rows.text(i, column);
      if (code.size() != 11) continue;
      EXPECT_EQ(cifraDiControllo(std::string_view(code).substr(0, 10)), code[10])
          << rows.text(i, "Anagrafica");
    }
  }
}

TEST(Demo, HasThePayeesThatAreSeldomMet) {
  const auto payees = [](std::string_view condition) {
    return number(demo(),
                  "SELECT COUNT(*) FROM Percipiente INNER JOIN Anagrafica Anag ON Percipiente.IDAnagrafica ="
                  " Anag.IDAnagrafica WHERE " +
                      std::string(condition));
  };
  EXPECT_GE(payees("PersonaFisica = 0 AND NonResidente = 0"), 5);
  EXPECT_GE(payees("PersonaFisica = 0 AND NonResidente = 1"), 1);
  EXPECT_GE(
      payees("NonResidente = 1 AND NonResidenteSchumacker = 1 AND CodiceIdentificazioneFiscaleEstero <> ''"),
      1);
  EXPECT_GE(payees("NonResidente = 1 AND NonResidenteSchumacker = 0"), 1);
  EXPECT_GE(payees("NonResidente = 0 AND PersonaFisica = 1 AND IDComuneNascita IS NULL"), 2);
  EXPECT_GE(payees("ISNULL(Anag.CodiceFiscale, '') = ''"), 1);
  EXPECT_GE(payees("IDCategoriaParticolare > 0"), 1);
  EXPECT_GE(payees("IDEventoEccezionale > 0"), 1);
  EXPECT_GE(payees("IDCUEntePrevidenziale = 1 AND CodiceAzPressoENPAM <> ''"), 1);
  EXPECT_GE(payees("IDCUEntePrevidenziale = 2 AND CodiceAzPressoENPAPI <> ''"), 1);
  EXPECT_GE(payees("IDCUEntePrevidenziale > 2"), 1);
}

TEST(Demo, HasLongNamesAccentsAndApostrophes) {
  const Righe rows(demo(), kPayees);
  bool longPerson = false;
  bool longFirm = false;
  bool accent = false;
  bool apostrophe = false;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const std::string name = rows.text(i, "Anagrafica");
    (rows.integer(i, "PersonaFisica") != 0 ? longPerson : longFirm) |= codePoints(name) > 40;
    accent = accent || codePoints(name) < name.size();
    apostrophe = apostrophe || name.find('\'') != std::string::npos;
  }
  EXPECT_TRUE(longPerson && longFirm && accent && apostrophe);
}

constexpr const char* kAmounts[] = {"OnorarioProvvigioni",     "QuotaProvvigioniNonSoggette",
                                    "SommeNonSoggette",        "SommeNonSoggetteRegConv",
                                    "RitenutaAcconto",         "RitenutaImposta",
                                    "ContributoPrevidenziale", "RitenutaPrevidenziale13"};

// Sums in Decimal, row by row, independently of the database.
void expectAccountsToEqualPayments(Connection& connection, std::size_t withoutPayments) {
  std::map<std::string, std::array<Decimal, 8>> sums;
  const Righe payments(connection, "SELECT * FROM RepCompenso");
  for (std::size_t i = 0; i < payments.size(); ++i) {
    auto& sum = sums[payments.text(i, "IDAnagrafica") + "/" + payments.text(i, "IDCausalePagamento") + "/" +
                     payments.text(i, "Anno")];
    for (std::size_t k = 0; k < sum.size(); ++k) sum[k] = sum[k] + payments.amount(i, kAmounts[k]);
  }
  const Righe accounts(connection, "SELECT * FROM ContoIndividuale");
  std::size_t alone = 0;
  for (std::size_t i = 0; i < accounts.size(); ++i) {
    const std::string key = accounts.text(i, "IDAnagrafica") + "/" + accounts.text(i, "IDCausalePagamento") +
                            "/" + accounts.text(i, "Anno");
    const auto sum = sums.find(key);
    if (sum == sums.end()) {
      ++alone;
      continue;
    }
    for (std::size_t k = 0; k < 8; ++k) {
      EXPECT_EQ(accounts.amount(i, kAmounts[k]), sum->second[k]) << key << " " << kAmounts[k];
    }
    EXPECT_FALSE(accounts.isNull(i, "QuotaProvvigioniNonSoggette")) << key;
    sums.erase(sum);
  }
  EXPECT_EQ(alone, withoutPayments);
  EXPECT_TRUE(sums.empty());
}

TEST(Demo, AccountsEqualTheirPaymentsButForFourThatHaveNone) { expectAccountsToEqualPayments(demo(), 4); }

TEST(Demo, HasReferencesOfAnEarlierSubmissionInEachYear) {
  for (int year : kYears) {
    const Righe rows(demo(),
                     ofYear("SELECT ProtocolloAnnSost, ProgressivoAnnSost FROM ContoIndividualeDatiAggiuntivi"
                            " WHERE ISNULL(ProtocolloAnnSost, '') <> '' AND Anno = ",
                            year));
    EXPECT_GE(rows.size(), 3u) << year;
    for (std::size_t i = 0; i < rows.size(); ++i) {
      EXPECT_EQ(rows.text(i, "ProtocolloAnnSost").size(), 17u);
      EXPECT_EQ(rows.text(i, "ProgressivoAnnSost").size(), 6u);
    }
  }
}

TEST(Demo, HasLinesOfEverySpecialSection) {
  const auto lines = [](std::string_view condition) {
    return number(demo(), "SELECT COUNT(*) FROM RepContoIndividuale WHERE " + std::string(condition));
  };
  EXPECT_GE(lines("SommeCorrispostePreFallimento > 0 AND SommeCorrisposteDalCuratore > 0"), 1);
  EXPECT_GE(lines("AltriSoggettiCodiceFiscale <> '' AND AltriSoggettiImponibile > 0"), 1);
  EXPECT_GE(lines("PignoramentoTerziCodiceFiscale1 <> '' AND PignoramentoTerziRitenuteNonOperate1 = 1 AND "
                  "Anno = 2015"),
            1);
  EXPECT_GE(lines("PignoramentoTerziSommeNonTassate2 > 0 AND Anno > 2015"), 1);
  EXPECT_GE(lines("IndennitaEsproprioSommeCorrisposte1 > 0 AND AltreIndennitaRitenuteOperate2 > 0"), 1);
  EXPECT_GE(lines("CodiceFiscaleLavoroAutonomo <> ''"), 1);
  EXPECT_GE(lines("ContributiDovuti > 0 AND CUDenominazioneEntePrevidenziale = 'ENPAM'"), 1);
  EXPECT_GE(lines("ContributiDovuti > 0 AND CUDenominazioneEntePrevidenziale = 'ENPAPI'"), 1);
  EXPECT_GE(lines("ImportoAltriContributi < 0 AND IDCUEntePrevidenziale > 2"), 1);
  EXPECT_GE(lines("Codice = 'N' AND AddRegionImposta > 0 AND AddComunImposta > 0"), 4);
  EXPECT_GE(lines("Codice = 'M' AND SommeNonSoggette > 0"), 4);
  EXPECT_GE(lines("Codice = 'O' AND SommeNonSoggette > 0"), 4);
  EXPECT_GE(lines("Codice IN ('G', 'H', 'I')"), 5);
  EXPECT_GE(lines("ComuneResidenzaAnnoPrec <> '' AND ComuneResidenzaAnnoCorr <> '' AND FusioneComuni <> ''"),
            2);
  EXPECT_GE(lines("FusioneComuniAnnoPrec <> ''"), 1);
  EXPECT_GE(lines("Anticipazione = 1"), 4);
}

TEST(Demo, HasOneToThreeModulesBesideSomeAccounts) {
  const Righe rows(
      demo(),
      "SELECT (SELECT COUNT(*) FROM ModuloXContoIndividuale M WHERE M.IDAnagrafica = C.IDAnagrafica"
      " AND M.IDAzienda = C.IDAzienda AND M.IDCausalePagamento = C.IDCausalePagamento"
      " AND M.Anno = C.Anno) AS Quanti FROM (SELECT DISTINCT IDAnagrafica, IDAzienda,"
      " IDCausalePagamento, Anno FROM ModuloXContoIndividuale) C ORDER BY Quanti");
  ASSERT_GE(rows.size(), 5u);
  EXPECT_EQ(rows.integer(0, "Quanti"), 1);
  EXPECT_EQ(rows.integer(rows.size() - 1, "Quanti"), 3);
  for (int year : kYears) {
    EXPECT_GE(number(demo(), ofYear("SELECT COUNT(*) FROM ModuloXContoIndividuale WHERE Anno = ", year)), 2)
        << year;
  }
  EXPECT_EQ(number(demo(),
                   "SELECT COUNT(*) FROM ModuloXContoIndividuale WHERE NOT EXISTS (SELECT * FROM"
                   " ContoIndividuale CI WHERE CI.IDAnagrafica = ModuloXContoIndividuale.IDAnagrafica AND"
                   " CI.IDCausalePagamento = ModuloXContoIndividuale.IDCausalePagamento AND CI.Anno ="
                   " ModuloXContoIndividuale.Anno AND CI.IDAzienda = ModuloXContoIndividuale.IDAzienda)"),
            0);
}

TEST(Demo, HasNoAdditionalDataWithoutAnAccount) {
  EXPECT_EQ(number(demo(),
                   "SELECT COUNT(*) FROM ContoIndividualeDatiAggiuntivi DA WHERE NOT EXISTS (SELECT * FROM"
                   " ContoIndividuale CI WHERE CI.IDAnagrafica = DA.IDAnagrafica AND CI.IDCausalePagamento ="
                   " DA.IDCausalePagamento AND CI.Anno = DA.Anno AND CI.IDAzienda = DA.IDAzienda)"),
            0);
}

// The synthetic company has to pass the same checks.
class Sintetica : public testing::Test {
 protected:
  static Connection& archive() {
    static const std::unique_ptr<SqliteConnection> connection = [] {
      auto created = SqliteConnection::create(":memory:");
      creaArchivio(*created, ContenutoArchivio::Sintetico, {.percipienti = 400, .seme = 3});
      return created;
    }();
    return *connection;
  }
};

TEST_F(Sintetica, HasThePayeesAndYearsAskedFor) {
  EXPECT_EQ(number(archive(), "SELECT COUNT(*) FROM Percipiente WHERE IDAzienda = 1"), 400);
  const Righe years(archive(), "SELECT DISTINCT Anno FROM ContoIndividuale ORDER BY Anno");
  ASSERT_EQ(years.size(), 4u);
  EXPECT_EQ(years.integer(0, "Anno"), 2014);
  EXPECT_EQ(years.integer(3, "Anno"), 2017);
  const std::int64_t accounts = number(archive(), "SELECT COUNT(*) FROM ContoIndividuale WHERE Anno = 2016");
  EXPECT_GT(accounts, 380);
  EXPECT_LT(accounts, 460);
}

TEST_F(Sintetica, EveryPayeeHasAllThatTheFileNeeds) { expectPayeesComplete(archive()); }

TEST_F(Sintetica, AccountsEqualTheirPayments) { expectAccountsToEqualPayments(archive(), 0); }

TEST_F(Sintetica, HasModulesAdditionalDataAndNonResidents) {
  EXPECT_GT(number(archive(), "SELECT COUNT(*) FROM ModuloXContoIndividuale"), 20);
  EXPECT_GT(number(archive(), "SELECT COUNT(*) FROM ContoIndividualeDatiAggiuntivi"), 100);
  EXPECT_GT(number(archive(), "SELECT COUNT(*) FROM Percipiente WHERE NonResidente = 1"), 5);
  EXPECT_GT(number(archive(),
                   "SELECT COUNT(IDCausalePagamento) FROM (SELECT DISTINCT IDCausalePagamento FROM "
                   "ContoIndividuale) Usate"),
            8);
}

TEST_F(Sintetica, HasAVatPeriodForEachYear) {
  EXPECT_EQ(number(archive(), "SELECT COUNT(*) FROM PeriodoIva WHERE Anno >= 2014 AND Anno <= 2017"), 4);
}

}  // namespace
}  // namespace cu
