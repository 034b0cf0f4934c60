#include "sqlite/own_files.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "files_support.h"

namespace cu::sqlite::test {
namespace {

namespace fs = std::filesystem;

TEST_F(Files, TheFileAndThoseBesideItBelongToADatabase) {
  const std::string database = folder_.write("a.db", "");
  folder_.write("altro.db", "");
  EXPECT_TRUE(belongsToDatabase(database, database));
  EXPECT_TRUE(belongsToDatabase(folder_ / "./a.db", database));
  for (const char* const ending : {"-wal", "-shm", "-journal"}) {
    EXPECT_TRUE(belongsToDatabase(database + ending, database)) << "though it does not exist: " << ending;
  }
  EXPECT_FALSE(belongsToDatabase(folder_ / "altro.db", database));
  EXPECT_FALSE(belongsToDatabase(folder_ / "a.db.copia", database));
  EXPECT_FALSE(belongsToDatabase(folder_.path(), database));
  EXPECT_FALSE(belongsToDatabase("", database));
  EXPECT_FALSE(belongsToDatabase(database, ""));
}

TEST_F(Files, ALinkToADatabaseBelongsToIt) {
  const std::string database = folder_.write("a.db", "");
  fs::create_symlink("a.db", folder_ / "legame.csv");
  fs::create_hard_link(database, folder_ / "altro nome.csv");
  fs::create_symlink(folder_ / "a.db-wal", folder_ / "nel vuoto.csv");
  fs::create_directory_symlink(folder_.path(), folder_ / "qui");
  for (const char* const link :
       {"legame.csv", "altro nome.csv", "nel vuoto.csv", "qui/a.db", "qui/a.db-shm"}) {
    EXPECT_TRUE(belongsToDatabase(folder_ / link, database)) << link;
  }
  fs::create_symlink("se stesso", folder_ / "se stesso");
  EXPECT_FALSE(belongsToDatabase(folder_ / "se stesso", database));
}

TEST_F(Files, WhatThisProcessHasOpenedIsItsOwn) {
  const std::string database = folder_ / "a.db";
  EXPECT_FALSE(belongsToOwnDatabase(database));
  made("a.db");
  EXPECT_TRUE(belongsToOwnDatabase(database));
  EXPECT_TRUE(belongsToOwnDatabase(database + "-wal"));
  EXPECT_FALSE(belongsToOwnDatabase(folder_ / "b.db"));
  rememberOwnDatabase(folder_ / "b.db");
  EXPECT_TRUE(belongsToOwnDatabase(folder_ / "b.db"));
  rememberOwnDatabase(":memory:");
  EXPECT_FALSE(belongsToOwnDatabase(":memory:"));
}

}  // namespace
}  // namespace cu::sqlite::test
