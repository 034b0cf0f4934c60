// The disk is full while a backup or a restore writes: it is told, nothing incomplete stays, and the database
// is as before.

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <iostream>

#include "disk/piccolo_disco_support.h"
#include "system/importazione_support.h"
#include "system/lettore_db_support.h"

namespace cu::test {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> nomiIn(const std::string& cartella) {
  std::vector<std::string> nomi;
  for (const auto& voce : fs::recursive_directory_iterator(cartella)) {
    if (voce.is_regular_file()) nomi.push_back(voce.path().filename());
  }
  std::sort(nomi.begin(), nomi.end());
  return nomi;
}

// Runs a command with more and more room, until it succeeds; returns how often it had none.
int conSempreMenoPosto(const PiccoloDisco& disco, const LuogoImportazione& luogo,
                       const std::vector<std::string>& argomenti) {
  int dette = 0;
  for (std::size_t pagine = 0; pagine < 4000; pagine += 1 + pagine / 3) {
    SCOPED_TRACE("room for " + std::to_string(pagine));
    const auto prima = nomiIn(disco.cartella());
    disco.lascia(PiccoloDisco::Risorsa::Pagine, pagine);
    const Esecuzione esito = esegui(argomenti, luogo.cartella());
    disco.libera();
    EXPECT_EQ(luogo.tavole(), LuogoImportazione::prima());
    if (esito.codice == 0) return dette;
    EXPECT_EQ(esito.codice, 1);
    EXPECT_TRUE(diSpazio(esito.errori)) << esito.errori;
    EXPECT_EQ(nomiIn(disco.cartella()), prima);
    if (testing::Test::HasFailure()) return dette;
    ++dette;
  }
  ADD_FAILURE() << "it never succeeded";
  return dette;
}

TEST(FullDiskOfABackup, IsToldAndLeavesNothingIncomplete) {
  const PiccoloDisco disco;
  if (!disco.montato()) GTEST_SKIP() << "no small file system here (" << disco.impedimento() << ")";
  const LuogoImportazione luogo;
  // A disk of nothing at all would be one without a limit.
  const TempFolder altro(disco.cartella());
  altro.write("altro", "x");
  const int dette = conSempreMenoPosto(
      disco, luogo,
      {CU_CUCTL, "backup", disco.cartella() + "/copia.db", "--database", "sqlite:" + luogo.database()});
  EXPECT_GT(dette, 5);
  std::cout << "  " << dette << " backups told\n";
  LettoreDb lettore(disco.cartella() + "/copia.db");
  EXPECT_EQ(lettore.testo("PRAGMA integrity_check"), "ok");
}

TEST(FullDiskOfARestore, IsToldAndLeavesTheDatabaseAsItWas) {
  const PiccoloDisco disco;
  if (!disco.montato()) GTEST_SKIP() << "no small file system here (" << disco.impedimento() << ")";
  const LuogoImportazione luogo(disco.cartella());
  const TempFolder altrove;
  const std::string copia = altrove / "copia.db";
  ASSERT_EQ(
      esegui({CU_CUCTL, "backup", copia, "--database", "sqlite:" + luogo.database()}, altrove.path()).codice,
      0);
  const int dette = conSempreMenoPosto(
      disco, luogo, {CU_CUCTL, "restore", copia, "--yes", "--database", "sqlite:" + luogo.database()});
  EXPECT_GT(dette, 5);
  std::cout << "  " << dette << " restores told\n";
}

}  // namespace
}  // namespace cu::test
