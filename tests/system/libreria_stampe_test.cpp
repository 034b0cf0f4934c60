// The library of the prints from outside: who loads it, and what is said where it cannot be used.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "system/posto_support.h"

namespace cu::test {
namespace {

#ifdef CU_LIBRERIA_STAMPE

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

constexpr const char* kReportDeiConti = "ContoIndividuale.rpt";

std::string contenutoDi(const std::string& file) {
  const std::ifstream stream(file, std::ios::binary);
  std::ostringstream testo;
  testo << stream.rdbuf();
  return std::move(testo).str();
}

class LibreriaStampe : public ::testing::Test {
 protected:
  LibreriaStampe() { posto.imposta("printing.engine", "\"pdf\""); }

  // The libraries that a run has loaded, as the loader reports them.
  std::string caricate(const std::vector<std::string>& argomenti, const std::string& ingresso = {}) {
    const TempFolder rapporti;
    setenv("LD_DEBUG", "files", 1);
    setenv("LD_DEBUG_OUTPUT", (rapporti / "di").c_str(), 1);
    const Esecuzione esito = posto.cuctl(argomenti, ingresso);
    unsetenv("LD_DEBUG");
    unsetenv("LD_DEBUG_OUTPUT");
    EXPECT_EQ(esito.codice, 0) << esito.errori;
    std::string tutto;
    for (const auto& uno : std::filesystem::directory_iterator(rapporti.path())) {
      tutto += contenutoDi(uno.path().string());
    }
    EXPECT_THAT(tutto, HasSubstr("libsqlite3"));
    return tutto;
  }

  // A program of its own folder, with a library beside it or without.
  std::string programma(const std::string& libreria = {}) {
    std::filesystem::copy_file(CU_CUCTL, altrove / "cuctl");
    if (!libreria.empty()) altrove.write("cuwizard-stampe.so", libreria);
    return altrove / "cuctl";
  }
  Esecuzione stampa(const std::string& cuctl) {
    return esegui({cuctl, "print", "--profile", posto.profilo(), "--report", kReportDeiConti, "--year",
                   "2016", "--output", "stampa.pdf"},
                  posto.cartella().path());
  }
  bool stampata() const { return std::filesystem::exists(posto.cartella() / "stampa.pdf"); }

  Posto posto;
  TempFolder altrove;
};

TEST_F(LibreriaStampe, OnlyAPrintLoadsTheToolkit) {
  EXPECT_THAT(caricate({"print", "--profile", posto.profilo(), "--report", kReportDeiConti, "--year", "2016",
                        "--output", "stampa.pdf"}),
              HasSubstr("libQt6Gui"));
  for (const std::vector<std::string>& senza :
       {std::vector<std::string>{"--help"},
        {"--version"},
        {"drive", "--profile", posto.profilo()},
        {"drive", "--start", "archivi", "--profile", posto.profilo()},
        {"check", "--database", posto.indirizzo()},
        {"status", "--profile", posto.profilo(), "--year", "2016"},
        {"export", "payees", "--output", "percipienti.xlsx", "--company", "1", "--database",
         posto.indirizzo()},
        {"import", "payees", "percipienti.xlsx", "--company", "1", "--database", posto.indirizzo()}}) {
    EXPECT_THAT(caricate(senza), Not(HasSubstr("libQt6"))) << senza.front();
  }
  posto.imposta("printing.engine", "\"record\"");
  EXPECT_THAT(caricate({"make", "--profile", posto.profilo(), "--year", "2016", "--yes"}),
              Not(HasSubstr("libQt6")));
}

TEST_F(LibreriaStampe, WhereItIsMissingIsSaidAndTheRestWorks) {
  const std::string cuctl = programma();
  const Esecuzione esito = stampa(cuctl);
  EXPECT_EQ(esito.codice, 1);
  EXPECT_THAT(esito.errori, HasSubstr("Le stampe non si possono fare: manca la libreria «"));
  EXPECT_THAT(esito.errori, HasSubstr("cuwizard-stampe.so»."));
  EXPECT_THAT(esito.uscita, IsEmpty());
  EXPECT_FALSE(stampata());
  EXPECT_EQ(esegui({cuctl, "check", "--database", posto.indirizzo()}, posto.cartella().path()).codice, 0);
}

TEST_F(LibreriaStampe, OneThatIsNoneIsSaid) {
  const Esecuzione esito = stampa(programma("testo"));
  EXPECT_EQ(esito.codice, 1);
  EXPECT_THAT(esito.errori, HasSubstr("non si carica"));
  EXPECT_FALSE(stampata());
}

TEST_F(LibreriaStampe, OneOfAnotherVersionIsNotUsed) {
  const std::string cuctl = programma(contenutoDi(CU_LIBRERIA_STAMPE));
  EXPECT_EQ(stampa(cuctl).codice, 0);
  ASSERT_TRUE(std::filesystem::remove(posto.cartella() / "stampa.pdf"));
  // The program itself becomes one of another version.
  std::string byte = altrove.read("cuctl");
  const std::string versione = CU_VERSION_STAMPE;
  std::size_t volte = 0;
  for (std::size_t dove = 0; (dove = byte.find(versione, dove)) != std::string::npos; ++volte)
    byte[dove] = '9';
  ASSERT_GT(volte, 0U);
  altrove.write("cuctl", byte);
  const Esecuzione esito = stampa(cuctl);
  EXPECT_EQ(esito.codice, 1);
  EXPECT_THAT(esito.errori, HasSubstr("di un'altra versione"));
  EXPECT_FALSE(stampata());
}

#endif

}  // namespace
}  // namespace cu::test
