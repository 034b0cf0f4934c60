#include <gtest/gtest.h>

#include "tabelle/prova.h"

namespace cu::tabelle {
namespace {

using namespace std::string_literals;
using prova::Cartella;
using prova::membriDi;
using prova::rifiuto;
using prova::xlsxDi;
using prova::xlsxDiRighe;
using prova::zipDi;

constexpr const char* kRighe = R"(<row r="1"><c r="A1" t="str"><v>A</v></c></row>)";

// The workbook with the content of one member replaced.
std::string con(const std::string& nome, const std::string& contenuto) {
  Cartella cartella;
  cartella.testi = "<si><t>x</t></si>";
  cartella.foglio = "<sheetData>"s + kRighe + "</sheetData>";
  prova::Membri membri = membriDi(cartella);
  for (auto& [suo, testo] : membri) {
    if (suo == nome) testo = contenuto;
  }
  return zipDi(membri);
}

std::string senza(const std::string& nome) {
  Cartella cartella;
  cartella.testi = "<si><t>x</t></si>";
  prova::Membri membri = membriDi(cartella);
  std::erase_if(membri, [&](const auto& membro) { return membro.first == nome; });
  return zipDi(membri);
}

std::string cella(const std::string& contenuto) {
  return xlsxDiRighe("<row r=\"2\">" + contenuto + "</row>");
}

struct Rifiuto {
  const char* nome;
  std::string byte;
  std::string attesa;
};

const std::string kFoglio = "xl/worksheets/sheet1.xml";

std::vector<Rifiuto> archivi() {
  Cartella nascosti;
  nascosti.fogli = R"(<sheet name="X" state="veryHidden" sheetId="1" r:id="rId1"/>)";
  return {
      {"zipOfOthers", zipDi({{"a.txt", "x"}}),
       "f.xlsx: Il file è un archivio ZIP senza un foglio di calcolo (F02)."},
      {"ods", zipDi({{"mimetype", "x"}, {"content.xml", "x"}}),
       "f.xlsx: Il file è un documento OpenDocument (ODS): salvarlo come XLSX o CSV (F02)."},
      {"xlsb", zipDi({{"xl/workbook.bin", "x"}}),
       "f.xlsx: Il file è una cartella di lavoro binaria XLSB: salvarla come XLSX o CSV (F02)."},
      {"docx", zipDi({{"word/document.xml", "x"}}),
       "f.xlsx: Il file è un documento di testo DOCX, non una tabella: salvare la tabella come XLSX o CSV "
       "(F02)."},
      {"onlyTheMark", "PK\3\4"s, "f.xlsx: Il file è danneggiato o incompleto (F03)."},
      {"encrypted", zipDi(membriDi({}), "segreta"),
       "f.xlsx: Il file è protetto da una password: salvarlo senza protezione (F03)."},
      {"noRelations", senza("xl/_rels/workbook.xml.rels"),
       "f.xlsx: Il file è danneggiato o incompleto: manca xl/_rels/workbook.xml.rels (F03)."},
      {"noSheet", senza(kFoglio), "f.xlsx: Il file è danneggiato o incompleto: manca " + kFoglio + " (F03)."},
      {"noTexts", senza("xl/sharedStrings.xml"),
       "f.xlsx: Il file è danneggiato o incompleto: manca xl/sharedStrings.xml (F03)."},
      {"onlyHidden", xlsxDi(nascosti), "f.xlsx: La cartella di lavoro non ha fogli visibili (F02)."},
      {"emptySheet", xlsxDiRighe(""), "f.xlsx, foglio \"Dati\": Il foglio non ha righe (F01)."},
  };
}

std::vector<Rifiuto> parti() {
  const std::string danno =
      "f.xlsx, foglio \"Dati\": Il file è danneggiato (xl/worksheets/sheet1.xml) (F03).";
  const std::string dtd = "Il file ha una definizione di tipo (DTD), che non è ammessa (F04).";
  std::string annidati;
  for (int i = 0; i < 100000; ++i) annidati += "<a>";
  return {
      {"emptyMember", con(kFoglio, ""), danno},
      {"cutOff", con(kFoglio, "<worksheet><sheetData><row r=\"1\"><c r=\"A1\"><v>1"), danno},
      {"notXml", con(kFoglio, "ciao"), danno},
      {"twoRoots", con(kFoglio, "<worksheet/><worksheet/>"), danno},
      {"undeclaredEntity", con(kFoglio, "<worksheet>&nulla;</worksheet>"), danno},
      {"tooDeep", con(kFoglio, annidati), danno},
      {"dtd", con(kFoglio, "<!DOCTYPE worksheet><worksheet/>"), "f.xlsx, foglio \"Dati\": " + dtd},
      {"externalEntity",
       con("xl/workbook.xml", "<!DOCTYPE w [<!ENTITY x SYSTEM \"file:///etc/passwd\">]><w>&x;</w>"),
       "f.xlsx: " + dtd},
      {"entityBomb",
       con("xl/sharedStrings.xml", "<!DOCTYPE s [<!ENTITY a \"aa\"><!ENTITY b \"&a;&a;\">]><sst>&b;</sst>"),
       "f.xlsx: " + dtd},
      {"longText",
       con(kFoglio, "<worksheet><sheetData>" + std::string(3 << 20U, 'x') + "</sheetData></worksheet>"),
       "f.xlsx, foglio \"Dati\": Il file ha un testo troppo lungo (F05)."},
      {"longAttribute", con(kFoglio, "<worksheet a=\"" + std::string(3 << 20U, 'x') + "\"/>"),
       "f.xlsx, foglio \"Dati\": Il file ha un testo troppo lungo (F05)."},
  };
}

std::vector<Rifiuto> celle() {
  const std::string cellaDanno = "f.xlsx, foglio \"Dati\", riga 2, colonna A: Il foglio è danneggiato (";
  Cartella unite;
  unite.foglio = "<sheetData>"s + kRighe + "</sheetData><mergeCells><mergeCell ref=\"A1:A1\"/>" +
                 "<mergeCell ref=\"A1:Z9\"/></mergeCells>";
  return {
      {"unknownText", cella(R"(<c r="A2" t="s"><v>7</v></c>)"), cellaDanno + "testo di una cella) (F03)."},
      {"negativeText", cella(R"(<c r="A2" t="s"><v>-1</v></c>)"), cellaDanno + "testo di una cella) (F03)."},
      {"noNumber", cella(R"(<c r="A2"><v>12x</v></c>)"), cellaDanno + "numero di una cella) (F03)."},
      {"infinite", cella(R"(<c r="A2"><v>1E+999</v></c>)"), cellaDanno + "numero di una cella) (F03)."},
      {"otherRow", cella(R"(<c r="A3"><v>1</v></c>)"), cellaDanno + "posto di una cella) (F03)."},
      {"noPlace", cella(R"(<c r="2A"><v>1</v></c>)"), cellaDanno + "posto di una cella) (F03)."},
      {"beyondTheSheet", cella(R"(<c r="XFE2"><v>1</v></c>)"), cellaDanno + "posto di una cella) (F03)."},
      {"rowTwice", xlsxDiRighe(kRighe + std::string(kRighe)),
       "f.xlsx, foglio \"Dati\", riga 2: Il foglio è danneggiato (numero di riga) (F03)."},
      {"rowBeyondTheSheet", xlsxDiRighe("<row r=\"1048577\"/>"),
       "f.xlsx, foglio \"Dati\", riga 1: Il foglio è danneggiato (numero di riga) (F03)."},
      {"overlappingGroups", xlsxDi(unite),
       "f.xlsx, foglio \"Dati\": Il foglio è danneggiato (celle unite) (F03)."},
  };
}

TEST(XlsxOstile, IsRejectedWithReasonAndPlace) {
  for (const auto& casi : {archivi(), parti(), celle()}) {
    for (const Rifiuto& caso : casi) EXPECT_EQ(rifiuto(caso.byte, "f.xlsx"), caso.attesa) << caso.nome;
  }
}

TEST(XlsxOstile, CutOffAnywhereItIsRejected) {
  const std::string intero = con("", "");
  ASSERT_EQ(rifiuto(intero, "f"), "read");
  for (std::size_t quanto = 4; quanto < intero.size(); quanto += 7) {
    EXPECT_NE(rifiuto(intero.substr(0, quanto), "f").find("(F0"), std::string::npos) << quanto;
  }
}

TEST(XlsxOstile, AChangedByteOfTheContentIsFound) {
  const std::string intero =
      con("xl/worksheets/sheet1.xml",
          "<worksheet><sheetData>"s + kRighe + "</sheetData></worksheet>" + std::string(50, ' '));
  std::string guasto = intero;
  const std::size_t nome = guasto.find("xl/worksheets/sheet1.xml");
  guasto[nome + 40] = static_cast<char>(guasto[nome + 40] ^ 1);
  EXPECT_EQ(rifiuto(guasto, "f"), "f: Il file è danneggiato o incompleto (xl/worksheets/sheet1.xml) (F03).");
}

TEST(XlsxOstile, BeyondALimitItIsRejected) {
  const std::string byte =
      xlsxDiRighe(R"(<row r="1"><c r="A1" t="str"><v>A</v></c><c r="B1" t="str"><v>perch)"
                  "\xc3\xa8"
                  R"(</v></c></row><row r="2"><c r="A2"><v>1</v></c><c r="D2"><v/></c></row>)");
  const std::string inizio = "f, foglio \"Dati\", riga ";
  const auto entro = [&](auto regola) {
    OpzioniLettura opzioni;
    regola(opzioni.limiti);
    return rifiuto(byte, "f", opzioni);
  };
  EXPECT_EQ(entro([](Limiti& limiti) {
              limiti.righe = 2, limiti.colonne = 2, limiti.caratteri = 6, limiti.membri = 3;
            }),
            "read");
  EXPECT_EQ(entro([](Limiti& limiti) { limiti.righe = 1; }),
            inizio + "2: La tabella ha più di 1 righe (F05).");
  EXPECT_EQ(entro([](Limiti& limiti) { limiti.colonne = 1; }),
            inizio + "1, colonna B: La tabella ha più di 1 colonne (F05).");
  EXPECT_EQ(entro([](Limiti& limiti) { limiti.caratteri = 5; }),
            inizio + "1, colonna B: La cella ha più di 5 caratteri (F05).");
  EXPECT_EQ(entro([](Limiti& limiti) { limiti.membri = 2; }), "f: L'archivio ha più di 2 parti (F05).");
  EXPECT_EQ(entro([](Limiti& limiti) { limiti.espansi = 100; }),
            "f: Il contenuto del file, una volta espanso, supera 0 MB (F05).");
}

TEST(XlsxOstile, ABombIsNotExpanded) {
  std::string bomba = "<worksheet>";
  for (int i = 0; i < 40; ++i) bomba += "<a>" + std::string(500000, ' ') + "</a>";
  EXPECT_EQ(rifiuto(con("xl/worksheets/sheet1.xml", bomba), "f"),
            "f: Il contenuto del file è compresso più di 100:1 (xl/worksheets/sheet1.xml) (F05).");
}

}  // namespace
}  // namespace cu::tabelle
