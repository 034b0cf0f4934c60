#include "suite/file_distinti.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "support/temp_folder.h"

namespace cu {
namespace {

using ::testing::EndsWith;

class FileDistinti : public ::testing::Test {
 protected:
  FileDistinti() {
    profilo_.file = cartella_.write("p.toml", "[session]\n");
    profilo_.database.origine = cartella_.write("a.db", "SQLite format 3");
    profilo_.impostazioni = cartella_ / "impostazioni.toml";
  }
  // What is wrong, behind the profile's name; "" where nothing is.
  std::string rifiuto() const {
    try {
      controllaFileDistinti(profilo_);
    } catch (const ErroreProfilo& errore) {
      const std::string testo = errore.what();
      EXPECT_EQ(testo.find(profilo_.file + ": "), 0U) << testo;
      return testo.substr(profilo_.file.size() + 2);
    }
    return {};
  }

  test::TempFolder cartella_;
  Profilo profilo_;
};

TEST_F(FileDistinti, DifferentFilesAreAccepted) {
  profilo_.traccia = cartella_ / "traccia.sql";
  profilo_.registro = cartella_ / "registro.txt";
  EXPECT_EQ(rifiuto(), "");
}

TEST_F(FileDistinti, NothingIsWrittenIntoTheDatabase) {
  profilo_.traccia = cartella_ / "a.db";
  EXPECT_EQ(rifiuto(), "trace.sql: è il database, atteso un altro file");
  profilo_.traccia = cartella_ / "a.db-wal";
  EXPECT_EQ(rifiuto(), "trace.sql: è un file di lavoro del database, atteso un altro file");
  profilo_.traccia.clear();
  profilo_.registro = (cartella_ / "x") + "/../a.db";
  EXPECT_EQ(rifiuto(), "log.file: è il database, atteso un altro file");
  profilo_.registro.clear();
  profilo_.impostazioni = cartella_ / "collegamento";
  std::filesystem::create_symlink("a.db", profilo_.impostazioni);
  EXPECT_EQ(rifiuto(), "folders.settings: è il database, atteso un altro file");
}

TEST_F(FileDistinti, AServerHasNoFile) {
  profilo_.database.motore = Profilo::Motore::Odbc;
  profilo_.traccia = cartella_ / "a.db";
  EXPECT_EQ(rifiuto(), "");
}

TEST_F(FileDistinti, NothingIsWrittenIntoTheProfile) {
  profilo_.impostazioni = cartella_ / "p.toml";
  EXPECT_EQ(rifiuto(), "folders.settings: è il profilo stesso, atteso un altro file");
}

TEST_F(FileDistinti, OneFileHasOneUse) {
  profilo_.traccia = cartella_ / "impostazioni.toml";
  EXPECT_EQ(rifiuto(), "trace.sql: è il file delle impostazioni, atteso un altro file");
  profilo_.traccia = cartella_ / "t";
  profilo_.registro = cartella_ / "t";
  EXPECT_EQ(rifiuto(), "log.file: è la traccia, atteso un altro file");
}

// A device has no end: to read it would never come back.
TEST_F(FileDistinti, SettingsAreAFile) {
  profilo_.impostazioni = "/dev/zero";
  EXPECT_THAT(rifiuto(), EndsWith("folders.settings: è un dispositivo o una pipe, atteso un altro file"));
}

}  // namespace
}  // namespace cu
