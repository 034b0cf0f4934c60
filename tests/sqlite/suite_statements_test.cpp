// The system's statements, unchanged, on a small database of the suite.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "suite_support.h"

namespace cu::sqlite::test {
namespace {

TEST_F(SuiteStatements, TheWorkTableIsFilledInTheOrderOfItsKey) {
  load();
  RowStore rows;
  connection_->Query(kWork, rows);
  ASSERT_EQ(rows.columns()->size(), 101u);
  for (std::size_t i = 0; i < kWorkColumns.size(); ++i)
    EXPECT_EQ((*rows.columns())[i].name, kWorkColumns[i].name);
  const std::size_t payee = rows.columns()->find("IDAnagrafica");
  const std::size_t reason = rows.columns()->find("IDCausalePagamento");
  std::vector<std::string> keys;
  for (const auto& line : linesOf(rows)) keys.push_back(line[payee] + "/" + line[reason]);
  EXPECT_THAT(keys, ::testing::ElementsAre("7/1", "7/2", "8/1", "9/1"));
}

TEST_F(SuiteStatements, TheDerivedColumnsHoldWhatTheLineSays) {
  load();
  EXPECT_EQ(work("AnagraficaPerc, Codice, CodiceFiscale, Anticipazione"),
            (Lines{{"Rossi Mario", "A", "RSSMRA70A01L781X", "1"},
                   {"Rossi Mario", "m", "RSSMRA70A01L781X", "0"},
                   {"D'Amico", "A", "09876543210", "0"},
                   {"ÀBATE Zoe", "A", "BTAZOE80A41F205Z", "0"}}));
  EXPECT_EQ(
      work("AmmontareLordo, SommeNonSoggetteARitenuta, SpeseRimborsate, Imponibile, ContributiCaricoAzienda"),
      (Lines{{"2000", "0", "0", "1899.75", "0"},
             {"575.5", "0", "75.5", "500", "0"},
             {"-10.5", "0", "0", "-10.5", "0"},
             {"1003.4", "0.2", "0", "1000.1", "20.2"}}));
  EXPECT_EQ(
      work("IDTipoCausalePagamento, NonResidente, Selezionato, Modificato"),
      (Lines{{"1", "0", "1", "0"}, {"2", "0", "1", "0"}, {"1", "-1", "1", "0"}, {"1", "NULL", "1", "0"}}));
}

TEST_F(SuiteStatements, AReasonWithTrailingBlanksInSmallLettersCountsAsM) {
  load();
  EXPECT_EQ(one("SELECT SpeseRimborsate FROM tmpprequadrivio12 WHERE Codice = 'M'"), "75.5");
}

TEST_F(SuiteStatements, TheFilterComparesTextAsTheDatabaseDoes) {
  load(
      " WHERE Anno = 2016 AND IDAzienda = 1 AND CodicePercipiente >= '0002' AND CodicePercipiente <= '0003 "
      "'");
  EXPECT_EQ(work("IDAnagrafica"), (Lines{{"8"}, {"9"}}));
  load(" WHERE Anno = 2016 AND IDAzienda = 1 AND Anagrafica >= 'ab' AND Anagrafica <= 'd''AMICO'");
  EXPECT_EQ(work("IDAnagrafica"), (Lines{{"8"}, {"9"}}));
  load(" WHERE Anno = 2016 AND IDAzienda = 1 AND Codice >= 'b' AND Codice <= 'M'");
  EXPECT_EQ(work("IDAnagrafica"), (Lines{{"7"}}));
  load(" WHERE Anno = 1999 AND IDAzienda = 1");
  EXPECT_EQ(work("IDAnagrafica"), Lines{});
}

TEST_F(SuiteStatements, TheWorkTableIsDroppedAndMadeAnewAsOftenAsAsked) {
  for (int i = 0; i < 3; ++i) load();
  connection_->Execute(dropWorkTable(kWork));
  connection_->Execute(dropWorkTable(kWork));
  EXPECT_EQ(errorOf([&] { one(kWork); }).kind(), DatabaseErrorKind::Missing);
}

TEST_F(SuiteStatements, TheExistenceTestSeesTablesAndNoViews) {
  connection_->Execute("CREATE VIEW [dbo].[tmpprequadrivio12] AS SELECT Anno FROM ContoIndividuale");
  connection_->Execute(dropWorkTable(kWork));
  EXPECT_EQ(one("SELECT COUNT(*) FROM tmpprequadrivio12"), "5");
}

TEST_F(SuiteStatements, ASecondLineOfOneKeyFailsOnTheKey) {
  connection_->Execute(
      "INSERT INTO ContoIndividuale (IDAnagrafica, IDCausalePagamento, Anno, IDAzienda, "
      "QuotaProvvigioniNonSoggette) "
      "VALUES (7, 1, 2016, 2, 0)");
  const DatabaseError error = errorOf([&] { load(" WHERE Anno = 2016"); });
  EXPECT_EQ(error.kind(), DatabaseErrorKind::Duplicate);
  EXPECT_EQ(error.statementKind(), "INSERT");
  EXPECT_STREQ(error.what(),
               "Esiste già una riga con la stessa chiave (tmpprequadrivio12.IDAnagrafica, "
               "tmpprequadrivio12.IDCausalePagamento, tmpprequadrivio12.Anno).");
  EXPECT_EQ(work("IDAnagrafica"), Lines{});
}

TEST_F(SuiteStatements, ANullWhereNoneIsAllowedFails) {
  connection_->Execute(dropWorkTable(kWork));
  connection_->Execute(createWorkTable(kWork));
  const DatabaseError error = errorOf([&] {
    connection_->Execute(
        "INSERT INTO tmpprequadrivio12 (IDAnagrafica, IDCausalePagamento, Anno, IDAzienda, Codice, "
        "Anticipazione, CodiceFiscale) VALUES (1, 1, 2016, 1, NULL, 0, '')");
  });
  EXPECT_EQ(error.kind(), DatabaseErrorKind::Constraint);
  EXPECT_STREQ(error.what(), "La colonna tmpprequadrivio12.Codice non ammette il valore nullo.");
}

TEST_F(SuiteStatements, TheCountsOfTheGrid) {
  load();
  EXPECT_EQ(one("SELECT COUNT(Selezionato) FROM tmpprequadrivio12 WHERE Selezionato = 1"), "4");
  connection_->Execute(
      "UPDATE tmpprequadrivio12 SET Selezionato = 0 WHERE Anno = 2016 AND IDAnagrafica = 7 AND IDAzienda = 1 "
      "AND "
      "IDCausalePagamento = 2");
  EXPECT_EQ(one("SELECT COUNT(Selezionato) FROM tmpprequadrivio12 WHERE Selezionato = 1"), "3");
  const char* missing =
      "SELECT COUNT(Selezionato) FROM tmpprequadrivio12 WHERE Selezionato = 1 AND (ISNULL(ProtocolloAnnSost, "
      "'') = ''  "
      "OR ISNULL(ProgressivoAnnSost, '') = '')";
  EXPECT_EQ(one(missing), "3");
  connection_->Execute(
      "UPDATE tmpprequadrivio12 SET ProtocolloAnnSost = '123', ProgressivoAnnSost = '   ', Modificato = 1 "
      "WHERE Anno = "
      "2016 AND IDAnagrafica = 9 AND IDAzienda = 1 AND IDCausalePagamento = 1");
  EXPECT_EQ(one(missing), "3");
  connection_->Execute(
      "UPDATE tmpprequadrivio12 SET ProtocolloAnnSost = 'dell''anno', ProgressivoAnnSost = '1', Modificato = "
      "1 WHERE "
      "Anno = 2016 AND IDAnagrafica = 9 AND IDAzienda = 1 AND IDCausalePagamento = 1");
  EXPECT_EQ(one(missing), "2");
  EXPECT_EQ(one("SELECT ProtocolloAnnSost FROM tmpprequadrivio12 WHERE IDAnagrafica = 9"), "dell'anno");
}

TEST_F(SuiteStatements, AConfirmedRowIsWrittenWithAllItsColumns) {
  load();
  std::string text = "UPDATE tmpprequadrivio12 SET ";
  int number = 0;
  for (const char* column : kRowColumns) {
    std::string value = std::to_string(++number) + ".25";
    for (const WorkColumn& work : kWorkColumns) {
      if (std::string_view(work.name) != column) continue;
      const std::string_view type = work.type;
      if (type == "Descrizione" || type == "Note") value = "'t" + std::to_string(number) + "'";
      if (type == "int" || type == "SiNo") value = std::to_string(number);
    }
    text += (number > 1 ? ", " : "") + std::string(column) + " = " + value;
  }
  text += " WHERE Anno = 2016 AND IDAnagrafica = 7 AND IDAzienda = 1 AND IDCausalePagamento = 1";
  connection_->Execute(text);
  EXPECT_EQ(work("ProtocolloAnnSost, Imponibile, AltriContributi, FusioneComuniAnnoPrec, Modificato").front(),
            (std::vector<std::string>{"t1", "10.25", "26.25", "t73", "74"}));
}

class WriteBack : public SuiteStatements {
 protected:
  void change(int payee, int reason, const std::string& set) {
    connection_->Execute("UPDATE tmpprequadrivio12 SET " + set +
                         " WHERE Anno = 2016 AND IDAnagrafica = " + std::to_string(payee) +
                         " AND IDAzienda = 1 AND IDCausalePagamento = " + std::to_string(reason));
  }
  void writeBack() {
    connection_->Execute(writeAccounts(kWork));
    connection_->Execute(writeAdditionalData(kWork));
  }
  Lines accounts() {
    return query(
        *connection_,
        "SELECT OnorarioProvvigioni, QuotaProvvigioniNonSoggette, SommeNonSoggette, ContributoPrevidenziale "
        "FROM ContoIndividuale WHERE Anno = 2016");
  }
  Lines additional() {
    return query(*connection_,
                 "SELECT IDAnagrafica, IDCausalePagamento, Anticipazione, AltriContributi, RitenuteSospese, "
                 "ProtocolloAnnSost FROM ContoIndividualeDatiAggiuntivi");
  }
};

TEST_F(WriteBack, NoChangedRowTouchesNothing) {
  load();
  const Lines before = accounts();
  const Lines others = additional();
  writeBack();
  EXPECT_EQ(accounts(), before);
  EXPECT_EQ(additional(), others);
}

TEST_F(WriteBack, AChangedRowReachesTheAccountAndItsAdditionalData) {
  load();
  change(7, 1,
         "Imponibile = 1000.1, QuotaProvvigioniNonSoggette = 0.2, SommeNonSoggetteARitenuta = 3, "
         "ContributiCaricoAzienda = 0.1, ContributiCaricoPercipiente = 0.2, AltriContributi = 1, "
         "RitenuteSospese = 12.3456, Modificato = 1");
  writeBack();
  EXPECT_EQ(accounts().front(), (std::vector<std::string>{"1000.3", "0.2", "3", "0.3"}));
  EXPECT_EQ(additional(), (Lines{{"7", "1", "1", "1", "12.3456", "NULL"}}));
}

TEST_F(WriteBack, AChangedRowWithoutAdditionalDataGetsThem) {
  load();
  change(9, 1, "ProtocolloAnnSost = 'P1', Modificato = -1");
  writeBack();
  EXPECT_EQ(additional(),
            (Lines{{"7", "1", "1", "-1", "NULL", "NULL"}, {"9", "1", "0", "NULL", "NULL", "P1"}}));
}

TEST_F(WriteBack, AChangedRowThatIsNotSelectedIsNotWritten) {
  load();
  change(9, 1, "Imponibile = 1, ProtocolloAnnSost = 'P1', Modificato = 1, Selezionato = 0");
  const Lines before = accounts();
  const Lines others = additional();
  writeBack();
  EXPECT_EQ(accounts(), before);
  EXPECT_EQ(additional(), others);
}

TEST_F(WriteBack, RunAgainItChangesNothing) {
  load();
  change(7, 1, "Imponibile = 123.45, Modificato = 1");
  change(8, 1, "Imponibile = 99.9, Modificato = 1");
  writeBack();
  const Lines once = accounts();
  const Lines others = additional();
  writeBack();
  writeBack();
  EXPECT_EQ(accounts(), once);
  EXPECT_EQ(additional(), others);
}

TEST_F(WriteBack, ForMAndOTheRefundedExpensesLeaveTheAccount) {
  load();
  change(7, 2, "Modificato = 1");
  writeBack();
  EXPECT_EQ(
      one("SELECT SommeNonSoggette FROM ContoIndividuale WHERE IDAnagrafica = 7 AND IDCausalePagamento = 2"),
      "0");
}

TEST_F(WriteBack, TheStatementsSayHowManyRowsTheyTouch) {
  load();
  const std::string row =
      " WHERE Anno = 2016 AND IDAnagrafica = 7 AND IDAzienda = 1 AND IDCausalePagamento = ";
  EXPECT_EQ(connection_->Execute("UPDATE tmpprequadrivio12 SET Modificato = 1" + row + "2"), 1);
  EXPECT_EQ(connection_->Execute("UPDATE tmpprequadrivio12 SET Modificato = 1" + row + "99"), 0);
  EXPECT_EQ(connection_->Execute("UPDATE tmpprequadrivio12 SET Modificato = 1"),
            std::stoll(one("SELECT COUNT(*) FROM tmpprequadrivio12")));
  connection_->Execute("DELETE FROM ContoIndividualeDatiAggiuntivi WHERE IDAnagrafica = 7");
  for (int i = 0; i < 2; ++i) {  // the second time all additional data exist
    EXPECT_EQ(connection_->Execute(writeAccounts(kWork)),
              std::stoll(one("SELECT COUNT(*) FROM tmpprequadrivio12")));
    EXPECT_EQ(connection_->Execute(writeAdditionalData(kWork)),
              std::stoll(one("SELECT COUNT(*) FROM tmpprequadrivio12")));
  }
  connection_->Execute("UPDATE tmpprequadrivio12 SET Selezionato = 0");
  EXPECT_EQ(connection_->Execute(writeAccounts(kWork)), 0);
  EXPECT_EQ(connection_->Execute(writeAdditionalData(kWork)), 0);
  EXPECT_EQ(connection_->Execute(dropWorkTable(kWork)), -1);
  EXPECT_EQ(connection_->Execute(createWorkTable(kWork)), -1);
  EXPECT_EQ(connection_->Execute("SELECT 1"), -1);
}

TEST_F(WriteBack, AMergeThatFailsInItsSecondStepLeavesNothingOfTheFirst) {
  connection_->Execute("CREATE TABLE Meta (a int NOT NULL, b int NOT NULL, PRIMARY KEY (a))");
  connection_->Execute("CREATE TABLE Fonte (a int, b int)");
  connection_->Execute("INSERT INTO Meta VALUES (1, 10)");
  connection_->Execute("INSERT INTO Fonte VALUES (1, 11), (2, NULL)");
  const char* merge =
      "MERGE INTO Meta USING Fonte ON (Meta.a = Fonte.a) WHEN MATCHED THEN UPDATE SET b = Fonte.b WHEN NOT "
      "MATCHED THEN "
      "INSERT (a, b) VALUES (Fonte.a, Fonte.b);";
  EXPECT_EQ(errorOf([&] { connection_->Execute(merge); }).kind(), DatabaseErrorKind::Constraint);
  EXPECT_EQ(query(*connection_, "Meta"), (Lines{{"1", "10"}}));
  connection_->Execute("BEGIN TRANSACTION");
  connection_->Execute("INSERT INTO Meta VALUES (5, 50)");
  EXPECT_EQ(errorOf([&] { connection_->Execute(merge); }).kind(), DatabaseErrorKind::Constraint);
  connection_->Execute("COMMIT TRANSACTION");
  EXPECT_EQ(query(*connection_, "Meta"), (Lines{{"1", "10"}, {"5", "50"}}));
}

TEST_F(WriteBack, AMergeThatWouldChangeOneRowTwiceIsRefused) {
  connection_->Execute("CREATE TABLE Meta (a int NOT NULL PRIMARY KEY, b int)");
  connection_->Execute("CREATE TABLE Fonte (a int, b int)");
  connection_->Execute("INSERT INTO Meta VALUES (1, 10)");
  connection_->Execute("INSERT INTO Fonte VALUES (1, 11), (1, 12)");
  const DatabaseError error = errorOf([&] {
    connection_->Execute(
        "MERGE INTO Meta USING Fonte ON Meta.a = Fonte.a WHEN MATCHED THEN UPDATE SET b = Fonte.b;");
  });
  EXPECT_EQ(error.kind(), DatabaseErrorKind::Constraint);
  EXPECT_EQ(query(*connection_, "Meta"), (Lines{{"1", "10"}}));
}

}  // namespace
}  // namespace cu::sqlite::test
