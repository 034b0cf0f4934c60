#include "apps/aziende/scelta_aziende.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <set>

#include "apps/comune/connessioni.h"
#include "archive/archivio.h"
#include "sqlite/sqlite_connection.h"
#include "support/temp_folder.h"

namespace cu {
namespace {

using ::testing::HasSubstr;

AziendaTrovata azienda(std::int32_t numero, const std::string& codice) {
  return {numero, numero * 10, "Azienda " + std::to_string(numero), codice, "2017"};
}

DatabaseScelto database(const std::string& nome, std::vector<AziendaTrovata> aziende) {
  DatabaseScelto uno;
  uno.nome = nome;
  uno.database.origine = "/dati/" + nome + ".db";
  uno.aziende = std::move(aziende);
  return uno;
}

std::vector<std::string> cartelle(const std::vector<AziendaScelta>& scelte) {
  std::vector<std::string> nomi;
  for (const AziendaScelta& scelta : scelte) nomi.push_back(scelta.cartella);
  return nomi;
}

std::string errore(const std::vector<DatabaseScelto>& dove, const std::vector<std::string>& richieste) {
  try {
    scegliAziende(dove, richieste);
    return "";
  } catch (const SceltaErrata& errata) {
    return errata.what();
  }
}

const std::vector<DatabaseScelto> kUno = {
    database("studio", {azienda(1, "01234567890"), azienda(2, "rssmrc71c08l781i"), azienda(3, "")})};

TEST(ScegliAziende, AllOfThemEachWithItsFolder) {
  EXPECT_EQ(cartelle(scegliAziende(kUno, {})),
            (std::vector<std::string>{"01234567890", "RSSMRC71C08L781I", "azienda-3"}));
}

TEST(ScegliAziende, ByNumberOrByCodeInTheOrderOfTheDatabase) {
  const auto scelte = scegliAziende(kUno, {"3", "01234567890", "RSSMRC71C08L781I"});
  ASSERT_EQ(scelte.size(), 3U);
  EXPECT_EQ(scelte[0].azienda.azienda, 1);
  EXPECT_EQ(scegliAziende(kUno, {"2", "2"}).size(), 1U);
}

TEST(ScegliAziende, OneThatNobodyHasIsAnError) {
  EXPECT_THAT(errore(kUno, {"1", "4"}), HasSubstr("Nessuna azienda 4"));
  EXPECT_THAT(errore(kUno, {"99999999999"}), HasSubstr("Nessuna azienda 99999999999"));
}

TEST(ScegliAziende, CompaniesWithOneCodeHaveFoldersOfTheirOwnAndAreAskedForByNumber) {
  const std::vector<DatabaseScelto> doppie = {
      database("studio", {azienda(1, "01234567890"), azienda(2, "01234567890"), azienda(3, "09876543210")})};
  EXPECT_EQ(cartelle(scegliAziende(doppie, {})),
            (std::vector<std::string>{"01234567890-1", "01234567890-2", "09876543210"}));
  // The name does not depend on what is asked for.
  EXPECT_EQ(cartelle(scegliAziende(doppie, {"2"})), std::vector<std::string>{"01234567890-2"});
  EXPECT_THAT(errore(doppie, {"01234567890"}), HasSubstr("01234567890: 1, 2."));
}

TEST(ScegliAziende, TwoDatabasesHaveFoldersOfTheirOwn) {
  const std::vector<DatabaseScelto> due = {database("nord", {azienda(1, "01234567890")}),
                                           database("sud", {azienda(1, "01234567890"), azienda(2, "2")})};
  EXPECT_EQ(cartelle(scegliAziende(due, {})),
            (std::vector<std::string>{"nord/01234567890", "sud/01234567890", "sud/2"}));
  EXPECT_EQ(scegliAziende(due, {"01234567890"}).size(), 2U);
  EXPECT_EQ(cartelle(scegliAziende(due, {"2"})), std::vector<std::string>{"sud/2"});
  EXPECT_EQ(dettaAzienda(due, scegliAziende(due, {})[1]), "sud, Azienda 1 (01234567890, azienda 1)");
}

TEST(ScegliAziende, ACodeIsNoPath) {
  const std::vector<DatabaseScelto> strani = {database("a", {azienda(1, "../../x"), azienda(2, "  ")})};
  EXPECT_EQ(cartelle(scegliAziende(strani, {})), (std::vector<std::string>{"______X", "azienda-2"}));
}

TEST(NumeroSessione, IsOfOneUserAndCompanyAlone) {
  EXPECT_EQ(numeroSessione(12, 3), 1001200003);
  constexpr std::int32_t kMassimo = std::numeric_limits<std::int32_t>::max();
  std::set<std::int32_t> numeri;
  std::size_t quanti = 0;
  for (const std::int32_t utente : {0, 1, 12, 9999, 10000, kMassimo, -1}) {
    for (const std::int32_t una : {0, 1, 2, 99999, 100000, 100001, kMassimo}) {
      const std::int32_t numero = numeroSessione(utente, una);
      EXPECT_GE(numero, 1000000000);
      numeri.insert(numero);
      ++quanti;
    }
  }
  EXPECT_EQ(numeri.size(), quanti);
}

TEST(ProfiloPer, HasTheSettingsOfTheProfileAndWhatIsTheCompanys) {
  Profilo profilo;
  profilo.sessione.utente = 12;
  profilo.sessione.azienda = 2;
  profilo.sessione.filiale = 77;
  profilo.sessione.titolo = "Studio";
  profilo.traccia = "/tracce/traccia.sql";
  profilo.database = kUno[0].database;
  const auto scelte = scegliAziende(kUno, {});
  const Profilo primo = profiloPer(profilo, kUno, scelte[0]);
  EXPECT_EQ(primo.sessione.azienda, 1);
  EXPECT_EQ(primo.sessione.filiale, 10);
  EXPECT_EQ(primo.sessione.utente, numeroSessione(12, 1));
  EXPECT_EQ(primo.sessione.titolo, "Studio");
  EXPECT_EQ(primo.traccia, "/tracce/traccia-1.sql");
  EXPECT_GT(primo.database.secondiAttesa.value_or(0), 60);
  // The company of the profile keeps its branch.
  EXPECT_EQ(profiloPer(profilo, kUno, scelte[1]).sessione.filiale, 77);
  const std::vector<DatabaseScelto> due = {kUno[0], database("sud", {azienda(2, "2")})};
  const Profilo altro = profiloPer(profilo, due, scegliAziende(due, {}).back());
  EXPECT_EQ(altro.sessione.filiale, 20);
  EXPECT_EQ(altro.database.origine, "/dati/sud.db");
  EXPECT_EQ(altro.traccia, "/tracce/traccia-sud-2.sql");
  profilo.traccia.clear();
  EXPECT_EQ(profiloPer(profilo, kUno, scelte[0]).traccia, "");
}

TEST(LeggiDatabase, GivesTheCompaniesOfEachAndDifferentNames) {
  const test::TempFolder cartella;
  std::vector<Profilo::Database> indicati;
  for (const char* sotto : {"a", "b"}) {
    std::filesystem::create_directory(cartella / sotto);
    Profilo::Database uno;
    uno.origine = cartella / (std::string(sotto) + "/Studio Rossi.db");
    creaArchivio(*SqliteConnection::create(uno.origine), ContenutoArchivio::Sintetico,
                 {.percipienti = 2, .primoAnno = 2017, .ultimoAnno = 2017, .aziende = 3});
    indicati.push_back(uno);
  }
  const auto letti = leggiDatabase(indicati, &apriConnessione);
  ASSERT_EQ(letti.size(), 2U);
  EXPECT_EQ(letti[0].nome, "Studio_Rossi");
  EXPECT_EQ(letti[1].nome, "Studio_Rossi-2");
  ASSERT_EQ(letti[0].aziende.size(), 3U);
  EXPECT_EQ(letti[0].aziende[0].nome, "Azienda Sintetica 0002 S.p.A.");
  EXPECT_EQ(letti[0].aziende[0].azienda, 2);
  EXPECT_EQ(letti[0].aziende[0].ultimoAnno, "2017");
}

}  // namespace
}  // namespace cu
