// Files in the forms from CU 2021 on: each damage is found, and nothing else.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "lettura/caselle.h"
#include "lettura/lettura_prova.h"

namespace cu::lettura::prova {
namespace {

using ::testing::HasSubstr;

// A certificate of the year with a code that it knows.
FileDiProva pubblicato(const std::string& fornitura, const std::string& codice = "21") {
  FileDiProva file(fornitura, true);
  file.certificato().fine();
  file.valore(4, "AU001006", std::string(16 - codice.size(), ' ') + codice);
  return file;
}

TEST(PublishedForms, AreReadAsTheyAre) {
  EXPECT_EQ(elenco(pubblicato("CUR21", "12").esamina()), Elenco{});
  for (const char* fornitura : {"CUR22", "CUR23", "CUR24", "CUR25", "CUR26"}) {
    EXPECT_EQ(elenco(pubblicato(fornitura).esamina()), Elenco{}) << fornitura;
  }
}

// The other form of the same years, in which this program has written since before.
TEST(PublishedForms, AreToldFromTheFixedOne) {
  for (const char* fornitura : {"CUR20", "CUR21", "CUR22", "CUR26"}) {
    FileDiProva file(fornitura);
    file.certificato().fine();
    EXPECT_EQ(elenco(file.esamina()), Elenco{}) << fornitura;
  }
}

TEST(PublishedForms, HaveAnEventOfTwoDigits) {
  FileDiProva file = pubblicato("CUR22");
  for (const char* evento : {"00", " 0", "  ", "15", " 1"}) {
    EXPECT_EQ(elenco(file.metti(2, 309, evento).esamina()), Elenco{}) << evento;
  }
  EXPECT_EQ(elenco(file.metti(2, 309, "1 ").esamina()), Elenco{"F01 2:309"});
  EXPECT_EQ(elenco(file.metti(2, 309, "A0").esamina()), Elenco{"F01 2:309"});
}

TEST(PublishedForms, HaveAFlagOfSpecialCases) {
  FileDiProva file = pubblicato("CUR22");
  EXPECT_EQ(elenco(file.metti(2, 527, "1").esamina()), Elenco{});
  EXPECT_EQ(elenco(file.metti(2, 527, "2").esamina()), Elenco{"F04 2:527"});
  FileDiProva primo = pubblicato("CUR21", "12");
  EXPECT_EQ(elenco(primo.metti(2, 527, "0").esamina()), Elenco{"F06 2:527"});
}

TEST(PublishedForms, HaveTheRepresentativeAtTheirOwnPlaces) {
  FileDiProva file = pubblicato("CUR22");
  EXPECT_EQ(elenco(file.metti(2, 384, "0").esamina()), Elenco{"F06 2:384"});
  FileDiProva altro = pubblicato("CUR22");
  EXPECT_EQ(elenco(altro.metti(2, 329, " Anna").esamina()), (Elenco{"F02 2:329", "F05 2:329"}));
}

TEST(PublishedForms, HaveCodesOfTheirOwnYear) {
  FileDiProva file = pubblicato("CUR22", "7");
  EXPECT_EQ(elenco(file.esamina()), di("C10", 4, file, "AU001006"));
  const std::vector<Rilievo> rilievi = file.esamina().rilievi.ordinati();
  ASSERT_EQ(rilievi.size(), 1U);
  EXPECT_THAT(rilievi[0].testo, HasSubstr("21, 22, 23, 24"));
  EXPECT_EQ(elenco(pubblicato("CUR21", "7").esamina()), Elenco{});
  FileDiProva tolto = pubblicato("CUR25", "24");
  EXPECT_EQ(elenco(tolto.esamina()), di("C10", 4, tolto, "AU001006"));
  EXPECT_EQ(elenco(pubblicato("CUR26", "24").esamina()), Elenco{});
}

TEST(PublishedForms, HaveReasonsOfTheirOwnYear) {
  FileDiProva file = pubblicato("CUR22");
  EXPECT_EQ(elenco(file.valore(4, "AU001001", "J").esamina()), Elenco{});
  FileDiProva prima = pubblicato("CUR21", "12");
  EXPECT_EQ(elenco(prima.valore(4, "AU001001", "J").esamina()), Elenco{"C09 4:90"});
}

TEST(PublishedForms, HaveCategoriesOfTheirOwnYear) {
  const std::vector<std::pair<std::string, std::string>> contributi = {
      {"AU001029", "80078750587"},   {"AU001030", "INPS"},          {"AU001033", "R"},
      {"AU001034", amount("20,00")}, {"AU001035", amount("10,00")}, {"AU001038", amount("30,00")},
      {"AU001039", amount("30,00")}};
  FileDiProva file = pubblicato("CUR26");
  FileDiProva::celle(file.righe[3], contributi);
  EXPECT_EQ(elenco(file.esamina()), Elenco{});
  FileDiProva prima = pubblicato("CUR25");
  FileDiProva::celle(prima.righe[3], contributi);
  EXPECT_EQ(elenco(prima.esamina()), di("C10", 4, prima, "AU001033"));
}

TEST(PublishedForms, HaveNoEventThatIsGone) {
  const auto con = [](const char* fornitura, const char* evento) {
    FileDiProva file = pubblicato(fornitura);
    std::string& d = file.righe[2];
    d.insert(file.posto(3, "DA003001") - 1, "DA002009" + std::string(15, ' ') + evento);
    d.erase(1889, 24);
    return file;
  };
  EXPECT_EQ(elenco(con("CUR24", "2").esamina()), Elenco{});
  FileDiProva tolto = con("CUR25", "2");
  EXPECT_EQ(elenco(tolto.esamina()), di("C10", 3, tolto, "DA002009"));
  EXPECT_EQ(elenco(con("CUR25", "1").esamina()), Elenco{});
}

TEST(PublishedForms, HaveTheBoxesOfTheirYear) {
  const Caselle nel2023(2023, modello::kModelloPubblicato);
  const Caselle nel2024(2024, modello::kModelloPubblicato);
  const auto haD = [](const Caselle& caselle, const char* codice) {
    return caselle.trova(modello::Record::D, codice) != nullptr;
  };
  EXPECT_TRUE(haD(nel2023, "DA001012"));
  EXPECT_FALSE(haD(Caselle(2020, modello::kModelloPubblicato), "DA001012"));
  EXPECT_FALSE(haD(nel2023, "DA002045"));
  EXPECT_TRUE(haD(nel2024, "DA002045"));
  // Boxes that are known by name alone are read, and this program does not write them.
  for (const char* codice : {"AU001021", "AU001022", "AU001031", "AU001040", "AU001041"}) {
    EXPECT_NE(nel2024.trova(modello::Record::H, codice), nullptr) << codice;
  }
  EXPECT_EQ(nel2023.trova(modello::Record::H, "AU001031"), nullptr);
  EXPECT_EQ(Caselle(2024).trova(modello::Record::H, "AU001031"), nullptr);
  EXPECT_EQ(nel2024.trova(modello::Record::D, "DA002043")->natura, Natura::Testo);
  EXPECT_EQ(nel2023.trova(modello::Record::D, "DA002043")->natura, Natura::Flag);
}

}  // namespace
}  // namespace cu::lettura::prova
