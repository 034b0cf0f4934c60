#include <gtest/gtest.h>

#include "tabelle/prova.h"

namespace cu::tabelle {
namespace {

using namespace std::string_literals;
using prova::rifiuto;
using prova::scritte;
using prova::segnalate;

using Righe = std::vector<std::string>;

std::string utf16(std::string_view ascii, bool prima) {
  std::string largo = prima ? "\xfe\xff" : "\xff\xfe";
  for (const char c : ascii) largo += prima ? "\0"s + c : std::string(1, c) + '\0';
  return largo;
}

struct Caso {
  const char* nome;
  std::string testo;
  Righe attese;
};

class CsvLetto : public testing::TestWithParam<Caso> {};

TEST_P(CsvLetto, HasTheCellsThatAreWritten) {
  EXPECT_EQ(scritte(leggiTabella(GetParam().testo, "f.csv")), GetParam().attese);
}

const Caso kCasi[] = {
    {"semicolon", "A;B\n1;2\n", {"1:|A|B", "2:|1|2"}},
    {"comma", "A,B\n1,2\n", {"1:|A|B", "2:|1|2"}},
    {"tab", "A\tB\n1\t2\n", {"1:|A|B", "2:|1|2"}},
    {"oneColumn", "A\n1,5\n", {"1:|A", "2:|1,5"}},
    {"separatorOfTheHeaderNotOfTheAmounts", "A;B\n1,50;2,50\n", {"1:|A|B", "2:|1,50|2,50"}},
    {"separatorOutsideQuotes", "\"A;B;C\",D\n1,2\n", {"1:|A;B;C|D", "2:|1|2"}},
    {"separatorThatAgreesWithTheQuotes", "A;\"x\t\"\n\"1\t2\t3\";4\n", {"1:|A|x\t", "2:|1\t2\t3|4"}},
    {"declaredSeparator", "sep=,\r\nA,B;C\r\n1,2\r\n", {"2:|A|B;C", "3:|1|2"}},
    {"declaredSeparatorQuoted", "\"SEP=|\"\nA|B\n", {"2:|A|B"}},
    {"notADeclaration", "sep=x\nA\n", {"1:|sep=x", "2:|A"}},
    {"crOnly", "A;B\r1;2\r3;4", {"1:|A|B", "2:|1|2", "3:|3|4"}},
    {"crLf", "A;B\r\n1;2\r\n", {"1:|A|B", "2:|1|2"}},
    {"noLastLineEnd", "A;B\n1;2", {"1:|A|B", "2:|1|2"}},
    {"endCharacterOfDos", "A;B\r\n1;2\r\n\x1a", {"1:|A|B", "2:|1|2"}},
    {"quotes", "A;B\n\"x;y\";\"z\"\n", {"1:|A|B", "2:|x;y|z"}},
    {"doubledQuotes", "A;B\n\"d\"\"x\"\"\";\"\"\"\"\n", {"1:|A|B", "2:|d\"x\"|\""}},
    {"lineEndsInQuotes", "A;B\r\n\"x\r\ny\";1\r\nz;2\r\n", {"1:|A|B", "2:|x\r\ny|1", "4:|z|2"}},
    {"lineEndInTheHeader", "\"A\nB\";C\n1;2\n", {"1:|A\nB|C", "3:|1|2"}},
    {"quoteWithinAText", "A;B\nROSSI \"IL BELLO\";5\"\n", {"1:|A|B", "2:|ROSSI \"IL BELLO\"|5\""}},
    {"blanksBehindTheClosingQuote", "A;B\n\"x\" ;1\n", {"1:|A|B", "2:|x|1"}},
    {"emptyQuotes", "A;B\n\"\";1\n", {"1:|A|B", "2:||1"}},
    {"shortRow", "A;B;C\n1\n", {"1:|A|B|C", "2:|1"}},
    {"trailingSeparators", "A;B;;\n1;2;;;;\n", {"1:|A|B", "2:|1|2"}},
    {"blankRows", "\n;;\nA;B\n\n ; \n1;2\n\n", {"3:|A|B", "6:|1|2"}},
    {"texts", "A;B\n  x ;1.234,56\n", {"1:|A|B", "2:|  x |1.234,56"}},
    {"utf8Mark", "\xef\xbb\xbf\x41;B\nperch\xc3\xa8;2\n", {"1:|A|B", "2:|perch\xc3\xa8|2"}},
    {"utf8", "A\nperch\xc3\xa8\n", {"1:|A", "2:|perch\xc3\xa8"}},
    {"outsideWindows1252", "A\n\xc4\x8d\xe2\x82\xac\n", {"1:|A", "2:|\xc4\x8d\xe2\x82\xac"}},
    {"windows1252", "A\nperch\xe8 \x80\n", {"1:|A", "2:|perch\xc3\xa8 \xe2\x82\xac"}},
    {"utf16Le", utf16("A;B\r\n1;2", false), {"1:|A|B", "2:|1|2"}},
    {"utf16Be", utf16("A;B\r\n1;2", true), {"1:|A|B", "2:|1|2"}},
    {"utf16Surrogates", utf16("A\n", false) + "\x3d\xd8\x00\xde"s, {"1:|A", "2:|\xf0\x9f\x98\x80"}},
    {"apostropheBeforeAFormula", "A;B;C\n'=1+1;'-5;''@x\n", {"1:|A|B|C", "2:|=1+1|-5|'@x"}},
    {"otherApostrophes", "A;B\n'ndrangheta;'\n", {"1:|A|B", "2:|'ndrangheta|'"}},
    {"headerOnly", "A;B", {"1:|A|B"}},
};

INSTANTIATE_TEST_SUITE_P(Csv, CsvLetto, testing::ValuesIn(kCasi),
                         [](const auto& caso) { return std::string(caso.param.nome); });

TEST(Csv, NamesHowItWasRead) {
  const Tabella ansi = leggiTabella("A,B\n\xe8,2\n", "f.csv");
  EXPECT_EQ(ansi.separatore, ',');
  EXPECT_EQ(ansi.caratteri, "windows-1252");
  EXPECT_EQ(ansi.file, "f.csv");
  EXPECT_EQ(leggiTabella("A\tB", "f").caratteri, "utf-8");
  EXPECT_EQ(leggiTabella(utf16("A", false), "f").caratteri, "utf-16le");
}

TEST(Csv, TheSeparatorAndTheEncodingGivenDecide) {
  OpzioniLettura opzioni;
  opzioni.separatore = '|';
  opzioni.caratteri = Caratteri::Windows1252;
  const std::string testo = "A;B|C\n\xc3\xa8|2\n";
  EXPECT_EQ(scritte(leggiTabella(testo, "f", opzioni)), (Righe{"1:|A;B|C", "2:|Ã¨|2"}));
}

TEST(Csv, AMarkDecidesAgainstTheEncodingGiven) {
  OpzioniLettura opzioni;
  opzioni.caratteri = Caratteri::Windows1252;
  EXPECT_EQ(scritte(leggiTabella("\xef\xbb\xbf\xc3\xa8", "f", opzioni)), (Righe{"1:|è"}));
}

TEST(Csv, TheHeaderIsInTheRowGiven) {
  OpzioniLettura opzioni;
  opzioni.rigaIntestazione = 3;
  const std::string testo = "Elenco, anno 2023, \"tutti\"x\n\"x\"y;9\nA;B\n1;2\nTotale;3\n";
  const Tabella tabella = leggiTabella(testo, "f.csv", opzioni);
  EXPECT_EQ(scritte(tabella), (Righe{"3:|A|B", "4:|1|2", "5:|Totale|3"}));
  EXPECT_EQ(segnalate(tabella), Righe());
}

TEST(Csv, ACellBeyondTheHeaderIsReportedAndKept) {
  const Tabella tabella = leggiTabella("A;B\n1;2;3;4\n5;6; ;\n7;8;;9\n", "f.csv");
  EXPECT_EQ(scritte(tabella), (Righe{"1:|A|B", "2:|1|2|3|4", "3:|5|6| ", "4:|7|8||9"}));
  const std::string che = ": La riga ha una cella oltre l'ultima intestazione, che è nella colonna B (F03)";
  EXPECT_EQ(segnalate(tabella), (Righe{"f.csv, riga 2, colonna C" + che, "f.csv, riga 4, colonna D" + che}));
}

TEST(Csv, TextBehindAClosingQuoteIsReportedAndKept) {
  const Tabella tabella = leggiTabella("A;B\n\"La \"\"Veloce\" Srl;2\n\"x\"y\";3\n", "f.csv");
  EXPECT_EQ(scritte(tabella), (Righe{"1:|A|B", "2:|La \"Veloce Srl|2", "3:|xy\"|3"}));
  const std::string che = ", colonna A: Dopo la virgoletta che chiude la cella c'è altro testo (F03)";
  EXPECT_EQ(segnalate(tabella), (Righe{"f.csv, riga 2" + che, "f.csv, riga 3" + che}));
}

TEST(Csv, ACopiedTableKeepsItsTexts) {
  Tabella copia;
  {
    const Tabella prima = leggiTabella("A\n" + std::string(100, 'x') + "\n", "f.csv");
    copia = prima;
  }
  EXPECT_EQ(scritte(copia)[1], "2:|" + std::string(100, 'x'));
  EXPECT_EQ(copia.righe[0].cella(7).genere, Genere::Vuota);
}

struct Rifiutato {
  const char* nome;
  std::string byte;
  std::string attesa;
};

class CsvRifiutato : public testing::TestWithParam<Rifiutato> {};

TEST_P(CsvRifiutato, NamesTheReasonAndThePlace) {
  EXPECT_EQ(rifiuto(GetParam().byte, "f.csv"), GetParam().attesa);
}

const Rifiutato kRifiutati[] = {
    {"empty", "", "f.csv: Il file è vuoto (F01)."},
    {"mark", "\xef\xbb\xbf", "f.csv: Il file non ha righe (F01)."},
    {"blank", "\r\n ; \r\n", "f.csv: Il file non ha righe (F01)."},
    {"openQuote", "A;B\n1;\"due\n3;4\n",
     "f.csv, riga 2, colonna B: La virgoletta che apre la cella non è chiusa fino alla fine del file (F03)."},
    {"openQuoteBehindALineEnd", "A;B\n\"1\n2\";\"due",
     "f.csv, riga 3, colonna B: La virgoletta che apre la cella non è chiusa fino alla fine del file (F03)."},
    {"nulls", "A;B\r\n1;\0002\r\n"s, "f.csv, riga 2: Il file ha un byte nullo e non è un testo (F02)."},
    {"utf16LeWithoutMark", "A\0;\0B\0"s,
     "f.csv, riga 1: Il file ha un byte nullo e non è un testo; sembra UTF-16: indicare il set di caratteri "
     "utf-16le (F02)."},
    {"utf16BeWithoutMark", "\0A\0;\0B"s,
     "f.csv, riga 1: Il file ha un byte nullo e non è un testo; sembra UTF-16: indicare il set di caratteri "
     "utf-16be (F02)."},
    {"markedButNotUtf8", "\xef\xbb\xbf\x41;B\r\n\r\nperch\xe8;2",
     "f.csv, riga 3: Il testo ha byte che non sono UTF-8: salvare il file di nuovo o indicare il set di "
     "caratteri (F03)."},
    {"halfACharacter", utf16("A;B\n1", false) + "2",
     "f.csv, riga 2: Il testo ha byte che non sono UTF-16: salvare il file di nuovo o indicare il set di "
     "caratteri (F03)."},
    {"loneSurrogate", utf16("A\n", true) + "\xdc\x00\0A"s,
     "f.csv, riga 2: Il testo ha byte che non sono UTF-16: salvare il file di nuovo o indicare il set di "
     "caratteri (F03)."},
    {"oldWorkbook", "\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1"s + "W\0o\0r\0k\0b\0o\0o\0k\0"s,
     "f.csv: Il file è una cartella di lavoro nel vecchio formato XLS: salvarlo come XLSX o CSV (F02)."},
    {"protectedWorkbook",
     "\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1"s + "E\0n\0c\0r\0y\0p\0t\0e\0d\0P\0a\0c\0k\0a\0g\0e\0"s,
     "f.csv: La cartella di lavoro è protetta da una password: salvarla senza protezione (F03)."},
    {"otherOle", "\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1----"s,
     "f.csv: Il file è un documento di un altro programma, non una tabella (F02)."},
    {"pdf", "%PDF-1.7\n",
     "f.csv: Il file è un documento PDF, non una tabella: salvarlo come XLSX o CSV (F02)."},
    {"xml", "\xef\xbb\xbf\n<?xml version=\"1.0\"?>",
     "f.csv: Il file è un documento XML, non una tabella: salvarlo come XLSX o CSV (F02)."},
    {"html", "<HTML><table>",
     "f.csv: Il file è una pagina HTML, non una tabella: salvarlo come XLSX o CSV (F02)."},
};

INSTANTIATE_TEST_SUITE_P(Csv, CsvRifiutato, testing::ValuesIn(kRifiutati),
                         [](const auto& caso) { return std::string(caso.param.nome); });

TEST(Csv, AMissingHeaderRowIsNamed) {
  OpzioniLettura opzioni;
  for (const std::size_t riga : {std::size_t{2}, std::size_t{4}, std::size_t{9}}) {
    opzioni.rigaIntestazione = riga;
    // Row 4 is the second line of a record.
    EXPECT_EQ(rifiuto("A;B\n\n\"x\ny\";1\n", "f.csv", opzioni),
              "f.csv, riga " + std::to_string(riga) +
                  ": La riga, che deve avere le intestazioni, non c'è o è vuota (F01).");
  }
}

TEST(Csv, BytesThatAreNotInTheGivenEncodingAreRejected) {
  OpzioniLettura opzioni;
  opzioni.caratteri = Caratteri::Utf8;
  EXPECT_EQ(
      rifiuto("A\rb\r\xe8", "f.csv", opzioni),
      "f.csv, riga 3: Il testo ha byte che non sono UTF-8: salvare il file di nuovo o indicare il set di "
      "caratteri (F03).");
  opzioni.caratteri = Caratteri::Utf16Be;
  EXPECT_EQ(scritte(leggiTabella("\0A\0;\0B"s, "f.csv", opzioni)), (Righe{"1:|A|B"}));
}

TEST(Csv, BeyondALimitItIsRejected) {
  OpzioniLettura opzioni;
  opzioni.limiti.righe = 3;
  opzioni.limiti.colonne = 2;
  opzioni.limiti.caratteri = 5;
  EXPECT_EQ(rifiuto("A;B;;;\n\n1;2\n3;perchè"s.substr(0, 20), "f", opzioni),
            "f, riga 4, colonna B: "
            "La cella ha più di 5 caratteri: forse una virgoletta non è chiusa (F05).");
  EXPECT_EQ(rifiuto("A;B; ;;\n\n1;2\n3;perc\xc3\xa8", "f", opzioni), "read");
  EXPECT_EQ(rifiuto("A\n1\n2\n\n3\n", "f", opzioni), "f, riga 5: La tabella ha più di 3 righe (F05).");
  EXPECT_EQ(rifiuto("A\n1;2;;3\n", "f", opzioni),
            "f, riga 2, colonna D: La tabella ha più di 2 colonne (F05).");
  opzioni.limiti.byte = std::size_t{1} << 20U;
  EXPECT_EQ(rifiuto(std::string(opzioni.limiti.byte + 1, ';'), "f", opzioni),
            "f: Il file supera 1 MB (F05).");
  opzioni.limiti.byte = std::size_t{50} << 20U;
  EXPECT_EQ(rifiuto("A\n1" + std::string(5'000'000, ';'), "f", opzioni), "read");
}

TEST(Csv, TwoHundredThousandRowsAreRead) {
  std::string testo = "Codice;Data;Importo;Descrizione\r\n";
  for (int i = 0; i < 200000; ++i) {
    testo += std::to_string(i) + ";2023-01-31;1.234,56;\"Compenso; rata \"\"prima\"\"\"\r\n";
  }
  const Tabella tabella = leggiTabella(testo, "f.csv");
  ASSERT_EQ(tabella.righe.size(), 200000U);
  EXPECT_EQ(prova::scritta(tabella.righe.back()),
            "200001:|199999|2023-01-31|1.234,56|Compenso; rata \"prima\"");
  EXPECT_TRUE(tabella.rilievi.empty());
}

TEST(Caratteri, AreKnownByTheirNames) {
  EXPECT_EQ(caratteriDaNome("UTF-8"), Caratteri::Utf8);
  EXPECT_EQ(caratteriDaNome("utf-16be"), Caratteri::Utf16Be);
  EXPECT_EQ(caratteriDaNome("UTF-16"), Caratteri::Utf16Le);
  EXPECT_EQ(caratteriDaNome("Windows-1252"), Caratteri::Windows1252);
  EXPECT_EQ(caratteriDaNome("cp850"), std::nullopt);
}

}  // namespace
}  // namespace cu::tabelle
