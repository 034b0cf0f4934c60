// A database server: cuctl check and create, and the handling of the password.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>

#include "support/postgres_server.h"
#include "system/posto_support.h"
#include "system/terminale_support.h"

namespace cu::test {
namespace {

using ::testing::AllOf;
using ::testing::ContainsRegex;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

PostgresServer& server() {
  static PostgresServer condiviso;
  return condiviso;
}

constexpr const char* kVariabile = "CU_PASSWORD_DI_PROVA";

class Server : public ::testing::Test {
 protected:
  Server() : posto_(Posto::Database::Nessuno) { ::setenv(kVariabile, PostgresServer::kPassword, 1); }
  ~Server() override { ::unsetenv(kVariabile); }
  Posto posto_;
};

TEST_F(Server, OneThatIsNotSqlServerIsTold) {
  for (const char* comando : {"check", "create"}) {
    const Esecuzione esito =
        posto_.cuctl({comando, "--database", "odbc:" + server().text(), "--password-env", kVariabile});
    EXPECT_EQ(esito.codice, 1) << comando;
    EXPECT_THAT(esito.errori, HasSubstr("Il server dell'indirizzo non è Microsoft SQL Server: risponde "
                                        "«PostgreSQL "));
    EXPECT_THAT(esito.errori, Not(HasSubstr(PostgresServer::kPassword)));
    EXPECT_EQ(esito.uscita, "");
  }
}

TEST_F(Server, AWrongPasswordIsShownNowhere) {
  ::setenv(kVariabile, "parola-sbagliata", 1);
  posto_.imposta("database.url", "\"odbc:" + server().text() + "\"");
  posto_.imposta("database.password_env", "\"" + std::string(kVariabile) + "\"");
  const auto processo = posto_.guida();
  const std::string risposta = processo->riga().value_or("");
  EXPECT_THAT(risposta, HasSubstr("password authentication failed"));
  processo->scrivi("{\"do\":\"answer\",\"with\":\"ok\"}\n");
  const std::string resto = processo->resto();
  EXPECT_EQ(processo->codice(), 1);
  for (const std::string& testo : {risposta, resto, processo->errori(), posto_.cartella().read("trace.sql"),
                                   posto_.cartella().read("settings.toml")}) {
    EXPECT_THAT(testo, Not(HasSubstr("parola-sbagliata")));
  }
}

TEST_F(Server, AClosedPortIsTold) {
  const std::string indirizzo = "odbc:Driver=FreeTDS;Server=127.0.0.1;Database=x;UID=cu;Port=" +
                                std::to_string(LoopbackSocket().port());
  const Esecuzione cifrata = posto_.cuctl({"check", "--database", indirizzo, "--password-env", kVariabile});
  EXPECT_EQ(cifrata.codice, 1);
  EXPECT_THAT(cifrata.errori, StartsWith("Il server del database non si può raggiungere."));
  const Esecuzione inChiaro =
      posto_.cuctl({"check", "--database", indirizzo, "--password-env", kVariabile, "--no-encrypt"});
  EXPECT_EQ(inChiaro.codice, 1);
  EXPECT_THAT(inChiaro.errori,
              StartsWith("Attenzione: la connessione con il server del database non è cifrata"));
}

TEST_F(Server, AtATerminalThePasswordIsAskedForAndNotShown) {
  const AlTerminale giusta({"check", "--database", "odbc:" + server().text()},
                           std::string(PostgresServer::kPassword) + "\n");
  EXPECT_EQ(giusta.codice, 1);
  EXPECT_THAT(giusta.visto, AllOf(StartsWith("Password del database: "), HasSubstr("risponde «PostgreSQL "),
                                  Not(HasSubstr(PostgresServer::kPassword))));
  const AlTerminale sbagliata({"check", "--database", "odbc:" + server().text()}, "parola-sbagliata\n");
  EXPECT_THAT(sbagliata.visto,
              AllOf(HasSubstr("password authentication failed"), Not(HasSubstr("parola-sbagliata"))));
}

TEST(Check, ACompleteDatabaseHasAllThatIsNeeded) {
  Posto posto;
  const Esecuzione esito = posto.sulDatabase("check");
  EXPECT_EQ(esito.codice, 0) << esito.errori;
  EXPECT_THAT(esito.uscita, StartsWith("Oggetto | Nome"));
  EXPECT_THAT(esito.uscita, HasSubstr("\nVista   | RepContoIndividuale"));
  EXPECT_THAT(esito.uscita, HasSubstr("\nIl database ha tutto quello che occorre.\n"));
  EXPECT_EQ(esito.errori, "");
}

TEST(Check, WhatIsMissingIsMarkedAndEndsWithOne) {
  Posto posto;
  posto.lettore()->esegui("ALTER TABLE ConfigurazioneContabile DROP COLUMN InterlineaGiornale");
  const std::string prima = posto.cartella().read("demo.db");
  const Esecuzione esito = posto.sulDatabase("check");
  EXPECT_EQ(esito.codice, 1);
  EXPECT_THAT(
      esito.uscita,
      ContainsRegex("Colonna \\| ConfigurazioneContabile.InterlineaGiornale +\\| un testo +\\| \\* MANCA\n"));
  EXPECT_THAT(esito.errori, HasSubstr("sono segnate con un asterisco.\n"));
  EXPECT_TRUE(posto.cartella().read("demo.db") == prima);
}

TEST(Check, WrongUsageEndsWithTwo) {
  Posto posto(Posto::Database::Nessuno);
  EXPECT_EQ(posto.cuctl({"check"}).codice, 2);
  EXPECT_EQ(posto.cuctl({"check", "--database", "altro:x"}).codice, 2);
  EXPECT_EQ(posto.cuctl({"check", "--database", "sqlite:manca.db"}).codice, 1);
  EXPECT_THAT(posto.file(""), ::testing::ElementsAre(".errori", "Documenti"));
}

}  // namespace
}  // namespace cu::test
