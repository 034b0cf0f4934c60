// The same input and the same clock in the profile produce the same bytes, in every process, at every time
// and in every time zone of the machine.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>
#include <thread>

#include "system/posto_support.h"

namespace cu::test {
namespace {

using nlohmann::json;
using Argomenti = std::vector<std::string>;
using Contenuti = std::map<std::string, std::string>;  // by the file's name

class StampeRipetibili : public ::testing::Test {
 protected:
  StampeRipetibili() { posto.imposta("printing.engine", "\"pdf\""); }

  void esegui(const std::string& zona, Argomenti argomenti, const std::string& ingresso = {}) {
    argomenti.insert(argomenti.begin(), {"/usr/bin/env", "TZ=" + zona, CU_CUCTL});
    const Esecuzione esito = cu::test::esegui(argomenti, posto.cartella().path(), ingresso);
    EXPECT_EQ(esito.codice, 0) << esito.errori;
  }
  void conti(const std::string& zona) {
    for (const char* report : {"ContoIndividuale.rpt", "CertificazioneCompensiSintetico.rpt",
                               "CertificazioneCompensiAnalitico.rpt"}) {
      esegui(zona, {"print", "--profile", posto.profilo(), "--report", report, "--year", "2016", "--output",
                    posto.cartella() / "Documenti" + "/" + report});
    }
  }
  void moduli(const std::string& zona, const Argomenti& altri) {
    Argomenti argomenti = {"make",         "--profile", posto.profilo(), "--year", "2016",
                           "--from-payee", "P001",      "--to-payee",    "P003"};
    argomenti.insert(argomenti.end(), altri.begin(), altri.end());
    esegui(zona, argomenti);
  }
  void tabella(const std::string& zona) {
    std::string comandi;
    for (const json& comando :
         {json{{"do", "choose"}, {"in", "frmWizard.KRNCboEsCont(0)"}, {"text", "2016"}},
          json{{"do", "click"}, {"on", "frmWizard.cmdNav(3)"}},
          json{{"do", "choose"}, {"in", "frmWizard.WizPrint"}, {"output", 4}},
          json{{"do", "click"}, {"on", "frmWizard.cmdNav(4)"}},
          json{{"do", "answer"}, {"with", {{"file", posto.cartella() / "Documenti/conti.xlsx"}}}}}) {
      comandi += comando.dump() + "\n";
    }
    esegui(zona, {"drive", "--profile", posto.profilo()}, comandi);
  }
  // Everything produced, each time in new processes.
  Contenuti tutto(const std::string& zona) {
    conti(zona);
    moduli(zona, {});
    moduli(zona, {"--cumulative"});
    tabella(zona);
    Contenuti contenuti;
    for (const std::string& nome : posto.file("Documenti")) {
      // The folder of the copies is next to the files.
      if (std::filesystem::is_regular_file(posto.cartella() / "Documenti/" + nome))
        contenuti[nome] = posto.cartella().read("Documenti/" + nome);
    }
    return contenuti;
  }
  Posto posto;
};

TEST_F(StampeRipetibili, AtAnotherTimeInAnotherZoneTheyHaveTheSameBytes) {
  const Contenuti prima = tutto("UTC0");
  // Three accounts and certificates, the file, four forms and one of all, the table.
  EXPECT_EQ(prima.size(), 3U + 1 + 4 + 1 + 1);
  std::this_thread::sleep_for(std::chrono::milliseconds(1100));
  const Contenuti poi = tutto("CET-1");
  ASSERT_EQ(poi.size(), prima.size());
  for (const auto& [nome, contenuto] : prima) {
    EXPECT_FALSE(contenuto.empty()) << nome;
    EXPECT_TRUE(poi.at(nome) == contenuto) << nome;
  }
}

}  // namespace
}  // namespace cu::test
