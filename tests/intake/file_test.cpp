// What tables of other programs are like, from their bytes to typed rows.

#include <gtest/gtest.h>

#include "intake/letta.h"
#include "tabelle/prova.h"

namespace cu::intake {
namespace {

using namespace std::string_literals;
using prova::detti;
using prova::giorno;
using prova::righe;
using tabelle::prova::Cartella;
using tabelle::prova::xlsxDi;
using Righe = std::vector<std::string>;

struct CasoTesto {
  const char* nome;
  std::string byte;
  Righe attese;
  Righe messaggi{};
  Mappatura mappatura{};
};

class FileDiTesto : public testing::TestWithParam<CasoTesto> {};

TEST_P(FileDiTesto, GivesRowsAndMessages) {
  const Lettura lettura =
      leggiFile(GetParam().byte, "compensi.csv", Elenco::Compensi, GetParam().mappatura, giorno(2018, 3, 5));
  EXPECT_EQ(righe(lettura), GetParam().attese);
  EXPECT_EQ(detti(lettura), GetParam().messaggi);
  EXPECT_EQ(lettura.dimensione, GetParam().byte.size());
}

const std::string kTesta = "CodicePercipiente;Causale;DataPagamento;Onorario;NumeroDocumento\n";
const std::string kRiga = "P1;A;25/03/2017;100,50;7\n";
const std::string kLetta =
    "CodicePercipiente=P1|Causale=A|DataPagamento=25/03/2017|NumeroDocumento=7|Onorario=100.5";

const std::string kSenzaImporto = "CodicePercipiente=P1|Causale=A|DataPagamento=25/03/2017|NumeroDocumento=7";
const std::string kSegni = "compensi.csv, riga ";
const std::string kMigliaia =
    " non è un importo: i segni delle migliaia si indicano nella mappatura (migliaia) (V03).";

std::string sostituisci(std::string testo, const std::string& cosa, const std::string& con) {
  for (std::size_t i = testo.find(cosa); i != std::string::npos; i = testo.find(cosa, i + con.size())) {
    testo.replace(i, cosa.size(), con);
  }
  return testo;
}

Mappatura conRiga(std::size_t riga) {
  Mappatura mappatura;
  mappatura.lettura.rigaIntestazione = riga;
  return mappatura;
}

Mappatura conSegni(char decimali, char migliaia) {
  Mappatura mappatura;
  mappatura.decimali = decimali;
  mappatura.migliaia = migliaia;
  return mappatura;
}

const CasoTesto kTesti[] = {
    {"semicolon", kTesta + kRiga, {kLetta}},
    {"comma", sostituisci(kTesta, ";", ",") + "P1,A,25/03/2017,\"100,50\",7\n", {kLetta}},
    {"tab", sostituisci(kTesta + kRiga, ";", "\t"), {kLetta}},
    {"byteOrderMark", "\xef\xbb\xbf" + kTesta + kRiga, {kLetta}},
    {"crOnly", sostituisci(kTesta + kRiga, "\n", "\r"), {kLetta}},
    {"crLf", sostituisci(kTesta + kRiga, "\n", "\r\n"), {kLetta}},
    {"windows1252",
     kTesta + "P1;A;25/03/2017;100,50;Perch\xe9\n",
     {"CodicePercipiente=P1|Causale=A|DataPagamento=25/03/2017|NumeroDocumento=Perché|Onorario=100.5"}},
    {"lineEndsInQuotes",
     kTesta + "P1;A;25/03/2017;100,50;\"7\n8\"\nP1;A;25/03/2017;x;\n",
     {"CodicePercipiente=P1|Causale=A|DataPagamento=25/03/2017|NumeroDocumento=7 8|Onorario=100.5",
      "CodicePercipiente=P1|Causale=A|DataPagamento=25/03/2017"},
     {"compensi.csv, riga 4, colonna \"Onorario\": x non è un importo (V03)."}},
    {"headerInRow3", "Studio Rossi\nCompensi 2017\n" + kTesta + kRiga, {kLetta}, {}, conRiga(3)},
    {"headerInRow3ThatIsNotSaid",
     "Studio Rossi\nCompensi 2017\n" + kTesta + kRiga,
     {"", "", ""},
     {"compensi.csv, colonna \"Studio Rossi\": la colonna non si importa e viene ignorata (C03).",
      "compensi.csv, colonna \"Causale\": manca la colonna, che è obbligatoria (C01).",
      "compensi.csv, colonna \"DataPagamento\": manca la colonna, che è obbligatoria (C01).",
      "compensi.csv: manca il percipiente: serve una delle colonne CodicePercipiente, CodiceFiscale, "
      "PartitaIva "
      "(C01).",
      "compensi.csv: manca l'importo: serve una delle colonne Onorario, SommeNonSoggette, "
      "SommeRegimeConvenzionale, "
      "Lordo (C01).",
      "compensi.csv, riga 3, colonna \"B\": la riga ha una cella oltre l'ultima intestazione, che è nella "
      "colonna A "
      "(F03).",
      "compensi.csv, riga 4, colonna \"B\": la riga ha una cella oltre l'ultima intestazione, che è nella "
      "colonna A "
      "(F03)."}},
    {"shortRow",
     kTesta + "P1;A;25/03/2017;100,50\n",
     {"CodicePercipiente=P1|Causale=A|DataPagamento=25/03/2017|Onorario=100.5"}},
    {"longRow",
     kTesta + "P1;A;25/03/2017;100,50;7;8\n",
     {kLetta},
     {"compensi.csv, riga 2, colonna \"F\": la riga ha una cella oltre l'ultima intestazione, che è nella "
      "colonna E "
      "(F03)."}},
    {"totalsRow",
     kTesta + kRiga + "Totale;;;100,50;\n",
     {kLetta, "CodicePercipiente=Totale|Onorario=100.5"},
     {"compensi.csv, riga 3, colonna \"Causale\": manca il valore, che è obbligatorio (C01).",
      "compensi.csv, riga 3, colonna \"DataPagamento\": manca il valore, che è obbligatorio (C01)."}},
    {"blankRows", "\n" + kTesta + "\n;;;;\n" + kRiga + "\n\n", {kLetta}},
    {"thousands",
     kTesta + sostituisci(kRiga, "100,50", "1.100,50"),
     {"CodicePercipiente=P1|Causale=A|DataPagamento=25/03/2017|NumeroDocumento=7|Onorario=1100.5"},
     {},
     conSegni(',', '.')},
    {"englishThousands",
     kTesta + sostituisci(kRiga, "100,50", "1,100.50"),
     {"CodicePercipiente=P1|Causale=A|DataPagamento=25/03/2017|NumeroDocumento=7|Onorario=1100.5"},
     {},
     conSegni('.', ',')},
    {"swissThousands",
     kTesta + sostituisci(kRiga, "100,50", "1'100,50"),
     {"CodicePercipiente=P1|Causale=A|DataPagamento=25/03/2017|NumeroDocumento=7|Onorario=1100.5"},
     {},
     conSegni(',', '\'')},
    {"thousandsWithoutAProfile",
     kTesta + sostituisci(kRiga, "100,50", "1.100,50") + sostituisci(kRiga, "100,50", "\"1,100.50\"") +
         sostituisci(kRiga, "100,50", "1'100,50"),
     {kSenzaImporto, kSenzaImporto, kSenzaImporto},
     {kSegni + "2, colonna \"Onorario\": 1.100,50" + kMigliaia,
      kSegni + "3, colonna \"Onorario\": 1,100.50" + kMigliaia,
      kSegni + "4, colonna \"Onorario\": 1'100,50" + kMigliaia}},
    {"euro", kTesta + sostituisci(kRiga, "100,50", "€ 100,50"), {kLetta}},
    {"minusBehind",
     kTesta + sostituisci(kRiga, "100,50", "12,00-") + sostituisci(kRiga, "100,50", "(12,00)"),
     {kSenzaImporto + "|Onorario=-12", kSenzaImporto + "|Onorario=-12"}},
    {"otherDates",
     kTesta + sostituisci(kRiga, "25/03/2017", "2017-03-25") + sostituisci(kRiga, "25/03/2017", "25.3.17") +
         sostituisci(kRiga, "25/03/2017", "42819"),
     {kLetta, kLetta, kLetta}},
    {"errorsOfASpreadsheet",
     kTesta + "P1;A;#N/A;100,50;7\nP1;A;25/03/2017;#RIF!;7\n",
     {"CodicePercipiente=P1|Causale=A|NumeroDocumento=7|Onorario=100.5", kSenzaImporto},
     {"compensi.csv, riga 2, colonna \"DataPagamento\": la cella mostra l'errore #N/A (V08).",
      "compensi.csv, riga 3, colonna \"Onorario\": la cella mostra l'errore #RIF! (V08)."}},
    {"outsideWindows1252",
     kTesta + sostituisci(kRiga, ";7", ";№7"),
     {"CodicePercipiente=P1|Causale=A|DataPagamento=25/03/2017|NumeroDocumento=№7|Onorario=100.5"},
     {"compensi.csv, riga 2, colonna \"NumeroDocumento\": il carattere № nel file telematico diventa un "
      "punto interrogativo (V07)."}},
    {"point", kTesta + sostituisci(kRiga, "100,50", "100.5"), {kLetta}},
    {"apostropheOfASpreadsheet",
     kTesta + sostituisci(kRiga, "100,50", "'-100,50"),
     {"CodicePercipiente=P1|Causale=A|DataPagamento=25/03/2017|NumeroDocumento=7|Onorario=-100.5"}},
    {"nulByte",
     kTesta + "P1;A;25/03/2017;1\0;7\n"s,
     {},
     {"compensi.csv, riga 2: il file ha un byte nullo e non è un testo (F02)."}},
    {"empty", "", {}, {"compensi.csv: il file è vuoto (F01)."}},
    {"headingOnly", kTesta, {}},
    {"openQuote",
     kTesta + "\"P1;A;25/03/2017;1;7\n",
     {},
     {"compensi.csv, riga 2: la virgoletta che apre la cella non è chiusa fino alla fine del file (F03)."}},
    {"headingRowThatIsNotThere",
     kTesta,
     {},
     {"compensi.csv, riga 9: la riga, che deve avere le intestazioni, non c'è o è vuota (F01)."},
     conRiga(9)},
};

INSTANTIATE_TEST_SUITE_P(Testi, FileDiTesto, testing::ValuesIn(kTesti),
                         [](const auto& caso) { return caso.param.nome; });

// The cells of a payment in the styles 0 none and 1 date.
struct CasoFoglio {
  const char* nome;
  std::string celle;
  std::string attesa;
  Righe messaggi{};
  std::string proprieta{};
};

std::string testoXml(const std::string& posto, const std::string& testo) {
  return "<c r=\"" + posto + "\" t=\"inlineStr\"><is><t>" + testo + "</t></is></c>";
}

const std::string kTestaXml = "<row r=\"1\">" + testoXml("A1", "PartitaIva") + testoXml("B1", "Causale") +
                              testoXml("C1", "DataPagamento") + testoXml("D1", "Onorario") +
                              testoXml("E1", "NumeroDocumento") + "</row>";

std::string foglioDi(const std::string& celle, const std::string& proprieta = {},
                     const std::string& riga = {}) {
  Cartella cartella;
  cartella.stili = R"(<cellXfs><xf numFmtId="0"/><xf numFmtId="14"/><xf numFmtId="9"/></cellXfs>)";
  cartella.proprieta = proprieta;
  cartella.foglio = "<sheetData>" + kTestaXml + "<row r=\"2\" " + riga + ">" + celle + "</row></sheetData>";
  return xlsxDi(cartella);
}

class Foglio : public testing::TestWithParam<CasoFoglio> {};

TEST_P(Foglio, GivesRowsAndMessages) {
  const Lettura lettura = leggiFile(foglioDi(GetParam().celle, GetParam().proprieta), "compensi.xlsx",
                                    Elenco::Compensi, {}, giorno(2018, 3, 5));
  ASSERT_EQ(lettura.righe.size(), 1U);
  EXPECT_EQ(righe(lettura).front(), GetParam().attesa);
  EXPECT_EQ(detti(lettura), GetParam().messaggi);
}

const std::string kChiaveXml = testoXml("A2", "00743110157") + testoXml("B2", "A");
const std::string kChiave = "PartitaIva=00743110157|Causale=A|";
const std::string kDataXml = R"(<c r="C2" s="1"><v>42799</v></c>)";
const std::string kData = "DataPagamento=05/03/2017";
const std::string kDove = "compensi.xlsx, foglio \"Dati\", riga 2, colonna ";

const CasoFoglio kFogli[] = {
    {"dateAndNumber", kChiaveXml + kDataXml + R"(<c r="D2"><v>199.9</v></c>)",
     kChiave + kData + "|Onorario=199.9"},
    {"artefact", kChiaveXml + kDataXml + R"(<c r="D2"><v>199.89999999999998</v></c>)",
     kChiave + kData + "|Onorario=199.9"},
    {"threeDecimals",
     kChiaveXml + kDataXml + R"(<c r="D2"><v>1.235</v></c>)",
     kChiave + kData + "|Onorario=1.24",
     {kDove + "\"Onorario\": 1.235 ha più di due decimali: arrotondato a 1,24 (V04)."}},
    {"amountAsText", kChiaveXml + kDataXml + testoXml("D2", "199,90"), kChiave + kData + "|Onorario=199.9"},
    {"dateAsText", kChiaveXml + testoXml("C2", "25/03/2017") + R"(<c r="D2"><v>1</v></c>)",
     kChiave + "DataPagamento=25/03/2017|Onorario=1"},
    {"ambiguousDateAsText",
     kChiaveXml + testoXml("C2", "05/03/2017") + R"(<c r="D2"><v>1</v></c>)",
     kChiave + "Onorario=1",
     {"compensi.xlsx, foglio \"Dati\", colonna \"DataPagamento\": non è certo se 05/03/2017 abbia prima il "
      "giorno o "
      "il mese: indicarlo con --dates dmy, mdy o ymd (V02).",
      kDove + "\"DataPagamento\": non è certo se 05/03/2017 abbia prima il giorno o il mese (V02)."}},
    {"serialNumber", kChiaveXml + R"(<c r="C2"><v>42799</v></c><c r="D2"><v>1</v></c>)",
     kChiave + kData + "|Onorario=1"},
    {"from1904",
     kChiaveXml + R"(<c r="C2" s="1"><v>41337</v></c><c r="D2"><v>1</v></c>)",
     kChiave + kData + "|Onorario=1",
     {},
     R"(<workbookPr date1904="1"/>)"},
    {"serialNumberFrom1904",
     kChiaveXml + R"(<c r="C2"><v>41337</v></c><c r="D2"><v>1</v></c>)",
     kChiave + kData + "|Onorario=1",
     {},
     R"(<workbookPr date1904="1"/>)"},
    {"numberThatIsNoDate",
     kChiaveXml + R"(<c r="C2"><v>-5</v></c><c r="D2"><v>1</v></c>)",
     kChiave + "Onorario=1",
     {kDove + "\"DataPagamento\": -5 non è una data (V01)."}},
    {"error",
     kChiaveXml + kDataXml + R"(<c r="D2" t="e"><v>#N/A</v></c>)",
     kChiave + kData,
     {kDove + "\"Onorario\": la cella mostra l'errore #N/A (V08)."}},
    {"formulaNeverCalculated",
     kChiaveXml + kDataXml + R"(<c r="D2"><f>A1*2</f></c>)",
     kChiave + kData,
     {kDove +
      "\"Onorario\": la formula =A1*2 non è mai stata calcolata: aprire il file con il foglio di calcolo e "
      "salvarlo (V08)."}},
    {"formula", kChiaveXml + kDataXml + R"(<c r="D2"><f>A1*2</f><v>12.5</v></c>)",
     kChiave + kData + "|Onorario=12.5"},
    {"vatNumberAsNumber",
     R"(<c r="A2"><v>743110157</v></c>)" + testoXml("B2", "A") + kDataXml + R"(<c r="D2"><v>1</v></c>)",
     kChiave + kData + "|Onorario=1",
     {kDove + "\"PartitaIva\": 743110157 ha perso gli zeri iniziali: letta come 00743110157 (V09)."}},
    {"documentAsNumber", kChiaveXml + kDataXml + R"(<c r="D2"><v>1</v></c><c r="E2"><v>12</v></c>)",
     kChiave + kData + "|NumeroDocumento=12|Onorario=1"},
    {"documentAsDate",
     kChiaveXml + kDataXml + R"(<c r="D2"><v>1</v></c><c r="E2" s="1"><v>42795</v></c>)",
     kChiave + kData + "|Onorario=1",
     {kDove +
      "\"NumeroDocumento\": il foglio elettronico ha cambiato il valore in una data, 2017-03-01 (V09)."}},
    {"dateAsAmount",
     kChiaveXml + kDataXml + R"(<c r="D2" s="1"><v>42795</v></c>)",
     kChiave + kData,
     {kDove + "\"Onorario\": 2017-03-01 non è un importo (V03)."}},
    {"truthValueAsAmount",
     kChiaveXml + kDataXml + R"(<c r="D2" t="b"><v>1</v></c>)",
     kChiave + kData,
     {kDove + "\"Onorario\": true non è un importo (V03)."}},
    {"controlCharacter",
     kChiaveXml + kDataXml + R"(<c r="D2"><v>1</v></c>)" + testoXml("E2", "a_x0007_b"),
     kChiave + kData + "|Onorario=1",
     {kDove + "\"NumeroDocumento\": il testo ha caratteri di controllo (V10)."}},
    {"outsideWindows1252",
     kChiaveXml + kDataXml + R"(<c r="D2"><v>1</v></c>)" + testoXml("E2", "№7"),
     kChiave + kData + "|NumeroDocumento=№7|Onorario=1",
     {kDove +
      "\"NumeroDocumento\": il carattere № nel file telematico diventa un punto interrogativo (V07)."}},
};

INSTANTIATE_TEST_SUITE_P(Fogli, Foglio, testing::ValuesIn(kFogli),
                         [](const auto& caso) { return caso.param.nome; });

TEST(FoglioXlsx, HasPercentagesAsTheyAreShown) {
  Cartella cartella;
  cartella.stili = R"(<cellXfs><xf numFmtId="0"/><xf numFmtId="14"/><xf numFmtId="9"/></cellXfs>)";
  cartella.foglio = "<sheetData>" + sostituisci(kTestaXml, "NumeroDocumento", "AliquotaRitenuta") +
                    "<row r=\"2\">" + kChiaveXml + kDataXml +
                    R"(<c r="D2"><v>1</v></c><c r="E2" s="2"><v>0.2</v></c></row></sheetData>)";
  const Lettura lettura = leggiFile(xlsxDi(cartella), "f.xlsx", Elenco::Compensi, {}, giorno(2018, 3, 5));
  EXPECT_EQ(lettura.righe[0].valore(ColonnaCompenso::AliquotaRitenuta).toText(), "20");
}

TEST(FoglioXlsx, HasItsHiddenRowsRead) {
  const std::string byte = foglioDi(kChiaveXml + kDataXml + R"(<c r="D2"><v>1</v></c>)", {}, R"(hidden="1")");
  EXPECT_EQ(leggiFile(byte, "f.xlsx", Elenco::Compensi, {}, giorno(2018, 3, 5)).righe.size(), 1U);
}

TEST(FoglioXlsx, IsChosenByName) {
  Cartella cartella;
  cartella.fogli =
      R"(<sheet name="Altro" sheetId="2" r:id="rId2"/><sheet name="Dati" sheetId="1" r:id="rId1"/>)";
  cartella.relazioni +=
      R"(<Relationship Id="rId2" Type="http://x/relationships/worksheet" Target="worksheets/sheet1.xml"/>)";
  cartella.foglio = "<sheetData>" + kTestaXml + "<row r=\"2\">" + kChiaveXml + kDataXml +
                    R"(<c r="D2"><v>1</v></c></row></sheetData>)";
  Mappatura mappatura;
  EXPECT_EQ(leggiFile(xlsxDi(cartella), "f.xlsx", Elenco::Compensi, mappatura, giorno(2018, 3, 5)).foglio,
            "Altro");
  mappatura.lettura.foglio = "dati";
  EXPECT_EQ(leggiFile(xlsxDi(cartella), "f.xlsx", Elenco::Compensi, mappatura, giorno(2018, 3, 5)).foglio,
            "Dati");
  mappatura.lettura.foglio = "Marzo";
  const Lettura senza =
      leggiFile(xlsxDi(cartella), "f.xlsx", Elenco::Compensi, mappatura, giorno(2018, 3, 5));
  ASSERT_EQ(senza.messaggi.size(), 1U);
  EXPECT_EQ(senza.messaggi[0].codice, Codice::F02);
}

TEST(FileCheNonSiLegge, HasItsCode) {
  const auto codice = [](const std::string& byte, const tabelle::Limiti& limiti = {}) {
    Mappatura mappatura;
    mappatura.lettura.limiti = limiti;
    const Lettura lettura = leggiFile(byte, "f", Elenco::Compensi, mappatura, giorno(2018, 3, 5));
    EXPECT_TRUE(lettura.righe.empty());
    EXPECT_TRUE(lettura.conErrori());
    return lettura.messaggi.size() == 1 ? voce(lettura.messaggi[0].codice).sigla : "other";
  };
  EXPECT_EQ(codice(""), "F01");
  EXPECT_EQ(codice("%PDF-1.4\n"), "F02");
  EXPECT_EQ(codice(foglioDi(kChiaveXml).substr(0, 200)), "F03");
  tabelle::Limiti pochi;
  pochi.righe = 1;
  EXPECT_EQ(codice(kTesta + kRiga + kRiga, pochi), "F05");
}

}  // namespace
}  // namespace cu::intake
