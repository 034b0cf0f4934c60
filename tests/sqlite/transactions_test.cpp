// Transactions, errors and texts of several statements.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

#include "files_support.h"

namespace cu::sqlite::test {
namespace {

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

TEST_F(Transactions, AFileThatIsGoneOrAnotherOneTakesNone) {
  for (const bool replaced : {false, true}) {
    auto mine = made("a.db");
    std::filesystem::rename(folder_ / "a.db", folder_ / "altrove.db");
    if (replaced) std::filesystem::copy_file(folder_ / "altrove.db", folder_ / "a.db");
    const DatabaseError error = errorOf([&] { mine->Execute("BEGIN TRANSACTION"); });
    EXPECT_EQ(error.kind(), DatabaseErrorKind::Unavailable);
    EXPECT_THAT(error.what(),
                ::testing::StartsWith("Il file del database non è più quello che è stato aperto: è "
                                      "stato spostato, sostituito o eliminato."));
    EXPECT_EQ(query(*mine, "t").size(), 0u) << "what is open can still be read";
    std::filesystem::rename(folder_ / "altrove.db", folder_ / "a.db");
    mine->Execute("BEGIN TRANSACTION");
    mine->Execute("ROLLBACK TRANSACTION");
    mine.reset();
    std::filesystem::remove(folder_ / "a.db");
  }
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

using WritesTogether = Files;

TEST_F(WritesTogether, AreSeenByOthersAllAtOnce) {
  auto mine = made("a.db");
  mine->Execute("INSERT INTO t VALUES (1, 'prima')");
  auto other = opened("a.db");
  {
    WriteScope together(*mine);
    mine->Execute("DELETE FROM t WHERE id = 1");
    EXPECT_EQ(query(*mine, "t").size(), 0u);
    EXPECT_EQ(query(*other, "t"), (Lines{{"1", "prima"}}));
    mine->Execute("INSERT INTO t VALUES (2, 'dopo')");
    together.end();
  }
  EXPECT_EQ(query(*other, "t"), (Lines{{"2", "dopo"}}));
  other->Execute("INSERT INTO t VALUES (3, 'di un altro')");
}

TEST_F(WritesTogether, OfWhichOneFailsLeaveThoseBeforeIt) {
  auto mine = made("a.db");
  mine->Execute("INSERT INTO t VALUES (1, 'prima')");
  const auto fails = [&mine] {
    WriteScope together(*mine);
    mine->Execute("DELETE FROM t WHERE id = 1");
    mine->Execute("INSERT INTO t VALUES (2, 'x'), (3, NULL)");
  };
  EXPECT_EQ(errorOf(fails).kind(), DatabaseErrorKind::Constraint);
  EXPECT_EQ(query(*opened("a.db"), "t").size(), 0u);
  mine->Execute("INSERT INTO t VALUES (4, 'da sola')");
  EXPECT_EQ(query(*opened("a.db"), "t"), (Lines{{"4", "da sola"}}));
}

TEST_F(WritesTogether, NestAndSuspendASeriesOfReads) {
  auto mine = made("a.db");
  auto other = opened("a.db");
  const ReadScope reads(*mine);
  EXPECT_EQ(query(*mine, "t").size(), 0u);
  {
    WriteScope outer(*mine);
    {
      WriteScope inner(*mine);
      mine->Execute("INSERT INTO t VALUES (1, 'x')");
      inner.end();
    }
    EXPECT_EQ(query(*other, "t").size(), 0u);
    outer.end();
  }
  EXPECT_EQ(query(*other, "t").size(), 1u);
  EXPECT_EQ(query(*mine, "t").size(), 1u);
  other->Execute("INSERT INTO t VALUES (2, 'y')");
  EXPECT_EQ(query(*mine, "t").size(), 1u) << "the series of reads has begun again";
}

TEST_F(WritesTogether, WithoutAStatementTakeNoLock) {
  auto mine = made("a.db");
  auto other = opened("a.db");
  WriteScope together(*mine);
  other->Execute("INSERT INTO t VALUES (1, 'x')");
  EXPECT_EQ(query(*mine, "t").size(), 1u);
  together.end();
  other->Execute("INSERT INTO t VALUES (2, 'y')");
}

TEST_F(WritesTogether, WaitForAnotherProgramBeforeTheFirst) {
  auto mine = made("a.db");
  auto other = opened("a.db");
  other->Execute("BEGIN TRANSACTION");
  other->Execute("INSERT INTO t VALUES (1, 'x')");
  {
    WriteScope together(*mine);
    EXPECT_EQ(errorOf([&] { mine->Execute("DELETE FROM t"); }).kind(), DatabaseErrorKind::Locked);
  }
  other->Execute("COMMIT TRANSACTION");
  WriteScope again(*mine);
  mine->Execute("DELETE FROM t");
  again.end();
  EXPECT_EQ(query(*other, "t").size(), 0u);
}

TEST_F(WritesTogether, AreNoneOfTheirOwnInATransaction) {
  auto mine = made("a.db");
  mine->Execute("BEGIN TRANSACTION");
  {
    WriteScope together(*mine);
    mine->Execute("INSERT INTO t VALUES (1, 'x')");
    together.end();
  }
  EXPECT_EQ(query(*opened("a.db"), "t").size(), 0u);
  mine->Execute("ROLLBACK TRANSACTION");
  EXPECT_EQ(query(*mine, "t").size(), 0u);
}

TEST_F(WritesTogether, EndWhereATransactionBegins) {
  auto mine = made("a.db");
  WriteScope together(*mine);
  mine->Execute("INSERT INTO t VALUES (1, 'x')");
  mine->Execute("BEGIN TRANSACTION");
  EXPECT_EQ(query(*opened("a.db"), "t").size(), 1u);
  mine->Execute("INSERT INTO t VALUES (2, 'y')");
  mine->Execute("ROLLBACK TRANSACTION");
  mine->Execute("INSERT INTO t VALUES (3, 'z')");
  together.end();
  EXPECT_EQ(query(*opened("a.db"), "t"), (Lines{{"1", "x"}, {"3", "z"}}));
}

TEST_F(Transactions, WaitForAnotherProgramAsLongAsTheirPatienceIs) {
  auto mine = made("a.db");
  auto other = opened("a.db");
  other->Execute("BEGIN TRANSACTION");
  int told = 0;
  mine->setPatience(300, [&told] { ++told; });
  const auto begun = std::chrono::steady_clock::now();
  EXPECT_EQ(errorOf([&] { mine->Execute("DELETE FROM t"); }).kind(), DatabaseErrorKind::Locked);
  EXPECT_GE(std::chrono::steady_clock::now() - begun, std::chrono::milliseconds(300));
  EXPECT_EQ(told, 0) << "five seconds are not told";
  mine->setPatience(5500, [&told] { ++told; });
  EXPECT_EQ(errorOf([&] { mine->Execute("DELETE FROM t"); }).kind(), DatabaseErrorKind::Locked);
  EXPECT_EQ(told, 1);
  other->Execute("COMMIT TRANSACTION");
  mine->Execute("DELETE FROM t");
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
