// Several programs and several threads on one file, each with a connection of its own.
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "files_support.h"

namespace cu::sqlite::test {
namespace {

constexpr int kTogether = 4;
constexpr int kRounds = 25;
constexpr int kPatience = 120000;  // milliseconds

using Together = Files;

// What a run does to the database: a table of its own made anew, filled, read by texts that are new each
// time, changed line by line, and two rows for each line in a table that all share.
void work(const std::string& path, int mine) {
  const auto connection = SqliteConnection::open(path);
  connection->setPatience(kPatience);
  const std::string table = "lavoro" + std::to_string(mine);
  for (int round = 1; round <= kRounds; ++round) {
    connection->Execute("if exists (select * from dbo.sysobjects where id = object_id(N'[dbo].[" + table +
                        "]') AND type in ('N','U')) drop table [dbo].[" + table + "]");
    connection->Execute("CREATE TABLE [dbo].[" + table + "] ([id] [int] NOT NULL , [nome] [Note] NULL)");
    connection->Execute("INSERT INTO " + table + " SELECT id, nome FROM t");
    for (int line = 1; line <= 3; ++line) {
      const std::string alias = "a" + std::to_string(round) + "_" + std::to_string(line);
      if (query(*connection, "SELECT id AS " + alias + " FROM " + table).size() != 3) {
        throw std::logic_error("rows of another one's table");
      }
      connection->Execute("UPDATE " + table + " SET nome = 'x' WHERE id = " + std::to_string(line));
      connection->Execute("DELETE FROM comune WHERE chi = " + std::to_string(mine));
      connection->Execute("INSERT INTO comune (chi, riga) VALUES (" + std::to_string(mine) + ", " +
                          std::to_string(line) + ")");
    }
    connection->Execute("BEGIN TRANSACTION");
    connection->Execute("UPDATE conto SET quanti = quanti + 1");
    connection->Execute("COMMIT TRANSACTION");
  }
}

std::string prepared(SqliteConnection& connection, const std::string& path) {
  connection.Execute("INSERT INTO t VALUES (1, 'a'), (2, 'b'), (3, 'c')");
  connection.Execute("CREATE TABLE comune (chi int NOT NULL, riga int NOT NULL)");
  connection.Execute("CREATE TABLE conto (quanti int NOT NULL)");
  connection.Execute("INSERT INTO conto VALUES (0)");
  return path;
}

void expectAll(SqliteConnection& connection) {
  EXPECT_EQ(single(connection, "SELECT quanti FROM conto"), std::to_string(kTogether * kRounds));
  EXPECT_EQ(single(connection, "SELECT COUNT(*) FROM comune"), std::to_string(kTogether));
  EXPECT_EQ(single(connection, "SELECT COUNT(*) FROM comune WHERE riga = 3"), std::to_string(kTogether));
}

TEST_F(Together, ThreadsQueueForTheirWritesAndMeetNoTableOfAnother) {
  const auto mine = made("a.db");
  const std::string path = prepared(*mine, folder_ / "a.db");
  std::mutex guard;
  std::vector<std::string> errors;
  std::vector<std::thread> threads;
  for (int i = 1; i <= kTogether; ++i) {
    threads.emplace_back([&, i] {
      try {
        work(path, i);
      } catch (const std::exception& error) {
        const std::lock_guard<std::mutex> lock(guard);
        errors.emplace_back(error.what());
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(errors, std::vector<std::string>());
  expectAll(*mine);
}

TEST_F(Together, ProcessesQueueForTheirWritesAndMeetNoTableOfAnother) {
  // A connection is never taken into another process.
  const std::string path = prepared(*made("a.db"), folder_ / "a.db");
  std::vector<pid_t> processes;
  for (int i = 1; i <= kTogether; ++i) {
    const pid_t id = ::fork();
    ASSERT_GE(id, 0);
    if (id == 0) {
      try {
        work(path, i);
        ::_exit(0);
      } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        ::_exit(1);
      }
    }
    processes.push_back(id);
  }
  for (const pid_t id : processes) {
    int status = -1;
    ::waitpid(id, &status, 0);
    EXPECT_EQ(status, 0);
  }
  expectAll(*opened("a.db"));
}

}  // namespace
}  // namespace cu::sqlite::test
