// The table reports: the individual accounts and the two free-form certificates.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>

#include "archive/archivio.h"
#include "report_support.h"

namespace cu::test {
namespace {

using testing::HasSubstr;
using testing::Not;

constexpr const char* kTheCompany = "{__ViewName.IDAziendaPercipiente} = 1 AND {__ViewName.IDAzienda} = 1";

std::string ofPayee(const std::string& code) {
  return "{__ViewName.CodicePercipiente} = '" + code + "' AND " + kTheCompany;
}

TEST(AccountsList, HasALineAYearUnderPayeeAndReason) {
  PrintShop shop;
  const std::string text = squeezed(shop.text(kAccounts, ofPayee("P023")));
  for (const char* line :
       {"Conti individuali dei percipienti", "Bottega Lessinia Servizi S.r.l.", "Stampa del 05/03/2018",
        "P023 Barbieri Aldo Codice fiscale BRBLDA49E20D704Q",
        "Causale A Lavoro autonomo nell'esercizio di arte o professione abituale",
        "2015 3.000,00 0,00 0,00 0,00 3.000,00 0,00 3.000,00 600,00 0,00 0,00 0,00",
        "Totale causale 6.000,00 0,00 0,00 0,00 6.000,00 0,00 6.000,00 1.200,00 0,00 0,00 0,00",
        "2015 42.000,00 0,00 0,00 0,00 42.000,00 0,00 42.000,00 8.400,00 0,00 0,00 0,00",
        "Totale causale 51.000,00 0,00 0,00 0,00 51.000,00 0,00 51.000,00 10.200,00 0,00 0,00 0,00",
        "Totale generale 57.000,00 0,00 0,00 0,00 57.000,00 0,00 57.000,00 11.400,00 0,00 0,00 0,00",
        "Pagina 1 di 1"}) {
    EXPECT_THAT(text, HasSubstr(line));
  }
}

TEST(AccountsList, HoldsQuotasModulesAndContributions) {
  PrintShop shop;
  const std::string commissions =
      squeezed(shop.text(kAccounts, "{__ViewName.Anno} = 2014 AND " + ofPayee("P010")));
  EXPECT_THAT(commissions,
              HasSubstr("2014 5.010,10 0,00 0,00 0,00 5.010,10 2.505,05 2.505,05 576,17 0,00 0,00 0,00"));
  const std::string modules =
      squeezed(shop.text(kAccounts, "{__ViewName.Anno} = 2017 AND " + ofPayee("P001")));
  EXPECT_THAT(modules, HasSubstr("2017 13.902,00 0,00 0,00 333,33 14.235,33 0,00 13.902,00 2.780,40"));
}

TEST(AccountsList, OfAllPayeesHasTheTotalOfAllAndEveryPageNumber) {
  PrintShop shop;
  const std::string path = shop.print(kAccounts, kTheCompany);
  const std::string text = squeezed(pdfText(path));
  EXPECT_THAT(text,
              HasSubstr("Totale generale 1.515.716,26 82.374,64 25.336,30 763,58 1.624.190,78 119.132,80 "
                        "1.396.583,46 239.532,53 37.401,36 17.614,46 5.871,49"));
  const int pages = pageCount(path);
  for (int page = 1; page <= pages; ++page) {
    EXPECT_EQ(count(text, "Pagina " + std::to_string(page) + " di " + std::to_string(pages)), 1) << page;
  }
  EXPECT_EQ(count(text, "Onorari e"), pages);  // on each page
}

TEST(Amounts, OfEightDigitsAreAsLargeAsSmallOnes) {
  const auto archive = SqliteConnection::create(":memory:");
  creaArchivio(*archive, ContenutoArchivio::Dimostrativo);
  archive->Execute(
      "UPDATE ContoIndividuale SET OnorarioProvvigioni = 99999999.99, RitenutaAcconto = 99999999.99, "
      "RitenutaImposta = 99999999.99, ContributoPrevidenziale = 99999999.99, RitenutaPrevidenziale13 = "
      "99999999.99 WHERE IDAnagrafica = 104");
  for (const char* report : {kAccounts, kSummary}) {
    SCOPED_TRACE(report);
    PrintShop shop;
    auto engine = shop.engine(report, std::string(" {__ViewName.Anno} = 2017 AND ") + kTheCompany);
    engine->setConnection(*archive);
    PrintShop::nameFile(*engine, shop.folder / "a.pdf");
    engine->run(3);
    std::vector<double> large;
    std::vector<double> small;
    for (const PdfWord& word : pdfWords(shop.folder / "a.pdf")) {
      if (word.text == "99.999.999,99") large.push_back(word.bottom - word.top);
      if (word.text == "0,00") small.push_back(word.bottom - word.top);
    }
    ASSERT_FALSE(small.empty());
    EXPECT_GE(large.size(), 5U);
    for (const double size : large) EXPECT_NEAR(size, *std::max_element(small.begin(), small.end()), 0.01);
  }
}

// The non-empty lines of the pages.
std::vector<std::vector<std::string>> pageLines(const std::string& path) {
  std::vector<std::vector<std::string>> pages(1);
  std::istringstream text(squeezed(pdfText(path)));
  for (std::string line; std::getline(text, line);) {
    if (line.starts_with('\f')) {
      pages.emplace_back();
      line.erase(0, 1);
    }
    if (line.find_first_not_of(' ') != std::string::npos) pages.back().push_back(line);
  }
  return pages;
}

// Ranges that move the page ends across the groups of different payees.
std::vector<std::string> reasonRanges() {
  std::vector<std::string> formulas;
  for (int year = 2014; year <= 2016; ++year) {
    for (const char* from : {"P001", "P004", "P009", "P017", "P023", "P031"}) {
      formulas.push_back("{__ViewName.Anno} >= " + std::to_string(year) +
                         " AND {__ViewName.CodicePercipiente} >= '" + from + "' AND " + kTheCompany);
    }
  }
  return formulas;
}

TEST(AccountsList, NoPageBeginsWithTotalsAlone) {
  PrintShop shop;
  int begun = 0;
  for (const std::string& formula : reasonRanges()) {
    for (const auto& page : pageLines(shop.print(kAccounts, formula))) {
      bool goesOn = false;
      for (const std::string& line : page) {
        const bool title = line.find("(segue)") != std::string::npos;
        EXPECT_FALSE(goesOn && line.starts_with("Totale")) << formula << ": " << line;
        goesOn = title;
        begun += title ? 1 : 0;
      }
    }
  }
  EXPECT_GT(begun, 20);
}

// The amounts of a line of totals; "" for any other line.
std::string totalsOf(const std::string& line) {
  return line.starts_with("Totale") ? line.substr(line.find_first_of("-0123456789")) : "";
}

void expectNoTotalTwice(const std::string& path) {
  for (const auto& page : pageLines(path)) {
    for (std::size_t i = 1; i < page.size(); ++i) {
      const std::string amounts = totalsOf(page[i]);
      EXPECT_FALSE(!amounts.empty() && amounts == totalsOf(page[i - 1])) << page[i - 1] << '\n' << page[i];
    }
  }
}

TEST(Totals, AreNotRepeatedOneAboveTheOther) {
  PrintShop shop;
  for (const std::string& formula : reasonRanges()) expectNoTotalTwice(shop.print(kAccounts, formula));
  for (const char* payee : {"P001", "P002", "P003", "P022", "P023", "P032"})
    expectNoTotalTwice(shop.print(kAccounts, ofPayee(payee)));
  expectNoTotalTwice(shop.print(kSummary, std::string(" {__ViewName.Anno} = 2016 AND ") + kTheCompany));
  expectNoTotalTwice(
      shop.print(kDetailed, "Year({__ViewName.DataPagamento}) = 2016 AND {__ViewName.IDAzienda} = 1"));
}

// A reason without amounts beside another one.
TEST(Totals, ThatAreEqualByChanceAreNotRepeatedEither) {
  const auto archive = SqliteConnection::create(":memory:");
  creaArchivio(*archive, ContenutoArchivio::Dimostrativo);
  archive->Execute(
      "UPDATE ContoIndividuale SET OnorarioProvvigioni = 0, RitenutaAcconto = 0 WHERE IDAnagrafica = 123 AND "
      "IDCausalePagamento = (SELECT IDCausalePagamento FROM CausalePagamento WHERE Codice = 'A')");
  PrintShop shop;
  auto engine =
      shop.engine(kAccounts, std::string("{__ViewName.CodicePercipiente} >= 'P022' AND ") + kTheCompany);
  engine->setConnection(*archive);
  PrintShop::nameFile(*engine, shop.folder / "a.pdf");
  engine->run(3);
  expectNoTotalTwice(shop.folder / "a.pdf");
  EXPECT_THAT(squeezed(pdfText(shop.folder / "a.pdf")),
              HasSubstr("Totale percipiente 51.000,00 0,00 0,00 0,00 51.000,00"));
}

TEST(AccountsList, AGroupThatGoesOnIsNamedAgain) {
  PrintShop shop;
  const std::string text = shop.text(kAccounts, kTheCompany);
  EXPECT_GT(count(text, "(segue)"), 0);
}

TEST(Summary, IsALetterForEachPayee) {
  PrintShop shop;
  const std::string text = shop.text(kSummary, std::string(" {__ViewName.Anno} = 2017 AND ") + kTheCompany);
  EXPECT_EQ(count(text, "Certificazione dei compensi - anno 2017"), 45);
  EXPECT_EQ(count(text, "Verona, 5 marzo 2018"), 45);
  EXPECT_EQ(count(text, "Il sostituto d'imposta"), 45);
}

TEST(Summary, HoldsTheAmountsByReasonAndTheirTotals) {
  PrintShop shop;
  const std::string text = squeezed(shop.text(kSummary, " {__ViewName.Anno} = 2016 AND " + ofPayee("P003")));
  for (const char* each : {"Bottega Lessinia Servizi S.r.l.", "Via dei Mulini 18 - 37121 Verona (VR)",
                           "Codice fiscale 04123450233 - Partita IVA 04123450233", "Dell'Orto Giulia",
                           "Via Brera 3", "20121 Milano (MI)", "Codice fiscale DLLGLI83A59F205", "nell'anno",
                           "1.213,33", "306,00", "Totale", "1.519,33", "Anna Bertoldi"}) {
    EXPECT_THAT(text, HasSubstr(each));
  }
  // 6.066,67 and the modules' 200,00 and 80,25 are the gross amount of reason A.
  EXPECT_THAT(text, HasSubstr("6.346,92 280,25 6.066,67 1.213,33 0,00 0,00"));
  EXPECT_THAT(text, HasSubstr("Totale 7.876,92 280,25 7.596,67 1.519,33 0,00 0,00"));
}

TEST(Detailed, HoldsEachPayment) {
  PrintShop shop;
  const std::string text =
      squeezed(shop.text(kDetailed,
                         "Year({__ViewName.DataPagamento}) = 2014 AND {__ViewName.Codice} = 'P002' AND "
                         "{__ViewName.IDAzienda} = 1"));
  for (const char* each : {"25/01/2014 1/2014 18/01/2014 2.974,00 0,00 2.974,00 594,80 0,00 0,00",
                           "28/06/2014 2/2014 21/06/2014 2.974,00 0,00 2.974,00 594,80 0,00 0,00",
                           "Totale 8.923,45 0,00 8.923,45 1.784,69 0,00 0,00", "D'Amico Niccolò",
                           "80121 Napoli (NA)", "anno 2014"}) {
    EXPECT_THAT(text, HasSubstr(each));
  }
}

TEST(Detailed, OverSeveralPagesRepeatsWhoAndWhat) {
  const auto archive = SqliteConnection::create(":memory:");
  creaArchivio(*archive, ContenutoArchivio::Dimostrativo);
  for (int i = 0; i < 120; ++i) {
    archive->Execute(
        "INSERT INTO Compenso (IDCompenso, IDAzienda, IDAnagrafica, IDCausalePagamento, DataPagamento, "
        "NumeroDocumento, OnorarioProvvigioni, RitenutaAcconto) VALUES (" +
        std::to_string(90000 + i) + ", 1, 101, 1, '20180115', 'N" + std::to_string(i) + "', 10.01, 2.00)");
  }
  PrintShop shop;
  auto engine =
      shop.engine(kDetailed, "Year({__ViewName.DataPagamento}) = 2018 AND {__ViewName.IDAzienda} = 1");
  engine->setConnection(*archive);
  PrintShop::nameFile(*engine, shop.folder / "a.pdf");
  engine->run(3);
  const std::string text = squeezed(pdfText(shop.folder / "a.pdf"));
  EXPECT_THAT(text, HasSubstr("Totale 1.201,20 0,00 1.201,20 240,00 0,00 0,00"));
  EXPECT_THAT(text, HasSubstr("Certificazione dei compensi - anno 2018 (segue)"));
  EXPECT_THAT(text, HasSubstr("Rossi Marco - Codice fiscale RSSMRC71C08L781I"));
  EXPECT_THAT(text, HasSubstr("Causale A (segue)"));
  EXPECT_EQ(count(text, "Totale "), 1);
  EXPECT_EQ(count(text, "Il sostituto d'imposta"), 1);
  for (int i = 0; i < 120; ++i) EXPECT_EQ(count(text, " N" + std::to_string(i) + " "), 1) << i;
}

// Every word is on the page, within its margins, without overlapping its neighbours.
void expectNoOverflow(const std::string& path) {
  constexpr double kSide = 25;  // points
  constexpr double kTop = 20;
  constexpr double kBottom = 15;
  const std::vector<PdfWord> words = pdfWords(path);
  EXPECT_GT(words.size(), 30U);
  for (std::size_t i = 0; i < words.size(); ++i) {
    const PdfWord& word = words[i];
    EXPECT_GE(word.left, kSide) << word.text;
    EXPECT_LE(word.right, word.pageWidth - kSide) << word.text;
    EXPECT_GE(word.top, kTop) << word.text;
    EXPECT_LE(word.bottom, word.pageHeight - kBottom) << word.text;
    for (std::size_t j = i + 1; j < words.size() && words[j].page == word.page; ++j) {
      const double across = std::min(word.right, words[j].right) - std::max(word.left, words[j].left);
      const double down = std::min(word.bottom, words[j].bottom) - std::max(word.top, words[j].top);
      EXPECT_FALSE(across > 0.5 && down > 0.5 * (word.bottom - word.top))
          << word.text << " over " << words[j].text;
    }
  }
}

TEST(Overflow, NoReportWritesBesideItsPlace) {
  const auto archive = SqliteConnection::create(":memory:");
  creaArchivio(*archive, ContenutoArchivio::Dimostrativo);
  const std::string longName =
      "Società Cooperativa Agricola dei Produttori di Ortofrutta e Fiori della Bassa Padana "
      "Nordoccidentale e delle Valli Prealpine in Liquidazione Coatta Amministrativa";
  archive->Execute(
      "UPDATE Anagrafica SET Anagrafica = '" + longName +
      "', Nome = 'Massimiliana Ferdinanda Guglielmina', PersonaFisica = 1, Indirizzo = "
      "'Strada Provinciale della Madonna di Monte Berico e San Giovanni in Persiceto 1234567 interno 89', "
      "EMailInternet = 'un.indirizzo.di.posta.che.non.finisce.mai@una.casella.molto.lunga.example.example' "
      "WHERE IDAnagrafica IN (1, 101)");
  archive->Execute("UPDATE Anagrafica SET Anagrafica = '" + std::string(200, 'W') +
                   "' WHERE IDAnagrafica = 102");
  archive->Execute(
      "UPDATE ContoIndividuale SET OnorarioProvvigioni = 99999999999.9999, SommeNonSoggette = "
      "-99999999999.5, RitenutaAcconto = 88888888888.88, RitenutaImposta = 77777777777.77 "
      "WHERE IDAnagrafica IN (101, 102)");
  archive->Execute(
      "UPDATE Compenso SET OnorarioProvvigioni = 99999999999.9999, NumeroDocumento = "
      "'FATTURA-ELETTRONICA-NUMERO-12345678901234567890/2017' WHERE IDAnagrafica IN (101, 102)");
  for (const int payee : {101, 102}) {
    archive->Execute(
        "INSERT INTO TabellaRicorsione2 (IDPath1, IDPath2, IDUtente, IDFunzione, Path14, Path1, Path2) "
        "VALUES (" +
        std::to_string(payee) + ", 1, 12, 342, 1, 3, 1)");
  }
  PrintShop shop;
  const std::vector<std::pair<std::string, std::string>> prints = {
      {kAccounts, std::string("{__ViewName.CodicePercipiente} <= 'P003' AND ") + kTheCompany},
      {kSummary, std::string(" {__ViewName.Anno} = 2017 AND {__ViewName.CodicePercipiente} <= 'P003' AND ") +
                     kTheCompany},
      {kDetailed,
       "Year({__ViewName.DataPagamento}) = 2017 AND {__ViewName.Codice} <= 'P003' AND {__ViewName.IDAzienda} "
       "= 1"},
      {kForms, formFormula(2014)},
      {kForms, formFormula(2015)},
      {kForms, formFormula(2017)}};
  for (std::size_t i = 0; i < prints.size(); ++i) {
    SCOPED_TRACE(prints[i].first);
    auto engine = shop.engine(prints[i].first, prints[i].second);
    engine->setConnection(*archive);
    const std::string path = shop.folder / (std::to_string(i) + ".pdf");
    PrintShop::nameFile(*engine, path);
    engine->run(3);
    expectNoOverflow(path);
    if (prints[i].first == kSummary) {
      const std::string text = pdfText(path);
      EXPECT_THAT(text, HasSubstr("88.888.888.888,88"));
      EXPECT_THAT(text, HasSubstr("100.000.000.000,00"));
      // Only a name may be cut.
      for (const char c : std::string("0123456789.,"))
        EXPECT_THAT(text, Not(HasSubstr(c + std::string("\u2026"))));
    }
  }
}

}  // namespace
}  // namespace cu::test
