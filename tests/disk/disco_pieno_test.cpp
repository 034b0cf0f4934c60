// The disk is full at each write of a whole run in turn: the run is repeated with room for one more page, or
// one more file, until it succeeds. Each time an error is reported or nothing is missing, the database is
// intact, each table of the accounts is as before or as after, foreign data is unchanged, and the next run,
// with room, produces everything.

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>
#include <optional>

#include "disk/piccolo_disco_support.h"
#include "system/corsa_intera_support.h"

namespace cu::test {
namespace {

constexpr std::size_t kMoltePagine = 4000;
// The last writes, from the database's journal into the database, fail without a message: they are repeated
// at the next opening.
constexpr std::size_t kAncora = 6;

// Checks the result of a run on a full disk, now that there is room again.
void controlla(const LuogoCorsa& luogo, const CorsaGuidata& corsa, const CorsaIntera& intera) {
  EXPECT_LT(corsa.codice(), 128) << "it was ended by a signal";
  intera.attendeSano(luogo);
  // A user who continues after an error of the editor makes the file without the correction.
  EXPECT_TRUE(luogo.soloInteri(luogo.file()));
  if (!corsa.detti().empty()) {
    EXPECT_TRUE(std::any_of(corsa.detti().begin(), corsa.detti().end(), diSpazio)) << corsa.detti().front();
  } else if (corsa.finita()) {
    EXPECT_TRUE(intera.tutta(luogo)) << "nothing was told, and something is missing";
  } else {
    // A telematic file that cannot be opened stops the run without a message, on the last step.
    EXPECT_EQ(luogo.file(), "") << "it stopped without a word";
  }
}

struct Conto {
  int piene = 0;
  int dette = 0;
};

void racconta(const char* cosa, const Conto& conto) {
  std::cout << "  " << cosa << ": " << conto.piene << " runs on a full disk, " << conto.dette << " told\n";
}

// One file after the other that cannot grow beyond a size.
void limitaFile(const CorsaIntera& intera) {
  Conto conto;
  for (std::size_t byte = 0; byte < (std::size_t{1} << 19); byte += byte < 65536 ? 4096 : 32768) {
    SCOPED_TRACE("files of " + std::to_string(byte) + " bytes");
    const LuogoCorsa luogo(true);
    std::optional<CorsaGuidata> corsa;
    {
      const LimiteFile limite(byte);
      corsa.emplace(luogo);
    }
    corsa->finisci();
    ++conto.piene;
    conto.dette += corsa->detti().empty() ? 0 : 1;
    controlla(luogo, *corsa, intera);
    intera.attendeRiuscita(luogo);
    if (testing::Test::HasFailure()) return;
  }
  EXPECT_GT(conto.dette, 5);
  racconta("limited files", conto);
}

void riempi(const PiccoloDisco& disco, PiccoloDisco::Risorsa risorsa, const CorsaIntera& intera) {
  Conto conto;
  std::size_t riuscite = 0;
  for (std::size_t quante = 0; riuscite < kAncora && quante < kMoltePagine; ++quante) {
    SCOPED_TRACE("room for " + std::to_string(quante));
    const LuogoCorsa luogo(true, disco.cartella());
    disco.lascia(risorsa, quante);
    CorsaGuidata corsa(luogo);
    corsa.finisci();
    disco.libera();
    const bool bene = corsa.finita() && corsa.detti().empty();
    riuscite += bene ? 1 : 0;
    EXPECT_TRUE(bene || riuscite == 0) << "it succeeded with less room";
    conto.piene += bene ? 0 : 1;
    conto.dette += corsa.detti().empty() ? 0 : 1;
    controlla(luogo, corsa, intera);
    intera.attendeRiuscita(luogo);
    if (testing::Test::HasFailure()) return;
  }
  EXPECT_EQ(riuscite, kAncora);
  EXPECT_GT(conto.dette, 3);
  racconta(risorsa == PiccoloDisco::Risorsa::Pagine ? "pages" : "files", conto);
}

TEST(FullDisk, IsToldAtEachWriteAndLosesNothing) {
  const CorsaIntera intera(true);
  const PiccoloDisco disco;
  if (HasFailure()) return;
  if (!disco.montato()) {
    // Where mounting is not permitted, a limit of the process is the best available approximation of a full
    // disk.
    std::cout << "  no small file system here (" << disco.impedimento() << ")\n";
    limitaFile(intera);
    return;
  }
  riempi(disco, PiccoloDisco::Risorsa::Pagine, intera);
  if (!HasFailure()) riempi(disco, PiccoloDisco::Risorsa::File, intera);
}

TEST(FullDisk, IsToldForEachFileThatCannotGrow) {
  const CorsaIntera intera(true);
  if (!HasFailure()) limitaFile(intera);
}

}  // namespace
}  // namespace cu::test
