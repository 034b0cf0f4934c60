// Who can read what the programs write, and the report of a database that others can read.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>

#include "support/umask.h"
#include "system/posto_support.h"
#include "system/server_di_prova_support.h"

namespace cu::test {
namespace {

using ::testing::EndsWith;
using ::testing::IsEmpty;
using ::testing::Not;

struct Permessi : ::testing::TestWithParam<mode_t> {
  Umask umask{GetParam()};
  unsigned comeDiSolito = 0666U & ~static_cast<unsigned>(GetParam());
};

TEST_P(Permessi, CioCheSiConservaESoloDelProprietario) {
  Posto posto;
  ASSERT_EQ(posto.crea({"--demo"}).codice, 0);
  posto.imposta("printing.engine", "\"pdf\"");
  const std::string profilo = posto.profilo();
  ASSERT_EQ(posto.cuctl({"make", "--profile", profilo, "--year", "2016", "--yes"}).codice, 0);
  if (!sulServer()) {
    EXPECT_EQ(modeOf(posto.cartella() / "demo.db"), 0600U);
  }
  EXPECT_EQ(modeOf(posto.cartella() / "settings.toml"), 0600U);
  EXPECT_EQ(modeOf(posto.cartella() / "trace.sql"), 0600U);
  posto.cartella().write("percipienti.csv",
                         "Codice;CodiceFiscaleEstero;Cognome;NonResidente;Nazione\nX1;X1;Ditta;S;Francia\n");
  for (const char* resoconto : {"r.json", "r.csv"}) {
    EXPECT_EQ(
        posto
            .cuctl({"import", "payees", "percipienti.csv", "--database", posto.indirizzo(), "--company", "1",
                    "--accept", "P11", "--report", resoconto, "--password-env", kVariabilePassword})
            .codice,
        0);
    EXPECT_EQ(modeOf(posto.cartella() / resoconto), 0600U);
  }
  for (const char* tabella : {"p.csv", "p.xlsx"}) {
    EXPECT_EQ(posto
                  .cuctl({"export", "payees", "--output", tabella, "--database", posto.indirizzo(),
                          "--company", "1", "--password-env", kVariabilePassword})
                  .codice,
              0);
    EXPECT_EQ(modeOf(posto.cartella() / tabella), 0600U);
  }
  std::string telematico;
  for (const auto& voce : std::filesystem::recursive_directory_iterator(posto.cartella() / "Documenti"))
    if (voce.path().filename().string().starts_with("CUR_")) telematico = voce.path().string();
  EXPECT_EQ(posto.cuctl({"inspect", telematico, "--csv", "c.csv", "--xlsx", "c.xlsx"}).codice, 0);
  for (const char* tabella : {"c.csv", "c.xlsx"}) EXPECT_EQ(modeOf(posto.cartella() / tabella), 0600U);
}

TEST_P(Permessi, CioCheSiConsegnaSegueLaUmask) {
  Posto posto;
  posto.imposta("printing.engine", "\"pdf\"");
  ASSERT_EQ(posto.cuctl({"make", "--profile", posto.profilo(), "--year", "2016", "--yes"}).codice, 0);
  std::size_t file = 0;
  for (const auto& voce : std::filesystem::recursive_directory_iterator(posto.cartella() / "Documenti")) {
    if (!voce.is_regular_file()) continue;
    EXPECT_EQ(modeOf(voce.path().string()), comeDiSolito) << voce.path();
    ++file;
  }
  EXPECT_GT(file, 40U);
  ASSERT_EQ(posto.cuctl({"template", "payees", "modello.csv"}).codice, 0);
  EXPECT_EQ(modeOf(posto.cartella() / "modello.csv"), comeDiSolito);
}

TEST_P(Permessi, LeScelteDelleFinestreSonoDellUtente) {
  const Posto posto(Posto::Database::Nessuno);
  const std::string casa = posto.cartella() / "casa";
  EXPECT_EQ(esegui({"/usr/bin/env", "XDG_CONFIG_HOME=" + casa, "QT_QPA_PLATFORM=offscreen", CU_CUWIZARD,
                    "--profile", "manca.toml"},
                   posto.cartella().path())
                .codice,
            2);
  EXPECT_EQ(modeOf(casa), 0700U);
  EXPECT_EQ(modeOf(casa + "/cuwizard"), 0700U);
  EXPECT_EQ(modeOf(casa + "/cuwizard/cuwizard.conf"), 0600U);
}

INSTANTIATE_TEST_SUITE_P(Umask, Permessi, ::testing::Values(0, 022));

struct DatabaseAperto : ::testing::Test {
  Posto posto;
  DatabaseAperto() {
    ::setenv("XDG_STATE_HOME", (posto.cartella() / "stato").c_str(), 1);
    if (sulServer()) return;
    ::chmod(posto.cartella().path().c_str(), 0755);
    ::chmod((posto.cartella() / "demo.db").c_str(), 0644);
  }
  ~DatabaseAperto() override { ::unsetenv("XDG_STATE_HOME"); }
  std::string avviso() const {
    return "Il database «" + posto.cartella() / "demo.db" +
           "», che contiene dati personali, può essere letto da ogni utente di questo computer. Se non è "
           "voluto: "
           "chmod go-rwx. Questo avviso non si ripete.\n";
  }
};

TEST_F(DatabaseAperto, LoSiDiceUnaVolta) {
  if (sulServer()) return;  // it has no file
  const std::vector<std::string> comando{"status", "--profile", posto.profilo(), "--year", "2016", "--json"};
  const Esecuzione prima = posto.cuctl(comando);
  const Esecuzione dopo = posto.cuctl(comando);
  EXPECT_EQ(prima.codice, 0);
  EXPECT_EQ(prima.errori, avviso());
  EXPECT_EQ(dopo.errori, "");
  EXPECT_EQ(prima.uscita, dopo.uscita);
}

TEST_F(DatabaseAperto, ComeCheSiIndichiIlDatabase) {
  if (sulServer()) return;
  EXPECT_THAT(posto.sulDatabase("check").errori, EndsWith("Questo avviso non si ripete.\n"));
  EXPECT_THAT(posto.cuctl({"check", "--database", "sqlite:./demo.db"}).errori, IsEmpty());
}

TEST_F(DatabaseAperto, LeRisposteDellaGuidaNonCambiano) {
  if (sulServer()) return;
  const auto guidata = [this] {
    const auto processo = posto.guida();
    processo->scrivi("{\"do\":\"state\"}\n");
    processo->chiudiIngresso();
    std::string risposte = processo->resto();
    EXPECT_EQ(processo->codice(), 0);
    return std::pair(risposte, processo->errori());
  };
  const auto prima = guidata();
  const auto dopo = guidata();
  EXPECT_EQ(prima.first, dopo.first);
  EXPECT_EQ(prima.second, avviso());
  EXPECT_EQ(dopo.second, "");
}

}  // namespace
}  // namespace cu::test
