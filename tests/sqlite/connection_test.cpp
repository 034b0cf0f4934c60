// Files and locks.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>

#include "files_support.h"
#include "support/umask.h"

namespace cu::sqlite::test {
namespace {

using ::testing::HasSubstr;

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

// The engine's own files next to the database have names that end in these.
TEST_F(Files, ANewDatabaseAndTheFilesNextToItAreTheirOwnersAlone) {
  for (const mode_t mask : {mode_t{0}, mode_t{022}}) {
    const cu::test::Umask umask(mask);
    const std::string path = folder_ / ("con-umask-" + std::to_string(mask));
    const auto connection = SqliteConnection::create(path);
    creaSchema(*connection);
    for (const char* end : {"", "-wal", "-shm"}) EXPECT_EQ(cu::test::modeOf(path + end), 0600U) << end;
  }
}

TEST_F(Files, ANewDatabaseThroughALinkIsItsOwnersAlone) {
  const cu::test::Umask umask(0);
  std::filesystem::create_symlink(folder_ / "vero.db", folder_ / "link.db");
  creaSchema(*SqliteConnection::create(folder_ / "link.db"));
  EXPECT_EQ(cu::test::modeOf(folder_ / "vero.db"), 0600U);
}

TEST_F(Files, AnExistingDatabaseKeepsItsMode) {
  creaSchema(*SqliteConnection::create(folder_ / "suite.db"));
  std::filesystem::permissions(folder_ / "suite.db", std::filesystem::perms{0640});
  SqliteConnection::create(folder_ / "suite.db");
  SqliteConnection::open(folder_ / "suite.db");
  EXPECT_EQ(cu::test::modeOf(folder_ / "suite.db"), 0640U);
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

// The error of the opening for a user without superuser rights.
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
  // The engine keeps its files next to the database: a read-only folder is not usable.
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

TEST_F(Files, AKeyOfAnotherToolOnATextIsAnIndexToo) {
  for (const char* const table :
       {"CREATE TABLE altra (nome TEXT COLLATE NOCASE PRIMARY KEY)",
        "CREATE TABLE altra (nome TEXT COLLATE NOCASE, id INTEGER, UNIQUE (id, nome))",
        "CREATE TABLE altra (id INTEGER, nome TEXT COLLATE NOCASE, PRIMARY KEY (id, nome)) without  rowid",
        "CREATE TABLE altra (nome TEXT, PRIMARY KEY (nome COLLATE NOCASE)) WITHOUT ROWID",
        "CREATE TABLE altra (nome TEXT); CREATE INDEX i ON altra (nome collate nocase)",
        "CREATE TABLE altra (nome TEXT); CREATE INDEX \"l'indice\" ON altra (nome COLLATE NOCASE)"}) {
    made("a.db");
    ASSERT_TRUE(BareDatabase(folder_ / "a.db").run(table)) << table;
    EXPECT_THAT(opening(folder_ / "a.db").what(), HasSubstr("» sulla tabella altra. Eliminarlo")) << table;
    std::filesystem::remove(folder_ / "a.db");
  }
}

TEST_F(Files, AnIndexOnWhatIsNoTextOfOursIsUsed) {
  for (const char* const table :
       {"CREATE TABLE altra (nome TEXT PRIMARY KEY, nota TEXT COLLATE NOCASE)",
        "CREATE TABLE altra (id INTEGER, nota TEXT COLLATE NOCASE, PRIMARY KEY (id)) WITHOUT ROWID",
        "CREATE TABLE altra (nome TEXT COLLATE NOCASE); CREATE INDEX i ON altra (nome COLLATE BINARY)"}) {
    made("a.db");
    ASSERT_TRUE(BareDatabase(folder_ / "a.db").run(table)) << table;
    EXPECT_NO_THROW(opened("a.db")) << table;
    std::filesystem::remove(folder_ / "a.db");
  }
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
  EXPECT_EQ(query(*mine, "t"), Lines{});  // reads continue
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
    // The connection's own change ends the read scope; later reads see the new state.
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

}  // namespace
}  // namespace cu::sqlite::test
