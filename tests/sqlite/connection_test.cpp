// Files, locks, transactions and errors.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "support.h"
#include "support/temp_folder.h"

namespace cu::sqlite::test {
namespace {

using cu::test::TempFolder;
using ::testing::HasSubstr;

class Files : public ::testing::Test {
 protected:
  std::unique_ptr<SqliteConnection> made(const char* name) {
    auto connection = SqliteConnection::create(folder_ / name);
    connection->setPatience(50);
    connection->Execute("CREATE TABLE t (id int NOT NULL PRIMARY KEY, nome Note NOT NULL)");
    return connection;
  }
  std::unique_ptr<SqliteConnection> opened(const char* name) {
    auto connection = SqliteConnection::open(folder_ / name);
    connection->setPatience(50);
    return connection;
  }
  DatabaseError opening(const std::string& path) {
    return errorOf([&] { SqliteConnection::open(path); });
  }
  TempFolder folder_;
};

TEST_F(Files, AMissingFileIsToldWithWhatToDo) {
  const std::string path = folder_ / "manca.db";
  const DatabaseError error = opening(path);
  EXPECT_EQ(error.kind(), DatabaseErrorKind::Unavailable);
  EXPECT_EQ(error.description(),
            "Il database «" + path +
                "» non esiste. Correggere l'indirizzo nel profilo, o crearlo con «cuctl create "
                "--database sqlite:" +
                path + "».");
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(Files, AFolderAndAFileOfAnotherKindAreTold) {
  EXPECT_THAT(opening(folder_.path()).what(), HasSubstr("è una cartella, non un database."));
  const std::string path = folder_.write("lettera.txt", std::string(5000, 'x'));
  const DatabaseError error = opening(path);
  EXPECT_EQ(error.kind(), DatabaseErrorKind::Unavailable);
  EXPECT_THAT(error.what(), HasSubstr("non è un database."));
  EXPECT_EQ(folder_.read("lettera.txt"), std::string(5000, 'x'));
  EXPECT_EQ(errorOf([&] { SqliteConnection::create(path); }).kind(), DatabaseErrorKind::Unavailable);
}

TEST_F(Files, AFolderThatDoesNotExistCannotHoldANewDatabase) {
  const DatabaseError error = errorOf([&] { SqliteConnection::create(folder_ / "a/b/c.db"); });
  EXPECT_EQ(error.kind(), DatabaseErrorKind::Unavailable);
  EXPECT_THAT(error.what(),
              HasSubstr("non si può aprire. Verificare i permessi del file e della sua cartella, e che "
                        "sul disco ci sia spazio."));
}

TEST_F(Files, WhatIsNotTheSuitesHasNothingOfIt) {
  made("altro.db");
  EXPECT_FALSE(contieneSuite(*opened("altro.db")));
  folder_.write("vuoto.db", "");
  EXPECT_FALSE(contieneSuite(*opened("vuoto.db")));
  opened("altro.db")->Execute("CREATE TABLE Comune (a int)");
  EXPECT_TRUE(contieneSuite(*opened("altro.db")));
}

TEST_F(Files, TheSuitesOwnFileOpens) {
  {
    auto connection = SqliteConnection::create(folder_ / "suite.db");
    creaSchema(*connection);
  }
  EXPECT_TRUE(contieneSuite(*opened("suite.db")));
}

TEST_F(Files, AFileThatLooksLikeAnAddressIsAFile) {
  const std::filesystem::path before = std::filesystem::current_path();
  std::filesystem::current_path(folder_.path());
  { SqliteConnection::create("file:a.db?mode=memory")->Execute("CREATE TABLE t (a int)"); }
  std::filesystem::current_path(before);
  EXPECT_TRUE(std::filesystem::exists(folder_ / "file:a.db?mode=memory"));
}

// What the opening says to somebody without the superuser's rights.
DatabaseErrorKind openedByNobody(const std::string& path) {
  const pid_t child = ::fork();
  if (child == 0) {
    if (::geteuid() == 0 && (::setgid(65534) != 0 || ::setuid(65534) != 0)) ::_exit(100);
    ::_exit(static_cast<int>(errorOf([&] { SqliteConnection::open(path); }).kind()));
  }
  int status = 0;
  ::waitpid(child, &status, 0);
  return static_cast<DatabaseErrorKind>(WEXITSTATUS(status));
}

TEST_F(Files, PermissionsThatAreMissingAreTold) {
  using std::filesystem::perms;
  made("a.db");
  std::filesystem::permissions(folder_.path(), perms::all);
  std::filesystem::permissions(folder_ / "a.db", perms::owner_read | perms::others_read);
  EXPECT_EQ(openedByNobody(folder_ / "a.db"), DatabaseErrorKind::ReadOnly);
  std::filesystem::permissions(folder_ / "a.db", perms::none);
  EXPECT_EQ(openedByNobody(folder_ / "a.db"), DatabaseErrorKind::Unavailable);
  // The engine keeps its files beside the database: a folder that cannot be written is no place for it.
  std::filesystem::permissions(folder_ / "a.db", perms::all);
  std::filesystem::permissions(
      folder_.path(), perms::owner_read | perms::owner_exec | perms::others_read | perms::others_exec);
  EXPECT_EQ(openedByNobody(folder_ / "a.db"), DatabaseErrorKind::ReadOnly);
  std::filesystem::permissions(folder_.path(), perms::owner_all);
}

TEST_F(Files, ADamagedFileIsTold) {
  {
    auto connection = made("rotto.db");
    for (int i = 0; i < 2000; ++i) {
      connection->Execute("INSERT INTO t VALUES (" + std::to_string(i) + ", 'nome di una certa lunghezza')");
    }
  }
  std::string content = folder_.read("rotto.db");
  ASSERT_GT(content.size(), 20000u);
  for (std::size_t i = 4096; i < content.size(); ++i) content[i] = static_cast<char>(0x5A);
  folder_.write("rotto.db", content);
  const DatabaseError error = errorOf([&] { query(*opened("rotto.db"), "t"); });
  EXPECT_EQ(error.kind(), DatabaseErrorKind::Corrupt);
  EXPECT_STREQ(error.what(), "Il file del database è danneggiato. Ripristinarlo da una copia di sicurezza.");
}

TEST_F(Files, AnIndexOfAnotherToolOnATextIsToldBeforeItMisleads) {
  made("a.db");
  BareDatabase bare(folder_ / "a.db");
  ASSERT_TRUE(bare.run("CREATE INDEX sul_numero ON t (id, id)"));
  EXPECT_NO_THROW(opened("a.db"));
  ASSERT_TRUE(bare.run("CREATE INDEX per_nome ON t (nome)"));
  const DatabaseError error = opening(folder_ / "a.db");
  EXPECT_EQ(error.kind(), DatabaseErrorKind::Unavailable);
  EXPECT_THAT(error.what(), HasSubstr("«per_nome» sulla tabella t. Eliminarlo con quel programma."));
}

TEST_F(Files, ItsSettingsKeepWhatIsWrittenAndLetOthersRead) {
  auto connection = made("a.db");
  BareDatabase bare(folder_ / "a.db");
  EXPECT_THAT(bare.read("PRAGMA journal_mode"), ::testing::ElementsAre("wal"));
  connection->Execute("INSERT INTO t VALUES (1, 'x')");
  EXPECT_THAT(bare.read("SELECT * FROM t"), ::testing::ElementsAre("1|x"));
}

TEST_F(Files, AProgramThatIsKilledLosesNothingThatWasDoneAndNothingHalf) {
  made("a.db");
  int channel[2];
  ASSERT_EQ(::pipe(channel), 0);
  const pid_t child = ::fork();
  if (child == 0) {
    auto connection = opened("a.db");
    connection->Execute("INSERT INTO t VALUES (1, 'fatto')");
    connection->Execute("BEGIN TRANSACTION");
    connection->Execute("INSERT INTO t VALUES (2, 'a metà')");
    if (::write(channel[1], "x", 1) != 1) ::_exit(1);
    for (;;) ::pause();
  }
  char ready = 0;
  ASSERT_EQ(::read(channel[0], &ready, 1), 1);
  ::kill(child, SIGKILL);
  ::waitpid(child, nullptr, 0);
  ::close(channel[0]);
  ::close(channel[1]);
  EXPECT_EQ(query(*opened("a.db"), "t"), (Lines{{"1", "fatto"}}));
}

using Locks = Files;

TEST_F(Locks, ALockOfAnotherProgramIsToldInWords) {
  auto mine = made("a.db");
  BareDatabase other(folder_ / "a.db");
  ASSERT_TRUE(other.run("BEGIN IMMEDIATE"));
  const DatabaseError error = errorOf([&] { mine->Execute("INSERT INTO t VALUES (1, 'x')"); });
  EXPECT_EQ(error.kind(), DatabaseErrorKind::Locked);
  EXPECT_EQ(error.nativeCode() & 0xFF, SQLITE_BUSY);
  EXPECT_EQ(error.statementKind(), "INSERT");
  EXPECT_STREQ(
      error.what(),
      "Il database è occupato da un altro programma. Chiudere l'altro programma, o attendere che termini, e "
      "riprovare.");
  EXPECT_EQ(errorOf([&] { mine->Execute("BEGIN TRANSACTION"); }).kind(), DatabaseErrorKind::Locked);
  EXPECT_EQ(query(*mine, "t"), Lines{});  // reading goes on
  ASSERT_TRUE(other.run("COMMIT"));
  mine->Execute("INSERT INTO t VALUES (1, 'x')");
  EXPECT_EQ(query(*mine, "t").size(), 1u);
}

TEST_F(Locks, ALockThatGoesInTimeIsWaitedFor) {
  auto mine = made("a.db");
  mine->setPatience(5000);
  const pid_t child = ::fork();
  if (child == 0) {
    BareDatabase other(folder_ / "a.db");
    other.run("BEGIN IMMEDIATE");
    ::usleep(150000);
    other.run("COMMIT");
    ::_exit(0);
  }
  ::usleep(50000);
  EXPECT_NO_THROW(mine->Execute("INSERT INTO t VALUES (1, 'x')"));
  ::waitpid(child, nullptr, 0);
}

TEST_F(Locks, AMergeUnderAForeignLockIsToldToo) {
  auto mine = made("a.db");
  mine->Execute("CREATE TABLE u (id int, nome Note)");
  BareDatabase other(folder_ / "a.db");
  ASSERT_TRUE(other.run("BEGIN IMMEDIATE"));
  EXPECT_EQ(errorOf([&] {
              mine->Execute(
                  "MERGE INTO t USING u ON t.id = u.id WHEN MATCHED THEN UPDATE SET nome = u.nome WHEN NOT "
                  "MATCHED THEN INSERT (id, nome) VALUES (u.id, u.nome);");
            }).kind(),
            DatabaseErrorKind::Locked);
}

TEST_F(Locks, OneStateOfTheDatabaseIsReadBetweenBeginAndEnd) {
  auto mine = made("a.db");
  auto other = opened("a.db");
  mine->Execute("INSERT INTO t VALUES (1, 'x')");
  {
    const ReadScope reading(*mine);
    const ReadScope again(*mine);
    EXPECT_EQ(query(*mine, "t").size(), 1u);
    other->Execute("INSERT INTO t VALUES (2, 'y')");
    EXPECT_EQ(query(*mine, "t").size(), 1u);
    // A change of one's own steps out of it, and what follows is the new state.
    mine->Execute("INSERT INTO t VALUES (3, 'z')");
    EXPECT_EQ(query(*mine, "t").size(), 3u);
    other->Execute("INSERT INTO t VALUES (4, 'w')");
    EXPECT_EQ(query(*mine, "t").size(), 3u);
  }
  EXPECT_EQ(query(*mine, "t").size(), 4u);
  EXPECT_EQ(query(*other, "t").size(), 4u);
}

TEST_F(Locks, ARunOfReadsHoldsNobodyUp) {
  auto mine = made("a.db");
  const ReadScope reading(*mine);
  query(*mine, "t");
  auto other = opened("a.db");
  EXPECT_NO_THROW(other->Execute("INSERT INTO t VALUES (2, 'y')"));
}

TEST_F(Locks, ATransactionWithinARunOfReads) {
  auto mine = made("a.db");
  const ReadScope reading(*mine);
  mine->Execute("BEGIN TRANSACTION");
  mine->Execute("INSERT INTO t VALUES (1, 'x')");
  mine->Execute("ROLLBACK TRANSACTION");
  EXPECT_EQ(query(*mine, "t").size(), 0u);
  EXPECT_THROW(mine->Execute("INSERT INTO t VALUES (1, NULL)"), DatabaseError);
  mine->Execute("INSERT INTO t VALUES (1, 'x')");
  EXPECT_EQ(query(*opened("a.db"), "t").size(), 1u);
}

TEST_F(Locks, ATableChangedByAnotherProgramIsSeenAsItIs) {
  auto mine = made("a.db");
  EXPECT_EQ(query(*mine, "SELECT * FROM t WHERE id > 0").size(), 0u);
  BareDatabase other(folder_ / "a.db");
  ASSERT_TRUE(other.run("ALTER TABLE t ADD COLUMN quando TEXT"));
  ASSERT_TRUE(other.run("INSERT INTO t VALUES (1, 'x', '2017-03-05')"));
  EXPECT_EQ(query(*mine, "SELECT * FROM t WHERE id > 0"), (Lines{{"1", "x", "05/03/2017"}}));
  mine->Execute("UPDATE t SET quando = '20180101' WHERE id = 1");
  ASSERT_TRUE(other.run("ALTER TABLE t DROP COLUMN quando"));
  EXPECT_EQ(query(*mine, "SELECT * FROM t WHERE id > 0"), (Lines{{"1", "x"}}));
  EXPECT_THROW(mine->Execute("UPDATE t SET quando = '20180101' WHERE id = 1"), DatabaseError);
}

using Transactions = Files;

TEST_F(Transactions, CommitKeepsAndRollbackTakesBack) {
  auto mine = made("a.db");
  mine->Execute("BEGIN TRANSACTION");
  mine->Execute("INSERT INTO t VALUES (1, 'x')");
  mine->Execute("CREATE TABLE u (a int)");
  mine->Execute("ROLLBACK TRANSACTION");
  EXPECT_EQ(query(*mine, "t").size(), 0u);
  EXPECT_EQ(single(*mine, "SELECT COUNT(*) FROM dbo.sysobjects WHERE name = 'u'"), "0");
  mine->Execute("BEGIN TRAN");
  mine->Execute("INSERT INTO t VALUES (1, 'x')");
  mine->Execute("COMMIT");
  EXPECT_EQ(query(*opened("a.db"), "t").size(), 1u);
}

TEST_F(Transactions, OneWithinAnotherOnlyCounts) {
  auto mine = made("a.db");
  mine->Execute("BEGIN TRANSACTION");
  mine->Execute("BEGIN TRANSACTION");
  mine->Execute("INSERT INTO t VALUES (1, 'x')");
  mine->Execute("COMMIT TRANSACTION");
  EXPECT_EQ(query(*opened("a.db"), "t").size(), 0u);
  mine->Execute("COMMIT TRANSACTION");
  EXPECT_EQ(query(*opened("a.db"), "t").size(), 1u);
  EXPECT_STREQ(errorOf([&] { mine->Execute("COMMIT TRANSACTION"); }).what(),
               "COMMIT TRANSACTION senza una BEGIN TRANSACTION.");
}

TEST_F(Transactions, AFailedStatementLeavesTheOthersOfTheTransaction) {
  auto mine = made("a.db");
  mine->Execute("BEGIN TRANSACTION");
  mine->Execute("INSERT INTO t VALUES (1, 'x')");
  EXPECT_THROW(mine->Execute("INSERT INTO t VALUES (2, 'y'), (1, 'z')"), DatabaseError);
  mine->Execute("COMMIT TRANSACTION");
  EXPECT_EQ(query(*mine, "t"), (Lines{{"1", "x"}}));
}

using Errors = Files;

TEST_F(Errors, EachIsOfItsKindAndShowsNoValue) {
  auto mine = made("a.db");
  mine->Execute("INSERT INTO t VALUES (1, 'segreto')");
  struct Case {
    const char* text;
    DatabaseErrorKind kind;
    const char* statement;
  };
  const Case cases[] = {
      {"INSERT INTO t VALUES (1, 'segreto')", DatabaseErrorKind::Duplicate, "INSERT"},
      {"UPDATE t SET nome = NULL WHERE nome = 'segreto'", DatabaseErrorKind::Constraint, "UPDATE"},
      {"SELECT manca FROM t WHERE nome = 'segreto'", DatabaseErrorKind::Syntax, "SELECT"},
      {"SELECT * FROM t WHERE nome = 'segreto", DatabaseErrorKind::Syntax, ""},
      {"UPDATE t SET id = 'segreto'", DatabaseErrorKind::Other, "UPDATE"},
      {"DELETE FROM t WHERE COUNT(*) = 1 AND nome = 'segreto'", DatabaseErrorKind::Syntax, "DELETE"},
      {"DROP TABLE segreta", DatabaseErrorKind::Missing, "DROP"},
      {"SELECT * FROM segreta", DatabaseErrorKind::Missing, "SELECT"},
      {"CREATE TABLE t (id int)", DatabaseErrorKind::Exists, "CREATE"},
      {"", DatabaseErrorKind::Syntax, ""},
      {"EXEC('SELECT manca FROM t')", DatabaseErrorKind::Syntax, "SELECT"},
  };
  for (const Case& each : cases) {
    const DatabaseError error = errorOf([&] { mine->Execute(each.text); });
    EXPECT_EQ(error.kind(), each.kind) << each.text;
    EXPECT_EQ(error.statementKind(), each.statement) << each.text;
    EXPECT_EQ(error.description().find("segreto"), std::string::npos) << error.what();
    EXPECT_EQ(error.number(), kErrorDatabase);
  }
  EXPECT_STREQ(errorOf([&] { mine->Execute("SELECT nome FROM t WHERE TOP"); }).what(),
               "Il database incorporato non accetta l'istruzione SELECT: «TOP» non è ammesso in questo punto "
               "(carattere "
               "26).");
  EXPECT_STREQ(errorOf([&] { mine->Execute("INSERT INTO t VALUES (1, 'x')"); }).what(),
               "Esiste già una riga con la stessa chiave (t.id).");
}

TEST_F(Errors, TheEnginesCodesHaveTheirKinds) {
  struct Case {
    int code;
    DatabaseErrorKind kind;
  };
  const Case cases[] = {
      {SQLITE_BUSY_SNAPSHOT, DatabaseErrorKind::Locked},
      {SQLITE_LOCKED, DatabaseErrorKind::Locked},
      {SQLITE_FULL, DatabaseErrorKind::Full},
      {SQLITE_READONLY_DIRECTORY, DatabaseErrorKind::ReadOnly},
      {SQLITE_CORRUPT_INDEX, DatabaseErrorKind::Corrupt},
      {SQLITE_NOTADB, DatabaseErrorKind::Unavailable},
      {SQLITE_CANTOPEN_ISDIR, DatabaseErrorKind::Unavailable},
      {SQLITE_IOERR_WRITE, DatabaseErrorKind::Other},
      {SQLITE_CONSTRAINT_CHECK, DatabaseErrorKind::Constraint},
      {SQLITE_INTERRUPT, DatabaseErrorKind::Timeout},
      {SQLITE_ERROR, DatabaseErrorKind::Syntax},
      {SQLITE_NOMEM, DatabaseErrorKind::Other},
  };
  for (const Case& each : cases) {
    const DatabaseError error = cu::sqlite::errorOf(each.code, "engine's words", "SELECT");
    EXPECT_EQ(error.kind(), each.kind) << each.code;
    EXPECT_EQ(error.nativeCode(), each.code);
  }
  EXPECT_STREQ(cu::sqlite::errorOf(SQLITE_FULL, "database or disk is full", "INSERT").what(),
               "Il disco che contiene il database è pieno. Liberare spazio e ripetere l'operazione.");
}

TEST_F(Errors, BatchesRunStatementByStatement) {
  auto mine = made("a.db");
  mine->Execute(
      "INSERT INTO t VALUES (1, 'x'); UPDATE t SET nome = 'y' WHERE id = 1 "
      "CREATE TABLE u (a int) INSERT INTO u VALUES (5)");
  EXPECT_EQ(query(*mine, "SELECT t.nome, u.a FROM t INNER JOIN u ON t.id < u.a"), (Lines{{"y", "5"}}));
  mine->Execute("IF EXISTS (SELECT * FROM t WHERE id = 1) UPDATE t SET id = 2, nome = 'z'");
  mine->Execute("IF NOT EXISTS (SELECT * FROM t WHERE id = 1) DELETE u");
  mine->Execute("IF OBJECT_ID('dbo.manca') IS NULL CREATE TABLE manca (a int)");
  mine->Execute("IF OBJECT_ID('dbo.manca') IS NULL CREATE TABLE manca (a int)");
  EXPECT_EQ(query(*mine, "t"), (Lines{{"2", "z"}}));
  EXPECT_EQ(query(*mine, "u"), Lines{});
  EXPECT_EQ(query(*mine, "SELECT nome FROM t; DELETE t"), (Lines{{"z"}}));
  EXPECT_EQ(query(*mine, "t"), Lines{});
}

}  // namespace
}  // namespace cu::sqlite::test
