// The disk is full while an import writes: it is told, and the database is as before. With room the same
// import succeeds.

#include <gtest/gtest.h>

#include <iostream>

#include "disk/piccolo_disco_support.h"
#include "system/importazione_support.h"

namespace cu::test {
namespace {

constexpr std::size_t kPagineBastanti = 4000;

// Whether the import had room; checks what it leaves otherwise.
bool riuscita(const LuogoImportazione& luogo, const Esecuzione& esito) {
  EXPECT_LT(esito.codice, 128) << "it was ended by a signal";
  if (esito.codice == 0) {
    EXPECT_EQ(luogo.tavole(), LuogoImportazione::dopo());
    return true;
  }
  EXPECT_EQ(esito.codice, 1);
  EXPECT_TRUE(diSpazio(esito.errori)) << esito.errori;
  EXPECT_EQ(luogo.tavole(), LuogoImportazione::prima());
  const Esecuzione ancora = luogo.importa();
  EXPECT_EQ(ancora.codice, 0) << ancora.errori;
  EXPECT_EQ(luogo.tavole(), LuogoImportazione::dopo());
  return false;
}

// One more page, then more of them at a time.
std::size_t prossima(std::size_t pagine) { return pagine + 1 + pagine / 3; }

void limita(std::size_t fino) {
  int dette = 0;
  for (std::size_t byte = 4096; byte < fino; byte *= 2) {
    SCOPED_TRACE("files of " + std::to_string(byte) + " bytes");
    const LuogoImportazione luogo;
    const Esecuzione esito = [&] {
      const LimiteFile limite(byte);
      return luogo.importa();
    }();
    dette += riuscita(luogo, esito) ? 0 : 1;
    if (testing::Test::HasFailure()) return;
  }
  EXPECT_GT(dette, 3);
  std::cout << "  " << dette << " imports told\n";
}

TEST(FullDiskOfAnImport, IsToldAndLeavesTheDatabaseAsItWas) {
  const PiccoloDisco disco;
  if (!disco.montato()) {
    std::cout << "  no small file system here (" << disco.impedimento() << ")\n";
    return limita(std::size_t{1} << 20U);
  }
  int dette = 0;
  for (std::size_t pagine = 0; pagine < kPagineBastanti; pagine = prossima(pagine)) {
    SCOPED_TRACE("room for " + std::to_string(pagine));
    const LuogoImportazione luogo(disco.cartella());
    disco.lascia(PiccoloDisco::Risorsa::Pagine, pagine);
    const Esecuzione esito = luogo.importa();
    disco.libera();
    const bool bene = riuscita(luogo, esito);
    if (HasFailure()) return;
    if (bene) break;
    ++dette;
  }
  EXPECT_GT(dette, 5);
  std::cout << "  " << dette << " imports told\n";
}

TEST(FullDiskOfAnImport, IsToldForAFileThatCannotGrow) { limita(std::size_t{1} << 20U); }

}  // namespace
}  // namespace cu::test
