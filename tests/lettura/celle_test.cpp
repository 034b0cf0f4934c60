#include <gtest/gtest.h>

#include "lettura/caselle.h"
#include "lettura/lettura_prova.h"
#include "liste/liste.h"

namespace cu::lettura::prova {
namespace {

// Lines: 1 A, 2 B, 3 D, 4 H, 5 H of the second module, 6 Z.
FileDiProva dueModuli(const std::string& codice = "CUR18") {
  FileDiProva file(codice);
  file.certificato().modulo({{"AU001002", amount("2015")}, {"AU001003", amount("1")}});
  return file.fine();
}

// Cells appended to the first module.
FileDiProva conInDueModuli(const std::vector<std::pair<std::string, std::string>>& celle,
                           const std::string& codice = "CUR18") {
  FileDiProva file = dueModuli(codice);
  FileDiProva::celle(file.righe[3], celle);
  return file;
}

TEST(K01, ACodeThatTheYearHasNot) {
  for (const char* codice : {"AU001099", "AU001040", "DA002001", "AU00104X", "au001041", "        "}) {
    FileDiProva file = conInDueModuli({{codice, "1"}});
    EXPECT_EQ(elenco(file.esamina()), di("K01", 4, file, codice)) << codice;
  }
  FileDiProva file = conInDueModuli({{"AU001031", "X"}}, "CUR17");
  EXPECT_EQ(elenco(file.esamina()), di("K01", 4, file, "AU001031"));
  file = conInDueModuli({{"AU001023", amount("1,00")}}, "CUR16");
  EXPECT_EQ(elenco(file.esamina()), di("K01", 4, file, "AU001023"));
  file = dueModuli("CUR16");
  FileDiProva::celle(file.righe[2], {{"DA002027", "X"}});
  EXPECT_EQ(elenco(file.esamina()), di("K01", 3, file, "DA002027"));
}

TEST(K01, TheContinuationsOfAnUnknownCodeAreNotReportedAgain) {
  FileDiProva file = conInDueModuli({{"AU001099", "ABCDEFGHIJKLMNOP"}, {"AU001099", "+QRS"}});
  EXPECT_EQ(elenco(file.esamina()), di("K01", 4, file, "AU001099"));
}

TEST(K01, TheSeatOfTheAgentIsOfTheForm) {
  FileDiProva file = dueModuli();
  file.togli(3, "DA003001").togli(3, "DA003002");
  const std::size_t posto = file.posto(3, "DA002001");
  std::string& d = file.righe[2];
  d.insert(posto - 1, "DA001011001             ");
  d.erase(1889, 24);
  EXPECT_EQ(elenco(file.esamina()), Elenco{});
}

TEST(K02, CodesOutOfOrderOrTwice) {
  FileDiProva file = conInDueModuli({{"AU001005", amount("0,00")}});
  EXPECT_EQ(elenco(file.esamina()), di("K02", 4, file, "AU001005"));
  file = conInDueModuli({{"AU001009", amount("200,00")}});
  EXPECT_EQ(elenco(file.esamina()), (Elenco{"K02 4:" + std::to_string(file.posto(4, "AU001009") + 24)}));
  file = conInDueModuli(
      {{"AU001052", "04123450233"}, {"AU001041", amount("0,00")}, {"AU001053", amount("1,00")}});
  EXPECT_EQ(elenco(file.esamina()), di("K02", 4, file, "AU001041"));
}

struct Sbagliato {
  const char* codice;
  std::string valore;
};

TEST(K03, ValuesOfTheWrongKind) {
  const std::vector<Sbagliato> sbagliati = {
      {"AU001020", amount("12.50")},
      {"AU001020", "12,50"},
      {"AU001020", amount("12,5")},
      {"AU001020", amount("-12,50")},
      {"AU001020", amount("1 2,50")},
      {"AU001020", amount("1250")},
      {"AU001020", amount("1.012,50")},
      {"AU001020", amount(",50")},
      {"AU001020", amount("12,50A")},
      {"AU001029", "8001511058"},
      {"AU001029", "80015110580A"},
      {"AU001029", " 80015110580"},
      {"AU001036", "1"},
      {"AU001036", amount("X")},
      {"AU001036", amount("2")},
      {"AU001037", "5,00"},
      {"AU001037", amount("+5,00")},
      {"AU001052", "RSSMRC71C08L78"},
      {"AU001052", "rssmrc71c08l781i"},
      {"AU001052", "RSSMRC71I08L781I"},
      {"AU001052", "RSSMRC71C32L781I"},
  };
  for (const Sbagliato& sbagliato : sbagliati) {
    FileDiProva file = conInDueModuli({{sbagliato.codice, sbagliato.valore}});
    EXPECT_EQ(elenco(file.esamina()), di("K03", 4, file, sbagliato.codice)) << sbagliato.valore;
  }
}

TEST(K03, NumbersDatesAndProvincesOfTheWrongKind) {
  const std::vector<std::pair<std::size_t, Sbagliato>> sbagliati = {
      {4, {"AU001006", "7"}},
      {4, {"AU001006", amount("A")}},
      {5, {"AU001002", "2015"}},
      {3, {"DA002005", "08031971"}},
      {3, {"DA002005", amount("30021971")}},
      {3, {"DA002005", amount("080371")}},
      {3, {"DA002007", "Vr"}},
      {3, {"DA002007", "V"}},
      {3, {"DA002007", "VER"}},
      {3, {"DA002007", " VR"}},
      {3, {"DA002007", "XX"}},
      {3, {"DA001005", "EE"}},
      {3, {"DA001005", "1A"}},
      {3, {"DA003001", "05032018"}},
      {3, {"DA003002", "1"}},
  };
  for (const auto& [riga, sbagliato] : sbagliati) {
    FileDiProva file = dueModuli();
    file.valore(riga, sbagliato.codice, sbagliato.valore);
    EXPECT_EQ(elenco(file.esamina()), di("K03", riga, file, sbagliato.codice)) << sbagliato.valore;
  }
}

TEST(K03, TheSignsOfProvincesNowAndBefore) {
  for (const ComuneInLista& comune : comuni()) EXPECT_TRUE(provincia(comune.provincia)) << comune.provincia;
  for (const char* sigla : {"EE", "FU", "PL", "ZA", "FO", "PS", "OT", "MB"}) {
    EXPECT_EQ(elenco(dueModuli().valore(3, "DA002007", sigla).esamina()), Elenco{}) << sigla;
  }
  for (const char* sigla : {"", "V", "VRX", "R ", " R", "vr", "EE", "ZZ"})
    EXPECT_FALSE(provincia(sigla)) << sigla;
}

TEST(K03, AnAmountHasNoContinuation) {
  FileDiProva file = conInDueModuli({{"AU001020", amount("1,00")}, {"AU001020", "+00"}});
  EXPECT_EQ(elenco(file.esamina()), di("K03", 4, file, "AU001020"));
}

TEST(K03, TheBoxesOfTwoYearsHaveTheirOwnKinds) {
  EXPECT_EQ(
      elenco(conInDueModuli({{"AU001102", amount("5,00")}, {"AU001104", amount("1")}}, "CUR16").esamina()),
      Elenco{});
  EXPECT_EQ(
      elenco(conInDueModuli({{"AU001102", amount("5,00")}, {"AU001104", amount("5,00")}}, "CUR17").esamina()),
      Elenco{});
  FileDiProva file = conInDueModuli({{"AU001104", amount("1")}}, "CUR17");
  EXPECT_EQ(elenco(file.esamina()), di("K03", 4, file, "AU001104"));
}

TEST(K03, AmountsWithASignWhereTheFormLeavesRoomForOne) {
  EXPECT_EQ(elenco(conInDueModuli({{"AU001037", amount("-5,00")}, {"AU001039", amount("-0,01")}}).esamina()),
            Elenco{});
}

TEST(K04, AWrongLastCharacter) {
  FileDiProva file = conInDueModuli({{"AU001052", "RSSMRC71C08L781Z"}});
  EXPECT_EQ(elenco(file.esamina()), di("K04", 4, file, "AU001052"));
  EXPECT_EQ(file.esamina().rilievi.errori(), 0U);
  file = conInDueModuli({{"AU001052", "00743110158"}});
  EXPECT_EQ(elenco(file.esamina()), di("K04", 4, file, "AU001052"));
  EXPECT_EQ(elenco(conInDueModuli({{"AU001052", "RSSMRA45C12F2L5N"}}).esamina()), Elenco{});
}

TEST(K05, AContinuationWithoutItsBeginning) {
  FileDiProva file = conInDueModuli({{"AU001030", "+ENTE"}});
  EXPECT_EQ(elenco(file.esamina()), di("K05", 4, file, "AU001030"));
  file = dueModuli();
  FileDiProva::celle(file.righe[3],
                     {{"AU001029", "80015110580"}, {"AU001030", "ABCDEFGHIJKLMNOP"}, {"AU001032", "+QRS"}});
  EXPECT_EQ(elenco(file.esamina()), di("K05", 4, file, "AU001032"));
}

TEST(K06, CellsWithoutAValueAndGaps) {
  FileDiProva file = conInDueModuli({{"AU001041", ""}, {"AU001042", amount("1,00")}});
  EXPECT_EQ(elenco(file.esamina()), di("K06", 4, file, "AU001041"));
  file = conInDueModuli({{"AU001041", amount("1,00")}, {"AU001042", amount("1,00")}});
  const std::size_t posto = file.posto(4, "AU001041");
  file.metti(4, posto, std::string(24, ' '));
  EXPECT_EQ(elenco(file.esamina()), Elenco{"K06 4:" + std::to_string(posto)});
  file = dueModuli();
  file.metti(4, 1866, "AU001138" + amount("1,00"));
  EXPECT_EQ(elenco(file.esamina()), (Elenco{"K06 4:234", "C03 4:1866"}));
}

TEST(K07, WhatEveryCertificateHas) {
  for (const char* codice : {"DA002001", "DA002002", "DA001001"}) {
    FileDiProva file = dueModuli();
    const std::size_t posto = file.posto(3, codice);
    file.togli(3, codice);
    EXPECT_EQ(elenco(file.esamina()), Elenco{"K07 3:" + std::to_string(posto)}) << codice;
  }
  FileDiProva file = dueModuli();
  file.togli(4, "AU001001");
  EXPECT_EQ(elenco(file.esamina()), Elenco{"K07 4:90"});
}

TEST(K07, GarnishmentsAloneHaveNoReason) {
  FileDiProva file;
  file.certificato();
  file.righe.pop_back();
  file.modulo({{"AU001072", "04123450233"}, {"AU001101", "RSSMRC71C08L781I"}, {"AU001102", amount("10,00")}})
      .fine();
  EXPECT_EQ(elenco(file.esamina()), Elenco{});
  file.valore(4, "AU001072", "").metti(4, 90, "AU001041" + amount("9,00"));
  EXPECT_EQ(elenco(file.esamina()), Elenco{"K07 4:90"});
}

TEST(K07, ACertificateWithoutModules) {
  FileDiProva file;
  file.certificato().certificato();
  file.righe.erase(file.righe.begin() + 3);
  EXPECT_EQ(elenco(file.fine().esamina()), Elenco{"K07 3:1"});
}

TEST(K08, CellsThatExcludeOthers) {
  FileDiProva file = conInDueModuli(
      {{"AU001102", amount("9,00")}, {"AU001103", amount("1,00")}, {"AU001104", amount("2,00")}});
  EXPECT_EQ(elenco(file.esamina()), di("K08", 4, file, "AU001104"));
  file = conInDueModuli(
      {{"AU001106", amount("9,00")}, {"AU001107", amount("1,00")}, {"AU001108", amount("2,00")}});
  EXPECT_EQ(elenco(file.esamina()), di("K08", 4, file, "AU001108"));
  for (int numero = 12; numero <= 17; ++numero) {
    const std::string codice = "AU0010" + std::to_string(numero);
    file = conInDueModuli({{codice, amount("1,00")}});
    EXPECT_EQ(elenco(file.esamina()), di("K08", 4, file, codice));
    EXPECT_EQ(elenco(file.valore(4, "AU001001", "N").esamina()), Elenco{});
  }
}

TEST(K08, TheBoxesOfTheFirstModuleInAnother) {
  for (const char* codice : {"AU001004", "AU001020", "AU001041", "AU001071"}) {
    FileDiProva file = dueModuli();
    FileDiProva::celle(file.righe[4],
                       {{codice, std::string(codice) == "AU001071" ? "04123450233" : amount("0,00")}});
    EXPECT_EQ(elenco(file.esamina()), di("K08", 5, file, codice)) << codice;
  }
}

TEST(K08, NameSexAndBirthOfAFirm) {
  for (const auto& [codice, valore] :
       std::vector<std::pair<std::string, std::string>>{{"DA002003", "MARCO"},
                                                        {"DA002004", "M"},
                                                        {"DA002005", amount("08031971")},
                                                        {"DA002006", "Verona"},
                                                        {"DA002007", "VR"}}) {
    FileDiProva file;
    file.certificato("00743110157").fine();
    file.togli(3, "DA003001").togli(3, "DA003002");
    FileDiProva::celle(file.righe[2], {{codice, valore}});
    EXPECT_EQ(elenco(file.esamina()), di("K08", 3, file, codice));
  }
}

TEST(Continuazioni, AreJoined) {
  struct Raccolta : Ascoltatore {
    void certificato(const Certificato& certificato) override { nomi.push_back(certificato.nome); }
    std::vector<std::string> nomi;
  } raccolta;
  FileDiProva file;
  file.certificato("00743110157").fine();
  file.togli(3, "DA003001").togli(3, "DA003002").togli(3, "DA002002");
  FileDiProva::celle(
      file.righe[2],
      {{"DA002002", "SOCIET\xC0 AGRICOLA"}, {"DA002002", "+ VALPOLICELLA S"}, {"DA002002", "+.R.L."}});
  EXPECT_EQ(elenco(file.esamina(&raccolta)), Elenco{});
  EXPECT_EQ(raccolta.nomi, Elenco{"SOCIETÀ AGRICOLA VALPOLICELLA S.R.L."});
}

TEST(Causali, OfEachYear) {
  for (const char* causale : {"A", "B",  "C", "D", "E", "F", "G", "H", "I", "L",  "L1", "M", "M1", "M2", "N",
                              "O", "O1", "P", "Q", "R", "S", "T", "U", "V", "V1", "W",  "X", "Y",  "ZO"}) {
    for (int anno = 2014; anno <= 2021; ++anno)
      EXPECT_TRUE(causaleDellAnno(causale, anno)) << causale << anno;
  }
  for (const char* causale : {"J", "K", "V2"}) {
    EXPECT_FALSE(causaleDellAnno(causale, 2017)) << causale;
    EXPECT_TRUE(causaleDellAnno(causale, 2021)) << causale;
  }
  EXPECT_TRUE(causaleDellAnno("Z", 2016));
  EXPECT_FALSE(causaleDellAnno("Z", 2017));
  EXPECT_TRUE(causaleDellAnno("N1", 2023));
  EXPECT_FALSE(causaleDellAnno("N1", 2017));
  EXPECT_FALSE(causaleDellAnno("N1", 2024));
  EXPECT_FALSE(causaleDellAnno("a", 2017));
  EXPECT_FALSE(causaleDellAnno("", 2017));
}

}  // namespace
}  // namespace cu::lettura::prova
