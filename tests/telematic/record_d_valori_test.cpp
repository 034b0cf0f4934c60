// What the values of a row become in record D.
#include <gtest/gtest.h>

#include <map>
#include <string>

#include "telematic/record_d_prova.h"

namespace cu::record_d {
namespace {

TEST(RecordDCells, AOneCharacterValueStandsBehindItsCode) {
  const test::CurLine riga = linea(2016, {{"Sesso", text("M")}});
  EXPECT_EQ(riga.at(90, 24), "DA002004M               ");
}

TEST(RecordDCells, SixteenCharactersTakeOneCellSeventeenTwo) {
  const auto celle = [](std::size_t lunghezza) {
    std::string valore;
    for (std::size_t i = 0; i < lunghezza; ++i) valore += static_cast<char>('A' + i % 26);
    return linea(2016, {{"Anagrafica", text(valore)}}).cells();
  };
  EXPECT_EQ(celle(16).size(), 2U + 1U);
  EXPECT_EQ(celle(16)[0].value, "ABCDEFGHIJKLMNOP");
  EXPECT_EQ(celle(17).size(), 2U + 2U);
  EXPECT_EQ(celle(17)[1].code, "DA002002");
  EXPECT_EQ(celle(17)[1].value, "+Q              ");
  EXPECT_EQ(celle(31).size(), 2U + 2U);
  EXPECT_EQ(celle(31)[1].value, "+QRSTUVWXYZABCDE");
  EXPECT_EQ(celle(32).size(), 2U + 3U);
  EXPECT_EQ(celle(32)[2].value, "+F              ");
}

TEST(RecordDCells, ANameOfFortyCharactersTakesThreeCells) {
  const std::string nome = "ASSOCIAZIONE PROFESSIONALE ROSSI E BIANC";
  ASSERT_EQ(nome.size(), 40U);
  const auto celle = linea(2016, {{"Anagrafica", text(nome)}}).cells();
  ASSERT_EQ(celle.size(), 5U);
  EXPECT_EQ(celle[0], (test::CurCell{"DA002002", "ASSOCIAZIONE PRO"}));
  EXPECT_EQ(celle[1], (test::CurCell{"DA002002", "+FESSIONALE ROSS"}));
  EXPECT_EQ(celle[2], (test::CurCell{"DA002002", "+I E BIANC      "}));
}

TEST(RecordDCells, ADateOfBirthIsRightAligned) {
  const auto celle = linea(2016, {{"DataNascita", day(1980, 2, 1)}}).cells();
  EXPECT_EQ(celle[0], (test::CurCell{"DA002005", "        01021980"}));
}

TEST(RecordDCells, ADateThatReachesUsAsTextIsReadAndAnyOtherTextStands) {
  for (const char* testo : {"1980-02-01", "1980-02-01 00:00:00", "19800201", "01/02/1980"}) {
    EXPECT_EQ(linea(2016, {{"DataNascita", text(testo)}}).value("DA002005"), "        01021980") << testo;
  }
  EXPECT_EQ(linea(2016, {{"DataNascita", text("ignota")}}).value("DA002005"), "          ignota");
  for (const Value& vuota : {null(), text("")}) {
    EXPECT_FALSE(linea(2016, {{"DataNascita", vuota}}).has("DA002005"));
  }
}

TEST(RecordDCells, ANumberWhereATextIsUsualIsItsDigits) {
  const test::CurLine riga = linea(2016, {{"CodiceFiscale", whole(1234567890)}, {"CapAz", whole(37121)}});
  EXPECT_EQ(riga.at(26, 16), "1234567890      ");
  EXPECT_EQ(riga.value("DA002001"), "1234567890");
  EXPECT_EQ(riga.value("DA001006"), "37121");
}

TEST(RecordDCells, APayeeWhoIsNoNaturalPersonHasNoFirstName) {
  for (const Value& falso : {null(), whole(0)}) {
    EXPECT_FALSE(linea(2016, {{"Nome", text("Mario")}, {"PersonaFisica", falso}}).has("DA002003"));
  }
  for (const int vero : {1, -1}) {
    EXPECT_EQ(linea(2016, {{"Nome", text("Mario")}, {"PersonaFisica", whole(vero)}}).value("DA002003"),
              "MARIO");
  }
}

TEST(RecordDCells, ResidenceAndMergerMoveWithTheYear) {
  const Contenuti riga = {{"ComuneResidenzaAnnoCorr", text("Padova")},
                          {"FusioneComuni", text("C")},
                          {"FusioneComuniAnnoPrec", text("P")}};
  EXPECT_EQ(linea(2016, riga).value("DA002023"), "Padova");
  EXPECT_EQ(linea(2016, riga).value("DA002026"), "C");
  EXPECT_EQ(linea(2017, riga).value("DA002023"), "P");
  EXPECT_EQ(linea(2017, riga).value("DA002024"), "Padova");
  EXPECT_EQ(linea(2017, riga).value("DA002027"), "C");
  EXPECT_FALSE(linea(2015, riga).has("DA002026"));
  EXPECT_EQ(linea(2015, riga).values().size(), 3U);
}

TEST(RecordDCells, ASignatureOfZeroIsTodayAndAnyOtherDayStands) {
  EXPECT_EQ(linea(2016, {}, 1, Date()).value("DA003001"), "        05032017");
  EXPECT_EQ(linea(2016, {}, 1, Date::fromSerial(-1)).value("DA003001"), "        29121899");
  EXPECT_EQ(linea(2016, {}, 1, Date::fromSerial(1)).value("DA003001"), "        31121899");
}

TEST(RecordDCells, TheDeclarationIsInEveryRecord) {
  for (int anno = 2010; anno <= 2020; ++anno) {
    EXPECT_EQ(linea(anno, {}).value("DA003002"), "               1") << anno;
  }
}

TEST(RecordDCells, TheSecondCertificateShowsNothingOfTheFirst) {
  Contenuti lungo = percipiente();
  lungo["Anagrafica"] = text(std::string(200, 'x'));
  const test::CurFile letto(scrivi(2016, {lungo, {{"Sesso", text("F")}}, lungo, {}}));
  EXPECT_EQ(letto.line('D', 2).cells().size(), 3U);
  EXPECT_EQ(letto.line('D', 2).at(90, 24), "DA002004F               ");
  EXPECT_EQ(letto.line('D', 2).at(26, 16), std::string(16, ' '));
  EXPECT_EQ(letto.line('D', 3).cells(), letto.line('D', 1).cells());
  EXPECT_EQ(letto.line('D', 4).cells().size(), 2U);
}

TEST(RecordDCells, BeforeTheFormOf2014ANonResidentHasNoCountryCode) {
  Contenuti riga = percipiente();
  EXPECT_FALSE(linea(2013, riga).has("DA002043"));
  EXPECT_FALSE(linea(2013, riga).has("DA002044"));
  EXPECT_TRUE(linea(2013, riga).has("DA002042"));
}

TEST(RecordDCells, AResidentHasNoneOfTheForeignersRows) {
  for (const Value& falso : {null(), whole(0)}) {
    Contenuti riga = percipiente();
    riga["NonResidente"] = falso;
    for (int anno = 2013; anno <= 2018; ++anno) {
      for (const char* codice : {"DA002040", "DA002041", "DA002042", "DA002043", "DA002044"}) {
        EXPECT_FALSE(linea(anno, riga).has(codice)) << anno << codice;
      }
    }
  }
}

TEST(RecordDCells, TheYearOfTheRowPlaysNoPart) {
  Contenuti riga = percipiente();
  riga["Anno"] = whole(2014);
  EXPECT_EQ(linea(2017, riga).values(), linea(2017, percipiente()).values());
}

TEST(RecordDCells, BlanksAreKeptAndABlankSourceTakesACell) {
  EXPECT_EQ(linea(2016, {{"ComuneAz", text(" Verona ")}}).cells()[0].value, " Verona         ");
  EXPECT_EQ(linea(2016, {{"ComuneAz", text(" ")}}).cells()[0],
            (test::CurCell{"DA001004", std::string(16, ' ')}));
  EXPECT_EQ(linea(2016, {{"CodiceEventoEccezionale", text("  ")}}).cells()[0],
            (test::CurCell{"DA002009", std::string(16, ' ')}));
  EXPECT_FALSE(linea(2016, {{"CodiceEventoEccezionale", text("")}}).has("DA002009"));
  EXPECT_FALSE(
      linea(2016, {{"NonResidente", whole(1)}, {"PrefissoInternazionaleRes", text("  ")}}).has("DA002044"));
}

TEST(RecordDPhone, IsCleanedWholeAndMayBeLongerThanTwelve) {
  EXPECT_EQ(linea(2016, {{"TelefonoAz", text("+39 (045) 12-34.567/8\\9")}}).value("DA001008"),
            "39045123456789");
  EXPECT_EQ(linea(2016, {{"TelefonoAz", text("045 1234567890123456")}}).value("DA001008"),
            "0451234567890123456");
}

TEST(RecordDPhone, WhatIsNoNumberGivesWayToTheCleanedFax) {
  for (const char* telefono : {"", "045 int. 3", "ufficio", " -/"}) {
    const Contenuti riga = {{"TelefonoAz", text(telefono)}, {"FaxAz", text("(045) 7-65.4")}};
    EXPECT_EQ(linea(2016, riga).value("DA001008"), "0457654") << telefono;
  }
  EXPECT_EQ(linea(2016, {{"FaxAz", text("chiedere")}}).value("DA001008"), "chiedere");
  EXPECT_FALSE(linea(2016, {{"TelefonoAz", text("chiedere")}}).has("DA001008"));
}

TEST(RecordDFrame, TheModuleIsAlwaysTheFirstAndTheCertificatesGoOn) {
  const test::CurFile letto(scrivi(2016, {{}, {}, {}}));
  for (std::size_t n = 1; n <= 3; ++n) {
    EXPECT_EQ(letto.line('D', n).at(18, 8), "00000001");
    EXPECT_EQ(letto.line('D', n).at(42, 5), "0000" + std::to_string(n));
  }
}

TEST(RecordDFrame, ACertificateBeyondFiveFiguresLosesItsLastOnes) {
  test::Prova prova(2016);
  const test::Righe righe(test::rispostaPrincipale({{}}));
  CUFileSeq file(prova.ambiente());
  file.setFilePathName("/prova.cur");
  ASSERT_TRUE(file.OpenFile());
  file.legaQueryPrincipale(righe.colonne());
  file.WriteRecordTipoD(righe[0], 123456, "x", Comunicazione::Ordinaria, kFirma);
  EXPECT_EQ(test::CurFile(prova.files.files.at("/prova.cur")).line('D').at(42, 5), "12345");
}

TEST(RecordDFrame, AnOrdinarySupplyHasZerosWhateverTheReferencesHold) {
  const test::CurLine riga = linea(2016, percipiente(), 1);
  EXPECT_EQ(riga.at(47, 17), std::string(17, '0'));
  EXPECT_EQ(riga.at(64, 6), "000000");
  EXPECT_EQ(riga.at(84, 1), " ");
}

TEST(RecordDFrame, AnEmptyProtocolOfAnAnnulmentGivesZeros) {
  for (const Value& vuoto : {null(), text("")}) {
    const test::CurLine riga = linea(2016, {{"ProtocolloAnnSost", vuoto}, {"ProgressivoAnnSost", vuoto}}, 2);
    EXPECT_EQ(riga.at(47, 17), std::string(17, '0'));
    EXPECT_EQ(riga.at(64, 6), "000000");
    EXPECT_EQ(riga.at(84, 1), "A");
  }
}

TEST(RecordDFrame, TheProtocolKeepsItsFirstSeventeenFiguresAndIsFilled) {
  const auto protocollo = [](const char* valore) {
    return linea(2016, {{"ProtocolloAnnSost", text(valore)}}, 3).at(47, 17);
  };
  EXPECT_EQ(protocollo("12345"), "00000000000012345");
  EXPECT_EQ(protocollo("98765432109876543"), "98765432109876543");
  EXPECT_EQ(protocollo("987654321098765432"), "98765432109876543");
  EXPECT_EQ(protocollo("T12"), "              T12");
  EXPECT_EQ(linea(2016, {{"ProgressivoAnnSost", text("1234567")}}, 3).at(64, 6), "123456");
}

TEST(RecordDFrame, AReplacementIsMarkedS) { EXPECT_EQ(linea(2016, percipiente(), 3).at(84, 1), "S"); }

TEST(RecordDErrors, ACodeTooLongToAlignStopsWithItsPayeeReasonAndField) {
  Contenuti riga = {{"Anagrafica", text("Rossi")},
                    {"Nome", text("Niccolò")},
                    {"Codice", text("A")},
                    {"CodiceEventoEccezionale", text("12345678901234567")}};
  const std::string testo = errore(2016, riga);
  for (const char* parte : {"DA002009", "CodiceEventoEccezionale", "Rossi Niccolò", "causale: A", "16"}) {
    EXPECT_NE(testo.find(parte), std::string::npos) << testo;
  }
  riga["CodiceEventoEccezionale"] = text("1234567890123456");
  EXPECT_EQ(errore(2016, riga), "");
  riga["NonResidente"] = whole(1);
  riga["PrefissoInternazionaleRes"] = text("  1234567890123456 ");
  EXPECT_EQ(errore(2016, riga), "");
  riga["PrefissoInternazionaleRes"] = text("12345678901234567");
  EXPECT_NE(errore(2016, riga).find("DA002044"), std::string::npos);
}

TEST(RecordDErrors, ACell76StopsWithItsPayeeReasonAndField) {
  // Two cells belong to the signature: 73 are left for the name.
  const std::size_t giusto = 16 + 72 * 15;
  Contenuti riga = {{"Codice", text("M")}, {"Anagrafica", text(std::string(giusto, 'x'))}};
  EXPECT_EQ(errore(2016, riga), "");
  riga["Anagrafica"] = text(std::string(giusto + 1, 'x'));
  std::string testo = errore(2016, riga);
  for (const char* parte : {"75", "DA003002", "causale: M", "xxx"}) {
    EXPECT_NE(testo.find(parte), std::string::npos) << testo;
  }
  riga["Anagrafica"] = text(std::string(4000, 'x'));
  testo = errore(2016, riga);
  EXPECT_NE(testo.find("DA002002"), std::string::npos) << testo;
}

}  // namespace
}  // namespace cu::record_d
