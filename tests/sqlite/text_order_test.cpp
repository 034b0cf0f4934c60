// Text in the embedded database: order and equality, here and for other tools.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support.h"
#include "support/temp_folder.h"

namespace cu::sqlite::test {
namespace {

class TextOrder : public ::testing::Test {
 protected:
  TextOrder() : connection_(SqliteConnection::create(folder_ / "t.db")) {
    connection_->Execute("CREATE TABLE t (id int NOT NULL PRIMARY KEY, nome Note, altro Descrizione)");
  }
  void fill(const std::vector<const char*>& names) {
    int id = 0;
    for (const char* name : names) {
      const std::string value = name == nullptr ? "NULL" : "'" + std::string(name) + "'";
      connection_->Execute("INSERT INTO t (id, nome) VALUES (" + std::to_string(++id) + ", " + value + ")");
    }
  }
  std::vector<std::string> column(std::string_view text) {
    std::vector<std::string> result;
    for (const auto& line : query(*connection_, text)) result.push_back(line.front());
    return result;
  }
  cu::test::TempFolder folder_;
  std::unique_ptr<SqliteConnection> connection_;
};

TEST_F(TextOrder, NamesSortAsAnItalianExpects) {
  fill({"Zoli", "èlite", "ELENA", "Elia", "éa", "eb", "10", "2", "-x", " y", nullptr, "Rossi Bianchi",
        "Rossi", "ROSSI-Bianchi", "Rossini"});
  EXPECT_THAT(column("SELECT nome FROM t ORDER BY nome, id"),
              ::testing::ElementsAre("NULL", " y", "-x", "10", "2", "éa", "eb", "ELENA", "Elia", "èlite",
                                     "Rossi", "Rossi Bianchi", "ROSSI-Bianchi", "Rossini", "Zoli"));
  EXPECT_EQ(column("SELECT nome FROM t ORDER BY nome DESC").front(), "Zoli");
}

TEST_F(TextOrder, CaseAndTrailingBlanksDoNotCountAndAccentsDo) {
  fill({"Perché ", "PERCHÉ", "perche"});
  EXPECT_THAT(column("SELECT id FROM t WHERE nome = 'perché'"), ::testing::ElementsAre("1", "2"));
  EXPECT_THAT(column("SELECT id FROM t WHERE nome = 'Perche  '"), ::testing::ElementsAre("3"));
  EXPECT_THAT(column("SELECT id FROM t WHERE nome IN ('PERCHÉ  ')"), ::testing::ElementsAre("1", "2"));
  EXPECT_THAT(column("SELECT id FROM t WHERE RTRIM(nome) <> 'perché'"), ::testing::ElementsAre("3"));
  EXPECT_THAT(column("SELECT id FROM t WHERE UPPER(nome) = 'PERCHÉ'"), ::testing::ElementsAre("1", "2"));
  EXPECT_EQ(query(*connection_, "SELECT DISTINCT nome + '' AS n FROM t").size(), 2u);
  EXPECT_EQ(query(*connection_, "SELECT DISTINCT nome FROM t").size(), 2u);
}

TEST_F(TextOrder, AnEmptyTextAndOneOfBlanksAreEqualAndANullIsNeither) {
  fill({"", "   ", nullptr, "x"});
  EXPECT_THAT(column("SELECT id FROM t WHERE nome = ''"), ::testing::ElementsAre("1", "2"));
  EXPECT_THAT(column("SELECT id FROM t WHERE nome <> ''"), ::testing::ElementsAre("4"));
  EXPECT_THAT(column("SELECT id FROM t WHERE ISNULL(nome, '') = ''"), ::testing::ElementsAre("1", "2", "3"));
}

TEST_F(TextOrder, JoinsOnTextFindWhatIsEqual) {
  connection_->Execute("CREATE TABLE a (x Descrizione, n int)");
  connection_->Execute("CREATE TABLE b (x Descrizione, n int)");
  connection_->Execute("BEGIN TRANSACTION");
  for (int i = 0; i < 400; ++i) {
    const std::string n = std::to_string(i);
    connection_->Execute("INSERT INTO a VALUES ('Chiave" + n + "', " + n + ")");
    connection_->Execute("INSERT INTO b VALUES ('CHIAVE" + n + "   ', " + n + ")");
  }
  connection_->Execute("COMMIT TRANSACTION");
  EXPECT_EQ(single(*connection_, "SELECT COUNT(*) FROM a INNER JOIN b ON a.x = b.x WHERE a.n = b.n"), "400");
  EXPECT_EQ(single(*connection_, "SELECT COUNT(*) FROM a LEFT JOIN b ON a.x = b.x WHERE b.x IS NULL"), "0");
  EXPECT_EQ(single(*connection_, "SELECT COUNT(*) FROM a INNER JOIN b ON RTRIM(a.x) = UPPER(b.x)"), "400");
  EXPECT_EQ(single(*connection_,
                   "SELECT COUNT(*) FROM a WHERE EXISTS (SELECT 1 FROM b WHERE b.x = a.x AND b.n > 9)"),
            "390");
}

TEST_F(TextOrder, AViewsTextsCompareAsTheTablesDo) {
  fill({"Rossi", "rossi ", "Bianchi", "èlite", "elite"});
  connection_->Execute(
      "CREATE VIEW v AS SELECT id, RTRIM(nome) AS corto, ISNULL(altro, nome) AS scelto, CASE WHEN id > "
      "2 THEN nome ELSE 'ROSSI' END AS caso, nome FROM t");
  EXPECT_THAT(column("SELECT id FROM v WHERE corto = 'ROSSI'"), ::testing::UnorderedElementsAre("1", "2"));
  EXPECT_THAT(column("SELECT id FROM v WHERE scelto >= 'b' AND scelto <= 'E'"),
              ::testing::UnorderedElementsAre("3"));
  EXPECT_THAT(column("SELECT id FROM v WHERE caso IN ('rossi')"), ::testing::UnorderedElementsAre("1", "2"));
  EXPECT_THAT(column("SELECT corto FROM v ORDER BY corto, id"),
              ::testing::ElementsAre("Bianchi", "elite", "èlite", "Rossi", "rossi"));
  EXPECT_EQ(query(*connection_, "SELECT DISTINCT corto FROM v").size(), 4u);
  EXPECT_EQ(single(*connection_, "SELECT corto + '!' AS c FROM v WHERE id = 2"), "rossi!");
}

TEST_F(TextOrder, OtherToolsReadSortAndChangeTheFile) {
  fill({"Rossi", "èlite", "bianchi"});
  connection_->Execute(
      "CREATE VIEW v AS SELECT id, UPPER(nome) AS n, nome + ' ' + ISNULL(altro, '') AS tutto, "
      "id + 0 AS numero FROM t");
  BareDatabase bare(folder_ / "t.db");
  EXPECT_THAT(bare.read("SELECT nome FROM t ORDER BY nome"),
              ::testing::ElementsAre("bianchi", "Rossi", "èlite"));
  EXPECT_THAT(bare.read("SELECT id FROM t WHERE nome = 'ROSSI'"), ::testing::ElementsAre("1"));
  EXPECT_THAT(bare.read("SELECT tutto, numero FROM v WHERE n = 'rossi'"), ::testing::ElementsAre("Rossi |1"));
  EXPECT_TRUE(bare.run("INSERT INTO t (id, nome) VALUES (9, 'Verdi')")) << bare.message();
  EXPECT_TRUE(bare.run("UPDATE t SET nome = 'Neri' WHERE id = 1")) << bare.message();
  EXPECT_THAT(bare.read("PRAGMA integrity_check"), ::testing::ElementsAre("ok"));
  EXPECT_THAT(column("SELECT nome FROM t ORDER BY nome"),
              ::testing::ElementsAre("bianchi", "èlite", "Neri", "Verdi"));
}

TEST_F(TextOrder, AViewOfAnotherToolIsReadToo) {
  fill({"Rossi", "Bianchi"});
  BareDatabase bare(folder_ / "t.db");
  ASSERT_TRUE(bare.run(
      "CREATE VIEW w AS WITH x AS (SELECT id, nome FROM t) SELECT id, nome || '!' AS n, hex(id) AS h "
      "FROM x LIMIT 5"));
  EXPECT_EQ(query(*connection_, "SELECT id, n FROM w WHERE n = 'ROSSI!'"), (Lines{{"1", "Rossi!"}}));
  EXPECT_EQ(query(*connection_, "w").size(), 2u);
  EXPECT_EQ(errorOf([&] { query(*connection_, "SELECT n + 'x' AS y FROM w"); }).kind(),
            DatabaseErrorKind::Syntax);
}

}  // namespace
}  // namespace cu::sqlite::test
