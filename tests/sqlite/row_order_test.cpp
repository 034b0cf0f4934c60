// Rows that are too wide for the engine to sort are sorted here, in the same order.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <random>

#include "rewrite_support.h"
#include "support/temp_folder.h"

namespace cu::sqlite::test {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

// "t.IDAnagrafica AS a1, ...": as many columns as make a row wide.
std::string wide(const std::string& column) {
  std::string list;
  for (int i = 1; i <= 100; ++i) list += ", " + column + " AS a" + std::to_string(i);
  return list;
}

Rewritten leftToCaller(const std::string& text) {
  const TestCatalog catalog;
  const TokenList tokens = tokenize(text);
  const auto statements = parseStatements(tokens);
  return rewrite(*statements.front(), tokens.literals, catalog, Sorting::WideByCaller);
}

TEST(RowOrder, IsTheCallersOnlyWhereRowsAreWideAndTheTermsAreInThem) {
  const std::string join = " FROM tmp12 INNER JOIN Anagrafica Anag ON tmp12.IDAnagrafica = Anag.IDAnagrafica";
  const std::string many = "SELECT tmp12.*, Anag.Anagrafica, Anag.DataNascita, Anag.Nome AS Detto" +
                           wide("Anag.IDAnagrafica") + join;
  const Rewritten left =
      leftToCaller(many + " ORDER BY Anag.Anagrafica DESC, Detto, IDAnagrafica, tmp12.Codice");
  EXPECT_EQ(left.order, (std::vector<OrderColumn>{{8, true}, {10, false}, {6, false}, {4, false}}));
  EXPECT_THAT(left.pieces.front().sql, Not(HasSubstr("ORDER BY")));
  for (const std::string& text :
       {many + " ORDER BY Anag.DataNascita", many + " ORDER BY Lordo", many + " ORDER BY Anag.PartitaIva",
        many + " ORDER BY Anag.Anagrafica, Anag.Anagrafica + 'x'", many,
        "SELECT tmp12.*, Anag.Anagrafica" + join + " ORDER BY Anag.Anagrafica",
        "SELECT DISTINCT tmp12.*" + wide("Anag.IDAnagrafica") + join + " ORDER BY Codice",
        "SELECT tmp12.*" + wide("IDAnagrafica") + " FROM tmp12 ORDER BY Codice"}) {
    const Rewritten kept = leftToCaller(text);
    EXPECT_TRUE(kept.order.empty()) << text;
    EXPECT_EQ(kept.pieces.front().sql, rewritten(text).pieces.front().sql) << text;
  }
}

TEST(RowOrder, IsThatOfTheEngine) {
  const cu::test::TempFolder folder;
  const auto connection = SqliteConnection::create(folder / "t.db");
  connection->Execute("CREATE TABLE t (id int NOT NULL PRIMARY KEY, nome Note, altro Descrizione, n int)");
  std::mt19937 random(20170305);
  const char* const pieces[] = {"Rossi",   "rossi", "ROSSI ", "èlite", "ELENA", "D'Amico",
                                "d’amico", "ß",     "10",     " y",    ""};
  for (int id = 1; id <= 400; ++id) {
    const auto any = [&]() -> std::string {
      if (random() % 7 == 0) return "NULL";
      std::string text = pieces[random() % std::size(pieces)];
      if (random() % 2 == 0) text += pieces[random() % std::size(pieces)];
      std::string quoted = "'";
      for (const char c : text) quoted += c == '\'' ? std::string("''") : std::string(1, c);
      return quoted + "'";
    };
    const std::string number =
        random() % 5 == 0 ? "NULL" : std::to_string(static_cast<int>(random() % 20) - 10);
    connection->Execute("INSERT INTO t VALUES (" + std::to_string(id) + ", " + any() + ", " + any() + ", " +
                        number + ")");
  }
  const std::string from = " FROM t INNER JOIN t u ON t.id = u.id ORDER BY ";
  for (const char* order : {"t.nome, u.altro, id", "t.nome DESC, t.n, id DESC", "n DESC, altro DESC, id",
                            "u.altro, t.n DESC, nome, id"}) {
    const std::string columns = "SELECT t.id, t.nome, u.altro, t.n";
    const auto ours = query(*connection, columns + wide("u.id") + from + order);
    const auto engines = query(*connection, columns + from + order);
    ASSERT_EQ(ours.size(), engines.size());
    for (std::size_t i = 0; i < ours.size(); ++i) {
      EXPECT_EQ(ours[i].front(), engines[i].front()) << order << ", row " << i;
    }
  }
}

TEST(RowOrder, OfRowsReadAfterOthersLeavesThoseBefore) {
  const auto connection = SqliteConnection::create(":memory:");
  connection->Execute("CREATE TABLE t (id int NOT NULL PRIMARY KEY, nome Note)");
  connection->Execute("INSERT INTO t VALUES (1, 'b'), (2, 'a'), (3, 'c')");
  RowStore rows;
  const std::string text =
      "SELECT t.id, t.nome" + wide("u.id") + " FROM t INNER JOIN t u ON t.id = u.id ORDER BY t.nome";
  connection->Query(text + " DESC", rows);
  connection->Query(text, rows);
  std::string order;
  std::vector<CellView> cells(rows.columns()->size());
  for (std::size_t i = 0; i < rows.size(); ++i) {
    rows.read(i, cells.data());
    order += cells[1].text();
  }
  EXPECT_EQ(order, "cbaabc");
}

TEST(RowOrder, AForeignTextAmongNumbersComesLast) {
  const cu::test::TempFolder folder;
  const std::string path = folder / "t.db";
  const auto connection = SqliteConnection::create(path);
  connection->Execute("CREATE TABLE t (id int NOT NULL PRIMARY KEY, n int)");
  connection->Execute("INSERT INTO t VALUES (1, 30), (2, 4), (3, NULL), (4, 1)");
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(path.c_str(), &other), SQLITE_OK);
  EXPECT_EQ(sqlite3_exec(other, "UPDATE t SET n = 'x' WHERE id = 4; UPDATE t SET n = 4.5 WHERE id = 1",
                         nullptr, nullptr, nullptr),
            SQLITE_OK);
  sqlite3_close(other);
  std::string order;
  for (const auto& line : query(*connection, "SELECT t.id, t.n" + wide("u.id") +
                                                 " FROM t INNER JOIN t u ON t.id = u.id ORDER BY n")) {
    order += line.front();
  }
  EXPECT_EQ(order, "3214");
}

}  // namespace
}  // namespace cu::sqlite::test
