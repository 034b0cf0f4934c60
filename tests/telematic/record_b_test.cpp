#include <gtest/gtest.h>

#include <map>
#include <string>
#include <tuple>

#include "telematic/cu_file_seq.h"
#include "telematic/prova.h"

namespace cu {
namespace {

using test::Contenuti;
using test::day;
using test::null;
using test::text;
using test::whole;
using CampiB = std::map<std::string, std::string>;

Contenuti societa() {
  return {{"PersonaFisicaAz", whole(0)},
          {"AnagraficaAz", text("Alfa & Figli s.r.l.")},
          {"NomeAz", text("mai scritto")},
          {"EMailInternetAz", text("Info@alfa.it")},
          {"TelefonoAz", text("(045) 12-34.567")},
          {"FaxAz", text("045/1234567")},
          {"CodiceEventoEccezionaleAz", text("n1")},
          {"CodiceFiscaleRapp", text("vrdlgu60b02l781k")},
          {"CodiceCarica", text("1")},
          {"AnagraficaRapp", text("Verdi")},
          {"NomeRapp", text("Luigi")},
          {"CodiceFiscaleSocieta", text("1234567890")}};
}

struct Chiamata {
  std::int32_t numero = 3;
  std::string codiceFiscale = "01234567890";
  std::int32_t tipo = 1;
  std::string intermediario = "rssmra80a01l781x";
  bool uso = true;
  std::string impegno = "2";
  Date data = Date::fromYmd(2017, 3, 5).value();
};

std::string scrivi(int anno, const Contenuti& riga, const Chiamata& c = {}) {
  test::Prova prova(anno);
  const test::Righe righe(test::rispostaPrincipale({riga}));
  CUFileSeq file(prova.ambiente());
  file.setFilePathName("/prova.cur");
  EXPECT_TRUE(file.OpenFile());
  file.legaQueryPrincipale(righe.colonne());
  file.WriteRecordTipoB(righe[0], c.numero, c.codiceFiscale, static_cast<Comunicazione>(c.tipo),
                        c.intermediario, c.uso, c.impegno, c.data);
  file.CloseFile();
  return prova.files.files.at("/prova.cur");
}

CampiB attesi(int anno, int tipo) {
  CampiB campi = {{"Tipo Record", "B"},
                  {"Cod. Fisc. Sost. imposta", "01234567890"},
                  {"Progressivo modulo", "00000001"},
                  {"Id. prod. software (Cod. Fisc.)", "04711230587"},
                  {"Fornitura rel. invio certif. da ann.", tipo == 2 ? "1" : "0"},
                  {"Fornitura rel. invio certif. da sost.", tipo == 3 ? "1" : "0"},
                  {"Denominazione", "ALFA & FIGLI S.R.L."},
                  {"Indirizzo posta elettronica", "Info@alfa.it"},
                  {"Telefono/Fax", "0451234"},
                  {"Cod. Fisc. rappresentante", "VRDLGU60B02L781K"},
                  {"Cod. carica rappresentante", "01"},
                  {"Cognome rappresentante", "VERDI"},
                  {"Nome rappresentante", "LUIGI"},
                  {"Cod. Fisc. soc. o ente dich.", "01234567890"},
                  {"N° comun. certif. lav. aut. e provv.", "00000003"},
                  {"Casella Quadro CT", "0"},
                  {"Firma", "1"},
                  {"Cod. Fisc. intermediario", "RSSMRA80A01L781X"},
                  {"Impegno a trasmettere via telem. dich.", "2"},
                  {"Data dell'impegno", "05032017"},
                  {"Firma intermediario", "1"},
                  {"Filler 26", "A"}};
  if (anno >= 2016) campi["Eventi eccezionali"] = "N";
  if (anno == 2014) campi["N° comun. certif. lav. dip. e assim."] = "00000000";
  return campi;
}

// The content of one field, without trailing blanks.
std::string campo(const std::string& linea, int anno, const std::string& nome) {
  for (const test::CampoTracciato& posto : test::tracciato('B', anno)) {
    if (posto.nome != nome) continue;
    std::string valore = linea.substr(static_cast<std::size_t>(posto.posizione) - 1,
                                      static_cast<std::size_t>(posto.lunghezza));
    valore.erase(valore.find_last_not_of(' ') + 1);
    return valore;
  }
  ADD_FAILURE() << "no field " << nome;
  return "";
}
std::string campoCon(int anno, const std::string& colonna, const Value& valore, const std::string& nome) {
  Contenuti riga = societa();
  riga[colonna] = valore;
  return campo(scrivi(anno, riga), anno, nome);
}

class RecordB : public testing::TestWithParam<std::tuple<int, int>> {};

TEST_P(RecordB, IsByteForByteWhatTheFormOfTheYearAsksFor) {
  const auto& [anno, tipo] = GetParam();
  Chiamata chiamata;
  chiamata.tipo = tipo;
  EXPECT_EQ(scrivi(anno, societa(), chiamata), test::riga('B', anno, attesi(anno, tipo)));
}

TEST_P(RecordB, WithoutAnyDatumHoldsZerosWhereTheyAreDueAndBlanksElsewhere) {
  const auto& [anno, tipo] = GetParam();
  Chiamata chiamata{
      .numero = 0, .codiceFiscale = "", .tipo = tipo, .intermediario = "", .uso = false, .impegno = ""};
  chiamata.data = Date();
  CampiB campi = {{"Tipo Record", "B"},
                  {"Progressivo modulo", "00000001"},
                  {"Id. prod. software (Cod. Fisc.)", "04711230587"},
                  {"Fornitura rel. invio certif. da ann.", tipo == 2 ? "1" : "0"},
                  {"Fornitura rel. invio certif. da sost.", tipo == 3 ? "1" : "0"},
                  {"Cod. carica rappresentante", "00"},
                  {"Cod. Fisc. soc. o ente dich.", "00000000000"},
                  {"N° comun. certif. lav. aut. e provv.", "00000000"},
                  {"Casella Quadro CT", "0"},
                  {"Firma", "1"},
                  {"Data dell'impegno", "00000000"},
                  {"Firma intermediario", "0"},
                  {"Filler 26", "A"}};
  if (anno >= 2016) campi["Eventi eccezionali"] = "0";
  if (anno == 2014) campi["N° comun. certif. lav. dip. e assim."] = "00000000";
  EXPECT_EQ(scrivi(anno, {}, chiamata), test::riga('B', anno, campi));
}

INSTANTIATE_TEST_SUITE_P(RunYearsAndKinds, RecordB,
                         testing::Combine(testing::Range(2013, 2019), testing::Range(1, 4)),
                         [](const auto& caso) {
                           return std::to_string(std::get<0>(caso.param)) + "_" +
                                  std::to_string(std::get<1>(caso.param));
                         });

TEST(RecordBName, ANaturalPersonFillsSurnameAndNameAndNoDenomination) {
  for (const int vero : {1, -1}) {
    Contenuti riga = societa();
    riga["PersonaFisicaAz"] = whole(vero);
    riga["AnagraficaAz"] = text("Rossi");
    riga["NomeAz"] = text("Niccolò");
    CampiB campi = attesi(2016, 1);
    campi.erase("Denominazione");
    campi["Cognome"] = "ROSSI";
    campi["Nome"] = "NICCOL\xD2";
    EXPECT_EQ(scrivi(2016, riga), test::riga('B', 2016, campi));
  }
}

TEST(RecordBName, ANullKindOfPersonIsNoNaturalPerson) {
  Contenuti riga = societa();
  riga["PersonaFisicaAz"] = null();
  EXPECT_EQ(scrivi(2016, riga), test::riga('B', 2016, attesi(2016, 1)));
}

TEST(RecordBName, NamesAreCutToTheirFields) {
  const std::string lungo(70, 'a');
  EXPECT_EQ(campoCon(2016, "AnagraficaAz", text(lungo), "Denominazione"), std::string(60, 'A'));
  EXPECT_EQ(campoCon(2016, "AnagraficaRapp", text(lungo), "Cognome rappresentante"), std::string(24, 'A'));
  EXPECT_EQ(campoCon(2016, "NomeRapp", text(lungo), "Nome rappresentante"), std::string(20, 'A'));
  EXPECT_EQ(campoCon(2016, "EMailInternetAz", text(std::string(120, 'e')), "Indirizzo posta elettronica"),
            std::string(100, 'e'));
  Contenuti riga = societa();
  riga["PersonaFisicaAz"] = whole(1);
  riga["AnagraficaAz"] = text(lungo);
  riga["NomeAz"] = text(lungo);
  const std::string linea = scrivi(2016, riga);
  EXPECT_EQ(campo(linea, 2016, "Cognome"), std::string(24, 'A'));
  EXPECT_EQ(campo(linea, 2016, "Nome"), std::string(20, 'A'));
  EXPECT_EQ(campo(linea, 2016, "Denominazione"), "");
}

TEST(RecordBName, CutsCountCharactersNotBytesOfTheDatabase) {
  const std::string linea = scrivi(2016, [] {
    Contenuti riga = societa();
    riga["AnagraficaRapp"] = text("èèèèèèèèèèèèèèèèèèèèèèèZZZ");
    return riga;
  }());
  EXPECT_EQ(campo(linea, 2016, "Cognome rappresentante"), std::string(23, '\xC8') + "Z");
}

TEST(RecordBPhone, IsCutToTwelveFirstAndCleanedThen) {
  EXPECT_EQ(campoCon(2016, "TelefonoAz", text("(045) 12-34.567"), "Telefono/Fax"), "0451234");
  EXPECT_EQ(campoCon(2016, "TelefonoAz", text("045123456789012"), "Telefono/Fax"), "045123456789");
  EXPECT_EQ(campoCon(2016, "TelefonoAz", text("+39\\045/1.23-4"), "Telefono/Fax"), "39045123");
  EXPECT_EQ(campoCon(2016, "TelefonoAz", text("int. 3,b"), "Telefono/Fax"), "int3,b");
}

TEST(RecordBPhone, IsCutFromTheUntrimmedText) {
  EXPECT_EQ(campoCon(2016, "TelefonoAz", text("    0451234567"), "Telefono/Fax"), "04512345");
}

TEST(RecordBPhone, AnEmptyOrBlankPhoneGivesWayToTheFaxWithItsSeparators) {
  for (const Value& vuoto : {null(), text(""), text("   ")}) {
    EXPECT_EQ(campoCon(2016, "TelefonoAz", vuoto, "Telefono/Fax"), "045/1234567");
  }
  Contenuti riga = societa();
  riga["TelefonoAz"] = text("");
  riga["FaxAz"] = text("(045) 12-34.567");
  EXPECT_EQ(campo(scrivi(2016, riga), 2016, "Telefono/Fax"), "(045) 12-34.");
}

TEST(RecordBEvent, IsNotTouchedBefore2016AndZeroWhereEmpty) {
  const std::string prima = scrivi(2015, societa());
  EXPECT_EQ(prima.substr(308, 12), std::string(12, ' '));
  for (const Value& vuoto : {null(), text(""), text("  ")}) {
    EXPECT_EQ(campoCon(2016, "CodiceEventoEccezionaleAz", vuoto, "Eventi eccezionali"), "0");
  }
  EXPECT_EQ(campoCon(2016, "CodiceEventoEccezionaleAz", text("a"), "Eventi eccezionali"), "A");
}

TEST(RecordBCodes, AnEmptyOfficeIsTwoZerosAndOneFigureIsFilled) {
  EXPECT_EQ(campoCon(2016, "CodiceCarica", null(), "Cod. carica rappresentante"), "00");
  EXPECT_EQ(campoCon(2016, "CodiceCarica", text(""), "Cod. carica rappresentante"), "00");
  EXPECT_EQ(campoCon(2016, "CodiceCarica", text("1"), "Cod. carica rappresentante"), "01");
  EXPECT_EQ(campoCon(2016, "CodiceCarica", text("12"), "Cod. carica rappresentante"), "12");
}

TEST(RecordBCodes, AnEmptyCompanyCodeIsElevenZeros) {
  EXPECT_EQ(campoCon(2016, "CodiceFiscaleSocieta", null(), "Cod. Fisc. soc. o ente dich."), "00000000000");
  EXPECT_EQ(campoCon(2016, "CodiceFiscaleSocieta", text("1"), "Cod. Fisc. soc. o ente dich."), "00000000001");
  EXPECT_EQ(campoCon(2016, "CodiceFiscaleSocieta", text("rssmra80a01l781x"), "Cod. Fisc. soc. o ente dich."),
            "RSSMRA80A01");
}

TEST(RecordBCounts, TheEmployeesCountIsZerosFor2014AndBlankForEveryOtherYear) {
  for (int anno = 2013; anno <= 2018; ++anno) {
    const std::string linea = scrivi(anno, societa());
    EXPECT_EQ(linea.substr(393, 8), anno == 2014 ? "00000000" : "        ") << anno;
    EXPECT_EQ(linea.substr(401, 8), "00000003") << anno;
  }
}

TEST(RecordBIntermediary, ItsDataAreWrittenWhetherOrNotItIsInUse) {
  Chiamata chiamata;
  chiamata.uso = false;
  const std::string linea = scrivi(2016, societa(), chiamata);
  EXPECT_EQ(campo(linea, 2016, "Cod. Fisc. intermediario"), "RSSMRA80A01L781X");
  EXPECT_EQ(campo(linea, 2016, "Impegno a trasmettere via telem. dich."), "2");
  EXPECT_EQ(campo(linea, 2016, "Data dell'impegno"), "05032017");
  EXPECT_EQ(campo(linea, 2016, "Firma intermediario"), "0");
}

TEST(RecordBCommitment, ZeroAndEarlierDaysAreNone) {
  for (const int giorni : {0, -1, -40000}) {
    Chiamata chiamata;
    chiamata.data = Date::fromSerial(giorni);
    EXPECT_EQ(campo(scrivi(2016, societa(), chiamata), 2016, "Data dell'impegno"), "00000000") << giorni;
  }
  Chiamata chiamata;
  chiamata.data = Date::fromSerial(1);
  EXPECT_EQ(campo(scrivi(2016, societa(), chiamata), 2016, "Data dell'impegno"), "31121899");
}

}  // namespace
}  // namespace cu
