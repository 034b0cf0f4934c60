#include "apps/comune/copia_sicurezza.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "apps/comune/connessioni.h"
#include "archive/archivio.h"
#include "archive/schema.h"
#include "base/error.h"
#include "sqlite/sqlite_connection.h"
#include "support/fixed_clock.h"
#include "support/temp_folder.h"

namespace cu {
namespace {

using ::testing::HasSubstr;

Profilo::Database incorporato(const std::string& file) {
  Profilo::Database database;
  database.origine = file;
  return database;
}

DatabaseError rifiutoDi(const std::function<void()>& lavoro) {
  try {
    lavoro();
  } catch (const DatabaseError& errore) {
    return errore;
  }
  ADD_FAILURE() << "nothing was raised";
  return {DatabaseErrorKind::Other, 0, "", ""};
}

class CopiaDiSicurezza : public ::testing::Test {
 protected:
  CopiaDiSicurezza() { creaArchivio(*creaConnessione(incorporato(database_)), ContenutoArchivio::Vuoto); }
  void esegui(const std::string& istruzione) { apriConnessione(incorporato(database_))->Execute(istruzione); }

  test::TempFolder cartella_;
  std::string database_ = cartella_ / "studio.db";
  std::string copia_ = cartella_ / "copia.db";
  const test::FixedClock orologio_{Date::fromYmd(2027, 3, 5).value(), {9, 5, 7}};
};

TEST_F(CopiaDiSicurezza, NamesHaveTheDatabaseAndTheMoment) {
  EXPECT_EQ(nomeCopia(database_, "/copie", orologio_), "/copie/studio-2027-03-05-090507.db");
  EXPECT_EQ(nomeCopia("/dati/senza punto", "/copie", orologio_), "/copie/senza punto-2027-03-05-090507.db");
  const std::string tenuto = cartella_ / "studio-prima-del-ripristino-2027-03-05-090507";
  EXPECT_EQ(nomeTenuto(database_, orologio_), tenuto + ".db");
  cartella_.write("studio-prima-del-ripristino-2027-03-05-090507.db", "");
  EXPECT_EQ(nomeTenuto(database_, orologio_), tenuto + "-2.db");
  std::filesystem::create_directory(cartella_ / "altrove");
  std::filesystem::create_symlink(database_, cartella_ / "altrove/legame.db");
  EXPECT_EQ(nomeTenuto(cartella_ / "altrove/legame.db", orologio_), tenuto + "-2.db")
      << "beside the file itself";
}

TEST_F(CopiaDiSicurezza, ItsSizeIsToldInWords) {
  EXPECT_EQ(dettaCopia({.bytes = 3'355'443, .tables = 41, .rows = 12345}),
            "41 tabelle, 12.345 righe, 3,1 MB");
  EXPECT_EQ(dettaCopia({.bytes = 100, .tables = 1, .rows = 1}), "1 tabella, 1 riga, 0,0 MB");
}

TEST_F(CopiaDiSicurezza, OnlyAnEmbeddedDatabaseIsCopied) {
  Profilo::Database server;
  server.motore = Profilo::Motore::Odbc;
  server.origine = "Driver=FreeTDS";
  EXPECT_THAT(rifiutoDi([&] { copiaDatabase(server, copia_, false); }).what(),
              HasSubstr("strumenti del server"));
  EXPECT_THAT(rifiutoDi([&] { ripristinaDatabase(server, copia_, cartella_ / "x"); }).what(),
              HasSubstr("strumenti del server"));
}

TEST_F(CopiaDiSicurezza, WhatCouldNotBeRestoredIsNotCopied) {
  cartella_.write("vuoto.db", "");
  EXPECT_THAT(rifiutoDi([&] { copiaDatabase(incorporato(cartella_ / "vuoto.db"), copia_, false); }).what(),
              HasSubstr("è vuoto: non c'è niente da copiare"));
  EXPECT_EQ(cartella_.read("vuoto.db"), "");
  SqliteConnection::create(cartella_ / "altro.db")->Execute("CREATE TABLE Appunti (Testo TEXT)");
  EXPECT_THAT(rifiutoDi([&] { copiaDatabase(incorporato(cartella_ / "altro.db"), copia_, false); }).what(),
              HasSubstr("ma non di questo programma"));
  EXPECT_FALSE(std::filesystem::exists(copia_));
}

TEST_F(CopiaDiSicurezza, ACopyOfTheProgramsOwnComesBack) {
  EXPECT_GT(copiaDatabase(incorporato(database_), copia_, false).rows, 8000U);
  esegui("DELETE FROM Comune");
  EXPECT_TRUE(ripristinaDatabase(incorporato(database_), copia_, cartella_ / "prima.db"));
  EXPECT_FALSE(ripristinaDatabase(incorporato(cartella_ / "nuovo.db"), copia_, cartella_ / "prima 2.db"));
  for (const char* const nome : {"studio.db", "nuovo.db"}) {
    for (const VoceControllo& voce : controllaDatabase(incorporato(cartella_ / nome)))
      EXPECT_FALSE(voce.manca);
  }
}

// One that a suite has made, or an earlier version of the program, has no mark and is welcome.
TEST_F(CopiaDiSicurezza, ACopyIsOfThisProgramAndNotOfALaterVersion) {
  esaminaCopia(database_);
  esegui("UPDATE CuArchivio SET Versione = " + std::to_string(kVersioneArchivio + 1));
  EXPECT_THAT(rifiutoDi([&] { esaminaCopia(database_); }).what(), HasSubstr("da una versione più nuova"));
  esegui("DROP TABLE CuArchivio");
  esaminaCopia(database_);
  cartella_.write("vuoto.db", "");
  EXPECT_EQ(rifiutoDi([&] { esaminaCopia(cartella_ / "vuoto.db"); }).kind(), DatabaseErrorKind::NoSchema);
}

TEST_F(CopiaDiSicurezza, TheMarkOfANewDatabaseIsTheVersionThatIsKnown) {
  RowStore righe;
  apriConnessione(incorporato(database_))->Query("SELECT MAX(Versione) FROM CuArchivio", righe);
  CellView versione;
  righe.read(0, &versione);
  EXPECT_EQ(versione.integer(), kVersioneArchivio);
}

}  // namespace
}  // namespace cu
