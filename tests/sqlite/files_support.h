#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "support.h"
#include "support/temp_folder.h"

namespace cu::sqlite::test {

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
  cu::test::TempFolder folder_;
};

}  // namespace cu::sqlite::test
