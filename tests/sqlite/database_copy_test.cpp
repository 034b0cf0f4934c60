#include "sqlite/database_copy.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <functional>

#include "files_support.h"
#include "sqlite/page_copy.h"
#include "sqlite/partial_file.h"
#include "sqlite/sole_use.h"

namespace cu::sqlite::test {
namespace {

namespace fs = std::filesystem;
using ::testing::HasSubstr;

struct Cancelled {};

unsigned modeOf(const std::string& file) {
  struct stat found {};
  EXPECT_EQ(::stat(file.c_str(), &found), 0) << file;
  return found.st_mode & 07777U;
}

class DatabaseCopies : public Files {
 protected:
  static constexpr int kRows = 4000;

  std::unique_ptr<SqliteConnection> filled(const char* name, int rows = kRows) {
    auto connection = made(name);
    connection->Execute("BEGIN TRANSACTION");
    for (int i = 0; i < rows; ++i) {
      connection->Execute("INSERT INTO t (id, nome) VALUES (" + fromInteger(i) + ", '" +
                          std::string(300, 'x') + "')");
    }
    connection->Execute("COMMIT TRANSACTION");
    return connection;
  }
  std::int64_t rows(const std::string& file) {
    RowStore found;
    SqliteConnection::open(file)->Query("SELECT COUNT(*) FROM t", found);
    CellView count;
    found.read(0, &count);
    return count.integer();
  }
  // The names in the folder, sorted.
  std::vector<std::string> names() {
    std::vector<std::string> found;
    for (const auto& entry : fs::directory_iterator(folder_.path())) found.push_back(entry.path().filename());
    std::sort(found.begin(), found.end());
    return found;
  }
  DatabaseError refusal(const std::string& file, bool replace = false) {
    return errorOf([&] { backUpDatabase(folder_ / "a.db", file, replace); });
  }
  DatabaseError restoreRefusal(const std::string& copy, const std::string& database) {
    return errorOf([&] { restoreDatabase(copy, database, folder_ / "prima.db", [](const std::string&) {}); });
  }
  void restore(const char* copy, const char* database) {
    restoreDatabase(folder_ / copy, folder_ / database, folder_ / "prima.db", [](const std::string&) {});
  }
};

TEST_F(DatabaseCopies, ACopyIsOneFileOfItsOwner) {
  const auto connection = filled("a.db");
  const mode_t before = ::umask(0);
  const DatabaseCopy copy = backUpDatabase(folder_ / "a.db", folder_ / "copia.db", false);
  ::umask(before);
  EXPECT_EQ(copy.tables, 1U);
  EXPECT_EQ(copy.rows, kRows);
  EXPECT_EQ(copy.bytes, fs::file_size(folder_ / "copia.db"));
  EXPECT_EQ(modeOf(folder_ / "copia.db"), 0600U);
  EXPECT_EQ(names(), (std::vector<std::string>{"a.db", "a.db-shm", "a.db-wal", "copia.db"}));
  EXPECT_EQ(folder_.read("copia.db").substr(0, 15), "SQLite format 3");
  EXPECT_EQ(folder_.read("copia.db").substr(18, 2), "\1\1") << "it would need files beside it";
  EXPECT_EQ(rows(folder_ / "copia.db"), kRows);
}

// Its author goes on writing, with transactions that others see before the copy is complete.
TEST_F(DatabaseCopies, ACopyHasOneMomentWhileOthersWrite) {
  const auto connection = filled("a.db");
  const auto other = opened("a.db");
  int written = 0;
  const DatabaseCopy copy = backUpDatabase(
      folder_ / "a.db", folder_ / "copia.db", false,
      [&](CopyStep step, std::uint64_t done, std::uint64_t total) {
        EXPECT_TRUE(step != CopyStep::Pages || done <= total);
        ++written;
        other->Execute("INSERT INTO t (id, nome) VALUES (" + fromInteger(kRows + written) + ", 'nuovo')");
      });
  EXPECT_GT(written, 2);
  EXPECT_EQ(copy.rows, kRows);
  EXPECT_EQ(rows(folder_ / "copia.db"), kRows);
  EXPECT_EQ(rows(folder_ / "a.db"), kRows + written);
}

TEST_F(DatabaseCopies, WhatEndsACopyLeavesNothing) {
  filled("a.db");
  for (const CopyStep at : {CopyStep::Pages, CopyStep::Check}) {
    bool asked = false;
    EXPECT_THROW(backUpDatabase(folder_ / "a.db", folder_ / "copia.db", false,
                                [&](CopyStep step, std::uint64_t, std::uint64_t) {
                                  asked = asked || step == at;
                                  if (step == at) throw Cancelled();
                                }),
                 Cancelled);
    EXPECT_TRUE(asked);
    EXPECT_EQ(names(), std::vector<std::string>{"a.db"});
  }
}

TEST_F(DatabaseCopies, AFileIsReplacedOnlyOnDemand) {
  filled("a.db");
  const std::string copy = folder_.write("copia.db", "di un altro");
  const DatabaseError error = refusal(copy);
  EXPECT_EQ(error.kind(), DatabaseErrorKind::Exists);
  EXPECT_THAT(error.what(), HasSubstr("«" + copy + "» esiste già."));
  EXPECT_EQ(folder_.read("copia.db"), "di un altro");
  backUpDatabase(folder_ / "a.db", copy, true);
  EXPECT_EQ(rows(copy), kRows);
  fs::create_symlink("nulla", folder_ / "legame.db");
  EXPECT_EQ(refusal(folder_ / "legame.db").kind(), DatabaseErrorKind::Exists);
}

TEST_F(DatabaseCopies, TheTargetOfALinkIsReplacedNotTheLink) {
  filled("a.db");
  folder_.write("copia.db", "di un altro");
  fs::create_symlink("copia.db", folder_ / "legame.db");
  backUpDatabase(folder_ / "a.db", folder_ / "legame.db", true);
  EXPECT_TRUE(fs::is_symlink(folder_ / "legame.db"));
  EXPECT_EQ(rows(folder_ / "copia.db"), kRows);
}

TEST_F(DatabaseCopies, NoCopyGoesOntoADatabaseInUse) {
  const auto connection = filled("a.db");
  const auto another = filled("b.db", 1);
  fs::create_symlink("a.db", folder_ / "legame");
  fs::create_hard_link(folder_ / "a.db", folder_ / "altro nome");
  for (const char* const name :
       {"a.db", "a.db-wal", "a.db-journal", "legame", "altro nome", "b.db", "b.db-shm"}) {
    EXPECT_THAT(refusal(folder_ / name, true).what(), HasSubstr("è il database stesso")) << name;
  }
  EXPECT_EQ(rows(folder_ / "a.db"), kRows);
  EXPECT_EQ(rows(folder_ / "b.db"), 1);
}

TEST_F(DatabaseCopies, APlaceThatIsNoneIsTold) {
  filled("a.db");
  EXPECT_THAT(refusal(folder_.path(), true).what(), HasSubstr("è una cartella"));
  EXPECT_THAT(refusal("/dev/null", true).what(), HasSubstr("non è un file"));
  EXPECT_THAT(refusal(folder_ / "manca/copia.db").what(), HasSubstr("manca» non esiste."));
  folder_.write("copia.db-wal", "");
  EXPECT_THAT(refusal(folder_ / "copia.db").what(), HasSubstr("copia.db-wal»: un database con quel nome"));
  EXPECT_EQ(names(), (std::vector<std::string>{"a.db", "copia.db-wal"}));
}

TEST_F(DatabaseCopies, TwoAtOnceDoNotShareAFileAndALeftOneIsTakenOver) {
  filled("a.db");
  {
    const PartialFile other(folder_ / "copia.db", ".parziale");
    EXPECT_EQ(refusal(folder_ / "copia.db").kind(), DatabaseErrorKind::Locked);
    EXPECT_TRUE(fs::exists(folder_ / "copia.db.parziale"));
  }
  const std::string left = folder_.write("copia.db.parziale", std::string(9000, 'x'));
  ::chmod(left.c_str(), 0666);
  folder_.write("copia.db.parziale-journal", "x");
  backUpDatabase(folder_ / "a.db", folder_ / "copia.db", false);
  EXPECT_EQ(names(), (std::vector<std::string>{"a.db", "copia.db"}));
  EXPECT_EQ(modeOf(folder_ / "copia.db"), 0600U);
  EXPECT_EQ(rows(folder_ / "copia.db"), kRows);
}

TEST_F(DatabaseCopies, ALinkInThePlaceOfAnUnfinishedOneIsNotFollowed) {
  filled("a.db");
  const std::string precious = folder_.write("prezioso", "contenuto");
  fs::create_symlink(precious, folder_ / "copia.db.parziale");
  EXPECT_THROW(backUpDatabase(folder_ / "a.db", folder_ / "copia.db", false), DatabaseError);
  EXPECT_EQ(folder_.read("prezioso"), "contenuto");
}

TEST_F(DatabaseCopies, ADamagedDatabaseGivesNoCopy) {
  filled("a.db");
  std::string bytes = folder_.read("a.db");
  std::fill(bytes.begin() + 4096 * 3, bytes.begin() + 4096 * 9, '\x55');
  folder_.write("a.db", bytes);
  const DatabaseError error = refusal(folder_ / "copia.db");
  EXPECT_EQ(error.kind(), DatabaseErrorKind::Corrupt);
  EXPECT_THAT(error.what(), HasSubstr("è danneggiato"));
  EXPECT_FALSE(fs::exists(folder_ / "copia.db"));
}

TEST_F(DatabaseCopies, ARestoredDatabaseHasTheCopyAndTheFormerOneIsKept) {
  filled("a.db");
  backUpDatabase(folder_ / "a.db", folder_ / "copia.db", false);
  opened("a.db")->Execute("DELETE FROM t WHERE id >= 10");
  ::chmod((folder_ / "a.db").c_str(), 0640);
  restore("copia.db", "a.db");
  EXPECT_EQ(names(), (std::vector<std::string>{"a.db", "copia.db", "prima.db"}));
  EXPECT_EQ(modeOf(folder_ / "a.db"), 0640U) << "the others of the office still use it";
  EXPECT_EQ(rows(folder_ / "a.db"), kRows);
  EXPECT_EQ(rows(folder_ / "prima.db"), 10);
}

TEST_F(DatabaseCopies, ADatabaseThatIsMissingIsMade) {
  filled("a.db");
  backUpDatabase(folder_ / "a.db", folder_ / "copia.db", false);
  folder_.write("nuovo.db-wal", "di un altro tempo");
  restore("copia.db", "nuovo.db");
  EXPECT_EQ(rows(folder_ / "nuovo.db"), kRows);
  EXPECT_EQ(modeOf(folder_ / "nuovo.db"), 0600U);
  EXPECT_EQ(folder_.read("prima.db-wal"), "di un altro tempo");
}

// Through a link it is the linked file that is replaced.
TEST_F(DatabaseCopies, ALinkToADatabaseStaysOne) {
  filled("a.db", 5);
  backUpDatabase(folder_ / "a.db", folder_ / "copia.db", false);
  opened("a.db")->Execute("DELETE FROM t");
  fs::create_symlink("a.db", folder_ / "legame.db");
  restore("copia.db", "legame.db");
  EXPECT_TRUE(fs::is_symlink(folder_ / "legame.db"));
  EXPECT_EQ(rows(folder_ / "a.db"), 5);
}

TEST_F(DatabaseCopies, ADatabaseThatSomebodyHasOpenIsNotReplaced) {
  filled("a.db", 5);
  backUpDatabase(folder_ / "a.db", folder_ / "copia.db", false);
  {
    const auto here = opened("a.db");
    const DatabaseError error = restoreRefusal(folder_ / "copia.db", folder_ / "a.db");
    EXPECT_EQ(error.kind(), DatabaseErrorKind::Locked);
    EXPECT_THAT(error.what(), HasSubstr("è aperto in un'altra finestra o da un altro programma"));
    here->Execute("DELETE FROM t");
  }
  EXPECT_EQ(rows(folder_ / "a.db"), 0);
  EXPECT_FALSE(fs::exists(folder_ / "prima.db"));
  restore("copia.db", "a.db");
  EXPECT_EQ(rows(folder_ / "a.db"), 5);
}

// Another process, whose idle connection has a lock that is the process's.
TEST_F(DatabaseCopies, NorOneThatAnotherProcessHasOpen) {
  filled("a.db", 5);
  backUpDatabase(folder_ / "a.db", folder_ / "copia.db", false);
  int ready[2];
  int done[2];
  ASSERT_EQ(::pipe(ready), 0);
  ASSERT_EQ(::pipe(done), 0);
  const pid_t child = ::fork();
  if (child == 0) {
    const auto connection = opened("a.db");
    char byte = 'x';
    if (::write(ready[1], &byte, 1) != 1 || ::read(done[0], &byte, 1) != 1) ::_exit(1);
    ::_exit(0);
  }
  char byte = 0;
  ASSERT_EQ(::read(ready[0], &byte, 1), 1);
  EXPECT_EQ(restoreRefusal(folder_ / "copia.db", folder_ / "a.db").kind(), DatabaseErrorKind::Locked);
  EXPECT_EQ(restoreRefusal(folder_ / "copia.db", folder_ / "a.db").kind(), DatabaseErrorKind::Locked)
      << "the first refusal has not released anything";
  ASSERT_EQ(::write(done[1], &byte, 1), 1);
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
  restore("copia.db", "a.db");
}

// Nobody begins to use the former file in the moment of its replacement.
TEST_F(DatabaseCopies, WhoComesWhileItIsReplacedWaitsAndFindsOnlyTheNewOne) {
  filled("a.db", 5);
  int taken[2];
  ASSERT_EQ(::pipe(taken), 0);
  const pid_t child = ::fork();
  char byte = 'x';
  if (child == 0) {
    if (::read(taken[0], &byte, 1) != 1) ::_exit(3);
    try {
      SqliteConnection::open(folder_ / "a.db");
      ::_exit(2);
    } catch (const DatabaseError& error) {
      ::_exit(error.nativeCode() == SQLITE_READONLY_DBMOVED ? 0 : 1);
    }
  }
  auto use = std::make_unique<SoleUse>(folder_ / "a.db");
  ASSERT_EQ(::write(taken[1], &byte, 1), 1);
  ::usleep(300000);
  fs::rename(folder_ / "a.db", folder_ / "prima.db");
  fs::copy_file(folder_ / "prima.db", folder_ / "a.db");
  use.reset();
  int status = 0;
  ::waitpid(child, &status, 0);
  EXPECT_EQ(status, 0);
  EXPECT_FALSE(fs::exists(folder_ / "a.db-wal"));
}

TEST_F(DatabaseCopies, WhatIsNoGoodCopyChangesNothing) {
  filled("a.db", 5);
  const std::string letter = folder_.write("lettera.txt", std::string(5000, 'x'));
  EXPECT_THAT(restoreRefusal(letter, folder_ / "a.db").what(), HasSubstr("lettera.txt» non è un database."));
  EXPECT_THAT(restoreRefusal(folder_ / "manca", folder_ / "a.db").what(), HasSubstr("non esiste."));
  EXPECT_THAT(restoreRefusal(folder_.path(), folder_ / "a.db").what(), HasSubstr("non è un file."));
  EXPECT_THAT(restoreRefusal(folder_ / "a.db", folder_ / "a.db").what(), HasSubstr("è il database stesso"));
  filled("b.db");
  std::string bytes = folder_.read("b.db");
  std::fill(bytes.begin() + 4096 * 3, bytes.begin() + 4096 * 9, '\x55');
  const std::string damaged = folder_.write("copia.db", bytes);
  EXPECT_EQ(restoreRefusal(damaged, folder_ / "a.db").kind(), DatabaseErrorKind::Corrupt);
  const auto reject = [](const std::string&) {
    throw DatabaseError(DatabaseErrorKind::NoSchema, 0, "", "altro");
  };
  EXPECT_EQ(errorOf([&] {
              restoreDatabase(folder_ / "b.db", folder_ / "a.db", folder_ / "prima.db", reject);
            }).kind(),
            DatabaseErrorKind::NoSchema);
  EXPECT_EQ(rows(folder_ / "a.db"), 5);
  EXPECT_EQ(names(), (std::vector<std::string>{"a.db", "b.db", "copia.db", "lettera.txt"}));
}

// What is examined is a copy of the copy: this one is neither changed nor given files beside it.
TEST_F(DatabaseCopies, TheCopyIsNotTouched) {
  { filled("b.db", 5); }
  ASSERT_EQ(folder_.read("b.db").substr(18, 2), "\2\2") << "as the window leaves one that was only copied";
  fs::copy_file(folder_ / "b.db", folder_ / "copia.db");
  fs::remove(folder_ / "b.db");
  const std::string before = folder_.read("copia.db");
  std::string seen;
  restoreDatabase(folder_ / "copia.db", folder_ / "a.db", folder_ / "prima.db", [&](const std::string& file) {
    seen = file;
    EXPECT_EQ(rows(file), 5);
  });
  EXPECT_EQ(seen, folder_ / "a.db.ripristino");
  EXPECT_EQ(folder_.read("copia.db"), before);
  EXPECT_EQ(names(), (std::vector<std::string>{"a.db", "copia.db"}));
  EXPECT_EQ(rows(folder_ / "a.db"), 5);
}

TEST_F(DatabaseCopies, ADamagedDatabaseIsReplacedAndKept) {
  filled("b.db", 5);
  backUpDatabase(folder_ / "b.db", folder_ / "copia.db", false);
  folder_.write("a.db", std::string(8192, 'x'));
  folder_.write("a.db-wal", "would be taken for a part of the copy");
  restore("copia.db", "a.db");
  EXPECT_EQ(rows(folder_ / "a.db"), 5);
  EXPECT_EQ(folder_.read("prima.db"), std::string(8192, 'x'));
  EXPECT_EQ(names(), (std::vector<std::string>{"a.db", "b.db", "copia.db", "prima.db"}));
}

// File systems that cannot exchange two names.
TEST_F(DatabaseCopies, WithoutAnExchangeTheFormerOneIsCopied) {
  folder_.write("a.db", "di prima");
  PartialFile partial(folder_ / "a.db", ".ripristino");
  folder_.write("a.db.ripristino", "di dopo");
  partial.takePlaceOf(folder_ / "prima.db", PartialFile::Swap::Copy);
  EXPECT_EQ(folder_.read("a.db"), "di dopo");
  EXPECT_EQ(folder_.read("prima.db"), "di prima");
  EXPECT_EQ(modeOf(folder_ / "prima.db"), 0600U);
  EXPECT_EQ(names(), (std::vector<std::string>{"a.db", "prima.db"}));
}

TEST_F(DatabaseCopies, AKeptFileIsNeverReplaced) {
  for (const auto swap : {PartialFile::Swap::Exchange, PartialFile::Swap::Copy}) {
    folder_.write("a.db", "di prima");
    folder_.write("prima.db", "ancora prima");
    PartialFile partial(folder_ / "a.db", ".ripristino");
    EXPECT_EQ(errorOf([&] { partial.takePlaceOf(folder_ / "prima.db", swap); }).kind(),
              DatabaseErrorKind::Exists);
    EXPECT_EQ(folder_.read("a.db"), "di prima");
    EXPECT_EQ(folder_.read("prima.db"), "ancora prima");
  }
}

}  // namespace
}  // namespace cu::sqlite::test
