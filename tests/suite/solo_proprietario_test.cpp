// Who can read what the surroundings write.
#include <gtest/gtest.h>

#include "suite/file_system.h"
#include "suite/impostazioni.h"
#include "suite/platform_file.h"
#include "suite/traccia.h"
#include "support/temp_folder.h"
#include "support/umask.h"

namespace cu {
namespace {

struct SoloProprietario : ::testing::TestWithParam<mode_t> {
  test::TempFolder cartella;
  test::Umask umask{GetParam()};
  FileSystemPiattaforma files;
  unsigned comeDiSolito = 0666U & ~static_cast<unsigned>(GetParam());
};

TEST_P(SoloProprietario, LeImpostazioniConLaLoroCartella) {
  const std::string file = cartella / "config/programma/impostazioni.toml";
  ImpostazioniToml(file, files, {}).set("Quadrivio", "MenuSettings", "CU_Path", "x");
  EXPECT_EQ(test::modeOf(file), 0600U);
  EXPECT_EQ(test::modeOf(file + ".lock"), 0600U);
  EXPECT_EQ(test::modeOf(cartella / "config/programma"), 0700U);
  EXPECT_EQ(test::modeOf(cartella / "config"), 0700U);
}

TEST_P(SoloProprietario, LaTraccia) {
  TracciaSql(cartella / "traccia.sql").scrivi("SELECT 1");
  EXPECT_EQ(test::modeOf(cartella / "traccia.sql"), 0600U);
}

TEST_P(SoloProprietario, UnFileScrittoAPezzi) {
  replaceFileInPieces(
      cartella / "a", [](const PieceWriter& scrivi) { scrivi("x"); }, NewFile::OwnerOnly);
  replaceFile(cartella / "b", "x", NewFile::OwnerOnly);
  EXPECT_EQ(test::modeOf(cartella / "a"), 0600U);
  EXPECT_EQ(test::modeOf(cartella / "b"), 0600U);
}

// What is handed on is readable by whom the user has chosen.
TEST_P(SoloProprietario, NonCioCheSiConsegna) {
  files.openForOutput(cartella / "fornitura.cur")->close();
  EXPECT_EQ(test::modeOf(cartella / "fornitura.cur"), comeDiSolito);
  replaceFile(cartella / "tabella.csv", "x");
  EXPECT_EQ(test::modeOf(cartella / "tabella.csv"), comeDiSolito);
  files.copy(cartella / "tabella.csv", cartella / "copia.csv");
  EXPECT_EQ(test::modeOf(cartella / "copia.csv"), comeDiSolito);
}

INSTANTIATE_TEST_SUITE_P(Umask, SoloProprietario, ::testing::Values(0, 022));

}  // namespace
}  // namespace cu
