// Errors of a server, and the state after it has disconnected.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <thread>

#include "odbc/diagnostics.h"
#include "odbc/without_values.h"
#include "support.h"

namespace cu::odbc::test {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

TEST(Refusals, EachIsOfItsKindAndShowsNoValue) {
  const auto connection = opened();
  connection->Execute("CREATE TEMPORARY TABLE t (id int NOT NULL PRIMARY KEY, nome varchar(10) NOT NULL)");
  connection->Execute("INSERT INTO t VALUES (1, 'segreto')");
  struct Case {
    const char* text;
    DatabaseErrorKind kind;
    const char* statement;
    const char* begins;
  };
  const Case cases[] = {
      {"INSERT INTO t VALUES (1, 'segreto')", DatabaseErrorKind::Duplicate, "INSERT",
       "Esiste già una riga con la stessa chiave. Messaggio del server"},
      {"update t SET nome = NULL WHERE nome = 'segreto'", DatabaseErrorKind::Constraint, "UPDATE",
       "Una colonna non ammette il valore nullo. Messaggio del server"},
      {"SELECT manca FROM t WHERE nome = 'segreto'", DatabaseErrorKind::Syntax, "SELECT",
       "Il server del database non accetta l'istruzione SELECT. Messaggio del server"},
      {"SELECT * FROM t WHERE nome = segreto segreto 'segreto'", DatabaseErrorKind::Syntax, "SELECT",
       "Il server del database non accetta l'istruzione SELECT. Messaggio del server"},
      {"UPDATE t SET id = CAST('segreto' AS int)", DatabaseErrorKind::Other, "UPDATE",
       "Il server del database ha rifiutato l'istruzione UPDATE. Messaggio del server"},
      {"INSERT INTO t VALUES (2, 'segreto troppo lungo')", DatabaseErrorKind::Other, "INSERT",
       "Un testo è più lungo della colonna che lo riceve. Messaggio del server"},
      {"DROP TABLE manca", DatabaseErrorKind::Missing, "DROP",
       "Il server del database non accetta l'istruzione DROP. Messaggio del server"},
  };
  for (const Case& each : cases) {
    const DatabaseError error = errorOf([&] { connection->Execute(each.text); });
    EXPECT_EQ(error.kind(), each.kind) << each.text << ": " << error.what();
    EXPECT_EQ(error.statementKind(), each.statement);
    EXPECT_THAT(error.what(), AllOf(StartsWith(each.begins), Not(HasSubstr("'segreto"))));
    EXPECT_EQ(error.number(), kErrorDatabase);
  }
  // The connection remains usable.
  EXPECT_EQ(single(*connection, "SELECT COUNT(*) FROM t"), "1");
}

TEST(Refusals, ALockIsOfItsKind) {
  const auto one = opened();
  const auto other = opened();
  one->Execute("CREATE TABLE bloccata (a int)");
  one->Execute("BEGIN TRANSACTION");
  one->Execute("LOCK TABLE bloccata");
  other->Execute("BEGIN TRANSACTION");
  const DatabaseError error = errorOf([&] { other->Execute("LOCK TABLE bloccata NOWAIT"); });
  EXPECT_EQ(error.kind(), DatabaseErrorKind::Locked) << error.what();
  other->Execute("ROLLBACK TRANSACTION");
  one->Execute("ROLLBACK TRANSACTION");
  one->Execute("DROP TABLE bloccata");
}

TEST(Refusals, ATransactionIsKeptOrTakenBack) {
  const auto connection = opened();
  connection->Execute("CREATE TEMPORARY TABLE t (id int)");
  connection->Execute("BEGIN TRANSACTION");
  connection->Execute("INSERT INTO t VALUES (1)");
  connection->Execute("ROLLBACK TRANSACTION");
  EXPECT_EQ(single(*connection, "SELECT COUNT(*) FROM t"), "0");
  connection->Execute("BEGIN TRANSACTION");
  connection->Execute("INSERT INTO t VALUES (1)");
  connection->Execute("COMMIT TRANSACTION");
  EXPECT_EQ(single(*connection, "SELECT COUNT(*) FROM t"), "1");
}

TEST(Drops, AServerKilledInMidQueryIsToldOnceAndTheNextStatementFindsItAgain) {
  PostgresServer own;
  const auto connection = OdbcConnection::open(settingsOf(own), ignore);
  connection->Execute("CREATE TABLE resta (a int)");
  connection->Execute("CHECKPOINT");
  RowStore before;
  connection->Query("SELECT 1 AS a", before);
  std::thread killer([&] {
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    own.stop();
  });
  const DatabaseError error = errorOf([&] { query(*connection, "SELECT pg_sleep(20)"); });
  killer.join();
  EXPECT_EQ(error.kind(), DatabaseErrorKind::Unavailable);
  EXPECT_EQ(error.statementKind(), "SELECT");
  EXPECT_STREQ(error.what(), kDropped);
  // The rows already read are kept.
  EXPECT_EQ(before.size(), 1u);
  // While the server is away, that is reported.
  EXPECT_EQ(errorOf([&] { query(*connection, "SELECT 1"); }).kind(), DatabaseErrorKind::Unavailable);
  own.start();
  EXPECT_EQ(single(*connection, "SELECT COUNT(*) FROM resta"), "0");
}

TEST(Drops, ASessionThatTheServerEndsIsToldOnce) {
  const auto connection = opened();
  const std::string process = single(*connection, "SELECT pg_backend_pid()");
  EXPECT_EQ(single(*opened(), "SELECT CAST(pg_terminate_backend(" + process + ") AS int)"), "1");
  EXPECT_STREQ(errorOf([&] { connection->Execute("SELECT 1"); }).what(), kDropped);
  EXPECT_EQ(single(*connection, "SELECT 1"), "1");
}

TEST(Timeouts, AStatementThatTakesTooLongIsEndedAndTheConnectionGoesOn) {
  OdbcSettings settings = settingsOf(server());
  settings.statementSeconds = 1;
  const auto connection = OdbcConnection::open(settings, ignore);
  connection->Execute("CREATE TEMPORARY TABLE resta (a int)");
  const auto start = std::chrono::steady_clock::now();
  const DatabaseError error = errorOf([&] { query(*connection, "SELECT pg_sleep(20)"); });
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(3));
  EXPECT_EQ(error.kind(), DatabaseErrorKind::Timeout);
  EXPECT_STREQ(error.what(),
               "Il server del database non ha terminato l'istruzione SELECT entro 1 secondi. Ripetere "
               "l'operazione, o aumentare statement_timeout nel profilo.");
  EXPECT_EQ(single(*connection, "SELECT COUNT(*) FROM resta"), "0");
}

TEST(Timeouts, AServerThatHangsIsLeftAndFoundAgain) {
  OdbcSettings settings = settingsOf(server());
  settings.statementSeconds = 1;
  const auto connection = OdbcConnection::open(settings, ignore);
  const pid_t process = std::stoi(single(*connection, "SELECT pg_backend_pid()"));
  ASSERT_EQ(::kill(process, SIGSTOP), 0);
  const auto start = std::chrono::steady_clock::now();
  const DatabaseError error = errorOf([&] { query(*connection, "SELECT 1"); });
  const auto took = std::chrono::steady_clock::now() - start;
  ::kill(process, SIGCONT);
  EXPECT_EQ(error.kind(), DatabaseErrorKind::Timeout) << error.what();
  EXPECT_LT(took, std::chrono::seconds(8));
  EXPECT_EQ(single(*connection, "SELECT 1"), "1");
}

// As passed on by Microsoft's driver, and the driver's own messages.
Diagnostic fromServer(const char* state, int number, const std::string& words) {
  return diagnosticOf(state, number, "[Microsoft][ODBC Driver 18 for SQL Server][SQL Server]" + words);
}
Diagnostic fromDriver(const char* state, int number, const std::string& words) {
  return diagnosticOf(state, number, "[Microsoft][ODBC Driver 18 for SQL Server]" + words);
}
Diagnostic fromFreeTds(const char* state, int number, const std::string& words) {
  return diagnosticOf(state, number, "[FreeTDS][SQL Server]" + words);
}

DatabaseError of(const char* state, int number, const char* message = "server's words") {
  return odbc::errorOf({fromServer(state, number, message)}, {"UPDATE", "", 5});
}

TEST(ServerNumbers, HaveTheirKinds) {
  struct Case {
    const char* state;
    int number;
    DatabaseErrorKind kind;
  };
  const Case cases[] = {
      {"23000", 2627, DatabaseErrorKind::Duplicate},    {"23000", 2601, DatabaseErrorKind::Duplicate},
      {"23000", 515, DatabaseErrorKind::Constraint},    {"23000", 547, DatabaseErrorKind::Constraint},
      {"42S02", 208, DatabaseErrorKind::Missing},       {"42S02", 3701, DatabaseErrorKind::Missing},
      {"42S01", 2714, DatabaseErrorKind::Exists},       {"42S22", 207, DatabaseErrorKind::Syntax},
      {"42000", 102, DatabaseErrorKind::Syntax},        {"42000", 229, DatabaseErrorKind::Other},
      {"40001", 1205, DatabaseErrorKind::Locked},       {"42000", 1222, DatabaseErrorKind::Locked},
      {"42000", 1105, DatabaseErrorKind::Full},         {"42000", 9002, DatabaseErrorKind::Full},
      {"42000", 3906, DatabaseErrorKind::ReadOnly},     {"HY000", 824, DatabaseErrorKind::Corrupt},
      {"28000", 18456, DatabaseErrorKind::Unavailable}, {"42000", 4060, DatabaseErrorKind::Unavailable},
      {"42000", 911, DatabaseErrorKind::Unavailable},   {"22001", 8152, DatabaseErrorKind::Other},
      {"HYT00", 0, DatabaseErrorKind::Timeout},         {"08S01", 20004, DatabaseErrorKind::Unavailable},
      {"22012", 8134, DatabaseErrorKind::Other},
  };
  for (const Case& each : cases) {
    const DatabaseError error = of(each.state, each.number);
    EXPECT_EQ(error.kind(), each.kind) << each.state << ' ' << each.number;
    EXPECT_EQ(error.statementKind(), "UPDATE");
  }
}

TEST(ServerNumbers, StandInTheTextWithTheServersWords) {
  EXPECT_STREQ(
      of("23000", 2627, "Violation of PRIMARY KEY constraint 'PK_t'.").what(),
      "Esiste già una riga con la stessa chiave. Messaggio del server (2627): Violation of PRIMARY KEY "
      "constraint 'PK_t'.");
  EXPECT_EQ(of("23000", 2627).nativeCode(), 2627);
}

TEST(ServerNumbers, TheServersOwnWordsCountBeforeTheDrivers) {
  const DatabaseError error = odbc::errorOf({fromFreeTds("01000", 5701, "Changed database context"),
                                             fromFreeTds("08001", 20002, "Adaptive Server connection failed"),
                                             fromFreeTds("28000", 18456, "Login failed for user 'cu'.")},
                                            {"", "", 15, true});
  EXPECT_EQ(error.nativeCode(), 18456);
  EXPECT_STREQ(
      error.what(),
      "Il server del database ha rifiutato l'utente o la password. Messaggio del server (18456): Login "
      "failed for user 'cu'.");
}

TEST(Speakers, TheDriversWordsAreNotTheServers) {
  EXPECT_TRUE(fromServer("42000", 102, "x").ofServer);
  EXPECT_FALSE(fromDriver("08001", 10061, "TCP Provider: x").ofServer);
  EXPECT_FALSE(diagnosticOf("08001", 17, "[Microsoft][ODBC SQL Server Driver][DBNETLIB]x").ofServer);
  EXPECT_TRUE(diagnosticOf("42000", 102, "[Altro][ODBC SQL Server Driver][Microsoft SQL Server]x").ofServer);
  EXPECT_TRUE(fromFreeTds("42000", 102, "x").ofServer);
  EXPECT_FALSE(fromFreeTds("08S01", 20009, "x").ofServer);
  EXPECT_FALSE(fromFreeTds("22018", 2403, "x").ofServer);
  EXPECT_FALSE(fromFreeTds("08001", 0, "x").ofServer);
  EXPECT_FALSE(diagnosticOf("IM002", 0, "[unixODBC][Driver Manager]x").ofServer);
  EXPECT_TRUE(diagnosticOf("42P01", 1, "ERROR: x").ofServer);
  EXPECT_FALSE(diagnosticOf("08001", 101, "connection failed: x").ofServer);
  EXPECT_EQ(
      diagnosticOf("42000", 102, "[Microsoft][ODBC Driver 18 for SQL Server][SQL Server]a [b]\nc ").message,
      "a [b] c");
}

TEST(Speakers, ADriversNumberIsNoNumberOfTheServer) {
  const DatabaseError error = odbc::errorOf({fromDriver("HY000", 208, "x")}, {"SELECT", "", 0});
  EXPECT_STREQ(error.what(),
               "Il server del database ha rifiutato l'istruzione SELECT. Messaggio del driver (208): x");
}

TEST(Speakers, TheReasonIsSaidInPlaceOfAGeneralPhrase) {
  const DatabaseError error = odbc::errorOf({fromFreeTds("08001", 0, "Unable to connect to data source"),
                                             fromFreeTds("01000", 20013, "Unknown host machine name.")},
                                            {"", "", 15, true});
  EXPECT_STREQ(error.what(),
               "Il server del database non si può raggiungere. Verificare l'indirizzo nel profilo e la rete. "
               "Messaggio del driver (20013): Unknown host machine name.");
}

TEST(EncryptionFaults, AreNamedWhereEncryptionWasWanted) {
  const std::vector<std::vector<Diagnostic>> faults = {
      {fromFreeTds("08001", 0, "Unable to connect to data source"),
       fromFreeTds("01000", 20002, "Adaptive Server connection failed")},
      {fromDriver("08001", -1, "SSL Provider: [error:0A000086:SSL routines::certificate verify failed]"),
       fromDriver("08001", -1, "Client unable to establish connection.")},
      {fromDriver("08001", 21, "Encryption not supported on SQL Server.")},
      {diagnosticOf("08001", 101, "server does not support SSL, but SSL was required")},
      {diagnosticOf("08001", 101, "the server has no TLS.")}};
  for (const auto& each : faults) {
    const DatabaseError error = odbc::errorOf(each, {"", "", 15, true});
    EXPECT_EQ(error.kind(), DatabaseErrorKind::Unavailable);
    EXPECT_THAT(
        error.what(),
        AllOf(StartsWith("Il server del database non ha stabilito una connessione cifrata. "),
              HasSubstr("(TLS)"), HasSubstr("encrypt = false"), HasSubstr(" Messaggio del driver (")));
    EXPECT_THAT(odbc::errorOf(each, {"", "", 15, false}).what(),
                StartsWith("Il server del database non si può raggiungere."));
  }
}

TEST(EncryptionFaults, AreNotSeenInOtherFaults) {
  const std::vector<std::vector<Diagnostic>> faults = {
      {fromFreeTds("08S01", 20009, "Unable to connect"), fromFreeTds("08001", 0, "Unable to connect")},
      {diagnosticOf("08001", 101,
                    "connection to server at \"ssl.tls-encrypt.it\" failed: Connection refused")},
      {fromDriver("08001", 10061, "TCP Provider: Error code 0x274D")}};
  for (const auto& each : faults) {
    EXPECT_THAT(odbc::errorOf(each, {"", "", 15, true}).what(),
                StartsWith("Il server del database non si può raggiungere."));
  }
}

TEST(WithoutValues, TakesOutWhatTheStatementHolds) {
  EXPECT_EQ(withoutValues("Conversion failed when converting the varchar value 'D'Amico' to data type int.",
                          "UPDATE t SET a = 'D''Amico'"),
            "Conversion failed when converting the varchar value '…' to data type int.");
  EXPECT_EQ(withoutValues("near '12.5' at 125", "SELECT 12.5"), "near '…' at 125");
  EXPECT_EQ(withoutValues("column nome of t", "UPDATE t SET nome = 'x' WHERE [nome] = ''"),
            "column nome of t");
  EXPECT_EQ(withoutValues("The duplicate key value is (1, Rossi).", "INSERT INTO t SELECT * FROM u"),
            "The duplicate key value is (…");
  EXPECT_EQ(withoutValues("column 'a'. Truncated value: 'Ros'.", "UPDATE t SET a = b"),
            "column 'a'. Truncated value: '…");
  EXPECT_EQ(withoutValues("bad Rossi", "EXEC('UPDATE t SET a = ''Rossi''')"), "bad …");
  EXPECT_EQ(withoutValues("", "'"), "");
}

}  // namespace
}  // namespace cu::odbc::test
