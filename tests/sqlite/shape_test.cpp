#include "sqlite/shape.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support.h"

namespace cu::sqlite::test {
namespace {

// The literals of `text` if it matches the shape of `model`; "no" otherwise.
std::string against(std::string_view model, std::string_view text, bool bound = true) {
  const TokenList tokens = tokenize(model);
  const Shape shape(model, tokens, std::vector<bool>(tokens.literals.size(), bound));
  std::vector<Literal> literals;
  if (!shape.matches(text, literals)) return "no";
  std::string result = "yes";
  for (const Literal& literal : literals) result += " " + std::string(literal.text);
  return result;
}

TEST(Shape, TextsThatDifferInValuesAloneAreOfOneShape) {
  EXPECT_EQ(against("SELECT 1", "SELECT 22.5"), "yes 22.5");
  EXPECT_EQ(
      against("SELECT a FROM t WHERE b = 1 AND c = 'x'", "SELECT a FROM t WHERE b = 77 AND c = 'D''Amico'"),
      "yes 77 D''Amico");
  EXPECT_EQ(against("a = 'x' -- 5 'y'\n", "a = '' -- 5 'y'\n"), "yes ");
  EXPECT_EQ(against("[a 1] = .5", "[a 1] = 7."), "yes 7.");
}

TEST(Shape, EverythingElseMustBeTheSame) {
  EXPECT_EQ(against("a = 1", "b = 1"), "no");
  EXPECT_EQ(against("a = 1", "a = 1 "), "no");
  EXPECT_EQ(against("a = 1 ", "a = 1"), "no");
  EXPECT_EQ(against("a = 1", "a = '1'"), "no");
  EXPECT_EQ(against("a = '1'", "a = 1"), "no");
  EXPECT_EQ(against("a = 1", "a = -1"), "no");
  EXPECT_EQ(against("a = 1", "a = NULL"), "no");
  EXPECT_EQ(against("a = 1", "a = 1 OR 1 = 1"), "no");
  EXPECT_EQ(against("a = 'x'", "a = 'x' OR 'a' = 'a'"), "no");
  EXPECT_EQ(against("a = 'x'", "a = 'x"), "no");
  EXPECT_EQ(against("a = 'x'", "a = ''''"), "yes ''");
  EXPECT_EQ(against("a = 1", "a = 1abc"), "no");
  EXPECT_EQ(against("a = 1", ""), "no");
  EXPECT_EQ(against("a /* 1 */ = 2", "a /* 3 */ = 2"), "no");
  EXPECT_EQ(against("[a 1] = 2", "[a 9] = 2"), "no");
}

TEST(Shape, ALiteralThatIsNotHandedOverIsPartOfTheShape) {
  EXPECT_EQ(against("ORDER BY 1", "ORDER BY 1", false), "yes 1");
  EXPECT_EQ(against("ORDER BY 1", "ORDER BY 2", false), "no");
}

class StatementCacheTest : public ::testing::Test {
 protected:
  StatementCacheTest() : connection_(SqliteConnection::create(":memory:")) {
    connection_->Execute("CREATE TABLE t (id int NOT NULL PRIMARY KEY, nome Note, importo Importo)");
    connection_->Execute("CREATE TABLE u (id int, nome Note)");
  }
  // The number of statements prepared for a text.
  std::size_t cost(const std::string& text) {
    const std::size_t before = connection_->prepared();
    connection_->Execute(text);
    return connection_->prepared() - before;
  }
  std::unique_ptr<SqliteConnection> connection_;
};

TEST_F(StatementCacheTest, ATextWithOtherValuesIsPreparedOnce) {
  EXPECT_EQ(cost("INSERT INTO t VALUES (1, 'a', 1.5)"), 1u);
  for (int i = 2; i < 200; ++i) {
    EXPECT_EQ(cost("INSERT INTO t VALUES (" + std::to_string(i) + ", 'n''" + std::to_string(i) + "', " +
                   std::to_string(i) + ".25)"),
              0u);
  }
  EXPECT_EQ(cost("INSERT INTO t VALUES (500, NULL, 1)"), 1u);
  EXPECT_EQ(single(*connection_, "SELECT nome FROM t WHERE id = 3"), "n'3");
  EXPECT_EQ(single(*connection_, "SELECT nome FROM t WHERE id = 4"), "n'4");
  EXPECT_EQ(single(*connection_, "SELECT SUM(importo) FROM t WHERE id < 4"), "7");
}

TEST_F(StatementCacheTest, AnIntegerAndAnAmountAreOneShapeAndStayThemselves) {
  EXPECT_EQ(cost("INSERT INTO t VALUES (1, 'a', 1)"), 1u);
  EXPECT_EQ(cost("INSERT INTO t VALUES (2, 'a', 1.5)"), 0u);
  EXPECT_EQ(single(*connection_, "SELECT 1 AS a"), "1");
  EXPECT_EQ(single(*connection_, "SELECT 2.5 AS a"), "2.5");
}

TEST_F(StatementCacheTest, AWrongValueDoesNotHarmTheNext) {
  cost("INSERT INTO t VALUES (1, 'a', 1)");
  EXPECT_THROW(connection_->Execute("INSERT INTO t VALUES (1, 'b', 2)"), DatabaseError);
  EXPECT_THROW(connection_->Execute("INSERT INTO t VALUES (2, 'b', 99999999999999.99)"), DatabaseError);
  EXPECT_EQ(cost("INSERT INTO t VALUES (2, 'b', 2)"), 0u);
  EXPECT_EQ(query(*connection_, "t").size(), 2u);
}

TEST_F(StatementCacheTest, ANewTableOfOneNameIsSeenAsItIs) {
  connection_->Execute("INSERT INTO u VALUES (1, 'a')");
  EXPECT_EQ(query(*connection_, "SELECT * FROM u"), (Lines{{"1", "a"}}));
  connection_->Execute("DROP TABLE u");
  connection_->Execute("CREATE TABLE u (nome datetime, id Importo, altro int)");
  connection_->Execute("INSERT INTO u VALUES ('20170305', 2.5, 3)");
  EXPECT_EQ(query(*connection_, "SELECT * FROM u"), (Lines{{"05/03/2017", "2.5", "3"}}));
}

TEST_F(StatementCacheTest, ResultsOfOneShapeShareTheirColumns) {
  RowStore first;
  RowStore second;
  connection_->Query("SELECT * FROM t WHERE id = 1", first);
  connection_->Query("SELECT * FROM t WHERE id = 2", second);
  EXPECT_EQ(first.columns(), second.columns());
}

TEST_F(StatementCacheTest, TextsWrappedInExecAreKeptToo) {
  const std::string merge =
      "EXEC('MERGE INTO t USING u ON (t.id = u.id) WHEN NOT MATCHED THEN INSERT (id, nome) VALUES (u.id, "
      "u.nome);')";
  EXPECT_EQ(cost(merge), 1u);
  EXPECT_EQ(cost(merge), 0u);
}

TEST_F(StatementCacheTest, MoreShapesThanAreKeptStillRun) {
  for (int round = 0; round < 2; ++round) {
    for (int i = 0; i < 150; ++i) {
      const std::string name = "c" + std::to_string(i);
      EXPECT_EQ(single(*connection_, "SELECT 5 AS " + name), "5");
    }
  }
}

}  // namespace
}  // namespace cu::sqlite::test
