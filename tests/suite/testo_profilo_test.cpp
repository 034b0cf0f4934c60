#include "suite/testo_profilo.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace cu {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

Profilo profiloScritto() {
  Profilo profilo;
  profilo.file = "p.toml";
  profilo.sessione.utente = 12;
  profilo.sessione.azienda = 3;
  profilo.sessione.filiale = 4;
  profilo.sessione.titolo = "Studio \"Rossi\"\t\\ è";
  profilo.sessione.cartellaGuida = "/guida";
  profilo.sessione.contestoGuida = 7;
  profilo.sessione.sezioneImpostazioni = "Sessione12";
  profilo.sessione.processi = {{"Wizard stampa", 247}, {"Altro", 246}};
  profilo.database.origine = "/dati/è qui.db";
  profilo.valuta = {true, "€", ",", "."};
  profilo.documenti = "/documenti\x7f";
  profilo.impostazioni = "/impostazioni.toml";
  return profilo;
}

Profilo riletto(const Profilo& profilo) {
  return analizzaProfilo(testoProfilo(profilo), "p.toml", "/altrove");
}

TEST(TestoProfilo, IsReadBackAsItIs) {
  Profilo profilo = profiloScritto();
  profilo.stampa = Profilo::MotoreStampa::Registro;
  profilo.traccia = "/traccia.sql";
  profilo.moduliPubblicati = true;
  profilo.registro = "/registro.log";
  const Profilo letto = riletto(profilo);
  EXPECT_EQ(letto.sessione.utente, 12);
  EXPECT_EQ(letto.sessione.azienda, 3);
  EXPECT_EQ(letto.sessione.filiale, 4);
  EXPECT_EQ(letto.sessione.titolo, profilo.sessione.titolo);
  EXPECT_EQ(letto.sessione.cartellaGuida, "/guida");
  EXPECT_EQ(letto.sessione.contestoGuida, 7);
  EXPECT_EQ(letto.sessione.sezioneImpostazioni, "Sessione12");
  ASSERT_EQ(letto.sessione.processi.size(), 2U);
  EXPECT_EQ(letto.sessione.processi[1].nome, "Altro");
  EXPECT_EQ(letto.sessione.processi[1].idFunzione, 246);
  EXPECT_EQ(letto.database.motore, Profilo::Motore::Sqlite);
  EXPECT_EQ(letto.database.origine, profilo.database.origine);
  EXPECT_TRUE(letto.valuta.decimali);
  EXPECT_EQ(letto.valuta.simbolo + letto.valuta.separatoreDecimale + letto.valuta.separatoreMigliaia, "€,.");
  EXPECT_EQ(letto.documenti, profilo.documenti);
  EXPECT_EQ(letto.impostazioni, profilo.impostazioni);
  EXPECT_EQ(letto.stampa, Profilo::MotoreStampa::Registro);
  EXPECT_EQ(letto.traccia, "/traccia.sql");
  EXPECT_TRUE(letto.moduliPubblicati);
  EXPECT_EQ(letto.registro, "/registro.log");
}

TEST(TestoProfilo, OfAServerNamesAtMostTheVariableOfThePassword) {
  Profilo profilo = profiloScritto();
  profilo.database.motore = Profilo::Motore::Odbc;
  profilo.database.origine = "Driver=FreeTDS;Server={un nome};UID=cu";
  profilo.database.cifrata = false;
  profilo.database.secondiAccesso = 20;
  profilo.database.secondiIstruzione = 0;
  EXPECT_THAT(testoProfilo(profilo), HasSubstr("\n# password_env = "));
  Profilo letto = riletto(profilo);
  EXPECT_EQ(letto.database.motore, Profilo::Motore::Odbc);
  EXPECT_EQ(letto.database.origine, profilo.database.origine);
  EXPECT_EQ(letto.database.variabilePassword, "");
  EXPECT_FALSE(letto.database.cifrata);
  EXPECT_EQ(letto.database.secondiAccesso, 20);
  EXPECT_EQ(letto.database.secondiIstruzione, 0);
  profilo.database.variabilePassword = "SEGRETO";
  EXPECT_THAT(testoProfilo(profilo), Not(HasSubstr("# password_env")));
  EXPECT_EQ(riletto(profilo).database.variabilePassword, "SEGRETO");
}

}  // namespace
}  // namespace cu
