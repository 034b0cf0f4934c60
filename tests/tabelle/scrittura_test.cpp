#include "tabelle/scrittura.h"

#include <gtest/gtest.h>

#include <xlsxwriter.h>

#include <clocale>

#include "support/temp_folder.h"
#include "tabelle/prova.h"

namespace cu::tabelle {
namespace {

using namespace std::string_literals;
using prova::scritte;

using Righe = std::vector<std::string>;

Value importo(std::string_view testo) { return Value::ofDecimal(*Decimal::parse(testo)); }
Value giorno(int anno, int mese, int quale) { return Value::ofDate(*Date::fromYmd(anno, mese, quale)); }
Value testo(std::string contenuto) { return Value::ofText(std::move(contenuto)); }

TabellaDaScrivere esempio() {
  return {"Compensi",
          {"Codice", "Data pag.", "Importo", "Note; varie"},
          {{testo("007"), giorno(2023, 12, 31), importo("1234.5"), testo("perchè \"sì\"")},
           {Value::ofInteger(12), Value::ofDate({}), importo("-0.0125"), {}},
           {testo(""), giorno(1, 1, 1), importo("0")}}};
}

class Scrittura : public testing::Test {
 protected:
  std::string xlsx(const TabellaDaScrivere& tabella) {
    return componiXlsx(tabella, {"Prova", *Date::fromYmd(2024, 1, 31)});
  }
  Tabella riletta(const TabellaDaScrivere& tabella) { return leggiTabella(xlsx(tabella), "f.xlsx"); }

  test::TempFolder cartella_;
};

TEST_F(Scrittura, OfATextIsForSpreadsheets) {
  EXPECT_EQ(scriviCsv(esempio()),
            "\xef\xbb\xbf"
            "Codice;Data pag.;Importo;\"Note; varie\"\r\n"
            "007;2023-12-31;1234,50;\"perchè \"\"sì\"\"\"\r\n"
            "12;;-0,0125;\r\n"
            ";0001-01-01;0,00;\r\n");
}

TEST_F(Scrittura, OfAWorkbookKeepsTheKinds) {
  const Tabella tabella = riletta(esempio());
  EXPECT_EQ(tabella.foglio, "Compensi");
  EXPECT_EQ(scritte(tabella),
            (Righe{"1:|Codice|Data pag.|Importo|Note; varie", "2:|007|D 2023-12-31|N 1234.5|perchè \"sì\"",
                   "3:|N 12||N -0.0125", "4:||0001-01-01|N 0"}));
}

TEST_F(Scrittura, OfAWorkbookMayHaveSeveralSheets) {
  TabellaDaScrivere altra;
  altra.foglio = "Valori";
  altra.colonne = {"Colonna"};
  altra.righe = {{testo("007")}};
  const std::vector<TabellaDaScrivere> fogli = {esempio(), altra};
  const std::string byte = componiXlsx(fogli, {"Prova", *Date::fromYmd(2024, 1, 31)});
  const auto nomi = fogliDi(byte, "f.xlsx");
  ASSERT_EQ(nomi.size(), 2U);
  EXPECT_EQ(nomi[0].nome, "Compensi");
  EXPECT_EQ(nomi[1].nome, "Valori");
  EXPECT_EQ(leggiTabella(byte, "f.xlsx").righe.size(), 3U);
  OpzioniLettura opzioni;
  opzioni.foglio = "Valori";
  EXPECT_EQ(scritte(leggiTabella(byte, "f.xlsx", opzioni)), (Righe{"1:|Colonna", "2:|007"}));
}

// Texts that are easily taken for something else.
const std::vector<std::string>& difficili() {
  static const std::vector<std::string> testi = {"=1+1",
                                                 "+39 06 123",
                                                 "-",
                                                 "-5",
                                                 "@nome",
                                                 "'=x",
                                                 "''-x",
                                                 "'ndrangheta",
                                                 "'",
                                                 "\t=x",
                                                 "a;b",
                                                 "a,b",
                                                 "a\tb",
                                                 "a\"b",
                                                 "\"a\"",
                                                 "a\r\nb",
                                                 "a\nb",
                                                 "00123",
                                                 "1234567890123456789",
                                                 "2023-01-31",
                                                 "TRUE",
                                                 "#N/A",
                                                 "_x0041_",
                                                 "_x005F_",
                                                 "  x ",
                                                 "\xf0\x9f\x98\x80",
                                                 "\xc2\xa0y",
                                                 "a&<b>",
                                                 "sep=;",
                                                 "_x0041_\x01",
                                                 "_x004",
                                                 "__x0041__x0042_",
                                                 "a\x1a"};
  return testi;
}

TabellaDaScrivere unaColonna(const std::string& intestazione) {
  TabellaDaScrivere tabella{"", {intestazione}, {}};
  for (const std::string& difficile : difficili()) tabella.righe.push_back({testo(difficile)});
  return tabella;
}

TEST_F(Scrittura, OfTextsIsUndoneByReading) {
  const TabellaDaScrivere tabella = unaColonna("Uno, due");
  for (const Tabella& letta : {leggiTabella(scriviCsv(tabella), "f.csv"), riletta(tabella)}) {
    EXPECT_EQ(letta.intestazione.cella(0).testo, "Uno, due");
    ASSERT_EQ(letta.righe.size(), difficili().size());
    for (std::size_t i = 0; i < difficili().size(); ++i) {
      EXPECT_EQ(letta.righe[i].cella(0).testo, difficili()[i]);
      EXPECT_EQ(letta.righe[i].cella(0).genere, Genere::Testo) << difficili()[i];
    }
    EXPECT_TRUE(letta.rilievi.empty());
  }
}

TEST_F(Scrittura, OfATextNeverBeginsAFormula) {
  TabellaDaScrivere tabella{"", {"A", "B"}, {{testo("=1+1"), importo("-5")}, {testo("@x;"), testo("\tx")}}};
  EXPECT_EQ(scriviCsv(tabella),
            "\xef\xbb\xbf"
            "A;B\r\n'=1+1;-5,00\r\n\"'@x;\";\"'\tx\"\r\n");
}

TEST_F(Scrittura, OfNumbersIsUndoneByReading) {
  const char* const numeri[] = {"0.01",
                                "-0.01",
                                "199.9",
                                "99999999999.99",
                                "99999999999.9999",
                                "100000000000.5",
                                "922337203685477.5807",
                                "-922337203685477.5807"};
  TabellaDaScrivere tabella{"", {"A"}, {}};
  for (const char* const numero : numeri) tabella.righe.push_back({importo(numero)});
  tabella.righe.push_back({Value::ofInteger(INT64_MIN)});
  const Tabella letta = riletta(tabella);
  ASSERT_EQ(letta.righe.size(), std::size(numeri) + 1);
  for (std::size_t i = 0; i < std::size(numeri); ++i) EXPECT_EQ(letta.righe[i].cella(0).testo, numeri[i]);
  EXPECT_EQ(letta.righe.back().cella(0).testo, "-9223372036854775808");
}

TEST_F(Scrittura, OfAWorkbookDependsOnNoLocaleAndNoClock) {
  const std::string prima = xlsx(esempio());
  const char* const altro = std::setlocale(LC_NUMERIC, "it_IT.UTF-8");
  EXPECT_EQ(xlsx(esempio()), prima);
  if (altro != nullptr) {
    EXPECT_EQ(std::setlocale(LC_NUMERIC, nullptr), "it_IT.UTF-8"s);
  }
  std::setlocale(LC_NUMERIC, "C");
}

TEST_F(Scrittura, OfASheetsNameKeepsWhatIsAllowed) {
  TabellaDaScrivere tabella{"Conti [2023]/a: è molto lungo, più di trentuno", {"A"}, {}};
  EXPECT_EQ(riletta(tabella).foglio, "Conti  2023  a  è molto lungo,");
  tabella.foglio = "*";
  EXPECT_EQ(riletta(tabella).foglio, "Foglio1");
}

TEST_F(Scrittura, BeyondASheetIsReported) {
  const auto errore = [&](const TabellaDaScrivere& tabella) {
    try {
      xlsx(tabella);
    } catch (const ErroreTabella& raised) {
      return raised.codice() + " " + raised.testo();
    }
    return std::string("written");
  };
  EXPECT_EQ(errore({"", {"A"}, {{testo(std::string(32768, 'x'))}}}),
            "F05 La cella ha più di 32767 caratteri");
  EXPECT_EQ(errore({"", std::vector<std::string>(16385, "A"), {}}),
            "F05 La tabella ha più righe o colonne di quante un foglio ne contenga");
  try {
    componiXlsx(TabellaDaScrivere{"", {"A"}, {{testo(std::string(32768, 'x'))}}}, {.file = "grande.xlsx"});
    FAIL() << "written";
  } catch (const ErroreTabella& raised) {
    EXPECT_TRUE(raised.description().starts_with("grande.xlsx, riga 2")) << raised.description();
  }
}

// Of a workbook as another program writes it.
TEST_F(Scrittura, ByTheLibraryIsRead) {
  const std::string file = cartella_ / "f.xlsx";
  lxw_workbook* const libro = workbook_new(file.c_str());
  lxw_worksheet* const foglio = workbook_add_worksheet(libro, "Dati");
  lxw_format* const data = workbook_add_format(libro);
  format_set_num_format(data, "dd/mm/yyyy");
  lxw_format* const grassetto = workbook_add_format(libro);
  format_set_bold(grassetto);
  std::string prima = "Una ";
  std::string seconda = "riga";
  lxw_rich_string_tuple uno = {nullptr, prima.data()};
  lxw_rich_string_tuple due = {grassetto, seconda.data()};
  lxw_rich_string_tuple* parti[] = {&uno, &due, nullptr};
  worksheet_write_string(foglio, 0, 0, "A", nullptr);
  worksheet_write_string(foglio, 0, 1, "B", nullptr);
  worksheet_write_rich_string(foglio, 1, 0, parti, nullptr);
  worksheet_write_number(foglio, 1, 1, 0.1 + 0.2, nullptr);
  worksheet_write_boolean(foglio, 2, 0, 1, nullptr);
  worksheet_write_number(foglio, 2, 1, 42430, data);
  worksheet_write_formula(foglio, 3, 0, "=B2*2", nullptr);
  worksheet_write_formula_num(foglio, 3, 1, "=B2*2", nullptr, 0.6);
  worksheet_merge_range(foglio, 4, 0, 4, 1, "Insieme", nullptr);
  lxw_row_col_options nascosta = {1, 0, 0};
  worksheet_set_row_opt(foglio, 4, 15, nullptr, &nascosta);
  ASSERT_EQ(workbook_close(libro), LXW_NO_ERROR);
  const Tabella tabella = leggiTabella(cartella_.read("f.xlsx"), "f.xlsx");
  EXPECT_EQ(scritte(tabella), (Righe{"1:|A|B", "2:|Una riga|N 0.3", "3:|L true|D 2016-03-01",
                                     "4:|F =B2*2|N 0.6", "5:|Insieme"}));
  EXPECT_EQ(tabella.righeNascoste, 1U);
}

}  // namespace
}  // namespace cu::tabelle
