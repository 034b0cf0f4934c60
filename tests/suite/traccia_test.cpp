#include "suite/traccia.h"

#include <gtest/gtest.h>

#include "support/fake_connection.h"
#include "support/temp_folder.h"

namespace cu {
namespace {

// The content of the file at the moment a statement arrives.
class SguardoAlFile : public Connection {
 public:
  explicit SguardoAlFile(const test::TempFolder& cartella) : cartella_(cartella) {}
  std::string alMomento;
  std::int64_t Execute(std::string_view) override {
    alMomento = cartella_.read("t.sql");
    return 7;
  }
  void Query(std::string_view, RowStore& rows) override {
    alMomento = cartella_.read("t.sql");
    test::Table({"a"}, {}).fill(rows);
  }

 private:
  const test::TempFolder& cartella_;
};

TEST(Traccia, EachTextIsAJsonStringOnALine) {
  EXPECT_EQ(stringaJson("SELECT 1"), "\"SELECT 1\"");
  EXPECT_EQ(stringaJson("a\"b\\c"), "\"a\\\"b\\\\c\"");
  EXPECT_EQ(stringaJson("x\r\ny\tz"), "\"x\\r\\ny\\tz\"");
  EXPECT_EQ(stringaJson(std::string("\x01\x1f\x7f", 3)), "\"\\u0001\\u001f\x7f\"");
  EXPECT_EQ(stringaJson("città €"), "\"città €\"");
  EXPECT_EQ(stringaJson("\xe0"), "\"\xEF\xBF\xBD\"");
  EXPECT_EQ(stringaJson(""), "\"\"");
}

// A JSON library would write the same text with other bytes: short escapes for two control characters, and
// one U+FFFD for all bytes of a truncated character.
TEST(Traccia, ItsBytesAreItsOwn) {
  EXPECT_EQ(stringaJson("\b\f"), "\"\\u0008\\u000c\"");
  EXPECT_EQ(stringaJson("\xe2\x82z"), "\"\xEF\xBF\xBD\xEF\xBF\xBDz\"");
}

TEST(Traccia, ItIsEmptiedAtTheStart) {
  const test::TempFolder cartella;
  cartella.write("t.sql", "\"vecchio\"\n");
  TracciaSql traccia(cartella / "t.sql");
  EXPECT_EQ(cartella.read("t.sql"), "");
  traccia.scrivi("SELECT 1");
  EXPECT_EQ(cartella.read("t.sql"), "\"SELECT 1\"\n");
}

TEST(Traccia, AFileThatIsNoTraceIsNotEmptied) {
  const test::TempFolder cartella;
  for (const char* const altro : {"SQLite format 3", "[session]\nuser = 1\n", "A              CUR18"}) {
    cartella.write("t.sql", altro);
    EXPECT_THROW(TracciaSql(cartella / "t.sql"), FileError) << altro;
    EXPECT_EQ(cartella.read("t.sql"), altro);
  }
  cartella.write("t.sql", "");
  EXPECT_NO_THROW(TracciaSql(cartella / "t.sql"));
}

TEST(Traccia, ALineIsThereBeforeItsStatementRuns) {
  const test::TempFolder cartella;
  TracciaSql traccia(cartella / "t.sql");
  SguardoAlFile dietro(cartella);
  ConnessioneTracciata connessione(dietro, traccia);
  EXPECT_EQ(connessione.Execute("DELETE FROM T"), 7);
  EXPECT_EQ(dietro.alMomento, "\"DELETE FROM T\"\n");
  RowStore righe;
  connessione.Query("tmpprequadrivio12", righe);
  EXPECT_EQ(dietro.alMomento, "\"DELETE FROM T\"\n\"tmpprequadrivio12\"\n");
}

TEST(Traccia, ARefusedStatementStandsInItToo) {
  const test::TempFolder cartella;
  TracciaSql traccia(cartella / "t.sql");
  test::FakeConnection dietro;
  dietro.refuseContaining("SBAGLIATA");
  ConnessioneTracciata connessione(dietro, traccia);
  EXPECT_THROW(connessione.Execute("SBAGLIATA"), DatabaseError);
  EXPECT_EQ(cartella.read("t.sql"), "\"SBAGLIATA\"\n");
}

TEST(Traccia, ASingleTableRowsetIsWrittenAsItsSelect) {
  const test::TempFolder cartella;
  TracciaSql traccia(cartella / "t.sql");
  auto finta = std::make_unique<test::FakeConnection>();
  finta->answerContaining("SELECT", test::Table({"IDAnagrafica", "Nome"}, {}));
  DatabaseSuite database(std::move(finta), &traccia);
  const auto righe = database.CreateRowset();
  righe->addField("IDAnagrafica");
  righe->addField("Nome");
  righe->setTable("Anagrafica");
  righe->setFilter("IDTipoOggetto = 1 AND \r\nIDFiliale = 3");
  righe->open();
  EXPECT_EQ(
      cartella.read("t.sql"),
      "\"SELECT IDAnagrafica, Nome FROM Anagrafica WHERE IDTipoOggetto = 1 AND \\r\\nIDFiliale = 3\"\n");
}

TEST(Traccia, TheOwnConnectionIsNotTraced) {
  const test::TempFolder cartella;
  TracciaSql traccia(cartella / "t.sql");
  DatabaseSuite database(std::make_unique<test::FakeConnection>(), &traccia);
  database.ownConnection().Execute("A");
  EXPECT_EQ(cartella.read("t.sql"), "");
  database.connection().Execute("B");
  database.internalConnection().Execute("C");
  EXPECT_EQ(cartella.read("t.sql"), "\"B\"\n\"C\"\n");
}

TEST(Traccia, WithoutATraceAllAreOneConnection) {
  DatabaseSuite database(std::make_unique<test::FakeConnection>(), nullptr);
  EXPECT_EQ(&database.connection(), &database.ownConnection());
  EXPECT_EQ(&database.internalConnection(), &database.ownConnection());
}

TEST(Traccia, ReadScopesReachTheConnection) {
  const test::TempFolder cartella;
  TracciaSql traccia(cartella / "t.sql");
  test::FakeConnection dietro;
  ConnessioneTracciata connessione(dietro, traccia);
  {
    const ReadScope lettura(connessione);
    EXPECT_EQ(dietro.readDepth, 1);
  }
  EXPECT_EQ(dietro.readDepth, 0);
}

TEST(Traccia, ATraceThatCannotBeWrittenStopsTheStatement) {
  TracciaSql traccia("/dev/full");
  test::FakeConnection dietro;
  ConnessioneTracciata connessione(dietro, traccia);
  try {
    connessione.Execute("DELETE FROM T");
    FAIL() << "a lost line was not told";
  } catch (const FileError& error) {
    EXPECT_EQ(error.number(), kErrorDiskFull);
  }
  EXPECT_TRUE(dietro.sent.empty());
}

}  // namespace
}  // namespace cu
