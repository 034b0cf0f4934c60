// Connecting to a server: the errors when it cannot be reached, does not answer, or is of another kind.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

#include "socket_server.h"
#include "support.h"

namespace cu::odbc::test {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

constexpr const char* kSecret = "parola-segreta";

OdbcSettings freeTds(int port, int loginSeconds = 1) {
  OdbcSettings settings;
  settings.text = "Driver=FreeTDS;Server=127.0.0.1;Port=" + std::to_string(port) + ";Database=suite;UID=cu";
  settings.password = kSecret;
  settings.loginSeconds = loginSeconds;
  return settings;
}

DatabaseError opening(const OdbcSettings& settings) {
  return errorOf([&] { OdbcConnection::open(settings, ignore); });
}

double secondsOf(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

TEST(LoginThroughFreeTds, AClosedPortIsToldAtOnce) {
  const int port = cu::test::LoopbackSocket().port();
  for (const bool encrypt : {true, false}) {
    OdbcSettings settings = freeTds(port);
    settings.encrypt = encrypt;
    const DatabaseError error = opening(settings);
    EXPECT_EQ(error.kind(), DatabaseErrorKind::Unavailable);
    EXPECT_THAT(error.what(),
                StartsWith("Il server del database non si può raggiungere. Verificare "
                           "l'indirizzo nel profilo e la rete. Messaggio del driver (20009): Unable"));
    EXPECT_THAT(error.what(), Not(HasSubstr(kSecret)));
    EXPECT_EQ(error.statementKind(), "");
  }
}

TEST(LoginThroughFreeTds, APortThatNeverAnswersIsLeftAfterTheLoginTime) {
  const SocketServer silent("");
  for (const bool encrypt : {true, false}) {
    OdbcSettings settings = freeTds(silent.port());
    settings.encrypt = encrypt;
    std::optional<DatabaseError> error;
    const double seconds = secondsOf([&] { error = opening(settings); });
    EXPECT_EQ(error->kind(), DatabaseErrorKind::Timeout) << error->what();
    EXPECT_STREQ(
        error->what(),
        "Il server del database non ha risposto entro 1 secondi. Verificare l'indirizzo nel profilo e "
        "la rete, o aumentare login_timeout.");
    EXPECT_GE(seconds, 0.9);
    EXPECT_LT(seconds, 6);
  }
}

TEST(LoginThroughFreeTds, APortThatAnswersNonsenseIsNoServer) {
  for (const std::string& answer :
       {std::string("HTTP/1.1 400 Bad Request\r\nContent-Length: 0\r\n\r\n"), std::string(5000, '\0'),
        std::string("\x04\x01\x00\x08\x00\x00\x01\x00", 8)}) {
    const SocketServer other(answer);
    for (const bool encrypt : {true, false}) {
      OdbcSettings settings = freeTds(other.port());
      settings.encrypt = encrypt;
      std::optional<DatabaseError> error;
      const double seconds = secondsOf([&] { error = opening(settings); });
      EXPECT_THAT(error->kind(), ::testing::AnyOf(DatabaseErrorKind::Unavailable, DatabaseErrorKind::Timeout))
          << error->what();
      EXPECT_THAT(error->what(), AllOf(StartsWith("Il server del database non "), Not(HasSubstr(kSecret))));
      EXPECT_LT(seconds, 6);
    }
  }
}

TEST(LoginThroughFreeTds, AServerThatDoesNotEncryptIsToldSo) {
  TdsServer server([](std::string_view) { return TdsServer::Reply{tds::welcome()}; },
                   TdsServer::Tls::Missing);
  const DatabaseError error = opening(freeTds(server.port(), 15));
  EXPECT_EQ(error.kind(), DatabaseErrorKind::Unavailable);
  EXPECT_STREQ(
      error.what(),
      "Il server del database non ha stabilito una connessione cifrata. Verificare che all'indirizzo del "
      "profilo risponda SQL Server e che offra la cifratura (TLS) con un certificato valido. Solo in una "
      "rete "
      "fidata se ne può fare a meno, con encrypt = false nel profilo o con --no-encrypt. Messaggio del "
      "driver "
      "(20002): Adaptive Server connection failed");
  const std::string heard = server.heardInTheClear();
  EXPECT_FALSE(heard.empty());
  EXPECT_THAT(heard, Not(HasSubstr("suite")));
  // Without encryption, which the profile may permit, it is a server like any other.
  OdbcSettings settings = freeTds(server.port(), 15);
  settings.encrypt = false;
  EXPECT_TRUE(OdbcConnection::open(settings, ignore)->isSqlServer());
}

TEST(LoginThroughFreeTds, WhatTheServerSaysIsItsMessage) {
  const TdsServer server([](std::string_view statement) {
    if (statement.empty()) return TdsServer::Reply{tds::welcome()};
    return TdsServer::Reply{tds::error(50000, 16, "perché € Ж")};
  });
  const auto connection = OdbcConnection::open(freeTds(server.port(), 15), ignore);
  EXPECT_STREQ(
      errorOf([&] { connection->Execute("EXEC x"); }).what(),
      "Il server del database non accetta l'istruzione EXEC. Messaggio del server (50000): perché € Ж");
}

TEST(LoginThroughFreeTds, ALoginThatTheServerRejectsIsToldInItsWords) {
  const TdsServer server([](std::string_view) {
    return TdsServer::Reply{tds::error(18456, 14, "Login failed for user 'cu'.")};
  });
  EXPECT_STREQ(
      opening(freeTds(server.port(), 15)).what(),
      "Il server del database ha rifiutato l'utente o la password. Messaggio del server (18456): Login "
      "failed for user 'cu'.");
}

TEST(LoginThroughFreeTds, ThePasswordNeverTravelsInTheClear) {
  // The password may be sent only after the handshake, which does not take place here.
  const SocketServer other("no such protocol");
  opening(freeTds(other.port()));
  const std::string heard = other.heard();
  EXPECT_FALSE(heard.empty());
  EXPECT_THAT(heard, Not(HasSubstr(kSecret)));
  EXPECT_THAT(heard, Not(HasSubstr("suite")));
}

TEST(Login, APortThatIsSilentIsLeftByADriverThatWouldWait) {
  const SocketServer silent("");
  OdbcSettings settings;
  settings.text = "Driver={PostgreSQL Unicode};Server=127.0.0.1;Port=" + std::to_string(silent.port()) +
                  ";Database=postgres;UID=prova";
  settings.password = kSecret;
  settings.loginSeconds = 1;
  std::optional<DatabaseError> error;
  const double seconds = secondsOf([&] { error = opening(settings); });
  EXPECT_EQ(error->kind(), DatabaseErrorKind::Timeout) << error->what();
  EXPECT_LT(seconds, 6);
}

TEST(Login, AWrongPasswordIsToldWithoutIt) {
  OdbcSettings settings = settingsOf(server());
  settings.password = kSecret;
  const DatabaseError error = opening(settings);
  EXPECT_EQ(error.kind(), DatabaseErrorKind::Unavailable);
  EXPECT_THAT(error.what(), HasSubstr("password authentication failed"));
  EXPECT_THAT(error.what(), Not(HasSubstr(kSecret)));
}

TEST(Login, ADatabaseThatIsNotThereIsTold) {
  OdbcSettings settings = settingsOf(server());
  settings.text.replace(settings.text.find("=postgres"), 9, "=manca");
  const DatabaseError error = opening(settings);
  EXPECT_EQ(error.kind(), DatabaseErrorKind::Unavailable);
  EXPECT_THAT(error.what(), HasSubstr("database \"manca\" does not exist"));
}

TEST(Login, ADriverThatIsNotInstalledIsTold) {
  OdbcSettings settings = freeTds(1);
  settings.text = "Driver=Nessun Driver;Server=x;UID=y";
  EXPECT_THAT(opening(settings).what(),
              StartsWith("Il driver ODBC indicato non si può caricare. Messaggio del driver: "));
  settings.text = "DSN=nessuna_sorgente;UID=y";
  EXPECT_THAT(opening(settings).what(),
              StartsWith("Il driver o la sorgente ODBC dell'indirizzo non è installata su questo computer."));
}

TEST(Login, WhatIsNotSafeIsSaid) {
  std::vector<std::string> told;
  const auto note = [&](const std::string& text) { told.push_back(text); };
  OdbcConnection::open(settingsOf(server()), note);
  EXPECT_THAT(told,
              ::testing::ElementsAre(
                  "Il driver ODBC «PostgreSQL Unicode» non è fra quelli conosciuti: se la connessione è "
                  "cifrata dipende dall'indirizzo e dal driver."));
  told.clear();
  OdbcSettings open = freeTds(cu::test::LoopbackSocket().port());
  EXPECT_THROW(OdbcConnection::open(open, note), DatabaseError);
  EXPECT_TRUE(told.empty());
  open.encrypt = false;
  EXPECT_THROW(OdbcConnection::open(open, note), DatabaseError);
  EXPECT_THAT(told, ::testing::ElementsAre(
                        "Attenzione: la connessione con il server del database non è cifrata (encrypt = "
                        "false)."));
}

TEST(Login, ThePasswordIsGivenToTheDriverAsItIs) {
  // The password contains the special characters of the driver's text.
  EXPECT_EQ(single(*opened(), "SELECT current_user"), "prova");
}

TEST(Login, TheProductIsKnown) {
  const auto connection = opened();
  EXPECT_THAT(connection->product(), StartsWith("PostgreSQL "));
  EXPECT_FALSE(connection->isSqlServer());
}

}  // namespace
}  // namespace cu::odbc::test
