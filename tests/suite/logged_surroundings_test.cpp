// What the surroundings add to the log for support.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

#include "suite/log_text.h"
#include "suite/logged_connection.h"
#include "suite/logged_file_system.h"
#include "suite/logged_phases.h"
#include "support/fake_connection.h"
#include "support/memory_file_system.h"
#include "support/temp_folder.h"

namespace cu {
namespace {

using ::testing::ElementsAre;
using ::testing::MatchesRegex;

std::string subjectOf(std::string_view statement) {
  const StatementSubject subject = statementSubject(statement);
  return std::string(subject.kind) + " " + subject.table;
}

TEST(StatementSubject, IsTheKindAndTheFirstTable) {
  EXPECT_EQ(subjectOf("SELECT a, b FROM Comune WHERE c = 1"), "SELECT Comune");
  EXPECT_EQ(subjectOf("select TOP 1 * from [dbo].[Conto] inner join Altra"), "SELECT Conto");
  EXPECT_EQ(subjectOf("INSERT INTO Comune (a) VALUES ('x')"), "INSERT Comune");
  EXPECT_EQ(subjectOf("UPDATE dbo.Comune SET a = 1"), "UPDATE Comune");
  EXPECT_EQ(subjectOf("DELETE FROM Comune"), "DELETE Comune");
  EXPECT_EQ(subjectOf("CREATE TABLE Comune (a int)"), "CREATE Comune");
  EXPECT_EQ(subjectOf("CREATE UNIQUE INDEX i ON Comune (a)"), "CREATE Comune");
  EXPECT_EQ(subjectOf("IF OBJECT_ID('x') IS NOT NULL DROP TABLE Comune"), "IF Comune");
  EXPECT_EQ(subjectOf("SELECT a INTO Nuova FROM Comune"), "SELECT Nuova");
  EXPECT_EQ(subjectOf("SELECT * FROM (SELECT a FROM Comune) AS t"), "SELECT Comune");
  EXPECT_EQ(subjectOf("BEGIN TRANSACTION"), "BEGIN ");
  EXPECT_EQ(subjectOf("Comune"), "SELECT Comune");
  EXPECT_EQ(subjectOf("[dbo].[Comune]"), "SELECT Comune");
}

TEST(StatementSubject, HasNoDigits) {
  EXPECT_EQ(subjectOf("SELECT * FROM tmpCompensi_12"), "SELECT tmpCompensi_##");
  EXPECT_EQ(subjectOf("SELECT * FROM #lavoro"), "SELECT #lavoro");
  EXPECT_EQ(subjectOf("DELETE FROM 12345"), "DELETE ");
}

TEST(StatementSubject, NeverComesFromAText) {
  EXPECT_EQ(subjectOf("SELECT 'x FROM Rossi'"), "SELECT ");
  EXPECT_EQ(subjectOf("SELECT 'dell''opera FROM Rossi' FROM Comune"), "SELECT Comune");
  EXPECT_EQ(subjectOf("SELECT 'il \"motto' FROM Comune WHERE a = 'FROM \" Rossi'"), "SELECT Comune");
  EXPECT_EQ(subjectOf("SELECT \"FROM Rossi\" FROM Comune"), "SELECT Comune");
  EXPECT_EQ(subjectOf("SELECT 1 -- FROM Rossi\n FROM Comune"), "SELECT Comune");
  EXPECT_EQ(subjectOf("SELECT /* FROM Rossi */ 1 FROM Comune"), "SELECT Comune");
  EXPECT_EQ(subjectOf("SELECT * FROM [Rossi Mario]"), "SELECT ");
  EXPECT_EQ(subjectOf("SELECT 'aperto FROM Rossi"), "SELECT ");
  EXPECT_EQ(subjectOf("EXEC ('UPDATE Rossi SET a = 1')"), "EXEC ");
  EXPECT_EQ(subjectOf("Rossi Mario"), "altro ");
  EXPECT_EQ(subjectOf("RSSMRA80A01H501U = 1"), "altro ");
  EXPECT_EQ(subjectOf(""), "altro ");
}

struct LoggedSurroundings : ::testing::Test {
  test::TempFolder folder;
  LoggedSurroundings() {
    SupportLog::activate(std::make_unique<SupportLog>(SupportLog::Settings{.path = folder / "log"}));
  }
  ~LoggedSurroundings() override { SupportLog::activate(nullptr); }

  std::vector<std::string> texts() const {
    SupportLog::active()->flush();
    std::vector<std::string> result;
    std::istringstream text(folder.read("log"));
    for (std::string line; std::getline(text, line);) result.push_back(line.substr(line.find("] ") + 2));
    return result;
  }
};

TEST_F(LoggedSurroundings, AConnectionsStatementsPassUnchanged) {
  auto fake = std::make_unique<test::FakeConnection>();
  test::FakeConnection& seen = *fake;
  seen.answer("SELECT Nome FROM Comune", {{"Nome"}, {{Value::ofText("Roma")}, {Value::ofText("Milano")}}});
  seen.touchContaining("UPDATE", 3);
  seen.refuseContaining("DELETE", DatabaseErrorKind::Constraint);
  const std::unique_ptr<Connection> connection = withLog(std::move(fake));
  RowStore rows;
  {
    const ReadScope scope(*connection);
    EXPECT_EQ(seen.readDepth, 1);
    connection->Query("SELECT Nome FROM Comune", rows);
  }
  EXPECT_EQ(rows.size(), 2U);
  EXPECT_EQ(connection->Execute("UPDATE Comune SET Nome = 'Rossi'"), 3);
  EXPECT_EQ(connection->Execute("INSERT INTO Comune VALUES ('Rossi')"), -1);
  EXPECT_THROW(connection->Execute("DELETE FROM Comune WHERE Nome = 'Rossi'"), DatabaseError);
  EXPECT_THAT(seen.texts(),
              ElementsAre("SELECT Nome FROM Comune", "UPDATE Comune SET Nome = 'Rossi'",
                          "INSERT INTO Comune VALUES ('Rossi')", "DELETE FROM Comune WHERE Nome = 'Rossi'"));
  EXPECT_THAT(texts(),
              ElementsAre(MatchesRegex("istruzione SELECT su=Comune ms=[0-9]+ righe=2"),
                          MatchesRegex("istruzione UPDATE su=Comune ms=[0-9]+ righe=3"),
                          MatchesRegex("istruzione INSERT su=Comune ms=[0-9]+"),
                          MatchesRegex("istruzione DELETE su=Comune ms=[0-9]+ errore=database/Constraint "
                                       "numero=-2147217900 codice=0")));
}

TEST_F(LoggedSurroundings, WithoutALogTheConnectionIsTheSame) {
  SupportLog::activate(nullptr);
  auto fake = std::make_unique<test::FakeConnection>();
  const Connection* const same = fake.get();
  EXPECT_EQ(withLog(std::move(fake)).get(), same);
  EXPECT_EQ(dynamic_cast<LoggedFileSystem*>(machineFiles().get()), nullptr);
}

TEST_F(LoggedSurroundings, FilesHaveNoNames) {
  auto memory = std::make_unique<test::MemoryFileSystem>();
  test::MemoryFileSystem& seen = *memory;
  LoggedFileSystem files(std::move(memory));
  files.createFolder("/RSSMRA80A01H501U");
  const auto file = files.openForOutput("/RSSMRA80A01H501U/a.pdf");
  file->write("12345");
  file->write("678");
  file->close();
  files.copy("/RSSMRA80A01H501U/a.pdf", "/RSSMRA80A01H501U/b.pdf");
  files.rename("/RSSMRA80A01H501U/b.pdf", "/RSSMRA80A01H501U/c.pdf");
  files.replace("/impostazioni", "testo");
  EXPECT_EQ(files.readAll("/impostazioni"), "testo");
  files.remove("/RSSMRA80A01H501U/c.pdf");
  seen.failNth(test::MemoryFileSystem::Operation::Write, 1, kErrorDiskFull);
  const auto full = files.openForOutput("/x");
  EXPECT_THROW(full->write("1"), FileError);
  EXPECT_EQ(seen.files.at("/RSSMRA80A01H501U/a.pdf"), "12345678");
  EXPECT_THAT(texts(),
              ElementsAre("file nuova cartella ms=0", "file apertura ms=0", "file scrittura ms=0 byte=8",
                          "file copia ms=0", "file cambio di nome ms=0", "file sostituzione ms=0 byte=5",
                          "file lettura ms=0 byte=5", "file eliminazione ms=0", "file apertura ms=0",
                          "file scrittura errore=file numero=61"));
}

TEST_F(LoggedSurroundings, PhasesEndWithTheNextOne) {
  {
    LoggedPhases phases;
    constexpr const char* kReading = "Lettura";
    for (std::size_t row = 0; row < 3; ++row) phases.progress(kReading, row);
    phases.progress("Controllo del file (kB)", 0);
  }
  EXPECT_THAT(texts(), ElementsAre("fase Lettura ms=0 righe=2", "fase Controllo del file (kB) ms=0"));
}

}  // namespace
}  // namespace cu
