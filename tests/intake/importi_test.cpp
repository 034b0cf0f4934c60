#include <gtest/gtest.h>

#include "intake/importo_cella.h"
#include "intake/letta.h"

namespace cu::intake {
namespace {

using prova::detti;
using prova::letta;

struct CasoImporto {
  const char* nome;
  const char* scritto;
  const char* atteso;  // the amount, or the outcome
  SegniImporto segni{};
};

std::string esito(const CasoImporto& caso) {
  const ImportoLetto letto = leggiImporto(caso.scritto, caso.segni);
  switch (letto.esito) {
    case EsitoImporto::Letto:
      return letto.valore.toText() + (letto.arrotondato ? " rounded" : "");
    case EsitoImporto::Trattino:
      return "hyphen";
    case EsitoImporto::Altro:
      return "none";
    case EsitoImporto::Migliaia:
      return "thousands";
    case EsitoImporto::Incerto:
      return "uncertain";
    case EsitoImporto::Grande:
      return "great";
    case EsitoImporto::Valuta:
      return "currency";
  }
  return {};
}

constexpr SegniImporto kItaliani{',', '.', false, false};
constexpr SegniImporto kInglesi{'.', ',', false, false};
constexpr SegniImporto kVirgola{',', {}, false, false};
constexpr SegniImporto kVistaVirgola{{}, {}, true, false};
constexpr SegniImporto kVistoPunto{{}, {}, false, true};
constexpr SegniImporto kVistiTutti{{}, {}, true, true};

const CasoImporto kCasiImporto[] = {
    {"whole", "1234", "1234"},
    {"comma", "1234,50", "1234.5"},
    {"point", "1234.5", "1234.5"},
    {"zero", "0", "0"},
    {"leadingZeros", "000012,50", "12.5"},
    {"noWholePart", ",50", "0.5"},
    {"nothingBehindTheMark", "12,", "none"},
    {"markAlone", ",", "none"},
    {"minus", "-12,00", "-12"},
    {"minusApart", "- 12,00", "-12"},
    {"typographicMinus",
     "\xe2\x88\x92"
     "12,00",
     "-12"},
    {"plus", "+12,00", "12"},
    {"minusBehind", "12,00-", "-12"},
    {"parentheses", "(12,00)", "-12"},
    {"parenthesesWithMinus", "(-12,00)", "none"},
    {"openParenthesis", "(12,00", "none"},
    {"twoSigns", "--12", "none"},
    {"signsAtBothEnds", "-12-", "none"},
    {"euroBefore", "€ 12,00", "12"},
    {"euroBehind", "12,00 €", "12"},
    {"euroAsWord", "EUR 12,00", "12"},
    {"euroWithMinus", "-€ 12,00", "-12"},
    {"minusBehindTheEuro", "€ -12,00", "-12"},
    {"euroInParentheses", "(€ 12,00)", "-12"},
    {"euroAlone", "€", "none"},
    {"euroWithHyphen", "€ -", "hyphen"},
    {"hyphen", "-", "hyphen"},
    {"dollar", "$ 12,00", "currency"},
    {"otherCurrency", "12,00 USD", "currency"},
    {"letterAmongDigits", "199,9O", "none"},
    {"text", "abc", "none"},
    {"empty", "", "none"},
    {"exponent", "1,23457E+10", "none"},
    {"threeDecimals", "1234,567", "1234.57 rounded"},
    {"halfAwayFromZero", "0,125", "0.13 rounded"},
    {"halfAwayFromZeroBelow", "-0,125", "-0.13 rounded"},
    {"noDoubleRounding", "0,00495", "0 rounded"},
    {"eightDecimals", "0,33333333", "0.33 rounded"},
    {"superfluousZeros", "1234,5000", "1234.5"},
    {"greatest", "99999999999,99", "99999999999.99"},
    {"tooGreat", "100000000000", "great"},
    {"tooGreatByRounding", "99999999999,995", "great"},
    {"thousandsNotAllowed", "1.234,56", "thousands"},
    {"englishThousandsNotAllowed", "1,234.56", "thousands"},
    {"apostropheNotAllowed", "1'234,56", "thousands"},
    {"severalGroups", "1.234.567", "thousands"},
    {"threeDigitsBehindAPoint", "1.234", "uncertain"},
    {"threeDigitsBehindAComma", "1,234", "1.23 rounded"},
    {"threeDigitsBehindAPointThatIsDecimal", "1.234", "1.23 rounded", kVistoPunto},
    {"threeDigitsBehindAPointAmongCommas", "1.234", "uncertain", kVistaVirgola},
    {"threeDigitsBehindACommaAmongPoints", "1,234", "uncertain", kVistoPunto},
    {"threeDigitsBehindACommaAmongBoth", "1,234", "uncertain", kVistiTutti},
    {"zeroBeforeThreeDigits", "0.125", "0.13 rounded"},
    {"italianThousands", "1.234,56", "1234.56", kItaliani},
    {"italianThousandsOnly", "1.234", "1234", kItaliani},
    {"italianGroups", "12.345.678,9", "12345678.9", kItaliani},
    {"italianWithoutThousands", "1234,56", "1234.56", kItaliani},
    {"italianWrongGroup", "12.34", "none", kItaliani},
    {"italianGroupTooLong", "1234.567", "none", kItaliani},
    {"italianGroupEmpty", "1..234", "none", kItaliani},
    {"englishThousands", "1,234.56", "1234.56", kInglesi},
    {"swissThousands", "1'234,56", "1234.56", {',', '\'', false, false}},
    {"thousandsGiveTheDecimalMark", "1.234,56", "1234.56", {{}, '.', false, false}},
    {"thousandsGiveTheDecimalPoint", "1,234.56", "1234.56", {{}, ',', false, false}},
    {"declaredCommaAndPoint", "1234.56", "thousands", kVirgola},
    {"declaredComma", "1,234", "1.23 rounded", kVirgola},
};

class ImportoScritto : public testing::TestWithParam<CasoImporto> {};

TEST_P(ImportoScritto, IsReadAsItIsMeant) { EXPECT_EQ(esito(GetParam()), GetParam().atteso); }

INSTANTIATE_TEST_SUITE_P(Importi, ImportoScritto, testing::ValuesIn(kCasiImporto),
                         [](const auto& caso) { return caso.param.nome; });

TEST(ImportiDelFile, DecideWhatAPointMeans) {
  const std::string testa = "CodiceFiscale;Causale;DataPagamento;Onorario\n";
  const std::string riga = "RSSMRA80A01H501U;A;2017-03-05;";
  const Lettura punti = letta(Elenco::Compensi, testa + riga + "1.234\n" + riga + "12.5\n");
  EXPECT_EQ(punti.righe[0].valore(ColonnaCompenso::Onorario).toText(), "1.23");
  EXPECT_EQ(detti(punti), std::vector<std::string>{"f.csv, riga 2, colonna \"Onorario\": 1.234 ha più di due "
                                                   "decimali: arrotondato a 1,23 (V04)."});

  const Lettura virgole = letta(Elenco::Compensi, testa + riga + "1.234\n" + riga + "12,5\n");
  EXPECT_FALSE(virgole.righe[0].ha(ColonnaCompenso::Onorario));
  EXPECT_EQ(detti(virgole),
            std::vector<std::string>{
                "f.csv, riga 2, colonna \"Onorario\": 1.234 non è un importo certo: indicare il "
                "segno dei decimali (--decimal) o delle migliaia (V03)."});
}

}  // namespace
}  // namespace cu::intake
