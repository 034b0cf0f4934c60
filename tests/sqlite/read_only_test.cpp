// Databases that this process may not write: read, and nothing else.

#include "sqlite/read_only.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "files_support.h"
#include "sqlite/database_copy.h"
#include "support/as_nobody.h"

namespace cu::sqlite::test {
namespace {

namespace fs = std::filesystem;
using cu::test::askedAsNobody;
using ::testing::HasSubstr;

class ReadOnlyFiles : public Files {
 protected:
  ReadOnlyFiles() {
    made("a.db")->Execute("INSERT INTO t (id, nome) VALUES (1, 'uno')");
    fs::create_directory(folder_ / "altrove");
    fs::permissions(folder_ / "altrove", fs::perms::all);
    protect();
  }
  ~ReadOnlyFiles() override { fs::permissions(folder_.path(), fs::perms::owner_all); }
  // File and folder can be read by everybody, and written by nobody.
  void protect() {
    for (const auto& entry : fs::directory_iterator(folder_.path()))
      if (entry.is_regular_file()) fs::permissions(entry.path(), fs::perms(0444));
    fs::permissions(folder_.path(), fs::perms(0555));
  }
  // The rows, or the error.
  static std::string rowsOf(const std::string& file) {
    return askedAsNobody([&]() -> std::string {
      try {
        const auto connection = SqliteConnection::openToRead(file);
        RowStore rows;
        connection->BeginRead();
        connection->Query("SELECT nome FROM t WHERE nome = 'UNO' ORDER BY nome", rows);
        connection->EndRead();
        return std::to_string(rows.size());
      } catch (const DatabaseError& error) {
        return error.what();
      }
    });
  }
  std::size_t filesThere() {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder_.path()), fs::directory_iterator()));
  }
};

TEST_F(ReadOnlyFiles, AreReadAndGetNothingBesideThem) {
  const std::size_t before = filesThere();
  EXPECT_EQ(rowsOf(folder_ / "a.db"), "1") << "neither file nor folder";
  fs::permissions(folder_ / "a.db", fs::perms(0666));
  EXPECT_EQ(rowsOf(folder_ / "a.db"), "1") << "the file, but not the folder";
  fs::permissions(folder_ / "a.db", fs::perms(0444));
  fs::permissions(folder_.path(), fs::perms(0777));
  EXPECT_EQ(rowsOf(folder_ / "a.db"), "1") << "the folder, but not the file";
  EXPECT_EQ(filesThere(), before);
}

TEST_F(ReadOnlyFiles, AreNotWritten) {
  const std::string said = askedAsNobody([&]() -> std::string {
    try {
      SqliteConnection::openToRead(folder_ / "a.db")->Execute("DELETE FROM t");
    } catch (const DatabaseError& error) {
      return error.kind() == DatabaseErrorKind::ReadOnly ? "read-only" : error.what();
    }
    return "written";
  });
  EXPECT_EQ(said, "read-only");
}

TEST_F(ReadOnlyFiles, AreBackedUp) {
  const std::string said = askedAsNobody([&]() -> std::string {
    try {
      return std::to_string(backUpDatabase(folder_ / "a.db", folder_ / "altrove/copia.db", false).rows);
    } catch (const DatabaseError& error) {
      return error.what();
    }
  });
  EXPECT_EQ(said, "1");
  EXPECT_TRUE(fs::exists(folder_ / "altrove/copia.db"));
}

TEST_F(ReadOnlyFiles, InUseBySomebodyWhoWritesAreReadAsTheyAre) {
  const auto writer = SqliteConnection::open(folder_ / "a.db");
  writer->Execute("INSERT INTO t (id, nome) VALUES (2, 'uno')");
  protect();
  EXPECT_EQ(rowsOf(folder_ / "a.db"), "2") << "also what is in the log alone";
}

// The engine keeps the log beside the real file.
TEST_F(ReadOnlyFiles, ReachedThroughALinkAreReadWithTheirLog) {
  const auto writer = SqliteConnection::open(folder_ / "a.db");
  writer->Execute("INSERT INTO t (id, nome) VALUES (2, 'uno')");
  protect();
  fs::create_symlink(folder_ / "a.db", folder_ / "altrove/collegamento.db");
  EXPECT_EQ(rowsOf(folder_ / "altrove/collegamento.db"), "2");
  const std::string copied = askedAsNobody([&]() -> std::string {
    try {
      return std::to_string(
          backUpDatabase(folder_ / "altrove/collegamento.db", folder_ / "altrove/copia.db", false).rows);
    } catch (const DatabaseError& error) {
      return error.what();
    }
  });
  EXPECT_EQ(copied, "2");
}

TEST_F(ReadOnlyFiles, OfAnotherKindAreRefusedAsWritableOnesAre) {
  fs::permissions(folder_.path(), fs::perms(0755));
  const std::string letter = folder_.write("lettera.db", std::string(4096, 'x'));
  protect();
  EXPECT_THAT(rowsOf(letter), HasSubstr("lettera.db» non è un database. Correggere l'indirizzo nel profilo"));
}

// Of a process that was killed: the last changes are in the log, and nobody may write them into the file.
TEST_F(ReadOnlyFiles, WithChangesBesideThemThatCannotBeReadAreRefusedInWords) {
  fs::permissions(folder_.path(), fs::perms(0755));
  fs::create_directory(folder_ / "resti");
  {
    const auto writer = SqliteConnection::open(folder_ / "a.db");
    writer->Execute("INSERT INTO t (id, nome) VALUES (2, 'uno')");
    for (const char* const ending : {"", "-wal"}) {
      const std::string left = folder_ / "resti/a.db" + ending;
      fs::copy_file(folder_ / "a.db" + ending, left);
      fs::permissions(left, fs::perms(0444));
    }
  }
  fs::permissions(folder_ / "resti", fs::perms(0555));
  const std::string said = rowsOf(folder_ / "resti/a.db");
  EXPECT_THAT(said, HasSubstr("è di sola lettura, e accanto c'è «"));
  EXPECT_THAT(said, HasSubstr("a.db-wal» con modifiche che non sono ancora nel file"));
  fs::permissions(folder_ / "resti", fs::perms(0755));
}

}  // namespace
}  // namespace cu::sqlite::test
