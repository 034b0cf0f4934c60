// The report on a database for an administrator.
#include "archive/controllo.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "archive/archivio_di_prova.h"
#include "archive/diritti.h"
#include "archive/schema.h"
#include "support/fake_connection.h"

namespace cu {
namespace {

using test::FakeConnection;
using test::Table;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

std::unique_ptr<SqliteConnection> archivio() {
  auto connessione = SqliteConnection::create(":memory:");
  creaSchema(*connessione);
  return connessione;
}

std::vector<std::string> mancanti(const std::vector<VoceControllo>& voci) {
  std::vector<std::string> righe;
  for (const VoceControllo& voce : voci) {
    if (voce.manca)
      righe.push_back(voce.oggetto + " " + voce.nome + " (" + voce.occorre + "): " + voce.stato);
  }
  return righe;
}

TEST(ControllaTabelle, OfACompleteDatabaseEachTableAndViewIsThere) {
  const auto modello = archivio();
  const auto voci = controllaTabelle(*archivio(), *modello);
  EXPECT_THAT(mancanti(voci), IsEmpty());
  ASSERT_EQ(voci.size(), nomiSchema().size());
  EXPECT_EQ(voci[0].oggetto, "Tabella");
  EXPECT_EQ(voci[0].nome, "Azienda");
  EXPECT_EQ(voci[0].occorre, "2 colonne");
  EXPECT_EQ(voci[0].stato, "presente");
  EXPECT_EQ(voci.back().oggetto, "Vista");
  EXPECT_EQ(voci.back().nome, "RepCertificazioneUnica");
}

TEST(ControllaTabelle, WhatIsMissingOrOfAnotherTypeIsNamed) {
  const auto modello = archivio();
  const auto connessione = archivio();
  connessione->Execute("DROP VIEW RepPercipienteCD");
  connessione->Execute("DROP TABLE PeriodoIva");
  connessione->Execute("DROP TABLE Azienda");
  connessione->Execute("CREATE TABLE Azienda (IDAzienda int NOT NULL PRIMARY KEY, Altra int)");
  connessione->Execute("DROP TABLE ConfigurazioneContabile");
  connessione->Execute(
      "CREATE TABLE ConfigurazioneContabile (idazienda Importo, INTERLINEAGIORNALE datetime)");
  EXPECT_THAT(
      mancanti(controllaTabelle(*connessione, *modello)),
      ElementsAre("Colonna Azienda.IDAnagrafica (un intero): MANCA",
                  "Colonna ConfigurazioneContabile.IDAzienda (un intero): È un importo",
                  "Colonna ConfigurazioneContabile.InterlineaGiornale (un testo): È una data",
                  "Tabella PeriodoIva (3 colonne): MANCA", "Vista RepPercipienteCD (5 colonne): MANCA",
                  "Vista RepCertificazioneUnica (147 colonne): MANCA"));
}

TEST(ControllaTabelle, AnEmptyDatabaseLacksEverything) {
  const auto modello = archivio();
  const auto voci = controllaTabelle(*SqliteConnection::create(":memory:"), *modello);
  EXPECT_EQ(mancanti(voci).size(), nomiSchema().size());
}

TEST(ControllaTabelle, WhatMayNotBeReadIsToldFromWhatIsNotThere) {
  const auto modello = archivio();
  FakeConnection connessione;
  connessione.refuseContaining("SELECT", DatabaseErrorKind::Other);
  const auto voci = controllaTabelle(connessione, *modello);
  EXPECT_EQ(voci[0].stato, "NON SI LEGGE");
  EXPECT_TRUE(voci[0].manca);
}

TEST(ControllaTabelle, AServerThatGoesAwayEndsIt) {
  const auto modello = archivio();
  FakeConnection connessione;
  connessione.refuseContaining("SELECT", DatabaseErrorKind::Unavailable);
  EXPECT_THROW(controllaTabelle(connessione, *modello), DatabaseError);
}

Value testo(const char* valore) { return Value::ofText(valore); }

// A server that has everything required.
void rispondi(FakeConnection& connessione, const char* versione, const char* ordinamento,
              std::vector<Value> diritti) {
  connessione.answerContaining("SERVERPROPERTY",
                               Table({"Versione", "Ordinamento"}, {{testo(versione), testo(ordinamento)}}));
  connessione.answerContaining("INFORMATION_SCHEMA.DOMAINS",
                               Table({"DOMAIN_NAME", "DATA_TYPE"}, {{testo("note"), testo("nvarchar")},
                                                                    {testo("Descrizione"), testo("varchar")},
                                                                    {testo("Importo"), testo("decimal")},
                                                                    {testo("SiNo"), testo("smallint")}}));
  const std::vector<Column> nomi(diritti.size(), Column{"D", ValueType::Integer});
  connessione.answerContaining("HAS_PERMS_BY_NAME", Table(nomi, {diritti}));
}

TEST(ControllaServer, AServerThatHasAllOfIt) {
  FakeConnection connessione;
  rispondi(connessione, "15.0.2000.5", "Latin1_General_CI_AS",
           std::vector<Value>(std::size(kDiritti), Value::ofInteger(1)));
  const auto voci = controllaServer(connessione);
  EXPECT_THAT(mancanti(voci), IsEmpty());
  EXPECT_EQ(voci.size(), 2 + 4 + std::size(kDiritti));
  EXPECT_EQ(voci[2].nome, "Note");
  EXPECT_EQ(voci[2].occorre, "varchar(1000)");
  EXPECT_EQ(voci[4].occorre, "decimal(18, 4)");
}

TEST(ControllaServer, WhatIsMissingIsNamed) {
  FakeConnection connessione;
  std::vector<Value> diritti(std::size(kDiritti), Value::ofInteger(1));
  diritti[1] = Value::ofInteger(0);
  diritti.back() = Value();
  rispondi(connessione, "10.50.1600.1", "Latin1_General_CS_AS", diritti);
  connessione.answerContaining("INFORMATION_SCHEMA.DOMAINS",
                               Table({"DOMAIN_NAME", "DATA_TYPE"}, {{testo("Note"), testo("text")},
                                                                    {testo("Descrizione"), testo("int")},
                                                                    {testo("SiNo"), testo("bit")}}));
  EXPECT_THAT(
      mancanti(controllaServer(connessione)),
      ElementsAre("Server versione (11 (SQL Server 2012) o successiva): 10.50.1600.1",
                  "Server ordinamento dei testi (senza distinzione di maiuscole, con gli accenti (CI_AS)): "
                  "Latin1_General_CS_AS",
                  "Tipo Descrizione (varchar(255)): È int", "Tipo Importo (decimal(18, 4)): MANCA",
                  "Diritto schema dbo (ALTER): MANCA", "Diritto TabellaRicorsione2 (DELETE): MANCA"));
}

TEST(ControllaServer, TheRightsAreAskedOfTheServerItself) {
  FakeConnection connessione;
  rispondi(connessione, "15.0.2000.5", "Latin1_General_CI_AS",
           std::vector<Value>(std::size(kDiritti), Value::ofInteger(1)));
  controllaServer(connessione);
  EXPECT_EQ(
      connessione.texts().back().substr(0, 200),
      std::string("SELECT HAS_PERMS_BY_NAME(DB_NAME(), 'DATABASE', 'CREATE TABLE') AS D, "
                  "HAS_PERMS_BY_NAME('dbo', 'SCHEMA', 'ALTER') AS D, HAS_PERMS_BY_NAME('dbo', 'SCHEMA', "
                  "'SELECT') AS D, HAS_PERMS_BY_NAME('dbo', 'SCHEMA', 'INSERT')")
          .substr(0, 200));
}

TEST(Diritti, AreThoseThatTheGuideGrants) {
  std::ifstream guida(std::string(CU_DOCS) + "/sqlserver.md");
  std::vector<std::string> concessi;
  for (std::string riga; std::getline(guida, riga);) {
    if (riga.starts_with("GRANT ")) concessi.push_back(riga);
  }
  std::vector<std::string> attesi;
  for (const Diritto& diritto : kDiritti) {
    std::string riga = "GRANT " + std::string(diritto.diritto);
    if (diritto.classe != "DATABASE") {
      riga += " ON " + std::string(diritto.classe) + "::" + (diritto.classe == "SCHEMA" ? "" : "dbo.") +
              std::string(diritto.oggetto);
    }
    attesi.push_back(riga + " TO cu;");
  }
  EXPECT_EQ(concessi, attesi);
}

}  // namespace
}  // namespace cu
