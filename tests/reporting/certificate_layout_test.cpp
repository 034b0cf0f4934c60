// The pages of a signed certificate, and the layout of its names and amounts.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "archive/archivio.h"
#include "report_support.h"

namespace cu::test {
namespace {

using testing::HasSubstr;

constexpr const char* kLongName =
    "Società Cooperativa Agricolo-Forestale per la Valorizzazione dei Prodotti Tipici, dell''Ospitalità e "
    "delle Tradizioni dell''Altopiano di Asiago e dei Sette Comuni a Responsabilità Limitata in Liquidazione "
    "Coatta Amministrativa";

class Certificates : public testing::Test {
 protected:
  Certificates() : archive(SqliteConnection::create(":memory:")) {
    creaArchivio(*archive, ContenutoArchivio::Dimostrativo);
  }
  void pay(int payee, int day, const std::string& number, const std::string& amount, int reason = 1) {
    archive->Execute(
        "INSERT INTO Compenso (IDCompenso, IDAzienda, IDAnagrafica, IDCausalePagamento, DataPagamento, "
        "NumeroDocumento, DataDocumento, OnorarioProvvigioni, QuotaProvvigioniNonSoggette, RitenutaAcconto, "
        "RitenutaImposta, RitenutaPrevidenziale13) VALUES (" +
        std::to_string(90000 + next_++) + ", 1, " + std::to_string(payee) + ", " + std::to_string(reason) +
        ", '201801" + std::to_string(10 + day % 20) + "', '" + number + "', '20180101', " + amount + ", " +
        amount + ", " + amount + ", " + amount + ", " + amount + ")");
  }
  std::string print(const char* report = kDetailed) {
    auto engine =
        shop.engine(report, "Year({__ViewName.DataPagamento}) = 2018 AND {__ViewName.IDAzienda} = 1");
    engine->setConnection(*archive);
    PrintShop::nameFile(*engine, shop.folder / "a.pdf");
    engine->run(3);
    return shop.folder / "a.pdf";
  }
  // The texts by page, unchanged.
  std::vector<std::string> printedPages() {
    std::vector<std::string> pages;
    const std::string text = squeezed(pdfText(print()));
    for (std::size_t at = 0; at < text.size();) {
      const std::size_t end = std::min(text.find('\f', at), text.size());
      pages.push_back(text.substr(at, end - at));
      at = end + 1;
    }
    return pages;
  }
  std::unique_ptr<SqliteConnection> archive;
  PrintShop shop;

 private:
  int next_ = 0;
};

TEST_F(Certificates, AreSignedBelowARowAndAllTotals) {
  constexpr int kFewest = 18;
  constexpr int kMost = 42;
  for (int count = kFewest; count <= kMost; ++count) {
    const int payee = 101 + count - kFewest;
    pay(payee, 0, "Altra", "10");
    for (int i = 0; i < count; ++i) pay(payee, i, "Doc" + std::to_string(i), "10", 2);
  }
  int signatures = 0;
  int totals = 0;
  for (const std::string& page : printedPages()) {
    const bool signs = page.find("Il sostituto d'imposta") != std::string::npos;
    signatures += signs ? 1 : 0;
    totals += count(page, "Totale causale");
    EXPECT_EQ(count(page, "Totale causale"), signs ? 1 : 0) << page;
    EXPECT_EQ(count(page, "Totale "), signs ? 2 : 0) << page;
    EXPECT_GE(count(page, " Doc"), 1) << page;
  }
  EXPECT_EQ(signatures, kMost - kFewest + 1);
  EXPECT_EQ(totals, signatures);
}

TEST_F(Certificates, UseTheWholeOfTheirFirstPage) {
  for (int i = 0; i < 25; ++i) pay(101, i, "1", "10");
  EXPECT_THAT(pdfText(print()), HasSubstr("Pagina 1 di 1"));
  for (int i = 0; i < 15; ++i) pay(101, i, "Doc", "10");
  EXPECT_GE(count(printedPages().front(), " 01/01/2018 "), 35);
}

TEST_F(Certificates, AreSignedByWholeNames) {
  archive->Execute("UPDATE Anagrafica SET Anagrafica = '" + std::string(kLongName) +
                   "' WHERE IDAnagrafica = 1");
  pay(101, 1, "1", "10");
  const std::string text = pdfText(print());
  std::string signature = text.substr(text.find("Il sostituto d'imposta"));
  std::replace(signature.begin(), signature.end(), '\n', ' ');
  signature = squeezed(signature);
  EXPECT_THAT(signature,
              HasSubstr("Responsabilità Limitata in Liquidazione Coatta Amministrativa Anna Bertoldi"));
}

// Of the row that contains the word.
std::vector<PdfWord> amountsOf(const std::string& path, const std::string& word) {
  const std::vector<PdfWord> words = pdfWords(path);
  std::vector<PdfWord> amounts;
  const auto row =
      std::find_if(words.begin(), words.end(), [&](const PdfWord& each) { return each.text == word; });
  EXPECT_NE(row, words.end()) << word;
  for (const PdfWord& each : words) {
    const bool amount = each.text.size() > 3 && each.text[each.text.size() - 3] == ',';
    const double middle = (each.top + each.bottom) / 2;
    if (amount && each.page == row->page && middle > row->top && middle < row->bottom)
      amounts.push_back(each);
  }
  return amounts;
}

double sizeOf(const PdfWord& word) { return word.bottom - word.top; }

TEST_F(Certificates, HoldATotalOfEightDigitsAtTheSizeOfSmallOnes) {
  pay(101, 1, "Piccolo", "1");
  pay(101, 2, "Grande", "99999998.99");
  const std::string path = print();
  const std::vector<PdfWord> small = amountsOf(path, "Piccolo");
  const std::vector<PdfWord> large = amountsOf(path, "Grande");
  ASSERT_EQ(large.size(), 6U);
  const std::vector<PdfWord> total = amountsOf(path, "Totale");
  ASSERT_EQ(total.size(), 6U);
  EXPECT_EQ(total.front().text, "99.999.999,99");
  for (std::size_t i = 0; i < total.size(); ++i) {
    EXPECT_NEAR(sizeOf(large[i]), sizeOf(small[0]), 0.01) << i;
    EXPECT_NEAR(sizeOf(total[i]), sizeOf(small[0]), 0.01) << i;
    if (i == 0) continue;
    EXPECT_GT(total[i].left - total[i - 1].right, 4) << i;
  }
}

TEST_F(Certificates, SetAllAmountsOfARowInOneSize) {
  pay(101, 1, "Immenso", "88888888888.88");
  archive->Execute("UPDATE Compenso SET RitenutaImposta = 1 WHERE NumeroDocumento = 'Immenso'");
  pay(101, 2, "Piccolo", "1");
  const std::string path = print();
  const std::vector<PdfWord> small = amountsOf(path, "Piccolo");
  for (const char* row : {"Immenso", "Totale"}) {
    const std::vector<PdfWord> amounts = amountsOf(path, row);
    ASSERT_EQ(amounts.size(), 6U);
    EXPECT_LT(sizeOf(amounts[0]), sizeOf(small[0]) - 0.5);
    for (const PdfWord& each : amounts) EXPECT_NEAR(sizeOf(each), sizeOf(amounts[0]), 0.01) << each.text;
  }
}

TEST_F(Certificates, PartNumbersOfDocumentsAtTheirMarks) {
  pay(101, 1, "FATTURA ELETTRONICA N. 1/A/2018/SEDE CENTRALE", "1");
  pay(101, 2, "NOTA-SPESE-000123456/ABCDE", "1");
  std::set<std::string> words;
  for (const PdfWord& word : pdfWords(print())) words.insert(word.text);
  for (const char* whole : {"FATTURA", "ELETTRONICA", "CENTRALE", "000123456/", "ABCDE"}) {
    EXPECT_EQ(words.count(whole), 1U) << whole;
  }
}

}  // namespace
}  // namespace cu::test
