// The disk is full while a backup or a restore writes: it is told, nothing incomplete stays, and the database
// is as before.

#include <gtest/gtest.h>

#include <algorithm>
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

// Runs work with the room of so many pages; knows the words for a lack of room.
struct ConPosto {
  std::function<void(std::size_t pagine, const std::function<void()>& lavoro)> conPosto;
  std::function<bool(const std::string& errori)> detto;
};

ConPosto postoSul(const PiccoloDisco& disco) {
  return {[&disco](std::size_t pagine, const std::function<void()>& lavoro) {
            disco.lascia(PiccoloDisco::Risorsa::Pagine, pagine);
            lavoro();
            disco.libera();
          },
          diSpazio};
}

// Files that cannot grow; the database itself can be opened.
ConPosto postoNeiFile() {
  return {[](std::size_t pagine, const std::function<void()>& lavoro) {
            constexpr std::size_t kPagina = 4096;
            constexpr std::size_t kApertura = 16;
            const LimiteFile limite((kApertura + pagine) * kPagina);
            lavoro();
          },
          diSpazio};
}

// Runs a command with more and more room, until it succeeds; returns how often it had none.
int finoAllaRiuscita(const ConPosto& posto, const std::string& cartella, const LuogoImportazione& luogo,
                     const std::vector<std::string>& argomenti) {
  int dette = 0;
  for (std::size_t pagine = 0; pagine < 4000; pagine += 1 + pagine / 3) {
    SCOPED_TRACE("room for " + std::to_string(pagine));
    const auto prima = nomiIn(cartella);
    Esecuzione esito;
    posto.conPosto(pagine, [&] { esito = esegui(argomenti, luogo.cartella()); });
    EXPECT_EQ(luogo.tavole(), LuogoImportazione::prima());
    if (esito.codice == 0) return dette;
    EXPECT_EQ(esito.codice, 1);
    EXPECT_TRUE(posto.detto(esito.errori)) << esito.errori;
    EXPECT_EQ(nomiIn(cartella), prima);
    if (testing::Test::HasFailure()) return dette;
    ++dette;
  }
  ADD_FAILURE() << "it never succeeded";
  return dette;
}

void copia(const ConPosto& conPosto, const std::string& cartella) {
  const LuogoImportazione luogo;
  const int dette = finoAllaRiuscita(
      conPosto, cartella, luogo,
      {CU_CUCTL, "backup", cartella + "/copia.db", "--database", "sqlite:" + luogo.database()});
  EXPECT_GT(dette, 5);
  std::cout << "  " << dette << " backups told\n";
  LettoreDb lettore(cartella + "/copia.db");
  EXPECT_EQ(lettore.testo("PRAGMA integrity_check"), "ok");
}

void ripristina(const ConPosto& conPosto, const std::string& cartella) {
  const LuogoImportazione luogo(cartella);
  const TempFolder altrove;
  const std::string fatta = altrove / "copia.db";
  ASSERT_EQ(
      esegui({CU_CUCTL, "backup", fatta, "--database", "sqlite:" + luogo.database()}, altrove.path()).codice,
      0);
  const int dette =
      finoAllaRiuscita(conPosto, cartella, luogo,
                       {CU_CUCTL, "restore", fatta, "--yes", "--database", "sqlite:" + luogo.database()});
  EXPECT_GT(dette, 5);
  std::cout << "  " << dette << " restores told\n";
}

// Where mounting is not permitted, a limit of the process is the best available approximation of a full disk.
void suDiscoPieno(void (*prova)(const ConPosto& conPosto, const std::string& cartella)) {
  const PiccoloDisco disco;
  if (!disco.montato()) {
    std::cout << "  no small file system here (" << disco.impedimento() << ")\n";
    const TempFolder cartella;
    return prova(postoNeiFile(), cartella.path());
  }
  // A disk of nothing at all would be one without a limit.
  const TempFolder altro(disco.cartella());
  altro.write("altro", "x");
  prova(postoSul(disco), disco.cartella());
}

TEST(FullDiskOfABackup, IsToldAndLeavesNothingIncomplete) { suDiscoPieno(copia); }

TEST(FullDiskOfABackup, IsToldForAFileThatCannotGrow) {
  const TempFolder cartella;
  copia(postoNeiFile(), cartella.path());
}

TEST(FullDiskOfARestore, IsToldAndLeavesTheDatabaseAsItWas) { suDiscoPieno(ripristina); }

TEST(FullDiskOfARestore, IsToldForAFileThatCannotGrow) {
  const TempFolder cartella;
  ripristina(postoNeiFile(), cartella.path());
}

}  // namespace
}  // namespace cu::test
