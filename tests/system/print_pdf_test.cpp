// The content of the prints, extracted from the PDF by another program.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>

#include "support/cur_reader.h"
#include "system/posto_support.h"

namespace cu::test {
namespace {

using nlohmann::json;
using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

using Argomenti = std::vector<std::string>;

// "2366,66" from the file, with the thousands marks of a print.
std::string conPunti(std::string importo) {
  importo.erase(0, importo.find_first_not_of(' '));
  const std::size_t inizio = importo.at(0) == '-' ? 1 : 0;
  for (std::size_t posto = importo.find(','); posto > inizio + 3;) {
    posto -= 3;
    importo.insert(posto, ".");
  }
  return importo;
}

class Pdf : public ::testing::Test {
 protected:
  Pdf() { posto.imposta("printing.engine", "\"pdf\""); }
  std::string testo(const std::string& file) {
    const Esecuzione esito =
        esegui({"/usr/bin/env", "pdftotext", "-layout", file, "-"}, posto.cartella().path());
    EXPECT_EQ(esito.codice, 0) << esito.errori;
    return esito.uscita;
  }
  Esecuzione fai(const Argomenti& altri = {}) {
    Argomenti argomenti = {"make",         "--profile", posto.profilo(), "--year", "2016",
                           "--from-payee", "P001",      "--to-payee",    "P003"};
    argomenti.insert(argomenti.end(), altri.begin(), altri.end());
    return posto.cuctl(argomenti);
  }
  Esecuzione stampa(const char* report, const Argomenti& altri, const char* file = "stampa.pdf") {
    Argomenti argomenti = {"print", "--profile", posto.profilo(), "--report", report, "--output", file};
    argomenti.insert(argomenti.end(), altri.begin(), altri.end());
    return posto.cuctl(argomenti);
  }
  CurFile fileTelematico() { return CurFile(posto.cartella().read("Documenti/CUR_04123450233_2016.cur")); }
  // The forms printed, by name.
  std::vector<std::string> moduli() {
    std::vector<std::string> nomi;
    for (const std::string& nome : posto.file("Documenti")) {
      if (nome.find("_1030.cur") != std::string::npos) nomi.push_back(nome);
    }
    return nomi;
  }
  // A payee's amounts in the file, in the format of a print.
  std::vector<std::string> importi(const std::string& codiceFiscale) {
    std::vector<std::string> trovati;
    const CurFile file = fileTelematico();
    for (const CurLine& riga : file.lines()) {
      if (riga.type() != 'H' || riga.at(26, 16) != codiceFiscale) continue;
      for (const auto& [codice, valore] : riga.values()) {
        if (valore.find(',') != std::string::npos) trovati.push_back(conPunti(valore));
      }
    }
    return trovati;
  }
  Posto posto;
};

constexpr const char* kRossi = "RSSMRC71C08L781I";
constexpr const char* kDueCausali = "DLLGLI83A59F205I";

TEST_F(Pdf, EachFormHoldsTheAmountsThatTheFileHolds) {
  const Esecuzione esito = fai();
  ASSERT_EQ(esito.codice, 0) << esito.errori;
  ASSERT_EQ(moduli().size(), 4U);
  std::map<std::string, std::string> testi;  // by fiscal code
  for (const std::string& nome : moduli()) {
    EXPECT_THAT(esito.uscita, HasSubstr("Stampa: " + (posto.cartella() / "Documenti/") + nome +
                                        " (CertificazioneUnica.rpt)\n"));
    const std::string letto = testo("Documenti/" + nome);
    const std::string codiceFiscale = nome.substr(nome.find('_', 4) + 1, 16);
    EXPECT_THAT(letto, HasSubstr(codiceFiscale));
    testi[codiceFiscale] += letto;
  }
  for (const auto& [codiceFiscale, letto] : testi) {
    const auto attesi = importi(codiceFiscale);
    EXPECT_FALSE(attesi.empty());
    for (const std::string& importo : attesi) EXPECT_THAT(letto, HasSubstr(importo)) << codiceFiscale;
  }
  EXPECT_EQ(testi.size(), 3U);
}

TEST_F(Pdf, TheCumulativeFileHoldsAllOfThem) {
  const Esecuzione esito = fai({"--cumulative"});
  ASSERT_EQ(esito.codice, 0) << esito.errori;
  ASSERT_THAT(moduli(), ::testing::ElementsAre("CUR_04123450233_2016_05032017_1030.cur"));
  const std::string letto = testo("Documenti/" + moduli().front());
  for (const char* codiceFiscale : {kRossi, "DMCNCL64S30F839G", kDueCausali}) {
    EXPECT_THAT(letto, HasSubstr(codiceFiscale));
    for (const std::string& importo : importi(codiceFiscale)) EXPECT_THAT(letto, HasSubstr(importo));
  }
}

TEST_F(Pdf, AFormThatCannotBeWrittenIsToldAndTheOthersStand) {
  const std::string occupato = "Documenti/CUR_04123450233_DMCNCL64S30F839G_P002_2016_A_05032017_1030.cur";
  std::filesystem::create_directory(posto.cartella() / occupato);
  posto.cartella().write(occupato + "/dentro", "");
  const Esecuzione esito = fai();
  EXPECT_EQ(esito.codice, 1);
  EXPECT_THAT(esito.errori, HasSubstr("_P002_"));
  EXPECT_THAT(esito.uscita, AllOf(HasSubstr("File telematico: "), HasSubstr("_P001_"), HasSubstr("_P003_"),
                                  Not(HasSubstr("_P002_"))));
  // Nothing is left of the failed one, and the file and the others are complete.
  EXPECT_EQ(moduli().size(), 4U);
  for (const std::string& nome : posto.file("Documenti")) EXPECT_THAT(nome, Not(::testing::EndsWith(".tmp")));
  EXPECT_EQ(fileTelematico().line('Z').type(), 'Z');
}

TEST_F(Pdf, TheAccountsAndTheCertificatesHoldThePayeesAmounts) {
  ASSERT_EQ(fai().codice, 0);
  const std::string lordo = importi(kRossi).at(0);
  for (const char* report : {"ContoIndividuale.rpt", "CertificazioneCompensiSintetico.rpt",
                             "CertificazioneCompensiAnalitico.rpt"}) {
    const Esecuzione esito = stampa(report, {"--year", "2016", "--from-payee", "P001", "--to-payee", "P001"});
    EXPECT_EQ(esito.codice, 0) << esito.errori;
    EXPECT_EQ(esito.uscita, "Stampa: " + (posto.cartella() / "stampa.pdf") + " (" + report + ")\n");
    const std::string letto = testo("stampa.pdf");
    EXPECT_THAT(letto, AllOf(HasSubstr(kRossi), HasSubstr(lordo), Not(HasSubstr(kDueCausali)))) << report;
  }
}

TEST_F(Pdf, APrintThatCannotBeWrittenEndsWithOneAndNoFile) {
  const Esecuzione esito = stampa("ContoIndividuale.rpt", {}, "manca/stampa.pdf");
  EXPECT_EQ(esito.codice, 1);
  EXPECT_THAT(esito.errori, HasSubstr("manca/stampa.pdf"));
  EXPECT_EQ(esito.uscita, "");
  EXPECT_FALSE(std::filesystem::exists(posto.cartella() / "manca"));
}

TEST_F(Pdf, APreviewShowsItsPagesUnderTheHourglassUntilItIsClosed) {
  posto.imposta("session.processes", "[ { name = \"Wizard stampa\", function = 246 } ]");
  const auto processo = posto.guida();
  const auto di = [&](const json& comando) {
    processo->scrivi(comando.dump() + "\n");
    return json::parse(processo->riga().value());
  };
  processo->riga();
  di({{"do", "choose"}, {"in", "frmWizard.KRNCboEsCont(0)"}, {"text", "2016"}});
  di({{"do", "click"}, {"on", "frmWizard.cmdNav(3)"}});
  const json aperta = di({{"do", "click"}, {"on", "frmWizard.cmdNav(4)"}});
  EXPECT_EQ(aperta.at("modal").at("kind"), "preview");
  EXPECT_NE(aperta.at("modal").at("title"), "");
  const json pagine = aperta.at("modal").at("pages");
  ASSERT_FALSE(pagine.empty());
  EXPECT_THAT(pagine.at(0).get<std::string>(), HasSubstr("P041"));
  EXPECT_EQ(aperta.at("pointer"), 11);
  EXPECT_EQ(aperta.at("effects").at(0).at("printed").at("kind"), 1);
  const json chiusa = di({{"do", "answer"}, {"with", "ok"}});
  EXPECT_TRUE(chiusa.at("modal").is_null());
  EXPECT_EQ(chiusa.at("pointer"), 0);
  EXPECT_EQ(chiusa.at("effects").size(), 0U);

  // A table for a spreadsheet, and a file for e-mail.
  di({{"do", "choose"}, {"in", "frmWizard.WizPrint"}, {"output", 4}});
  di({{"do", "click"}, {"on", "frmWizard.cmdNav(4)"}});
  di({{"do", "answer"}, {"with", {{"file", posto.cartella() / "conti"}}}});
  EXPECT_THAT(posto.cartella().read("conti.xlsx"), StartsWith("PK"));
  di({{"do", "choose"}, {"in", "frmWizard.WizPrint"}, {"output", 5}});
  for (int i = 0; i < 2; ++i) di({{"do", "click"}, {"on", "frmWizard.cmdNav(4)"}});
  for (const char* nome : {"ContoIndividuale_20170305_1030.pdf", "ContoIndividuale_20170305_1030_2.pdf"}) {
    EXPECT_THAT(testo(std::string("Documenti/") + nome), HasSubstr("P041"));
  }
  // Cancelled at the dialog: no message, no file.
  di({{"do", "choose"}, {"in", "frmWizard.WizPrint"}, {"output", 3}});
  di({{"do", "click"}, {"on", "frmWizard.cmdNav(4)"}});
  const json rinuncia = di({{"do", "answer"}, {"with", "cancel"}});
  EXPECT_TRUE(rinuncia.at("modal").is_null());
  EXPECT_EQ(rinuncia.at("effects").size(), 0U);
  EXPECT_EQ(posto.file("Documenti").size(), 2U);
}

}  // namespace
}  // namespace cu::test
