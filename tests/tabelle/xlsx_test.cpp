#include <gtest/gtest.h>

#include <algorithm>

#include "tabelle/prova.h"

namespace cu::tabelle {
namespace {

using namespace std::string_literals;
using prova::Cartella;
using prova::rifiuto;
using prova::scritte;
using prova::segnalate;
using prova::xlsxDi;
using prova::xlsxDiRighe;

using Righe = std::vector<std::string>;

constexpr const char* kTesta =
    R"(<row r="1"><c r="A1" t="str"><v>A</v></c><c r="B1" t="str"><v>B</v></c></row>)";

// The one cell below the heading.
Cella unica(const Cartella& cartella, Tabella& tabella) {
  tabella = leggiTabella(xlsxDi(cartella), "f.xlsx");
  return tabella.righe.empty() ? Cella() : tabella.righe.front().cella(0);
}

struct CasoCella {
  const char* nome;
  const char* cella;
  Genere genere;
  const char* testo;
};

class CellaXlsx : public testing::TestWithParam<CasoCella> {};

// The styles, from 0: none, dd/mm/yyyy of its own, built-in date, 0%, time of day, red amount, date and time,
// own percentage.
constexpr const char* kStili =
    R"(<numFmts count="5"><numFmt numFmtId="164" formatCode="dd/mm/yyyy"/>)"
    R"(<numFmt numFmtId="165" formatCode="h:mm AM/PM"/>)"
    R"(<numFmt numFmtId="166" formatCode="#,##0.00\ &quot;dym&quot;;[Red]-#,##0.00"/>)"
    R"(<numFmt numFmtId="167" formatCode="[$-410]d\ mmm\ yyyy\ hh:mm:ss;@"/>)"
    R"(<numFmt numFmtId="168" formatCode="0.00%"/></numFmts>)"
    R"(<cellStyleXfs><xf numFmtId="14"/></cellStyleXfs>)"
    R"(<cellXfs><xf numFmtId="0"/><xf numFmtId="164"/><xf numFmtId="14"/><xf numFmtId="9"/><xf numFmtId="165"/>)"
    R"(<xf numFmtId="166"/><xf numFmtId="167"/><xf numFmtId="168"/></cellXfs>)";

TEST_P(CellaXlsx, IsReadAsAPersonSeesIt) {
  Cartella cartella;
  cartella.stili = kStili;
  cartella.testi =
      "<si><t>comune</t></si>"
      "<si><r><rPr><b/></rPr><t>par</t></r><r><t xml:space=\"preserve\">te </t></r><rPh><t>x</t></rPh>"
      "<phoneticPr/></si><si><t/></si><si><t>_x0041_ _x005F_x0041_ _x00</t></si><si><t>_xD83D__xDE00_ "
      "_xD83D_ _xDE00_ _xd83d_b</t></si>";
  cartella.foglio = "<sheetData>"s + kTesta + "<row r=\"2\">" + GetParam().cella +
                    R"(<c r="B2"><v>1</v></c></row></sheetData>)";
  Tabella tabella;
  const Cella cella = unica(cartella, tabella);
  EXPECT_EQ(cella.genere, GetParam().genere);
  EXPECT_EQ(cella.testo, GetParam().testo);
}

const CasoCella kCelle[] = {
    {"shared", R"(<c r="A2" t="s"><v>0</v></c>)", Genere::Testo, "comune"},
    {"rich", R"(<c r="A2" t="s"><v>1</v></c>)", Genere::Testo, "parte "},
    {"sharedEmpty", R"(<c r="A2" t="s"><v>2</v></c>)", Genere::Vuota, ""},
    {"escaped", R"(<c r="A2" t="s"><v>3</v></c>)", Genere::Testo, "A _x0041_ _x00"},
    {"escapedHalves", R"(<c r="A2" t="s"><v>4</v></c>)", Genere::Testo, "😀 ? ? ?b"},
    {"inlineText", R"(<c r="A2" t="inlineStr"><is><t>00100</t></is></c>)", Genere::Testo, "00100"},
    {"inlineRich", R"(<c r="A2" t="inlineStr"><is><r><t>a</t></r><r><t>b</t></r></is></c>)", Genere::Testo,
     "ab"},
    {"textOfANumber", R"(<c r="A2" t="inlineStr" s="1"><is><t>31/01/2023</t></is></c>)", Genere::Testo,
     "31/01/2023"},
    {"noCell", R"()", Genere::Vuota, ""},
    {"noValue", R"(<c r="A2" s="1"/>)", Genere::Vuota, ""},
    {"whole", R"(<c r="A2"><v>1000</v></c>)", Genere::Numero, "1000"},
    {"longWhole", R"(<c r="A2" t="n"><v>12345678901234567</v></c>)", Genere::Numero, "12345678901234567"},
    {"artefact", R"(<c r="A2"><v>199.89999999999998</v></c>)", Genere::Numero, "199.9"},
    {"sum", R"(<c r="A2"><v>0.30000000000000004</v></c>)", Genere::Numero, "0.3"},
    {"negative", R"(<c r="A2"><v>-1234.5</v></c>)", Genere::Numero, "-1234.5"},
    {"exponent", R"(<c r="A2"><v>1.23457E+10</v></c>)", Genere::Numero, "12345700000"},
    {"small", R"(<c r="A2"><v>1E-3</v></c>)", Genere::Numero, "0.001"},
    {"amountFormat", R"(<c r="A2" s="5"><v>12.5</v></c>)", Genere::Numero, "12.5"},
    {"unknownStyle", R"(<c r="A2" s="99"><v>12.5</v></c>)", Genere::Numero, "12.5"},
    {"percentage", R"(<c r="A2" s="3"><v>0.2</v></c>)", Genere::Percentuale, "20"},
    {"ownPercentage", R"(<c r="A2" s="7"><v>0.115</v></c>)", Genere::Percentuale, "11.5"},
    {"wholePercentage", R"(<c r="A2" s="3"><v>1</v></c>)", Genere::Percentuale, "100"},
    {"date", R"(<c r="A2" s="1"><v>42430</v></c>)", Genere::Data, "2016-03-01"},
    {"builtInDate", R"(<c r="A2" s="2"><v>42430</v></c>)", Genere::Data, "2016-03-01"},
    {"dateAndTime", R"(<c r="A2" s="6"><v>42430.604166666664</v></c>)", Genere::Data, "2016-03-01T14:30:00"},
    {"timeOfDay", R"(<c r="A2" s="4"><v>0.604166666666667</v></c>)", Genere::Testo, "14:30:00"},
    {"hours", R"(<c r="A2" s="4"><v>1.5</v></c>)", Genere::Numero, "1.5"},
    {"isoDate", R"(<c r="A2" t="d"><v>2016-03-01T00:00:00</v></c>)", Genere::Data, "2016-03-01"},
    {"isoDateAndTime", R"(<c r="A2" t="d"><v>2016-03-01T14:30:00Z</v></c>)", Genere::Data,
     "2016-03-01T14:30:00"},
    {"notADate", R"(<c r="A2" t="d"><v>domani</v></c>)", Genere::Errore, "domani"},
    {"dayZero", R"(<c r="A2" s="1"><v>0</v></c>)", Genere::Errore, "0"},
    {"negativeDate", R"(<c r="A2" s="1"><v>-1</v></c>)", Genere::Errore, "-1"},
    {"true", R"(<c r="A2" t="b"><v>1</v></c>)", Genere::Logica, "true"},
    {"false", R"(<c r="A2" t="b"><v>0</v></c>)", Genere::Logica, "false"},
    {"error", R"(<c r="A2" t="e"><v>#N/A</v></c>)", Genere::Errore, "#N/A"},
    {"errorOfAFormula", R"(<c r="A2" t="e"><f>1/0</f><v>#DIV/0!</v></c>)", Genere::Errore, "#DIV/0!"},
    {"formula", R"(<c r="A2"><f>B2*2</f><v>2</v></c>)", Genere::Numero, "2"},
    {"formulaOfText", R"(<c r="A2" t="str"><f>"x"</f><v>x</v></c>)", Genere::Testo, "x"},
    {"formulaOfEmptyText", R"(<c r="A2" t="str"><f>""</f><v></v></c>)", Genere::Vuota, ""},
    {"formulaOfZero", R"(<c r="A2"><f>B2-1</f><v>0</v></c>)", Genere::Numero, "0"},
    {"never", R"(<c r="A2"><f>B2*2</f></c>)", Genere::FormulaMaiCalcolata, "=B2*2"},
    {"neverWithEmptyValue", R"(<c r="A2"><f>B2*2</f><v/></c>)", Genere::FormulaMaiCalcolata, "=B2*2"},
    {"neverText", R"(<c r="A2" t="str"><f>B2</f></c>)", Genere::FormulaMaiCalcolata, "=B2"},
    {"withoutPlace", R"(<c><v>5</v></c>)", Genere::Numero, "5"},
};

INSTANTIATE_TEST_SUITE_P(Xlsx, CellaXlsx, testing::ValuesIn(kCelle),
                         [](const auto& caso) { return std::string(caso.param.nome); });

TEST(Xlsx, AZeroThatTheWriterHasNotCalculatedIsNoResult) {
  Cartella cartella;
  cartella.dopo = R"(<calcPr fullCalcOnLoad="1"/>)";
  cartella.foglio =
      "<sheetData>"s + kTesta +
      R"(<row r="2"><c r="A2"><f>1+1</f><v>0</v></c><c r="B2"><f>B1</f><v>3</v></c></row></sheetData>)";
  EXPECT_EQ(scritte(leggiTabella(xlsxDi(cartella), "f")), (Righe{"1:|A|B", "2:|F =1+1|N 3"}));
}

TEST(Xlsx, DatesAreCountedFrom1904WhenTheWorkbookSays) {
  Cartella cartella;
  cartella.proprieta = R"(<workbookPr date1904="1"/>)";
  cartella.stili = kStili;
  cartella.foglio =
      "<sheetData>"s + kTesta +
      R"(<row r="2"><c r="A2" s="1"><v>40968</v></c><c r="B2" s="1"><v>0</v></c></row></sheetData>)";
  const Tabella tabella = leggiTabella(xlsxDi(cartella), "f");
  EXPECT_EQ(scritte(tabella), (Righe{"1:|A|B", "2:|D 2016-03-01|D 1904-01-01"}));
  EXPECT_TRUE(tabella.dal1904);
}

TEST(Xlsx, TheStrictVariantOfTheFormatIsReadToo) {
  prova::Membri membri = prova::membriDi({});
  for (auto& [nome, contenuto] : membri) {
    if (nome == "xl/worksheets/sheet1.xml") {
      contenuto =
          "<x:worksheet xmlns:x=\"http://purl.oclc.org/ooxml/spreadsheetml/main\"><x:sheetData><x:row>"
          "<x:c t=\"inlineStr\"><x:is><x:t>A</x:t></x:is></x:c></x:row></x:sheetData></x:worksheet>";
    }
  }
  EXPECT_EQ(scritte(leggiTabella(prova::zipDi(membri), "f")), (Righe{"1:|A"}));
}

TEST(Xlsx, RowsAndCellsKeepTheirPlaces) {
  const std::string righe = R"(<row r="3"><c r="B3"><v>1</v></c><c r="D3"><v>2</v></c></row>)"
                            R"(<row r="4"><c r="B4" s="1"/></row>)"
                            R"(<row r="7"><c r="C7"><v>3</v></c></row><row><c><v>4</v></c></row>)";
  const Tabella tabella = leggiTabella(xlsxDiRighe(righe), "f.xlsx");
  EXPECT_EQ(scritte(tabella), (Righe{"3:||N 1||N 2", "7:|||N 3", "8:|N 4"}));
  EXPECT_EQ(tabella.foglio, "Dati");
}

TEST(Xlsx, TheHeaderIsInTheRowGiven) {
  OpzioniLettura opzioni;
  opzioni.rigaIntestazione = 3;
  const std::string byte = xlsxDiRighe(R"(<row r="1"><c r="A1" t="str"><v>Elenco</v></c></row>)"
                                       R"(<row r="3"><c r="A3" t="str"><v>A</v></c></row>)"
                                       R"(<row r="4"><c r="A4"><v>1</v></c><c r="C4"><v>2</v></c></row>)");
  const Tabella tabella = leggiTabella(byte, "f.xlsx", opzioni);
  EXPECT_EQ(scritte(tabella), (Righe{"3:|A", "4:|N 1||N 2"}));
  EXPECT_EQ(segnalate(tabella),
            Righe{"f.xlsx, foglio \"Dati\", riga 4, colonna C: La riga ha una cella oltre l'ultima "
                  "intestazione, che è nella colonna A (F03)"});
  opzioni.rigaIntestazione = 2;
  EXPECT_EQ(
      rifiuto(byte, "f.xlsx", opzioni),
      "f.xlsx, foglio \"Dati\", riga 2: La riga, che deve avere le intestazioni, non c'è o è vuota (F01).");
}

TEST(Xlsx, HiddenRowsAreReadAndCounted) {
  const Tabella tabella =
      leggiTabella(xlsxDiRighe(kTesta + R"(<row r="2" hidden="1"><c r="A2"><v>1</v></c></row>)"s +
                               R"(<row r="3" hidden="true"><c r="A3"/></row>)" +
                               R"(<row r="4"><c r="A4"><v>2</v></c></row>)"),
                   "f");
  EXPECT_EQ(scritte(tabella), (Righe{"1:|A|B", "2:|N 1", "4:|N 2"}));
  EXPECT_EQ(tabella.righeNascoste, 1U);
}

TEST(Xlsx, OfMergedCellsOnlyTheFirstHasAContent) {
  Cartella cartella;
  cartella.foglio =
      "<sheetData>"s + kTesta +
      R"(<row r="2"><c r="A2"><v>1</v></c><c r="B2"><v>2</v></c></row>)"
      R"(<row r="3"><c r="A3"><v>3</v></c><c r="B3"><v>4</v></c></row>)"
      R"(<row r="4"><c r="A4"><v>5</v></c><c r="B4"><v>6</v></c></row></sheetData>)"
      R"(<mergeCells><mergeCell ref="A2:A3"/><mergeCell ref="A4:D4"/><mergeCell ref="F1:F9"/></mergeCells>)";
  EXPECT_EQ(scritte(leggiTabella(xlsxDi(cartella), "f")),
            (Righe{"1:|A|B", "2:|N 1|N 2", "3:||N 4", "4:|N 5|"}));
}

Cartella dueFogli() {
  Cartella cartella;
  cartella.fogli = R"(<sheet name="Nascosto" state="hidden" sheetId="3" r:id="rId3"/>)"
                   R"(<sheet name="Grafico" sheetId="2" r:id="rId2"/>)"
                   R"(<sheet name="Dati &amp; Co" sheetId="1" r:id="rId1"/>)";
  cartella.relazioni +=
      R"(<Relationship Id="rId2" Type="http://x/chartsheet" Target="chartsheets/sheet1.xml"/>)"
      R"(<Relationship Id="rId3" Type="http://x/worksheet" Target="../xl/worksheets/./other.xml"/>)";
  cartella.foglio = "<sheetData>"s + kTesta + "</sheetData>";
  return cartella;
}

std::string byteDiDueFogli() {
  prova::Membri membri = prova::membriDi(dueFogli());
  membri.emplace_back(
      "xl/Worksheets/Other.xml",
      R"(<worksheet><sheetData><row><c t="str"><v>Altro</v></c></row></sheetData></worksheet>)");
  return prova::zipDi(membri);
}

TEST(Xlsx, TheFirstVisibleSheetIsReadOrTheOneNamed) {
  const std::string byte = byteDiDueFogli();
  EXPECT_EQ(scritte(leggiTabella(byte, "f")), Righe{"1:|A|B"});
  OpzioniLettura opzioni;
  opzioni.foglio = "nascosto";
  EXPECT_EQ(scritte(leggiTabella(byte, "f", opzioni)), Righe{"1:|Altro"});
  opzioni.foglio = "Marzo";
  EXPECT_EQ(rifiuto(byte, "f", opzioni),
            "f: Il foglio \"Marzo\" non c'è; ci sono: \"Nascosto\", \"Dati & Co\" (F02).");
}

TEST(Xlsx, TheSheetsAreListed) {
  const std::vector<Foglio> fogli = fogliDi(byteDiDueFogli(), "f");
  ASSERT_EQ(fogli.size(), 2U);
  EXPECT_EQ(fogli[0].nome, "Nascosto");
  EXPECT_TRUE(fogli[0].nascosto);
  EXPECT_EQ(fogli[1].nome, "Dati & Co");
  EXPECT_FALSE(fogli[1].nascosto);
  EXPECT_TRUE(fogliDi("A;B\n", "f").empty());
}

TEST(Xlsx, ACellWithoutAValueSaysWhy) {
  EXPECT_EQ(motivoSenzaValore({"#N/A", Genere::Errore}), "la cella mostra l'errore #N/A");
  EXPECT_EQ(motivoSenzaValore({"-1", Genere::Errore}),
            "la cella ha il formato di una data, ma -1 non è una data");
  EXPECT_EQ(motivoSenzaValore({"=A1", Genere::FormulaMaiCalcolata}),
            "la formula =A1 non è mai stata calcolata: aprire il file con il foglio di calcolo e salvarlo");
  EXPECT_EQ(motivoSenzaValore({"1", Genere::Numero}), "");
}

}  // namespace
}  // namespace cu::tabelle
