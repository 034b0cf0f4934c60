#include "apps/comune/permessi_database.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "base/error.h"
#include "support/temp_folder.h"
#include "support/umask.h"

namespace cu::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

namespace fs = std::filesystem;

struct Permessi : ::testing::Test {
  TempFolder cartella;
  PermessiDatabase permessi{cartella / "stato/cuwizard/permessi"};
  Profilo::Database database;
  Permessi() {
    fs::permissions(cartella.path(), fs::perms{0755});
    database.origine = cartella.write("demo.db", "");
    modo(0644);
  }
  void modo(unsigned modo) const { fs::permissions(database.origine, fs::perms{modo}); }
};

TEST_F(Permessi, CioCheAltriLeggonoSiSegnalaUnaVolta) {
  EXPECT_EQ(permessi.daSegnalare(database), "da ogni utente di questo computer");
  EXPECT_EQ(permessi.daSegnalare(database), "da ogni utente di questo computer");
  permessi.segnalato(database);
  EXPECT_EQ(permessi.daSegnalare(database), std::nullopt);
  EXPECT_EQ(modeOf(cartella / "stato/cuwizard/permessi"), 0600U);
  EXPECT_EQ(modeOf(cartella / "stato"), 0700U);
}

TEST_F(Permessi, OgniDatabaseHaIlSuo) {
  permessi.segnalato(database);
  database.origine = cartella.write("altro.db", "");
  modo(0644);
  EXPECT_NE(permessi.daSegnalare(database), std::nullopt);
}

TEST_F(Permessi, UnAltroNomeELoStessoDatabase) {
  permessi.segnalato(database);
  fs::create_symlink(database.origine, cartella / "link.db");
  database.origine = cartella / "link.db";
  EXPECT_EQ(permessi.daSegnalare(database), std::nullopt);
}

TEST_F(Permessi, CioCheESoloProprioNonSiSegnala) {
  modo(0600);
  EXPECT_EQ(permessi.daSegnalare(database), std::nullopt);
  database.motore = Profilo::Motore::Odbc;
  database.origine = "Driver=x";
  EXPECT_EQ(permessi.daSegnalare(database), std::nullopt);
  permessi.segnalato(database);
  EXPECT_FALSE(fs::exists(cartella / "stato"));
}

TEST_F(Permessi, DiUnaCartellaODiUnDispositivoNonSiConsigliaNulla) {
  for (const std::string& altro : {cartella.path(), std::string("/dev/null")}) {
    database.origine = altro;
    EXPECT_EQ(permessi.daSegnalare(database), std::nullopt) << altro;
  }
}

TEST_F(Permessi, SenzaMemoriaSiRipete) {
  for (const PermessiDatabase& senza : {PermessiDatabase(""), PermessiDatabase(database.origine + "/x/y")}) {
    senza.segnalato(database);
    EXPECT_NE(senza.daSegnalare(database), std::nullopt);
  }
}

TEST_F(Permessi, RiservareToglieAgliAltriOgniFileDelDatabase) {
  cartella.write("demo.db-wal", "");
  modo(0666);
  riservaDatabase(database);
  EXPECT_EQ(modeOf(database.origine), 0600U);
  EXPECT_EQ(modeOf(database.origine + "-wal"), 0600U);
  EXPECT_EQ(permessi.daSegnalare(database), std::nullopt);
  database.origine = cartella / "manca.db";
  EXPECT_THROW(riservaDatabase(database), FileError);
}

TEST_F(Permessi, ChiAscoltaHaUnaRigaSola) {
  ::setenv("XDG_STATE_HOME", (cartella / "stato").c_str(), 1);
  std::vector<std::string> righe;
  segnalaPermessi(database);  // nobody listens
  ascoltaPermessi([&](const std::string& riga) { righe.push_back(riga); });
  segnalaPermessi(database);
  segnalaPermessi(database);
  ascoltaPermessi({});
  ::unsetenv("XDG_STATE_HOME");
  EXPECT_THAT(righe, ElementsAre("Il database «" + database.origine +
                                 "», che contiene dati personali, può essere letto da ogni utente di questo "
                                 "computer. Se non è voluto: chmod go-rwx. Questo avviso non si ripete."));
  EXPECT_TRUE(fs::exists(cartella / "stato/cuwizard/permessi-segnalati"));
}

}  // namespace
}  // namespace cu::test
