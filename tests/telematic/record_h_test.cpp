// The record H of each run year.
#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>

#include "telematic/record_h_prova.h"

namespace cu::record_h {
namespace {

class RecordH : public testing::TestWithParam<int> {};

TEST_P(RecordH, Module1IsByteForByteWhatTheFormOfTheYearAsksFor) {
  const Contenuti riga = rigaPiena();
  Campi campi = quadro("00000001");
  campi.merge(test::Riferimento::campi(test::Riferimento(GetParam(), riga).celleH1()));
  EXPECT_EQ(scrivi(GetParam(), riga).contenuto, test::riga('H', GetParam(), campi));
}

TEST_P(RecordH, AFurtherModuleIsByteForByteWhatTheFormOfTheYearAsksFor) {
  const Contenuti modulo = pieno(test::formaH(false));
  Campi campi = quadro("00000002");
  campi.merge(test::Riferimento::campi(test::Riferimento(GetParam(), modulo).celleHAltri()));
  EXPECT_EQ(scrivi(GetParam(), rigaPiena(), modulo).contenuto, test::riga('H', GetParam(), campi));
}

TEST_P(RecordH, ModulesWithNothingInThemAreFramesWithBlankCells) {
  const Contenuti riga = {{"CodiceFiscale", text("RSSMRA80B01L781X")}};
  EXPECT_EQ(scrivi(GetParam(), riga).contenuto, test::riga('H', GetParam(), quadro("00000001")));
  EXPECT_EQ(scrivi(GetParam(), riga, Contenuti()).contenuto, test::riga('H', GetParam(), quadro("00000002")));
}

// Each row of the form alone, with the values required by its condition.
TEST_P(RecordH, EachSourceFillsItsOwnCodeOfTheYear) {
  struct Caso {
    std::string fonte;
    Contenuti riga;
    int codice;
    std::string atteso;
    bool solo;  // nothing else in the row
  };
  for (const bool primo : {true, false}) {
    const std::vector<test::RigaForma> forma = test::formaH(primo);
    const auto delCodice = [](const test::RigaForma& r) {
      return r.codici.at(static_cast<std::size_t>(GetParam() - test::kPrimoAnno));
    };
    std::vector<Caso> casi;
    for (const test::RigaForma& r : forma) {
      if (r.fonte[0] == '#') continue;
      Caso caso{.fonte = r.fonte, .riga = {}, .codice = delCodice(r), .atteso = "", .solo = true};
      switch (r.come) {
        case test::Come::Importo:
          caso.riga[r.fonte] = amount("12.5");
          caso.atteso = importo("12,50");
          break;
        case test::Come::Flag:
          caso.riga[r.fonte] = whole(1);
          caso.atteso = kUno;
          break;
        case test::Come::Destra:
          caso.riga[r.fonte] = whole(12);
          caso.atteso = importo("12");
          break;
        case test::Come::Maiuscolo:
          caso.riga[r.fonte] = text("àb");
          caso.atteso =
              "\xC0"
              "B";
          break;
        default:
          caso.riga[r.fonte] = text("àb");
          caso.atteso =
              "\xE0"
              "b";
      }
      if (r.se == test::Se::AnnoDovuto) caso.riga["Codice"] = text("G");
      if (r.se == test::Se::CausaleN) caso.riga["Codice"] = text("N");
      if (r.se == test::Se::BloccoC && r.come != test::Come::Importo)
        caso.riga["ContributiDovuti"] = amount("1");
      // It may be in another row of the same year.
      for (const test::RigaForma& altra : forma) {
        if (altra.fonte == r.fonte && delCodice(altra) != 0) caso.solo = false;
      }
      caso.solo = caso.solo && caso.riga.size() == 1;
      casi.push_back(std::move(caso));
    }

    test::Prova prova(GetParam());
    std::vector<Contenuti> contenuti;
    for (const Caso& caso : casi) contenuti.push_back(caso.riga);
    const test::Righe principali(test::rispostaPrincipale(primo ? contenuti : std::vector<Contenuti>{{}}));
    const test::Righe moduli(test::rispostaModuli(primo ? std::vector<Contenuti>{{}} : contenuti));
    CUFileSeq file(prova.ambiente());
    file.setFilePathName("/prova.cur");
    ASSERT_TRUE(file.OpenFile());
    file.legaQueryPrincipale(principali.colonne());
    file.legaQueryModuli(moduli.colonne());
    for (std::size_t i = 0; i < casi.size(); ++i) {
      file.WriteRecordTipoH(principali[primo ? i : 0], 1, primo ? 1 : 2, "x", primo ? nullptr : moduli[i]);
    }
    const test::CurFile letto(prova.files.files.at("/prova.cur"));
    ASSERT_EQ(letto.lines().size(), casi.size());
    for (std::size_t i = 0; i < casi.size(); ++i) {
      const Caso& caso = casi[i];
      if (caso.codice != 0) {
        EXPECT_EQ(letto.lines()[i].value("AU00" + std::to_string(caso.codice)), caso.atteso) << caso.fonte;
      } else if (caso.solo) {
        EXPECT_TRUE(letto.lines()[i].cells().empty()) << caso.fonte;
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(RunYears, RecordH, testing::Range(2013, 2019), testing::PrintToStringParamName());

// The years' own cells, written out.

TEST(RecordHYears, TheFormOf2014EndsWithContributionsAndExpenses) {
  const auto valori = principale(2014, {{"ContributiCaricoAzienda", amount("20")},
                                        {"ContributiCaricoPercipiente", amount("10")},
                                        {"SpeseRimborsate", amount("5")},
                                        {"RitenuteRimborsate", amount("2")},
                                        {"ContributiDovuti", amount("7")},
                                        {"SommeCorrispostePreFallimento", amount("3")}})
                          .values();
  EXPECT_EQ(valori, (Celle{{"AU001020", importo("20,00")},
                           {"AU001021", importo("10,00")},
                           {"AU001022", importo("5,00")},
                           {"AU001023", importo("2,00")}}));
}

TEST(RecordHYears, From2015ExpensesMoveTo20AndContributionsIntoTheirBlock) {
  const auto valori = principale(2015, {{"ContributiCaricoAzienda", amount("20")},
                                        {"ContributiCaricoPercipiente", amount("10")},
                                        {"SpeseRimborsate", amount("5")},
                                        {"RitenuteRimborsate", amount("2")}})
                          .values();
  EXPECT_EQ(valori, (Celle{{"AU001020", importo("5,00")},
                           {"AU001021", importo("2,00")},
                           {"AU001034", importo("20,00")},
                           {"AU001035", importo("10,00")}}));
}

TEST(RecordHYears, Before2014TheListEndsAt19) {
  const auto valori = principale(2013, {{"ContributiCaricoAzienda", amount("20")},
                                        {"SpeseRimborsate", amount("5")},
                                        {"RitenuteAnniPrecedenti", amount("4")},
                                        {"AltriSoggettiImponibile", amount("3")}})
                          .values();
  EXPECT_EQ(valori, (Celle{{"AU001019", importo("4,00")}}));
}

TEST(RecordHYears, A2015FlagGivesWayToAnAmountAt104And108) {
  const Contenuti riga = {{"PignoramentoTerziRitenuteNonOperate1", amount("1")},
                          {"PignoramentoTerziSommeNonTassate1", amount("50")},
                          {"PignoramentoTerziRitenuteNonOperate2", whole(-1)},
                          {"PignoramentoTerziSommeNonTassate2", amount("60")}};
  for (const bool primo : {true, false}) {
    const auto linea = [&](int anno) { return primo ? principale(anno, riga) : aggiuntivo(anno, riga); };
    EXPECT_EQ(linea(2015).values(), (Celle{{"AU001104", kUno}, {"AU001108", kUno}}));
    EXPECT_EQ(linea(2016).values(), (Celle{{"AU001104", importo("50,00")}, {"AU001108", importo("60,00")}}));
    EXPECT_EQ(linea(2018).values(), linea(2016).values());
    EXPECT_TRUE(linea(2014).cells().empty());
  }
}

}  // namespace
}  // namespace cu::record_h
