#include <gtest/gtest.h>

#include "lettura/lettura_prova.h"

namespace cu::lettura::prova {
namespace {

FileDiProva unCertificato(const std::string& codice = "CUR18") {
  FileDiProva file(codice);
  return file.certificato().fine();
}

FileDiProva con(const std::vector<std::pair<std::string, std::string>>& celle,
                const std::string& codice = "CUR18") {
  FileDiProva file = unCertificato(codice);
  FileDiProva::celle(file.righe[3], celle);
  return file;
}

void soloAvvisi(const FileDiProva& file) { EXPECT_EQ(file.esamina().rilievi.errori(), 0U); }

TEST(C01, ABaseThatDiffersByACent) {
  FileDiProva file = unCertificato();
  file.valore(4, "AU001008", amount("1000,01"));
  EXPECT_EQ(elenco(file.esamina()), di("C01", 4, file, "AU001008"));
  soloAvvisi(file);
}

TEST(C01, CountsTreatySumsAndThoseOfFurtherModules) {
  FileDiProva file;
  file.certificato();
  file.valore(4, "AU001004", amount("1300,00"));
  file.togli(4, "AU001006").togli(4, "AU001007").togli(4, "AU001008").togli(4, "AU001009");
  FileDiProva::celle(file.righe[3], {{"AU001005", amount("200,00")}, {"AU001008", amount("1000,00")}});
  file.modulo({{"AU001006", amount("7")}, {"AU001007", amount("100,00")}}).fine();
  EXPECT_EQ(elenco(file.esamina()), Elenco{});
  file.valore(5, "AU001007", amount("100,01"));
  EXPECT_EQ(elenco(file.esamina()), di("C01", 4, file, "AU001008"));
}

TEST(C01, CountsRefundedExpensesInTheBoxOfTheirYear) {
  EXPECT_EQ(elenco(con({{"AU001020", amount("1,00")}}).valore(4, "AU001004", amount("1235,50")).esamina()),
            Elenco{});
  EXPECT_EQ(
      elenco(con({{"AU001022", amount("1,00")}}, "CUR15").valore(4, "AU001004", amount("1235,50")).esamina()),
      Elenco{});
  // In 2014 box 20 holds contributions.
  EXPECT_EQ(elenco(con({{"AU001020", amount("1,00")}}, "CUR15").esamina()), Elenco{});
}

TEST(C01, IsAtTheBaseWhateverAmountIsMissing) {
  FileDiProva file = unCertificato();
  file.togli(4, "AU001004");
  EXPECT_EQ(elenco(file.esamina()), di("C01", 4, file, "AU001008"));
  file = unCertificato();
  file.togli(4, "AU001008").togli(4, "AU001009");
  EXPECT_EQ(elenco(file.esamina()), di("C01", 4, file, "AU001004"));
}

TEST(C02, SumsWithoutTheirCodeAndACodeWithoutSums) {
  FileDiProva file = unCertificato();
  file.togli(4, "AU001006");
  EXPECT_EQ(elenco(file.esamina()), di("C02", 4, file, "AU001007"));
  soloAvvisi(file);
  file = unCertificato();
  file.togli(4, "AU001007").valore(4, "AU001004", amount("1000,00"));
  EXPECT_EQ(elenco(file.esamina()), di("C02", 4, file, "AU001006"));
}

TEST(C03, ATaxAboveItsBase) {
  FileDiProva file = unCertificato();
  file.valore(4, "AU001009", amount("1000,01"));
  EXPECT_EQ(elenco(file.esamina()), di("C03", 4, file, "AU001009"));
  file.valore(4, "AU001009", amount("1000,00"));
  EXPECT_EQ(elenco(file.esamina()), Elenco{});
  const std::vector<std::pair<std::string, std::string>> coppie = {
      {"053", "054"}, {"053", "055"}, {"102", "103"}, {"106", "107"},
      {"131", "132"}, {"133", "134"}, {"135", "136"}, {"137", "138"}};
  for (const auto& [base, ritenuta] : coppie) {
    file = con({{"AU001" + base, amount("10,00")}, {"AU001" + ritenuta, amount("10,01")}});
    EXPECT_EQ(elenco(file.esamina()), di("C03", 4, file, "AU001" + ritenuta));
  }
  soloAvvisi(file);
}

TEST(C04, BothTaxes) {
  FileDiProva file = con({{"AU001010", amount("1,00")}});
  EXPECT_EQ(elenco(file.esamina()), di("C04", 4, file, "AU001010"));
  soloAvvisi(file);
}

TEST(C05, BirthAgainstTheFiscalCode) {
  for (const auto& [codice, valore] :
       std::vector<std::pair<std::string, std::string>>{{"DA002004", "F"},
                                                        {"DA002005", amount("08031972")},
                                                        {"DA002005", amount("09031971")},
                                                        {"DA002005", amount("08041971")},
                                                        {"DA002006", "Vicenza"}}) {
    FileDiProva file = unCertificato();
    file.valore(3, codice, valore);
    EXPECT_EQ(elenco(file.esamina()), di("C05", 3, file, codice)) << valore;
    soloAvvisi(file);
  }
}

TEST(C05, ComparesNoPlaceWithoutAList) {
  FileDiProva file = unCertificato();
  file.valore(3, "DA002006", "Vicenza");
  TestoLetto sorgente(file.testo());
  EXPECT_EQ(elenco(esamina(sorgente)), Elenco{});
}

TEST(C06, TaxesOfEarlierYearsAboveTheirBase) {
  FileDiProva file = con({{"AU001018", amount("10,00")}, {"AU001019", amount("10,01")}});
  EXPECT_EQ(elenco(file.esamina()), di("C06", 4, file, "AU001019"));
  soloAvvisi(file);
}

TEST(C07, ContributionsDue) {
  FileDiProva file =
      con({{"AU001034", amount("10,00")}, {"AU001035", amount("5,00")}, {"AU001038", amount("15,01")}});
  EXPECT_EQ(elenco(file.esamina()), di("C07", 4, file, "AU001038"));
  soloAvvisi(file);
  file.valore(4, "AU001038", amount("15,00"));
  EXPECT_EQ(elenco(file.esamina()), Elenco{});
  file = con({{"AU001034", amount("10,00")}, {"AU001037", amount("5,00")}, {"AU001038", amount("10,00")}});
  EXPECT_EQ(elenco(file.esamina()), Elenco{});
}

TEST(C08, AYearWithAReasonThatHasNone) {
  FileDiProva file;
  file.certificato();
  file.righe.pop_back();
  file.modulo({{"AU001001", "A"}, {"AU001002", amount("2016")}}).fine();
  EXPECT_EQ(elenco(file.esamina()), di("C08", 4, file, "AU001002"));
  soloAvvisi(file);
  for (const char* causale : {"G", "H", "I"}) {
    EXPECT_EQ(elenco(file.valore(4, "AU001001", causale).esamina()), Elenco{});
  }
  file.valore(4, "AU001001", "A");
  FileDiProva::celle(file.righe[3], {{"AU001003", amount("1")}});
  EXPECT_EQ(elenco(file.esamina()), Elenco{});
}

TEST(C09, AReasonThatTheYearHasNot) {
  FileDiProva file = unCertificato();
  file.valore(4, "AU001001", "V2");
  EXPECT_EQ(elenco(file.esamina()), Elenco{"C09 4:90"});
  soloAvvisi(file);
}

}  // namespace
}  // namespace cu::lettura::prova
