// The record D of each run year.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <tuple>

#include "telematic/record_d_prova.h"

namespace cu::record_d {
namespace {

Celle celleAttese(int anno) {
  const std::string spazi8(8, ' ');
  const std::string uno = std::string(15, ' ') + "1";
  Celle celle = {{"DA001001", "01234567890"},
                 {"DA001002", "ALFA & FIGLI S.R.L."},
                 {"DA001003", "NOME DELLA DITTA"},
                 {"DA001004", "Verona"},
                 {"DA001005", "VR"},
                 {"DA001006", "37121"},
                 {"DA001007", "Via Mazzini 1"},
                 {"DA001008", "045123456789"},
                 {"DA001009", "Info@alfa.it"},
                 {"DA001010", "620100"},
                 {"DA002001", "RSSMRA80B01L781X"},
                 {"DA002002", "ROSSI"},
                 {"DA002003", "NICCOL\xD2"},
                 {"DA002004", "M"},
                 {"DA002005", spazi8 + "01021980"},
                 {"DA002006", "Verona"},
                 {"DA002007", "VR"},
                 {"DA002008", "Z2"},
                 {"DA002009", uno},
                 {"DA002020", "San Don\xE0 di Piave"},
                 {"DA002021", "VE"},
                 {"DA002022", "H823"}};
  if (anno <= 2016) {
    celle.insert(celle.end(), {{"DA002023", "Padova"}, {"DA002024", "PD"}, {"DA002025", "G224"}});
    if (anno == 2016) celle.emplace_back("DA002026", "Unito C");
  } else {
    celle.insert(celle.end(), {{"DA002023", "Unito P"},
                               {"DA002024", "Padova"},
                               {"DA002025", "PD"},
                               {"DA002026", "G224"},
                               {"DA002027", "Unito C"}});
  }
  celle.insert(celle.end(), {{"DA002030", "VRDLGU60B02L781K"},
                             {"DA002040", "DE-123 456"},
                             {"DA002041", "M\xFCnchen"},
                             {"DA002042",
                              "Leopoldstra\xDF"
                              "e 12"}});
  if (anno == 2014) celle.emplace_back("DA002043", std::string(13, ' ') + "094");
  if (anno >= 2015) {
    celle.emplace_back("DA002043", uno);
    celle.emplace_back("DA002044", std::string(13, ' ') + "094");
  }
  celle.emplace_back("DA003001", spazi8 + "28022017");
  celle.emplace_back("DA003002", uno);
  return celle;
}

Campi quadroAtteso(int tipo) {
  Campi campi = {{"Tipo Record", "D"},
                 {"Cod. Fisc. Sost. imposta", "01234567890"},
                 {"Progressivo modulo", "00000001"},
                 {"Cod. Fisc. Percipiente", "RSSMRA80B01L781X"},
                 {"Progressivo Certificazione", "00001"},
                 {"Prot. ass. da Serv. telem.-Id. invio", std::string(17, '0')},
                 {"Progr. ass. da Serv. telem. alla singola CU", "000000"},
                 {"Flag conferma Singola Certif.", "0"},
                 {"Filler 3", "A"}};
  if (tipo != 1) {
    campi["Prot. ass. da Serv. telem.-Id. invio"] = "17030512345678901";
    campi["Progr. ass. da Serv. telem. alla singola CU"] = "000042";
    campi["Tipo op.: ann./sost."] = tipo == 2 ? "A" : "S";
  }
  return campi;
}

class RecordD : public testing::TestWithParam<std::tuple<int, int>> {};

TEST_P(RecordD, IsByteForByteWhatTheFormOfTheYearAsksFor) {
  const auto& [anno, tipo] = GetParam();
  Campi campi = quadroAtteso(tipo);
  campi.merge(test::Riferimento::campi(celleAttese(anno)));
  EXPECT_EQ(scrivi(anno, {percipiente()}, tipo), test::riga('D', anno, campi));
}

TEST_P(RecordD, WithoutAnyDatumHasTheSignaturesTwoCells) {
  const auto& [anno, tipo] = GetParam();
  Campi campi = quadroAtteso(tipo);
  campi.erase("Cod. Fisc. Percipiente");
  campi["Prot. ass. da Serv. telem.-Id. invio"] = std::string(17, '0');
  campi["Progr. ass. da Serv. telem. alla singola CU"] = "000000";
  campi["Campo1"] = "DA003001        28022017";
  campi["Campo2"] = "DA003002               1";
  EXPECT_EQ(scrivi(anno, {{}}, tipo), test::riga('D', anno, campi));
}

INSTANTIATE_TEST_SUITE_P(RunYearsAndKinds, RecordD,
                         testing::Combine(testing::Range(2013, 2019), testing::Range(1, 4)),
                         [](const auto& caso) {
                           return std::to_string(std::get<0>(caso.param)) + "_" +
                                  std::to_string(std::get<1>(caso.param));
                         });

// Each row of the form alone: its source fills one value with the year's code, and nothing else changes.
TEST(RecordDRows, EachSourceFillsItsOwnCodeOfTheYear) {
  for (int anno = test::kPrimoAnno; anno <= test::kUltimoAnno; ++anno) {
    const auto delCodice = [anno](const test::RigaForma& r) {
      return r.codici.at(static_cast<std::size_t>(anno - test::kPrimoAnno));
    };
    std::vector<test::RigaForma> righe;
    std::vector<Contenuti> contenuti;
    for (const test::RigaForma& r : test::kFormaD) {
      if (r.fonte.empty()) continue;
      Contenuti riga = {{r.fonte, r.come == test::Come::Data ? day(1975, 11, 30) : text("12")}};
      if (r.se == test::Se::PersonaFisica) riga["PersonaFisica"] = whole(1);
      if (r.se == test::Se::NonResidente) riga["NonResidente"] = whole(1);
      righe.push_back(r);
      contenuti.push_back(riga);
    }
    const test::CurFile letto(scrivi(anno, contenuti));
    for (std::size_t i = 0; i < righe.size(); ++i) {
      const test::RigaForma& r = righe[i];
      bool scritta = false;  // a source is in two rows, of which a year has at most one
      for (const test::RigaForma& altra : test::kFormaD) {
        scritta = scritta || (altra.fonte == r.fonte && delCodice(altra) != 0);
      }
      const auto valori = letto.lines()[i].values();
      ASSERT_EQ(valori.size(), scritta ? 3U : 2U) << anno << " " << r.fonte;
      if (delCodice(r) == 0) continue;
      EXPECT_EQ(valori[0].first, "DA00" + std::to_string(delCodice(r))) << anno << " " << r.fonte;
      std::string atteso = "12";
      if (r.come == test::Come::Data) atteso = "        30111975";
      if (r.come == test::Come::Destra || r.come == test::Come::DestraRifilato) atteso = "              12";
      EXPECT_EQ(valori[0].second, atteso) << anno << " " << r.fonte;
    }
  }
}

}  // namespace
}  // namespace cu::record_d
