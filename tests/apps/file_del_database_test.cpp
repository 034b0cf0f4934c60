// The files of a database in use are not opened as other files.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "apps/comune/connessioni.h"
#include "apps/comune/file_letto.h"
#include "apps/comune/parole_database.h"
#include "archive/archivio.h"
#include "base/error.h"
#include "support/held_locks.h"
#include "support/temp_folder.h"

namespace cu {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;

Profilo::Database nelFile(const std::string& file) {
  Profilo::Database database;
  database.origine = file;
  return database;
}

std::string rifiutato(const std::string& file) {
  try {
    const FileLetto aperto(file);
  } catch (const FileIlleggibile& errore) {
    return errore.what();
  }
  return "aperto";
}

class FileDelDatabase : public ::testing::Test {
 protected:
  FileDelDatabase() { creaArchivio(*creaConnessione(nelFile(database_)), ContenutoArchivio::Vuoto); }
  test::TempFolder cartella_;
  std::string database_ = cartella_ / "studio.db";
};

// The lock is what keeps another program from replacing the file below this one.
TEST_F(FileDelDatabase, AFileOfADatabaseInUseIsRefusedAndTheLockStays) {
  const auto connessione = apriConnessione(nelFile(database_));
  ASSERT_TRUE(test::holdsLock(database_));
  std::filesystem::create_symlink(database_, cartella_ / "compensi.csv");
  std::filesystem::create_hard_link(database_, cartella_ / "compensi.xlsx");
  for (const std::string& file : {database_, database_ + "-wal", database_ + "-shm",
                                  cartella_ / "compensi.csv", cartella_ / "compensi.xlsx"}) {
    EXPECT_THAT(rifiutato(file), HasSubstr("è il database in uso, o un suo file di lavoro")) << file;
    EXPECT_TRUE(test::holdsLock(database_)) << file;
  }
  EXPECT_EQ(rifiutato(cartella_.write("tabella.csv", "Codice\n")), "aperto");
  { const std::ifstream ogniAltroModo(database_); }
  EXPECT_FALSE(test::holdsLock(database_)) << "or the test proves nothing";
}

TEST_F(FileDelDatabase, OneThatIsGoingToBeUsedIsRefusedToo) {
  cartella_.write("domani.db", "");
  EXPECT_EQ(rifiutato(cartella_ / "domani.db"), "aperto");
  ricordaDatabase(nelFile(cartella_ / "domani.db"));
  EXPECT_THAT(rifiutato(cartella_ / "domani.db"), HasSubstr("è il database in uso"));
}

std::string inFinestra(const std::string& file) {
  try {
    apriConnessione(nelFile(file));
  } catch (const DatabaseError& errore) {
    return dettoInFinestra(errore);
  }
  return "aperto";
}

// Somebody at a window has neither a profile nor a command line.
TEST_F(FileDelDatabase, AWindowSaysWhatAClerkCanDo) {
  const auto perImpiegati =
      AllOf(Not(HasSubstr("profilo")), Not(HasSubstr("cuctl")), HasSubstr("finestra di avvio"));
  EXPECT_THAT(inFinestra(cartella_ / "manca.db"),
              AllOf(perImpiegati, HasSubstr("manca.db» non c'è: è stato spostato")));
  EXPECT_THAT(inFinestra(cartella_.write("lettera.db", std::string(4096, 'x'))),
              AllOf(perImpiegati, HasSubstr("lettera.db» non è un database.")));
  EXPECT_THAT(inFinestra(cartella_.write("vuoto.db", "")),
              AllOf(perImpiegati, HasSubstr("non contiene le tabelle della suite.")));
  EXPECT_EQ(dettoInFinestra(DatabaseError(DatabaseErrorKind::Locked, 5, "", "Occupato.")), "Occupato.");
  EXPECT_EQ(dettoInFinestra(std::runtime_error("boh")), "Errore interno: boh");
}

}  // namespace
}  // namespace cu
