// What the values of a row become in the cells of record H.
#include <gtest/gtest.h>

#include <map>
#include <optional>
#include <string>

#include "telematic/record_h_prova.h"

namespace cu::record_h {
namespace {

TEST(RecordHAmounts, AreRightAlignedWithACommaAndTwoDecimals) {
  EXPECT_EQ(principale(2016, {{"AmmontareLordo", amount("1234.5")}}).at(90, 24), "AU001004         1234,50");
  EXPECT_EQ(principale(2016, {{"AmmontareLordo", amount("-10")}}).at(90, 24), "AU001004          -10,00");
  EXPECT_EQ(principale(2016, {{"AmmontareLordo", amount("0.05")}}).at(90, 24), "AU001004            0,05");
  EXPECT_EQ(principale(2016, {{"AmmontareLordo", whole(7)}}).at(90, 24), "AU001004            7,00");
}

TEST(RecordHAmounts, AreRoundedHalfAwayFromZero) {
  for (const auto& [valore, cifre] :
       {std::pair("1.005", "1,01"), std::pair("1.0049", "1,00"), std::pair("-1.005", "-1,01"),
        std::pair("2.675", "2,68"), std::pair("0.995", "1,00"), std::pair("999.999", "1000,00")}) {
    EXPECT_EQ(principale(2016, {{"AmmontareLordo", amount(valore)}}).value("AU001004"), importo(cifre))
        << valore;
  }
}

TEST(RecordHAmounts, OnlyExactZeroTakesNoCell) {
  for (const Value& zero : {null(), amount("0"), amount("0.00"), whole(0)}) {
    EXPECT_FALSE(principale(2016, {{"AmmontareLordo", zero}}).has("AU001004"));
  }
  EXPECT_EQ(principale(2016, {{"AmmontareLordo", amount("0.004")}}).value("AU001004"), importo("0,00"));
  EXPECT_EQ(principale(2016, {{"AmmontareLordo", amount("-0.004")}}).value("AU001004"), importo("-0,00"));
}

TEST(RecordHAmounts, AZeroAmountLetsTheCellsBehindItMoveUp) {
  const Contenuti riga = {{"AmmontareLordo", amount("0")}, {"Imponibile", amount("8")}};
  EXPECT_EQ(principale(2016, riga).at(90, 24), "AU001008            8,00");
}

TEST(RecordHAmounts, TheLargestFillsItsSixteenPlaces) {
  EXPECT_EQ(principale(2016, {{"AmmontareLordo", amount("9999999999999.99")}}).value("AU001004"),
            "9999999999999,99");
  EXPECT_EQ(principale(2016, {{"AmmontareLordo", amount("-999999999999.99")}}).value("AU001004"),
            "-999999999999,99");
}

TEST(RecordHAmounts, ALargerOneStopsWithItsPayeeReasonAndField) {
  for (const char* grande : {"10000000000000", "9999999999999.995", "-1000000000000"}) {
    const Scrittura scrittura = scrivi(2016, {{"Anagrafica", text("Rossi")},
                                              {"Nome", text("Mario")},
                                              {"Codice", text("A")},
                                              {"Imponibile", amount(grande)}});
    EXPECT_EQ(scrittura.contenuto, "");
    for (const char* parte : {"AU001008", "Imponibile", "Rossi Mario", "causale: A"}) {
      EXPECT_NE(scrittura.errore.find(parte), std::string::npos) << scrittura.errore;
    }
  }
  const Scrittura somma = scrivi(2016, {{"CodicePerNonSoggetti", text("3")},
                                        {"SommeNonSoggetteARitenuta", amount("900000000000000")},
                                        {"QuotaProvvigioniNonSoggette", amount("900000000000000")}});
  EXPECT_NE(somma.errore.find("AU001007"), std::string::npos) << somma.errore;
  const Scrittura senzaCodice = scrivi(2016, {{"Anno", whole(2016)},
                                              {"SommeNonSoggetteARitenuta", amount("900000000000000")},
                                              {"QuotaProvvigioniNonSoggette", amount("900000000000000")}});
  EXPECT_NE(senzaCodice.errore.find("AU001006"), std::string::npos) << senzaCodice.errore;
}

TEST(RecordHAmounts, AnErrorNamesAPayeeWithoutAFirstNameByItsOneName) {
  const Scrittura scrittura = scrivi(
      2016,
      {{"Anagrafica", text("Alfa srl")}, {"Codice", text("A")}, {"Imponibile", amount("10000000000000")}});
  EXPECT_NE(scrittura.errore.find("Percipiente: Alfa srl, causale: A."), std::string::npos)
      << scrittura.errore;
}

TEST(RecordHAmounts, AModulesErrorNamesThePayeeOfItsCertificate) {
  const Scrittura scrittura = scrivi(2016, {{"Anagrafica", text("Bianchi")}, {"Codice", text("M")}},
                                     Contenuti{{"CodicePerNonSoggetti", text("12345678901234567")}});
  for (const char* parte : {"AU001006", "Bianchi", "causale: M"}) {
    EXPECT_NE(scrittura.errore.find(parte), std::string::npos) << scrittura.errore;
  }
}

TEST(RecordHErrors, ACell76StopsTheRun) {
  // A column of the fund's name alone can pass the end of the record.
  const std::size_t giusto = 16 + 72 * 15;
  Contenuti modulo = {{"AnnoModulo", whole(2010)},
                      {"Anticipazione", whole(1)},
                      {"AltriSoggettiCodiceFiscale", text(std::string(giusto, 'x'))}};
  EXPECT_EQ(test::CurFile(scrivi(2016, {}, modulo).contenuto).line('H').cells().size(), 75U);
  modulo["AltriSoggettiCodiceFiscale"] = text(std::string(giusto + 1, 'x'));
  const Scrittura scrittura = scrivi(2016, {}, modulo);
  EXPECT_EQ(scrittura.contenuto, "");
  EXPECT_NE(scrittura.errore.find("AU001052"), std::string::npos) << scrittura.errore;
}

// Reason, year and advance.

TEST(RecordHReason, AnOrdinaryReasonWithoutAdvanceHasNeitherYearNorSurcharges) {
  Contenuti riga = rigaPiena();
  riga["Codice"] = text("A");
  riga["Anticipazione"] = whole(0);
  const test::CurLine linea = principale(2016, riga);
  for (const char* codice :
       {"AU001002", "AU001003", "AU001012", "AU001013", "AU001014", "AU001015", "AU001016", "AU001017"}) {
    EXPECT_FALSE(linea.has(codice)) << codice;
  }
  EXPECT_EQ(linea.value("AU001001"), "A");
}

TEST(RecordHReason, NHasTheSixSurchargesWhereTheyAreNotZero) {
  Contenuti riga = rigaPiena();
  riga["AddComunImposta"] = amount("0");
  const test::CurLine linea = principale(2016, riga);
  for (const char* codice : {"AU001012", "AU001013", "AU001014", "AU001015", "AU001017"}) {
    EXPECT_TRUE(linea.has(codice)) << codice;
  }
  EXPECT_FALSE(linea.has("AU001016"));
}

TEST(RecordHReason, GHAndIHoldTheYear) {
  for (const char* causale : {"G", "H", "I"}) {
    const test::CurLine linea = principale(2016, {{"Codice", text(causale)}, {"Anno", whole(2016)}});
    EXPECT_EQ(linea.value("AU001002"), importo("2016")) << causale;
  }
}

TEST(RecordHReason, TheTestsAreExact) {
  for (const char* causale : {"g", "n", "G ", "N ", " N", "GG"}) {
    Contenuti riga = rigaPiena();
    riga["Codice"] = text(causale);
    riga["Anticipazione"] = whole(0);
    const test::CurLine linea = principale(2016, riga);
    EXPECT_FALSE(linea.has("AU001002")) << causale;
    EXPECT_FALSE(linea.has("AU001012")) << causale;
  }
  EXPECT_EQ(principale(2016, {{"Codice", text("m ")}}).cells()[0].value, "M               ");
}

TEST(RecordHReason, AnAdvanceHoldsTheYearAndItsFlag) {
  for (const int vero : {1, -1}) {
    const test::CurLine linea =
        principale(2016, {{"Codice", text("A")}, {"Anticipazione", whole(vero)}, {"Anno", whole(2016)}});
    EXPECT_EQ(linea.values(), (Celle{{"AU001001", "A"}, {"AU001002", importo("2016")}, {"AU001003", kUno}}));
  }
}

// The code of the sums not subject to withholding.

TEST(RecordHNotSubject, WithoutACodeTheYearOfTheRowGivesIt) {
  for (const auto& [anno, codice] : {std::pair(2014, "3"), std::pair(2015, "3"), std::pair(2016, "6"),
                                     std::pair(2017, "7"), std::pair(2018, "7")}) {
    for (const Value& vuoto : {null(), text("")}) {
      const test::CurLine linea = principale(2016, {{"Anno", whole(anno)},
                                                    {"CodicePerNonSoggetti", vuoto},
                                                    {"SommeNonSoggetteARitenuta", amount("100")}});
      EXPECT_EQ(linea.value("AU001006"), importo(codice)) << anno;
      EXPECT_EQ(linea.value("AU001007"), importo("100,00"));
    }
  }
}

TEST(RecordHNotSubject, WithoutASumThereIsNeitherCodeNorAmount) {
  for (const auto& [a, b] : {std::pair(null(), null()), std::pair(amount("0"), null()),
                             std::pair(amount("100"), amount("-100"))}) {
    const test::CurLine linea = principale(
        2016, {{"Anno", whole(2016)}, {"SommeNonSoggetteARitenuta", a}, {"QuotaProvvigioniNonSoggette", b}});
    EXPECT_TRUE(linea.cells().empty());
  }
}

TEST(RecordHNotSubject, AChosenCodeStandsAlsoWithoutASum) {
  const test::CurLine linea = principale(2016, {{"Anno", whole(2016)}, {"CodicePerNonSoggetti", text("2")}});
  EXPECT_EQ(linea.values(), (Celle{{"AU001006", importo("2")}}));
}

TEST(RecordHNotSubject, TheAmountIsTheSumOfBothEachNullAsZero) {
  EXPECT_EQ(
      principale(2016, {{"CodicePerNonSoggetti", text("2")}, {"QuotaProvvigioniNonSoggette", amount("5.5")}})
          .value("AU001007"),
      importo("5,50"));
  EXPECT_EQ(principale(2016, {{"CodicePerNonSoggetti", text("2")},
                              {"SommeNonSoggetteARitenuta", amount("0.004")},
                              {"QuotaProvvigioniNonSoggette", amount("0.001")}})
                .value("AU001007"),
            importo("0,01"));
}

TEST(RecordHNotSubject, AFurtherModuleDerivesNoCode) {
  const test::CurLine linea = aggiuntivo(2016, {{"Anno", whole(2016)}, {"SommeNonSoggette", amount("100")}});
  EXPECT_EQ(linea.values(), (Celle{{"AU001007", importo("100,00")}}));
}

// Block C.

TEST(RecordHBlockC, WithoutAnyOfItsFiveAmountsNothingOfItIsWritten) {
  Contenuti riga = rigaPiena();
  for (const char* colonna : {"ContributiCaricoAzienda", "ContributiCaricoPercipiente",
                              "ImportoAltriContributi", "ContributiDovuti", "ContributiVersati"}) {
    riga[colonna] = amount("0");
  }
  for (const int anno : {2015, 2016, 2017}) {
    for (const auto& [codice, valore] : principale(anno, riga).values()) {
      EXPECT_FALSE(codice >= "AU001029" && codice <= "AU001039") << codice;
    }
  }
}

TEST(RecordHBlockC, AnyOneOfTheFiveOpensIt) {
  for (const char* colonna : {"ContributiCaricoAzienda", "ContributiCaricoPercipiente",
                              "ImportoAltriContributi", "ContributiDovuti", "ContributiVersati"}) {
    const Contenuti riga = {{colonna, amount("-0.01")}, {"AltriContributi", whole(1)}};
    EXPECT_EQ(principale(2015, riga).value("AU001036"), kUno) << colonna;
    EXPECT_EQ(aggiuntivo(2016, riga).value("AU001036"), kUno) << colonna;
    EXPECT_TRUE(principale(2014, riga).value("AU001036").empty()) << colonna;
  }
}

TEST(RecordHBlockC, TheFlagOfOtherContributionsAloneIsLost) {
  EXPECT_TRUE(principale(2015, {{"AltriContributi", whole(1)}}).cells().empty());
}

TEST(RecordHBlockC, TheCompanysCodeIsThatOfTheFund) {
  Contenuti riga = rigaPiena();
  riga["IDCUEntePrevidenziale"] = whole(1);
  EXPECT_EQ(principale(2016, riga).value("AU001032"), "enpam");
  riga["IDCUEntePrevidenziale"] = whole(2);
  EXPECT_EQ(principale(2016, riga).value("AU001032"), "enpapi");
  riga["CodiceAzPressoENPAPI"] = null();
  EXPECT_FALSE(principale(2016, riga).has("AU001032"));
}

TEST(RecordHBlockC, AnyOtherFundRepeatsTheTextOfTheRowBefore) {
  for (const Value& altro : {null(), whole(0), whole(3), whole(-1)}) {
    Contenuti riga = rigaPiena();
    riga["IDCUEntePrevidenziale"] = altro;
    riga["CUDenominazioneEntePrevidenziale"] = text("Cassa Forense");
    riga["CUCodiceEntePrevidenziale"] = text("12");
    EXPECT_EQ(principale(2015, riga).value("AU001032"), "12");
    EXPECT_EQ(principale(2016, riga).value("AU001032"), "Cassa Forense");
    EXPECT_EQ(principale(2017, riga).value("AU001032"), "Cassa Forense");
  }
}

TEST(RecordHBlockC, AFurtherModuleAlwaysRepeatsTheFundsName) {
  const Contenuti modulo = {{"ContributiDovuti", amount("1")},
                            {"CUDenominazioneEntePrevidenziale", text("Cassa Forense")},
                            {"CUCodiceEntePrevidenziale", text("12")}};
  EXPECT_EQ(aggiuntivo(2015, modulo).values(), (Celle{{"AU001030", "Cassa Forense"},
                                                      {"AU001031", "12"},
                                                      {"AU001032", "Cassa Forense"},
                                                      {"AU001038", importo("1,00")}}));
  EXPECT_EQ(
      aggiuntivo(2016, modulo).values(),
      (Celle{{"AU001030", "Cassa Forense"}, {"AU001032", "Cassa Forense"}, {"AU001038", importo("1,00")}}));
}

TEST(RecordHBlockC, AFundsNameOfThirtyCharactersTakesTwoCells) {
  const std::string nome = "Ente Nazionale di Previdenza X";
  ASSERT_EQ(nome.size(), 30U);
  const auto celle = principale(2016, {{"ContributiDovuti", amount("1")},
                                       {"CUDenominazioneEntePrevidenziale", text(nome)},
                                       {"IDCUEntePrevidenziale", whole(1)}})
                         .cells();
  ASSERT_EQ(celle.size(), 3U);
  EXPECT_EQ(celle[0], (test::CurCell{"AU001030", "Ente Nazionale d"}));
  EXPECT_EQ(celle[1], (test::CurCell{"AU001030", "+i Previdenza X "}));
}

// Modules.

TEST(RecordHModules, AFurtherModuleHasTheFrameOfItsCertificateAndNoReason) {
  const test::CurLine linea =
      test::CurFile(scrivi(2016, rigaPiena(), Contenuti{{"AnnoModulo", whole(2012)}}, 3, 4).contenuto)
          .line('H');
  EXPECT_EQ(linea.at(18, 8), "00000004");
  EXPECT_EQ(linea.at(26, 16), "RSSMRA80B01L781X");
  EXPECT_EQ(linea.at(42, 5), "00003");
  EXPECT_EQ(linea.values(), (Celle{{"AU001002", importo("2012")}}));
}

TEST(RecordHModules, AYearOfZeroIsWrittenAndANullOneIsNot) {
  EXPECT_EQ(aggiuntivo(2016, {{"AnnoModulo", whole(0)}}).values(), (Celle{{"AU001002", importo("0")}}));
  EXPECT_TRUE(aggiuntivo(2016, {{"AnnoModulo", null()}}).cells().empty());
}

TEST(RecordHModules, ABlankCodeTakesACellOfBlanksAndAnEmptyOneNone) {
  EXPECT_EQ(aggiuntivo(2016, {{"CodicePerNonSoggetti", text(" ")}}).cells(),
            (std::vector<test::CurCell>{{"AU001006", std::string(16, ' ')}}));
  EXPECT_TRUE(aggiuntivo(2016, {{"CodicePerNonSoggetti", text("")}}).cells().empty());
}

TEST(RecordHModules, OneAfterTheOtherShowNothingOfEachOther) {
  test::Prova prova(2016);
  const test::Righe principali(test::rispostaPrincipale({rigaPiena()}));
  const test::Righe moduli(test::rispostaModuli({pieno(test::formaH(false)), {}}));
  CUFileSeq file(prova.ambiente());
  file.setFilePathName("/prova.cur");
  ASSERT_TRUE(file.OpenFile());
  file.legaQueryPrincipale(principali.colonne());
  file.legaQueryModuli(moduli.colonne());
  file.WriteRecordTipoH(principali[0], 1, 1, "01234567890", nullptr);
  file.WriteRecordTipoH(principali[0], 1, 2, "01234567890", moduli[0]);
  file.WriteRecordTipoH(principali[0], 1, 3, "01234567890", moduli[1]);
  const test::CurFile letto(prova.files.files.at("/prova.cur"));
  EXPECT_GT(letto.line('H', 1).cells().size(), 50U);
  EXPECT_GT(letto.line('H', 2).cells().size(), 40U);
  EXPECT_TRUE(letto.line('H', 3).cells().empty());
  EXPECT_EQ(file.NumRecH(), 3);
}

}  // namespace
}  // namespace cu::record_h
